#pragma once

#include <string>
#include <vector>

namespace FP {
namespace internal {

// Two copies of the panel's cells: what the panel should end up showing (the
// target) and what it is known to show now. Either may be unknown cell by
// cell. The difference comes out as runs of text ready to send, joined where
// resending a few unchanged cells is cheaper than starting another run.
// Threads: one at a time (the display's).
class PanelShadow {
public:
    // A text to write at (column, line), in reverse video when inverted.
    struct Run_t {
        std::string text;
        unsigned column;
        unsigned line;
        bool inverted;
    };

    PanelShadow(unsigned width, unsigned height);

    // True when every cell text covers from (column, line) is on the grid.
    bool Fits(const std::string& text, unsigned column, unsigned line) const;
    // Lays the part of text that is on the grid into the target as the panel
    // would show it; with sent, the panel is known to show it already.
    void Write(const std::string& text, unsigned column, unsigned line, bool inverted, bool sent);
    // Both copies become blank: the panel was just cleared.
    void Clear();
    // Nothing is known about what the panel shows any more.
    void Forget();
    // The runs that bring the panel to the target, taken as sent.
    std::vector<Run_t> TakeChanges();

private:
    struct Cell {
        char c = ' ';
        bool inverted = false;
        bool known = false;
        bool operator==(const Cell& o) const {
            return known == o.known && (!known || (c == o.c && inverted == o.inverted));
        }
    };
    void ChangesInLine(unsigned line, std::vector<Run_t>& runs);

    unsigned width_;
    unsigned height_;
    std::vector<Cell> target_;
    std::vector<Cell> shown_;
};

}  // namespace internal
}  // namespace FP
