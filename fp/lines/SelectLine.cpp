#include "fp/lines/SelectLine.h"

#include "fp/core/Names.h"
#include "fp/lines/detail/RowWriter.h"
#include "kt/Str.h"

namespace FP {

SelectLine::SelectLine()
    : choices{0x85, 0x84}, itemCount(2), currentIndex(0), editIndex(0), selection(0) {
    hoverNavMask = NavSymbol::kUpDown | NavSymbol::kEnter;
    editNavMask = NavSymbol::kUpDown | NavSymbol::kEnter;
    alignment = CENTER;
    cursor.SetItemCount(itemCount);
}

bool SelectLine::SetCurrentValue(const std::string& /*value*/) {
    return true;
}

bool SelectLine::SetCurrentValue(int index) {
    if (index < 0 || index >= static_cast<int>(choices.size())) {
        return false;
    }
    currentIndex = index;
    cursor.SetSelectedItem(index);
    editIndex = index;
    return true;
}

unsigned char SelectLine::ShownChoice() const {
    const int i = editing ? editIndex : currentIndex;
    return i >= 0 && static_cast<size_t>(i) < choices.size() ? choices[i] : '-';
}

std::string SelectLine::GetCurrentString() const {
    return "0x" + KT::Str::Format("0x%X", static_cast<unsigned>(ShownChoice()));
}

void SelectLine::KeyPressUp() {
    cursor.MoveCursorRight();
    editIndex = cursor.GetCursorIndex();
}

void SelectLine::KeyPressDown() {
    cursor.MoveCursorLeft();
    editIndex = cursor.GetCursorIndex();
}

bool SelectLine::KeyPress(const KeyState_t& key) {
    switch (key.key) {
        case KEY_UP:
            KeyPressUp();
            return editing;
        case KEY_DOWN:
            KeyPressDown();
            return editing;
        case KEY_EXIT:
            if (readOnly) {
                return editing;
            }
            editing = false;
            cursor.SetSelectedItem(currentIndex);
            selection = currentIndex;
            return false;
        case KEY_ENTER:
            if (readOnly) {
                return editing;
            }
            if (editing) {
                editing = false;
                currentIndex = editIndex;
                selection = editIndex;
                return false;
            }
            editing = true;
            editIndex = currentIndex;
            selection = currentIndex;
            return true;
        default:
            return editing;
    }
}

void SelectLine::DrawLine(int row) {
    if (!display) {
        return;
    }
    int column =
        RowWriter::Caption(*display, row, offset, hasVariableName ? variableName : std::string());
    const unsigned char shown = itemCount < 1 || choices.empty() ? '-' : ShownChoice();
    RowWriter::Char(*display, shown, row, column, editing);
    ++column;
    if (hasSuffix) {
        RowWriter::Write(*display, suffix, row, column);
        column += static_cast<int>(suffix.size());
    }
    RowWriter::Pad(*display, row, column, lineWidth);
}

}  // namespace FP
