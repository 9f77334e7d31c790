#pragma once

#include <string>

#include "fp/display/Display.h"
#include "fp/menu/Cursor.h"

namespace FP {
namespace EditCursor {

// Shows the character under a line's edit cursor in reverse video. The edit
// cursor takes the row as its line and the character index as its column
// inside the text that starts at column; a cell off the row is not drawn.
inline void Draw(Cursor& cursor, const Display* display, int row, int column,
                 const std::string& text) {
    const int i = cursor.GetCursorIndex();
    if (!display || column + i >= static_cast<int>(display->GetDisplayWidth())) {
        return;
    }
    cursor.SetCursorColumn(row);
    cursor.SetCursorPosition(i);
    cursor.DrawCursor(column, text);
}

// One place left or right, and one more the same way when the first lands on
// a cell the user never edits (a separator or a decimal point).
template <class Skip>
void Step(Cursor& cursor, bool next, Skip&& skip) {
    for (int n = 0; n < 2; ++n) {
        next ? cursor.MoveCursorRight() : cursor.MoveCursorLeft();
        if (!skip(cursor.GetCursorIndex())) {
            return;
        }
    }
}

// Fits the edit cursor to a fixed-width text: every cell a position, all of
// them in view.
inline void Span(Cursor& cursor, int length) {
    cursor.SetItemCount(length);
    cursor.SetDisplayLines(0, length);
}

inline void Erase(Cursor& cursor, int row) {
    cursor.SetCursorPosition(row);
    cursor.EraseCursor(0);
}

// Writes the reversed cell of an editing line, unless the edit cursor has
// just put this very cell on the display: a second copy would only cost
// another round of frames on the link.
inline void CellOnce(Display& d, unsigned char c, int row, int column) {
    if (row < 0 || column < 0 || column >= static_cast<int>(d.GetDisplayWidth())) {
        return;
    }
    const auto& words = d.GetReverseWords();
    if (!words.empty() && words.back().text == std::string(1, static_cast<char>(c)) &&
        words.back().line == static_cast<unsigned>(row) &&
        words.back().column == static_cast<unsigned>(column)) {
        return;
    }
    d.WriteReverseChar(c, static_cast<unsigned>(row), static_cast<unsigned>(column));
}

}  // namespace EditCursor
}  // namespace FP
