#include "fp/display/internal/PanelShadow.h"

#include <algorithm>

namespace FP {
namespace internal {

namespace {

// Bytes a run costs beyond its text: column, row and text frames of three
// bytes each plus their one-byte payloads; reverse video adds a frame to
// switch it on and one to switch it off.
const unsigned kRunFraming = 11;
const unsigned kReverseFraming = 8;

}  // namespace

PanelShadow::PanelShadow(unsigned width, unsigned height)
    : width_(width),
      height_(height),
      target_(size_t(width) * height),
      shown_(size_t(width) * height) {}

bool PanelShadow::Fits(const std::string& text, unsigned column, unsigned line) const {
    return text.empty() || (line < height_ && column < width_ && text.size() <= width_ - column);
}

void PanelShadow::Write(const std::string& text, unsigned column, unsigned line, bool inverted,
                        bool sent) {
    if (line >= height_ || column >= width_)
        return;
    const size_t fits = std::min<size_t>(text.size(), width_ - column);
    const size_t at = size_t(line) * width_ + column;
    for (size_t i = 0; i < fits; ++i) {
        target_[at + i] = Cell{text[i], inverted, true};
        if (sent)
            shown_[at + i] = target_[at + i];
    }
}

void PanelShadow::Clear() {
    const Cell blank{' ', false, true};
    target_.assign(target_.size(), blank);
    shown_.assign(shown_.size(), blank);
}

void PanelShadow::Forget() {
    shown_.assign(shown_.size(), Cell());
}

std::vector<PanelShadow::Run_t> PanelShadow::TakeChanges() {
    std::vector<Run_t> runs;
    for (unsigned line = 0; line < height_; ++line)
        ChangesInLine(line, runs);
    return runs;
}

void PanelShadow::ChangesInLine(unsigned line, std::vector<Run_t>& runs) {
    Cell* target = &target_[size_t(line) * width_];
    Cell* shown = &shown_[size_t(line) * width_];
    // A cell is sent when its target is known and the panel may show something else.
    auto needed = [&](unsigned col) { return target[col].known && !(target[col] == shown[col]); };
    unsigned col = 0;
    while (col < width_) {
        if (!needed(col)) {
            ++col;
            continue;
        }
        const bool inverted = target[col].inverted;
        const unsigned framing = kRunFraming + (inverted ? kReverseFraming : 0);
        unsigned end = col + 1;  // one past the last cell of the run
        for (unsigned next = end; next < width_; ++next) {
            if (!target[next].known || target[next].inverted != inverted)
                break;
            if (needed(next)) {
                end = next + 1;
            } else if (next - end + 1 >= framing) {
                break;  // a new run is cheaper than resending this many cells
            }
        }
        std::string text;
        for (unsigned i = col; i < end; ++i) {
            text += target[i].c;
            shown[i] = target[i];
        }
        runs.push_back({text, col, line, inverted});
        col = end;
    }
}

}  // namespace internal
}  // namespace FP
