#include "fp/menu/Cursor.h"

#include "fp/display/Display.h"

namespace FP {

namespace {
bool OnDisplay(const Display& d, int row, int column) {
    return row >= 0 && column >= 0 && static_cast<unsigned>(row) < d.GetDisplayHeight() &&
           static_cast<unsigned>(column) < d.GetDisplayWidth();
}
}  // namespace

Cursor::Cursor()
    : display(nullptr),
      cursorIndex(0),
      lastItem(-1),
      itemAtTopLine(0),
      cursorPosition(1),
      topLine(1),
      bottomLine(0),
      cursorColumn(0),
      lastDrawnPosition(1),
      cursorChar('>'),
      cursorType(CURSOR_MENU) {}

void Cursor::SetItemCount(int n) {
    lastItem = n - 1;
    if (lastItem >= cursorIndex) {
        itemAtTopLine = cursorIndex - (cursorPosition - topLine);
    } else {
        cursorIndex = 0;
        cursorPosition = topLine;
        itemAtTopLine = 0;
    }
}

void Cursor::SetDisplayLines(int top, int bottom) {
    cursorPosition = top;
    topLine = top;
    bottomLine = bottom;
    ResetCursor();
}

void Cursor::ResetCursor() {
    cursorIndex = 0;
    itemAtTopLine = 0;
    cursorPosition = topLine;
    lastDrawnPosition = topLine;
}

void Cursor::SetCursorPosition(int index, int position) {
    cursorIndex = index;
    cursorPosition = position;
    if (index > lastItem) {
        ResetCursor();
    }
}

void Cursor::SetSelectedItem(int i) {
    cursorIndex = i;
    if (i == itemAtTopLine) {
        // Selecting the top item scrolls back one when the rest of the list
        // would not fill the area; the selection follows the scroll.
        if (i > 0 && lastItem - i < bottomLine - topLine) {
            itemAtTopLine = i - 1;
            cursorIndex = i - 1;
        }
        return;
    }
    cursorPosition = topLine;
    if (i < 1) {
        itemAtTopLine = i;
        return;
    }
    for (int step = 0; step < i && cursorPosition < bottomLine; ++step) {
        ++cursorPosition;
    }
    itemAtTopLine = i - (cursorPosition - topLine);
}

bool Cursor::SetCursorPosition(SetCursorIndex_e direction) {
    const int oldTop = itemAtTopLine;
    if (lastItem < 0) {
        // Nothing to walk: stay on item 0 rather than selecting item -1.
        ResetCursor();
        return itemAtTopLine != oldTop;
    }
    if (direction == CURSOR_NEXT) {
        if (cursorIndex >= lastItem) {
            cursorIndex = 0;
            cursorPosition = topLine;
            itemAtTopLine = 0;
        } else {
            ++cursorIndex;
            if (cursorPosition < bottomLine) {
                ++cursorPosition;
            }
            itemAtTopLine = cursorIndex - (cursorPosition - topLine);
        }
    } else {
        if (cursorIndex <= 0) {
            cursorIndex = lastItem;
            if (lastItem > bottomLine - topLine) {
                cursorPosition = bottomLine;
                itemAtTopLine = lastItem - (bottomLine - topLine);
            } else {
                cursorPosition = topLine + lastItem;
                itemAtTopLine = 0;
            }
        } else {
            --cursorIndex;
            if (cursorPosition > topLine) {
                --cursorPosition;
            }
            itemAtTopLine = cursorIndex - (cursorPosition - topLine);
        }
    }
    return itemAtTopLine != oldTop;
}

bool Cursor::MoveCursorUp() {
    switch (cursorType) {
        case CURSOR_SCROLL:
            if (itemAtTopLine > 0) {
                --itemAtTopLine;
                return true;
            }
            return false;
        case CURSOR_PAGE:
            // The caller redraws on its own, so this never asks for it.
            if (itemAtTopLine - 1 >= 0) {
                --itemAtTopLine;
            }
            return false;
        default:
            return SetCursorPosition(CURSOR_PREVIOUS);
    }
}

bool Cursor::MoveCursorDown() {
    switch (cursorType) {
        case CURSOR_SCROLL:
            if (lastItem - itemAtTopLine < GetTotalLines()) {
                return false;
            }
            ++itemAtTopLine;
            return true;
        case CURSOR_PAGE: {
            const int old = itemAtTopLine;
            const unsigned int height =
                display ? display->GetDisplayHeight() : static_cast<unsigned int>(GetTotalLines());
            ++itemAtTopLine;
            if (static_cast<unsigned int>(old) + height >
                static_cast<unsigned int>(GetItemCount())) {
                itemAtTopLine = old;
            }
            return true;
        }
        default:
            return SetCursorPosition(CURSOR_NEXT);
    }
}

bool Cursor::MoveCursorLeft() {
    return SetCursorPosition(CURSOR_PREVIOUS);
}

bool Cursor::MoveCursorRight() {
    return SetCursorPosition(CURSOR_NEXT);
}

void Cursor::SelectLastPos() {
    cursorIndex = 0;
    cursorPosition = topLine;
    if (lastItem >= 2) {
        while (cursorIndex != lastItem - 1) {
            SetCursorPosition(CURSOR_NEXT);
        }
    }
}

int Cursor::GetTotalLines() const {
    return lastItem < bottomLine - topLine ? lastItem + 1 : bottomLine - topLine + 1;
}

void Cursor::DrawCursor(int line, const std::string& text) {
    if (!display) {
        return;
    }
    switch (cursorType) {
        case CURSOR_EDIT:
            // An index outside the value shows nothing rather than reading
            // past the text.
            // Nor is a cell off the display drawn: the panel would put it
            // wherever its own text position happens to be.
            if (cursorIndex >= 0 && static_cast<size_t>(cursorIndex) < text.size() &&
                OnDisplay(*display, cursorColumn, line + cursorPosition)) {
                display->WriteReverseChar(static_cast<unsigned char>(text[cursorIndex]),
                                          cursorColumn, line + cursorPosition);
            }
            return;
        case CURSOR_SCROLL:
        case CURSOR_PAGE:
            return;
        default:
            display->WriteChar(cursorChar, cursorPosition, cursorColumn);
            if (lastDrawnPosition != cursorPosition) {
                display->WriteChar(' ', lastDrawnPosition, cursorColumn);
                lastDrawnPosition = cursorPosition;
            }
            return;
    }
}

void Cursor::EraseCursor(int /*line*/) {
    if (!display || cursorType == CURSOR_EDIT || cursorType == CURSOR_SCROLL) {
        return;
    }
    display->WriteChar(' ', cursorPosition, cursorColumn);
}

}  // namespace FP
