#pragma once

#include <string>

#include "fp/display/Display.h"

namespace FP {
namespace RowWriter {

// The window stores its lines back to back, so a word running past the row
// end would spill into the next row, and a column past the end would be
// ignored and the word land where the last write left off. The choice and
// number lines draw piece by piece, so each piece is cut to its row here.
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
        Word(d, std::string(static_cast<size_t>(lineWidth - column), ' '), row, column, false);
    }
}

}  // namespace RowWriter
}  // namespace FP
