#pragma once

#include <string>

#include "fp/display/Display.h"
#include "fp/menu/detail/RowLead.h"

namespace FP {
namespace RowWriter {

// The window stores its rows back to back, so text running past the row end
// would spill into the next row, and a column past the end would be ignored
// and the text land where the last write left off. The lines that draw piece
// by piece therefore cut every piece to its row here.
inline void Word(Display& d, const std::string& text, int row, int column, bool reverse) {
    const int width = static_cast<int>(d.GetDisplayWidth());
    if (row < 0 || column < 0 || column >= width || text.empty()) {
        return;
    }
    const std::string piece = text.substr(0, static_cast<size_t>(width - column));
    if (reverse) {
        d.WriteReverseWord(piece, static_cast<unsigned>(row), static_cast<unsigned>(column));
    } else {
        d.WriteWord(piece, static_cast<unsigned>(row), static_cast<unsigned>(column));
    }
}

inline void Write(Display& d, const std::string& text, int row, int column) {
    Word(d, text, row, column, false);
}

// A reverse word is an overlay sent on its own, not window text, so it
// cannot spill; it is kept whole as long as it starts on the row. The
// two-word choice relies on this for its last word on a narrow panel.
inline void Overlay(Display& d, const std::string& text, int row, int column) {
    if (row >= 0 && column >= 0 && column < static_cast<int>(d.GetDisplayWidth())) {
        d.WriteReverseWord(text, static_cast<unsigned>(row), static_cast<unsigned>(column));
    }
}

inline void Char(Display& d, unsigned char c, int row, int column, bool reverse) {
    if (row < 0 || column < 0 || column >= static_cast<int>(d.GetDisplayWidth())) {
        return;
    }
    if (reverse) {
        d.WriteReverseChar(c, static_cast<unsigned>(row), static_cast<unsigned>(column));
    } else {
        d.WriteChar(c, static_cast<unsigned>(row), static_cast<unsigned>(column));
    }
}

// Blanks from column up to lineWidth (one past the last column, which the
// cut above drops).
inline void Pad(Display& d, int row, int column, int lineWidth) {
    if (lineWidth > column) {
        Write(d, std::string(static_cast<size_t>(lineWidth - column), ' '), row, column);
    }
}

// Clears the row and writes the offset blanks and the caption. Returns the
// column after them, counting a negative offset as none.
inline int Caption(Display& d, int row, int offset, const std::string& caption) {
    d.ClearLine(static_cast<unsigned>(row));
    const std::string lead = RowLead(offset, caption);
    Write(d, lead, row, 0);
    return static_cast<int>(lead.size());
}

// Characters pos..pos+n of text, or fewer (none) where text is shorter.
inline std::string Part(const std::string& text, size_t pos, size_t n) {
    return pos < text.size() ? text.substr(pos, n) : std::string();
}

}  // namespace RowWriter
}  // namespace FP
