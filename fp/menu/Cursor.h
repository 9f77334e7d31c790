#pragma once

#include <string>

#include "fp/menu/MenuTypes.h"

namespace FP {

class Display;

/// A selection over a list of items shown on a range of display lines. Menu
/// styles walk their lines with it; every line walks the characters of its
/// value with one while editing (then "position" is a column offset and the
/// cursor column is the display line).
///
/// The menu walk keeps itemAtTopLine == cursorIndex - (cursorPosition - topLine).
/// Threads: those of the menu or line that holds it.
/// Borrows: the display.
class Cursor {
public:
    /// Direction of one step of the walk.
    enum SetCursorIndex_e { CURSOR_PREVIOUS = 0, CURSOR_NEXT = 1 };

    /// No items, a '>' cursor of type CURSOR_MENU, no display.
    Cursor();

    /// The display the cursor draws into. Borrowed.
    void SetDisplay(Display* d) { display = d; }
    /// How the cursor moves and draws (see CursorType_e).
    ///@{
    void SetCursorType(CursorType_e type) { cursorType = type; }
    CursorType_e GetCursorType() const { return cursorType; }
    ///@}
    /// The character a menu cursor draws.
    ///@{
    void SetCursorChar(unsigned char c) { cursorChar = c; }
    unsigned char GetCursorChar() const { return cursorChar; }
    ///@}
    /// The column of a menu cursor; the display line for an edit cursor.
    ///@{
    void SetCursorColumn(int column) { cursorColumn = column; }
    int GetCursorColumn() const { return cursorColumn; }
    ///@}

    /// Stores the position only.
    void SetCursorPosition(int position) { cursorPosition = position; }
    /// Selects index at position; an index past the list resets the cursor.
    void SetCursorPosition(int index, int position);
    /// One step of the walk, wrapping at both ends. True when the list
    /// scrolled (itemAtTopLine changed) and must be redrawn.
    bool SetCursorPosition(SetCursorIndex_e direction);

    /// The walk's state: number of items, selected item, the display line
    /// (or column) it stands on, the item on the first line of the area, and
    /// the area's first and last display lines.
    ///@{
    int GetItemCount() const { return lastItem + 1; }
    int GetCursorIndex() const { return cursorIndex; }
    int GetCursorPosition() const { return cursorPosition; }
    int GetItemAtTopLine() const { return itemAtTopLine; }
    int GetTopLine() const { return topLine; }
    int GetBottomLine() const { return bottomLine; }
    ///@}

    /// Sets the number of items; a selection past the new end goes back to
    /// the first item.
    void SetItemCount(int n);
    /// The display lines the list uses, top and bottom included; resets.
    void SetDisplayLines(int top, int bottom);
    /// Back to the first item on the top line.
    void ResetCursor();
    /// Selects item i, standing as low in the area as the list allows.
    void SetSelectedItem(int i);

    /// Moves by one; the scrolling types move the view instead. True when
    /// the list must be redrawn.
    ///@{
    bool MoveCursorUp();
    bool MoveCursorDown();
    ///@}
    /// Previous and next item with wrap-around, whatever the type.
    ///@{
    bool MoveCursorLeft();
    bool MoveCursorRight();
    ///@}

    /// Selects the last-but-one item (item 0 for fewer than three items).
    void SelectLastPos();
    /// Display lines the list uses.
    int GetTotalLines() const;

    /// line is the display line for the menu types and a column offset for
    /// CURSOR_EDIT; text is the value whose selected character is shown.
    void DrawCursor(int line, const std::string& text);
    /// Blanks a menu cursor; the edit and scroll types leave the display alone.
    void EraseCursor(int line);

private:
    Display* display;
    int cursorIndex;
    int lastItem;
    int itemAtTopLine;
    int cursorPosition;
    int topLine;
    int bottomLine;
    int cursorColumn;
    int lastDrawnPosition;
    unsigned char cursorChar;
    CursorType_e cursorType;
};

}  // namespace FP
