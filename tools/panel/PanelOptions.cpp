#include "tools/panel/PanelOptions.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <vector>

#include "kt/LinkAddress.h"
#include "sim/PanelGrid.h"

namespace FPPANEL {

namespace {

bool ParseLong(const std::string& text, long min, long max, long& out) {
    if (text.empty())
        return false;
    char* end = nullptr;
    errno = 0;
    const long v = std::strtol(text.c_str(), &end, 0);
    if (errno != 0 || *end != '\0' || v < min || v > max)
        return false;
    out = v;
    return true;
}

// The emulator listens, so a serial line is no use here.
bool ValidAddress(const std::string& a) {
    const KT::CLinkAddress parsed(a);
    return parsed.GetScheme() == KT::CLinkAddress::SCHEME_TCP ||
           parsed.GetScheme() == KT::CLinkAddress::SCHEME_UNIX;
}

}  // namespace

bool PanelOptions::ParseSize(const std::string& text, unsigned& width, unsigned& height) {
    const size_t x = text.find_first_of("xX");
    long w, h;
    if (x == std::string::npos || !ParseLong(text.substr(0, x), 1, FPSIM::PanelGrid::kMaxSide, w) ||
        !ParseLong(text.substr(x + 1), 1, FPSIM::PanelGrid::kMaxSide, h))
        return false;
    // strtol takes a sign and leading blanks; a size is plain digits.
    for (char c : text)
        if (c != 'x' && c != 'X' && (c < '0' || c > '9'))
            return false;
    width = unsigned(w);
    height = unsigned(h);
    return true;
}

namespace {

// Stores an option's value; false when the value is not acceptable.
using Setter = std::function<bool(const std::string& value, PanelOptions_t& out)>;

struct Option_t {
    const char* name;
    const char* what;  // what a bad value is called in the error; null: a flag without a value
    Setter set;
};

Setter Flag(bool PanelOptions_t::*field) {
    return [field](const std::string&, PanelOptions_t& out) {
        out.*field = true;
        return true;
    };
}

// A file name must not be empty; other text may be.
Setter Text(std::string PanelOptions_t::*field, bool needed = false) {
    return [field, needed](const std::string& value, PanelOptions_t& out) {
        if (needed && value.empty())
            return false;
        out.*field = value;
        return true;
    };
}

template <class T>
Setter Number(T PanelOptions_t::*field, long min, long max) {
    return [field, min, max](const std::string& value, PanelOptions_t& out) {
        long n;
        if (!ParseLong(value, min, max, n))
            return false;
        out.*field = T(n);
        return true;
    };
}

bool SetListen(const std::string& value, PanelOptions_t& out) {
    if (!ValidAddress(value))
        return false;
    out.listen = value;
    return true;
}

bool SetSize(const std::string& value, PanelOptions_t& out) {
    return PanelOptions::ParseSize(value, out.width, out.height);
}

bool SetVoltage(const std::string& value, PanelOptions_t& out) {
    char* end = nullptr;
    const float v = std::strtof(value.c_str(), &end);
    if (value.empty() || *end != '\0' || !std::isfinite(v))
        return false;
    out.voltage = v;
    return true;
}

const std::vector<Option_t>& Options() {
    using O = PanelOptions_t;
    static const std::vector<Option_t> options = {
        {"--headless", nullptr, Flag(&O::headless)},
        {"--dump-on-change", nullptr, Flag(&O::dumpOnChange)},
        {"--ascii", nullptr, Flag(&O::ascii)},
        {"--listen", "address (tcp:HOST:PORT or unix:PATH)", SetListen},
        {"--web", "", Text(&O::web)},
        {"--web-token", "", Text(&O::webToken)},
        {"--size", "size (COLUMNSxROWS, each 1..256)", SetSize},
        {"--slot", "number (0..255)", Number(&O::slotId, 0, 255)},
        {"--display-type", "number (0..255)", Number(&O::displayType, 0, 255)},
        {"--voltage", "voltage", SetVoltage},
        {"--panel-version", "", Text(&O::version)},
        {"--temperature", "temperature", Number(&O::temperature, -32768, 32767)},
        {"--fan-speed", "fan speed", Number(&O::fanSpeed, 0, 65535)},
        {"--script", "file", Text(&O::script, true)},
        {"--record", "file", Text(&O::record, true)},
        {"--sync-ms", "time (1..600000 ms)", Number(&O::syncMs, 1, 600000)},
        {"--sync-timeout-ms", "time (1..600000 ms)", Number(&O::syncTimeoutMs, 1, 600000)},
        {"--release-ms", "time (10..5000 ms)", Number(&O::releaseMs, 10, 5000)},
        {"--baud", "baud rate (50..4000000)", Number(&O::baud, 50, 4000000)},
    };
    return options;
}

const Option_t* Find(const std::string& name) {
    for (const Option_t& option : Options())
        if (name == option.name)
            return &option;
    return nullptr;
}

}  // namespace

PanelOptions::Result_e PanelOptions::Parse(int argc, const char* const* argv, PanelOptions_t& out,
                                           std::string& error) {
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        std::string name = arg, value;
        bool hasValue = false;
        const size_t eq = arg.find('=');
        if (arg.compare(0, 2, "--") == 0 && eq != std::string::npos) {
            name = arg.substr(0, eq);
            value = arg.substr(eq + 1);
            hasValue = true;
        }
        if (name == "-h" || name == "--help")
            return PARSE_HELP;
        const Option_t* option = Find(name);
        if (!option) {
            error = "unknown option '" + arg + "'";
            return PARSE_ERROR;
        }
        if (!option->what && hasValue) {
            error = name + " takes no value";
            return PARSE_ERROR;
        }
        if (option->what && !hasValue) {
            if (i + 1 >= argc) {
                error = name + " needs a value";
                return PARSE_ERROR;
            }
            value = argv[++i];
        }
        if (!option->set(value, out)) {
            error = "bad " + std::string(option->what) + " for " + name + ": '" + value + "'";
            return PARSE_ERROR;
        }
    }
    return PARSE_OK;
}

