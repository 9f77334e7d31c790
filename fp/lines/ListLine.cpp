#include "fp/lines/ListLine.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <utility>

#include "fp/core/Names.h"
#include "fp/lines/detail/RowWriter.h"
#include "fp/lines/internal/EditFlow.h"
#include "kt/Str.h"

namespace FP {

void ListLine::SetupBase() {
    hoverNavMask = NavSymbol::kUpDown | NavSymbol::kEnter;
    editNavMask = NavSymbol::kUpDown | NavSymbol::kEnter;
}

ListLine::ListLine(bool convert)
    : itemCount(1), currentIndex(0), editIndex(0), skipCount(0), convertTexts(convert) {
    SetupBase();
}

ListLine::ListLine(std::vector<std::string> items, bool convert) : ListLine(convert) {
    SetNumItems(static_cast<int>(items.size()));
    std::map<std::string, std::string> keys;
    for (size_t i = 0; i < items.size(); ++i) {
        keys[KT::Str::Format("%d", static_cast<int>(i + 1))] = items[i];
    }
    MapConstruct(std::move(keys));
}

ListLine::ListLine(std::map<std::string, std::string> items, bool convert) : ListLine(convert) {
    SetNumItems(static_cast<int>(items.size()));
    MapConstruct(std::move(items));
}

ListLine::ListLine(std::map<int, std::string> items, bool convert) : ListLine(convert) {
    std::map<std::string, std::string> keys;
    for (const auto& item : items) {
        keys[KT::Str::Format("%d", item.first)] = item.second;
    }
    MapConstruct(std::move(keys));
    SetNumItems(static_cast<int>(keyMap.size()));
}

ListLine::ListLine(const char** items, int count) : ListLine(true) {
    std::map<std::string, std::string> keys;
    for (int i = 1; items && i < count; ++i) {
        keys[KT::Str::Format("%d", i)] = items[i] ? items[i] : "";
    }
    MapConstruct(std::move(keys));
    SetNumItems(static_cast<int>(keyMap.size()));
}

ListLine::~ListLine() {
    callbacks.clear();
}

void ListLine::MapConstruct(std::map<std::string, std::string> keys) {
    keyMap = std::move(keys);
    for (const auto& entry : keyMap) {
        std::string text = entry.second;
        if (convertTexts) {
            Display::ReplaceUnknownChars(text);
        }
        itemTexts.push_back(text);
        itemKeys.push_back(entry.first);
    }
}

void ListLine::SetNumItems(int n) {
    itemCount = n;
    cursor.SetItemCount(n);
}

void ListLine::SetSkipItem(int n) {
    const int32_t index = n - 1;
    // A number that names no item would only shift the walk off the list.
    if (index < 0 || index >= static_cast<int32_t>(itemTexts.size())) {
        return;
    }
    auto at = std::lower_bound(skipList.begin(), skipList.end(), index);
    if (at == skipList.end() || *at != index) {
        skipList.insert(at, index);
    }
    skipCount = static_cast<int32_t>(skipList.size());
    SetNumItems(static_cast<int>(itemTexts.size()) - skipCount);
}

void ListLine::RemoveSkipItem(int n) {
    auto at = std::find(skipList.begin(), skipList.end(), n - 1);
    if (at != skipList.end()) {
        skipList.erase(at);
    }
    skipCount = static_cast<int32_t>(skipList.size());
    SetNumItems(static_cast<int>(itemTexts.size()) - skipCount);
}

int ListLine::GetItem(int visible) const {
    int item = visible;
    for (int32_t skipped : skipList) {
        if (skipped <= item) {
            ++item;
        }
    }
    return item;
}

int ListLine::GetIndex(int item) const {
    int visible = item;
    for (int32_t skipped : skipList) {
        if (skipped <= item) {
            --visible;
        }
    }
    return visible;
}

bool ListLine::IsSkipped(int index) const {
    return std::binary_search(skipList.begin(), skipList.end(), index);
}

bool ListLine::SetCurrentValue(int index) {
    if (index < 0 || index >= static_cast<int>(itemTexts.size()) || IsSkipped(index)) {
        return false;
    }
    currentIndex = index;
    editIndex = index;
    cursor.SetSelectedItem(GetIndex(index));
    return true;
}

bool ListLine::SetCurrentValue(const char* text) {
    if (!text) {
        return false;
    }
    auto at = std::find(itemTexts.begin(), itemTexts.end(), text);
    if (at == itemTexts.end()) {
        return false;
    }
    return SetCurrentValue(static_cast<int>(at - itemTexts.begin()));
}

bool ListLine::SetCurrentValue(const std::string& key) {
    // A key the list does not know stays in the key map with an empty text.
    return SetCurrentValue(keyMap[key].c_str());
}

int ListLine::GetCurrentNumber() const {
    return editing ? editIndex : currentIndex;
}

std::string ListLine::GetCurrentString() const {
    return GetItemString(static_cast<unsigned int>(GetCurrentNumber()));
}

std::string ListLine::GetItemString(unsigned int index) const {
    return index < itemTexts.size() ? itemTexts[index] : std::string();
}

std::string ListLine::GetItemString(const std::string& text) const {
    return GetItemString(static_cast<unsigned int>(std::strtol(text.c_str(), nullptr, 10)));
}

std::string ListLine::GetValue() const {
    if (currentIndex < 0 || static_cast<size_t>(currentIndex) >= keyMap.size()) {
        return std::string();
    }
    return std::next(keyMap.begin(), currentIndex)->second;
}

void ListLine::FollowCursor() {
    // With every item skipped the cursor stands on none; keep the choice.
    const int item = GetItem(cursor.GetCursorIndex());
    if (item >= 0 && item < static_cast<int>(itemTexts.size()) && !IsSkipped(item)) {
        editIndex = item;
    }
}

void ListLine::KeyPressUp() {
    cursor.MoveCursorRight();
    FollowCursor();
}

void ListLine::KeyPressDown() {
    cursor.MoveCursorLeft();
    FollowCursor();
}

bool ListLine::KeyPress(const KeyState_t& key) {
    if (key.key == KEY_UP) {
        KeyPressUp();
        return editing;
    }
    if (key.key == KEY_DOWN) {
        KeyPressDown();
        return editing;
    }
    const auto step = EditFlow::Key(
        *this, key.key, editing, [this] { editIndex = currentIndex; },
        [this] {
            currentIndex = editIndex;
            return std::to_string(editIndex + 1);
        });
    if (step == EditFlow::STEP_CANCELLED) {
        // Back on the committed choice; the next edit starts from it.
        cursor.SetSelectedItem(GetIndex(currentIndex));
    }
    return editing;
}

void ListLine::DrawLine(int row) {
    if (!display) {
        return;
    }
    const int column =
        RowWriter::Caption(*display, row, offset, hasVariableName ? variableName : std::string());
    int end;
    if (itemCount > 0 && !itemTexts.empty()) {
        std::string text = GetCurrentString();
        if (hasSuffix) {
            text += suffix;
        }
        RowWriter::Word(*display, text, row, column, editing);
        // The suffix counts towards the end even when it is not shown.
        end = column + static_cast<int>(GetCurrentString().size() + suffix.size());
    } else {
        RowWriter::Char(*display, '-', row, column, editing);
        end = column + 1;
    }
    RowWriter::Pad(*display, row, end, lineWidth);
}

}  // namespace FP
