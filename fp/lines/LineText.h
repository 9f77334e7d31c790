#pragma once

#include <string>

#include "fp/display/Display.h"

namespace FP {
namespace LineText {

// Writes text on one row, cut at the right edge: the window would otherwise
// wrap the rest onto the next row and overwrite the line drawn there.
inline void WriteRow(Display& display, const std::string& text, int row, int column) {
    const int width = static_cast<int>(display.GetDisplayWidth());
    if (row < 0 || column < 0 || column >= width || text.empty()) {
        return;
    }
    display.WriteWord(text.substr(0, static_cast<size_t>(width - column)),
                      static_cast<unsigned int>(row), static_cast<unsigned int>(column));
}

// The same for reverse video; cells past the edge do not exist on the panel.
inline void WriteReverseRow(Display& display, const std::string& text, int row, int column) {
    const int width = static_cast<int>(display.GetDisplayWidth());
    if (row < 0 || column < 0 || column >= width || text.empty()) {
        return;
    }
    display.WriteReverseWord(text.substr(0, static_cast<size_t>(width - column)),
                             static_cast<unsigned int>(row), static_cast<unsigned int>(column));
}

// Blanks from column to the end of the row, or up to lineWidth when that
// comes first.
inline void PadRow(Display& display, int row, int column, int lineWidth) {
    const int width = static_cast<int>(display.GetDisplayWidth());
    const int end = lineWidth < width ? lineWidth : width;
    if (end > column && column >= 0) {
        WriteRow(display, std::string(static_cast<size_t>(end - column), ' '), row, column);
    }
}

// Clears the row and writes offset blanks and the caption; returns the
// column where the value starts.
inline int WriteCaption(Display& display, int row, int offset, const std::string& caption) {
    display.ClearLine(static_cast<unsigned int>(row));
    WriteRow(display, std::string(offset > 0 ? static_cast<size_t>(offset) : 0, ' ') + caption, row,
             0);
    return offset + static_cast<int>(caption.size());
}

// Characters pos..pos+n of text, or fewer (none) where text is shorter.
inline std::string Part(const std::string& text, size_t pos, size_t n) {
    return pos < text.size() ? text.substr(pos, n) : std::string();
}

}  // namespace LineText
}  // namespace FP
