#pragma once

#include <string>

namespace FPPANEL {

// One line of headless input, parsed.
struct HeadlessCommand_t {
    enum Kind_e {
        NONE,
        DUMP,
        PRESS,
        DOWN,
        UP,
        HOLD,
        TEMP,
        FAN,
        QUIT,
        WAIT,
        SYNC,
        EXPECT,
        EXPECT_SCREEN,  // the rows follow on the next lines
        SNAPSHOT,
        BAD
    };
    Kind_e kind = NONE;
    int key = 0;        // PRESS, DOWN, UP, HOLD
    long value = 0;     // HOLD, WAIT: ms; SYNC: quiet ms, 0 for the default; TEMP: degrees;
                        // FAN: speed
    unsigned fan = 0;   // FAN: 0..2
    unsigned row = 0;   // EXPECT: counted from 0
    std::string text;   // EXPECT: the row as written; SNAPSHOT: the file
    std::string error;  // BAD: what was wrong
};

/// Parses fp-panel's headless commands, one line at a time.
/// Threads: any; it keeps no state.
class HeadlessCommand {
public:
    /// Blank lines and lines starting with '#' are NONE.
    static HeadlessCommand_t Parse(const std::string& line);
};

}  // namespace FPPANEL
