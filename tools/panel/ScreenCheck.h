#pragma once

#include <string>
#include <vector>

#include "sim/PanelState.h"

namespace FPPANEL {

/// One display row as a script expects it.
struct RowExpectation_t {
    std::string text;  // as the panel shows it; trailing blanks do not count
    std::string mask;  // '#' reverse, '.' normal; empty: reverse video not checked
};

/// Checks the panel's rows against what a script wrote. A row is written as
/// plain text, or framed the way a dump prints it ("|> Status   |"), which
/// keeps leading blanks visible; after the closing bar may come the reverse
/// mask a dump prints ("##......").
/// Threads: any; it keeps no state.
class ScreenCheck {
public:
    static RowExpectation_t ParseRow(const std::string& written);
    /// Empty when row (counted from 0) matches, else what the panel shows instead.
    static std::string CheckRow(const FPSIM::PanelState_t& state, unsigned row,
                                const RowExpectation_t& expected, bool utf8);
    /// The whole display, top row first; border lines ("+---+") are skipped
    /// so a dump can be pasted. Rows left out must be blank.
    static std::string CheckScreen(const FPSIM::PanelState_t& state,
                                   const std::vector<std::string>& written, bool utf8);
};

}  // namespace FPPANEL
