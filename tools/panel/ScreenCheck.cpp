#include "tools/panel/ScreenCheck.h"

namespace FPPANEL {

namespace {

std::string TrimRight(std::string s, const char* what) {
    s.erase(s.find_last_not_of(what) + 1);
    return s;
}

bool IsMask(const std::string& s) {
    return s.find_first_not_of("#.") == std::string::npos;
}

}  // namespace

RowExpectation_t ScreenCheck::ParseRow(const std::string& written) {
    RowExpectation_t e;
    if (written.empty() || written[0] != '|') {
        e.text = written;
        return e;
    }
    const size_t close = written.rfind('|');
    std::string after = close > 0 ? written.substr(close + 1) : std::string("x");
    after.erase(0, after.find_first_not_of(' '));
    after = TrimRight(after, " ");
    if (close > 0 && IsMask(after)) {
        e.text = written.substr(1, close - 1);
        e.mask = after;
    } else {
        // A bar inside the text, and none closing it.
        e.text = written.substr(1);
    }
    return e;
}

std::string ScreenCheck::CheckRow(const FPSIM::PanelState_t& state, unsigned row,
                                  const RowExpectation_t& expected, bool utf8) {
    const FPSIM::PanelGrid& grid = state.grid;
    if (row >= grid.Height())
        return "row " + std::to_string(row + 1) + " does not exist; the panel has " +
               std::to_string(grid.Height());
    const std::string shown = TrimRight(grid.RenderPlain(row, utf8), " ");
    const std::string mask = grid.ReverseMask(row);
    const bool textOk = shown == TrimRight(expected.text, " ");
    const bool maskOk =
        expected.mask.empty() || TrimRight(mask, ".") == TrimRight(expected.mask, ".");
    if (textOk && maskOk)
        return "";
    std::string what =
        "row " + std::to_string(row + 1) + " shows |" + grid.RenderPlain(row, utf8) + "|";
    if (!maskOk)
        what += "  " + mask;
    what += ", expected |" + expected.text + "|";
    if (!maskOk)
        what += "  " + expected.mask;
    return what;
}

std::string ScreenCheck::CheckScreen(const FPSIM::PanelState_t& state,
                                     const std::vector<std::string>& written, bool utf8) {
    std::vector<RowExpectation_t> rows;
    for (const std::string& line : written)
        if (line.empty() || line[0] != '+')
            rows.push_back(ParseRow(line));
    if (rows.size() > state.grid.Height())
        return std::to_string(rows.size()) + " rows expected; the panel has " +
               std::to_string(state.grid.Height());
    rows.resize(state.grid.Height());
    std::string differences;
    for (unsigned row = 0; row < rows.size(); ++row) {
        const std::string d = CheckRow(state, row, rows[row], utf8);
        if (!d.empty())
            differences += (differences.empty() ? "" : "\n") + d;
    }
    return differences;
}

}  // namespace FPPANEL
