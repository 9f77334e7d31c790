#include "tools/panel/HeadlessCommand.h"

#include <cerrno>
#include <cstdlib>
#include <sstream>
#include <vector>

#include "tools/panel/KeyMap.h"

namespace FPPANEL {

namespace {

bool ToLong(const std::string& text, long min, long max, long& out) {
    char* end = nullptr;
    errno = 0;
    const long v = std::strtol(text.c_str(), &end, 10);
    if (text.empty() || errno != 0 || *end != '\0' || v < min || v > max)
        return false;
    out = v;
    return true;
}

// What follows the first n words and the one blank after them, verbatim: a
// row's leading blanks are part of it.
std::string Rest(const std::string& line, size_t n) {
    size_t at = 0;
    for (size_t i = 0; i < n; ++i) {
        at = line.find_first_not_of(" \t", at);
        at = line.find_first_of(" \t", at);
        if (at == std::string::npos)
            return "";
    }
    return line.substr(at + 1);
}

HeadlessCommand_t Bad(const std::string& error) {
    HeadlessCommand_t c;
    c.kind = HeadlessCommand_t::BAD;
    c.error = error;
    return c;
}

}  // namespace

HeadlessCommand_t HeadlessCommand::Parse(const std::string& line) {
    std::istringstream in(line);
    std::vector<std::string> words;
    for (std::string w; in >> w;)
        words.push_back(w);
    HeadlessCommand_t c;
    if (words.empty() || words[0][0] == '#')
        return c;
    const std::string& verb = words[0];
    auto keyAt = [&](size_t i) { return i < words.size() ? KeyMap::FromName(words[i]) : -1; };

    if (verb == "expect" && words.size() >= 2) {
        long row;
        if (!ToLong(words[1], 1, 256, row))
            return Bad("bad row '" + words[1] + "' (counted from 1)");
        c.kind = HeadlessCommand_t::EXPECT;
        c.row = unsigned(row - 1);
        c.text = Rest(line, 2);
        return c;
    }
    if (verb == "snapshot" && words.size() >= 2) {
        c.kind = HeadlessCommand_t::SNAPSHOT;
        c.text = Rest(line, 1);
        c.text.erase(c.text.find_last_not_of(" \t") + 1);
        c.text.erase(0, c.text.find_first_not_of(" \t"));
        return c;
    }
    if (words.size() == 1) {
        if (verb == "dump") {
            c.kind = HeadlessCommand_t::DUMP;
        } else if (verb == "quit") {
            c.kind = HeadlessCommand_t::QUIT;
        } else if (verb == "sync") {
            c.kind = HeadlessCommand_t::SYNC;
        } else if (verb == "expect-screen") {
            c.kind = HeadlessCommand_t::EXPECT_SCREEN;
        } else if ((c.key = keyAt(0)) > 0) {
            c.kind = HeadlessCommand_t::PRESS;
        } else {
            return Bad("unknown key or command '" + verb + "'");
        }
        return c;
    }
    if ((verb == "down" || verb == "up") && words.size() == 2) {
        if ((c.key = keyAt(1)) <= 0)
            return Bad("unknown key '" + words[1] + "'");
        c.kind = verb == "down" ? HeadlessCommand_t::DOWN : HeadlessCommand_t::UP;
        return c;
    }
    if (verb == "hold" && words.size() == 3) {
        if ((c.key = keyAt(1)) <= 0)
            return Bad("unknown key '" + words[1] + "'");
        if (!ToLong(words[2], 0, 600000, c.value))
            return Bad("bad time '" + words[2] + "'");
        c.kind = HeadlessCommand_t::HOLD;
        return c;
    }
    if ((verb == "wait" || verb == "sync") && words.size() == 2) {
        if (!ToLong(words[1], verb == "sync" ? 1 : 0, 600000, c.value))
            return Bad("bad time '" + words[1] + "'");
        c.kind = verb == "wait" ? HeadlessCommand_t::WAIT : HeadlessCommand_t::SYNC;
        return c;
    }
    if (verb == "temp" && words.size() == 2) {
        if (!ToLong(words[1], -32768, 32767, c.value))
            return Bad("bad temperature '" + words[1] + "'");
        c.kind = HeadlessCommand_t::TEMP;
        return c;
    }
    if (verb == "fan" && words.size() == 3) {
        long fan;
        if (!ToLong(words[1], 1, 3, fan))
            return Bad("bad fan '" + words[1] + "' (1-3)");
        if (!ToLong(words[2], 0, 65535, c.value))
            return Bad("bad fan speed '" + words[2] + "'");
        c.fan = unsigned(fan - 1);
        c.kind = HeadlessCommand_t::FAN;
        return c;
    }
    return Bad("cannot make sense of '" + line + "'");
}

}  // namespace FPPANEL
