#include "fp/lines/ScrollLine.h"

#include <utility>

#include "fp/core/Names.h"
#include "fp/menu/detail/RowLead.h"
#include "kt/Str.h"

namespace FP {

namespace {
// Values whose scroll length reaches kLongText are stored cut to kKeptText.
const int kLongText = 256;
const size_t kKeptText = 254;
}  // namespace

ScrollLine::ScrollLine() : scrollPos(0), textLength(0) {
    sendAllKeys = true;
    hoverNavMask = NavSymbol::kLeftRight | NavSymbol::kUpDown;
    editNavMask = 0;
}

ScrollLine::ScrollLine(std::string v) : ScrollLine() {
    SetCurrentValue(v);
}

ScrollLine::ScrollLine(std::string dbName, std::string dbInstance) : ScrollLine() {
    SetDbName(std::move(dbName));
    SetDbInstance(std::move(dbInstance));
    SetCurrentValue(GetDbValue());
}

ScrollLine::~ScrollLine() = default;

bool ScrollLine::SetCurrentValue(const std::string& v) {
    hoverNavMask = static_cast<int>(v.size()) < lineWidth
                       ? NavSymbol::kUpDown
                       : NavSymbol::kLeftRight | NavSymbol::kUpDown;
    textLength = static_cast<int32_t>(v.size()) +
                 (hasSuffix ? static_cast<int>(suffix.size()) : 0) -
                 (hasVariableName ? static_cast<int>(variableName.size()) : 0);
    value = textLength >= kLongText ? v.substr(0, kKeptText) : v;
    return true;
}

bool ScrollLine::SetCurrentValue(int n) {
    return SetCurrentValue(KT::Str::Format("%d", n));
}

void ScrollLine::SetVariableName(const std::string& name) {
    const int old = hasVariableName ? static_cast<int>(variableName.size()) : 0;
    BaseLine::SetVariableName(name);
    textLength += old - static_cast<int>(name.size());
}

void ScrollLine::SetSuffix(const std::string& s) {
    const int old = hasSuffix ? static_cast<int>(suffix.size()) : 0;
    BaseLine::SetSuffix(s);
    textLength += static_cast<int>(s.size()) - old;
}

bool ScrollLine::KeyPress(const KeyState_t& key) {
    switch (key.key) {
        case KEY_LEFT:
            if (scrollPos > 0) {
                --scrollPos;
            }
            break;
        case KEY_RIGHT:
            if (textLength - static_cast<int>(scrollPos) > lineWidth - offset) {
                ++scrollPos;
            }
            break;
        case KEY_UP:
        case KEY_DOWN:
        case KEY_EXIT:
            scrollPos = 0;
            break;
        default:
            break;
    }
    return editing;
}

void ScrollLine::DrawLine(int row) {
    if (!display) {
        return;
    }
    const std::string head = RowLead(offset, hasVariableName ? variableName : std::string());
    const int col = static_cast<int>(head.size());
    display->WriteWord(head, row, 0);

    std::string text = value;
    if (hasSuffix) {
        text += suffix;
    }
    // The room is one wider than the row: the last character spills into
    // column 0 below, and drawing that row overwrites it.
    const int room = lineWidth - col > 0 ? lineWidth - col : 0;
    if (static_cast<int>(text.size()) > room) {
        // A scroll position past the text shows nothing rather than failing.
        if (scrollPos < text.size()) {
            display->WriteWord(text.substr(scrollPos, room), row, col);
        }
    } else {
        display->WriteWord(text, row, col);
        const int end = col + static_cast<int>(text.size());
        if (lineWidth > end) {
            display->WriteWord(std::string(lineWidth - end, ' '), row, end);
        }
    }
}

}  // namespace FP
