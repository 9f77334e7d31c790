#include "fp/lines/YesNoLine.h"

#include "fp/core/Names.h"
#include "fp/lines/detail/RowWriter.h"

namespace FP {

YesNoLine::YesNoLine() : itemCount(2), selectedIndex(0) {
    hoverNavMask = NavSymbol::kEnter | NavSymbol::kLeftRight;
    alignment = CENTER;
    const std::string words[] = {"Yes", "No"};
    SetMenuItems(words);
    SetCurrentValue(1);
}

YesNoLine::~YesNoLine() = default;

void YesNoLine::SetMenuItems(const std::string* items) {
    menuItems.clear();
    for (int i = 0; items && i < itemCount; ++i) {
        menuItems.push_back(items[i]);
    }
}

void YesNoLine::SetNumItems(int n) {
    itemCount = n;
    cursor.SetItemCount(n);
}

bool YesNoLine::SetCurrentValue(const std::string& /*value*/) {
    return true;
}

bool YesNoLine::SetCurrentValue(int index) {
    if (index >= 0 && index < static_cast<int>(menuItems.size())) {
        selectedIndex = index;
        cursor.SetSelectedItem(index);
    }
    return true;
}

std::string YesNoLine::Item(int i) const {
    return i >= 0 && static_cast<size_t>(i) < menuItems.size() ? menuItems[i] : std::string();
}

std::string YesNoLine::GetCurrentString() const {
    return Item(selectedIndex);
}

bool YesNoLine::KeyPress(const KeyState_t& key) {
    if (readOnly) {
        return true;
    }
    if (key.key == KEY_LEFT) {
        cursor.MoveCursorLeft();
        selectedIndex = cursor.GetCursorIndex();
    } else if (key.key == KEY_RIGHT) {
        cursor.MoveCursorRight();
        selectedIndex = cursor.GetCursorIndex();
    }
    return true;
}

void YesNoLine::DrawLine(int row) {
    if (!display) {
        return;
    }
    const int width = static_cast<int>(display->GetDisplayWidth());
    const int left = width <= 8 ? 0 : (width - 9) / 2;
    const int right = left + 7;
    display->ClearLine(static_cast<unsigned>(row));
    if (!readOnly && selectedIndex != 0 && selectedIndex != 1) {
        return;
    }
    for (int i = 0; i < 2; ++i) {
        const int column = i == 0 ? left : right;
        if (!readOnly && selectedIndex == i) {
            RowWriter::Overlay(*display, Item(i), row, column);
        } else {
            RowWriter::Write(*display, Item(i), row, column);
        }
    }
}

}  // namespace FP
