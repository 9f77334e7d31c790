#pragma once

#include <string>

namespace FPPANEL {

// One line of headless input, parsed.
struct HeadlessCommand_t {
    enum Kind_e { NONE, DUMP, PRESS, DOWN, UP, HOLD, TEMP, FAN, QUIT, BAD };
    Kind_e kind = NONE;
    int key = 0;        // PRESS, DOWN, UP, HOLD
    long value = 0;     // HOLD: ms; TEMP: degrees; FAN: speed
    unsigned fan = 0;   // FAN: 0..2
    std::string error;  // BAD: what was wrong
};

class HeadlessCommand {
public:
    // Blank lines and lines starting with '#' are NONE.
    static HeadlessCommand_t Parse(const std::string& line);
};

}  // namespace FPPANEL