std::string PanelOptions::Usage(const std::string& program) {
    return "Usage: " + program +
           " [options]\n"
           "Emulates the panel controller: the unit connects to it, it shows the display,\n"
           "LEDs and indicators and sends keys, temperature and fan reports.\n"
           "\n"
           "  --listen ADDR        tcp:HOST:PORT or unix:PATH (default tcp:127.0.0.1:7070)\n"
           "  --size COLSxROWS     display size, each 1..256 (default 20x4)\n"
           "  --slot N             slot id reported to the unit (default 1)\n"
           "  --voltage V          slot voltage reported (default 12.0)\n"
           "  --display-type N     display type reported (default 1)\n"
           "  --panel-version TEXT version text reported (default \"fp-panel 1.0\")\n"
           "  --temperature T      initial simulated temperature (default 25)\n"
           "  --fan-speed S        initial simulated speed of all three fans (default 2000)\n"
           "  --release-ms MS      a held key goes up when the terminal repeats it no more\n"
           "                       for this long (default 120)\n"
           "  --baud N             carry the unit's connection as a serial line at N baud\n"
           "                       (10 bits a byte, both ways), to feel a real panel's lag\n"
           "  --record FILE        save the terminal session as a script for --script\n"
           "  --web HOST:PORT      also show the panel to browsers at http://HOST:PORT/\n"
           "  --web-token TEXT     browsers need TEXT to press keys (made up and printed\n"
           "                       when HOST is not a loopback address)\n"
           "  --headless           no screen; also the default without a terminal\n"
           "  --script FILE        headless, commands from FILE instead of standard input\n"
           "  --sync-ms MS         how long the unit must stay quiet for sync (default 150)\n"
           "  --sync-timeout-ms MS how long sync may wait before failing (default 10000)\n"
           "  --dump-on-change     headless: print the panel whenever it changes\n"
           "  --ascii              headless: symbols as ASCII stand-ins instead of UTF-8\n"
           "  -h, --help           this text\n"
           "\n"
           "Headless, the input takes one command per line ('#' starts a comment):\n"
           "  dump                 print the panel (also on SIGUSR1); ends with an empty line\n"
           "  KEY                  press and release a key: UP DOWN LEFT RIGHT ENTER EXIT\n"
           "                       BACKSPACE DELETE REFRESH SPACEBAR 0-9 a-z A-Z\n"
           "  down KEY | up KEY    key down or up only\n"
           "  hold KEY MS          key down, up after MS milliseconds (does not wait)\n"
           "  temp T | fan N S     set the temperature, or fan N (1-3) to speed S\n"
           "  wait MS              do nothing for MS milliseconds\n"
           "  sync [MS]            wait until the unit is connected and has been quiet for\n"
           "                       MS (default --sync-ms)\n"
           "  expect ROW TEXT      row ROW (from 1) shows TEXT, trailing blanks ignored;\n"
           "                       write |TEXT| to keep leading blanks, and a mask after it\n"
           "                       ('#' reverse, '.' normal) to check reverse video\n"
           "  expect-screen        the whole display: the lines that follow, each |ROW|\n"
           "                       as dump prints it; rows left out must be blank\n"
           "  snapshot FILE        save the panel to FILE (.txt, .svg or .png)\n"
           "  quit\n"
           "A script (any input but a terminal) stops at the first bad command, failed\n"
           "expectation, unsent key or sync timeout: exit status 1, the panel on stderr.\n"
           "It ends with status 0 at the end of its input.\n";
}

}  // namespace FPPANEL
