#include "testing/PanelView.h"

#include <algorithm>
#include <ostream>
#include <vector>

namespace FP::Testing {
namespace {

std::string TrimRight(std::string text) {
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

}  // namespace

PanelView::PanelView(const FPSIM::PanelState_t& state) : state_(state) {}

std::string PanelView::Row(unsigned row) const {
    return row < Height() ? TrimRight(state_.grid.RenderPlain(row)) : std::string();
}

std::string PanelView::Marked(unsigned row) const {
    return row < Height() ? TrimRight(state_.grid.RenderMarked(row)) : std::string();
}

std::string PanelView::Text() const {
    std::string out;
    for (unsigned row = 0; row < Height(); ++row)
        out += (row ? "\n" : "") + Row(row);
    return out;
}

bool PanelView::Reverse(unsigned column, unsigned row) const {
    return column < Width() && row < Height() && state_.grid.Reverse(column, row);
}

std::string PanelView::ReverseText(unsigned row) const {
    std::string out;
    for (unsigned column = 0; column < Width(); ++column)
        if (Reverse(column, row))
            out += FPSIM::PanelGrid::Glyph(state_.grid.Char(column, row), false);
    return out;
}

bool PanelView::HasSymbol(uint8_t symbol) const {
    for (unsigned row = 0; row < Height(); ++row)
        for (unsigned column = 0; column < Width(); ++column)
            if (state_.grid.Char(column, row) == symbol)
                return true;
    return false;
}

bool PanelView::Led(unsigned led) const {
    auto it = state_.leds.find(static_cast<uint8_t>(led));
    return it != state_.leds.end() && it->second;
}

std::string PanelView::Picture() const {
    // Marked rows are wider than the grid where they hold reverse runs, so
    // the frame is padded to the widest row rather than to the grid.
    std::vector<std::string> rows;
    size_t width = Width();
    for (unsigned row = 0; row < Height(); ++row) {
        rows.push_back(state_.grid.RenderMarked(row));
        width = std::max(width, rows.back().size());
    }
    const std::string edge = "+" + std::string(width, '-') + "+\n";
    std::string out = "\n" + edge;
    for (const std::string& row : rows)
        out += "|" + row + std::string(width - row.size(), ' ') + "|\n";
    out += edge;
    out += "LEDs on:";
    bool any = false;
    for (const auto& led : state_.leds)
        if (led.second) {
            out += " " + std::to_string(led.first);
            any = true;
        }
    if (!any)
        out += " none";
    auto value = [](int v) { return v < 0 ? std::string("unset") : std::to_string(v); };
    out += "; status " + value(state_.unitStatus) + "; brightness " + value(state_.brightness) +
           "; fans " +
           (state_.fanState < 0 ? "unset"
            : state_.fanState   ? "on"
                                : "off") +
           (state_.linkUp ? "" : "; link down") + "\n";
    return out;
}

void PrintTo(const PanelView& view, std::ostream* out) {
    *out << view.Picture();
}

std::ostream& operator<<(std::ostream& out, const PanelView& view) {
    return out << view.Picture();
}

}  // namespace FP::Testing
