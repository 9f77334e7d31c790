#include "fp/lines/DateLine.h"

#include "fp/lines/LineText.h"
#include "kt/Str.h"

namespace FP {

namespace {

const int kTextLength = 10;

struct Range_t {
    int bottom;
    int top;
};

const Range_t kRanges[3] = {{2010, 2035}, {1, 12}, {1, 31}};

int Wrap(int value, int delta, const Range_t& r) {
    value += delta;
    if (delta > 0 && value > r.top) {
        return r.bottom;
    }
    if (delta < 0 && value < r.bottom) {
        return r.top;
    }
    return value;
}

}  // namespace

DateLine::DateLine() : DateLine(0, 0, 0) {}

DateLine::DateLine(int year, int month, int day)
    : curYear(year), curMonth(month), curDay(day), tempYear(year), tempMonth(month), tempDay(day) {
    cursor.SetCursorType(CURSOR_EDIT);
    cursor.SetItemCount(kTextLength);
    hoverNavMask = 0x06;
    editNavMask = 0x07;
    UpdateCurString();
    UpdateTempString();
}

bool DateLine::SetCurrentValue(std::string /*value*/) {
    return false;
}

void DateLine::SetYear(int year) {
    if (year >= kRanges[0].bottom && year <= kRanges[0].top) {
        curYear = year;
    }
}

void DateLine::SetMonth(int month) {
    if (month >= kRanges[1].bottom && month <= kRanges[1].top) {
        curMonth = month;
    }
}

void DateLine::SetDay(int day) {
    if (day >= kRanges[2].bottom && day <= kRanges[2].top) {
        curDay = day;
    }
}

void DateLine::UpdateCurString() {
    curString = KT::Str::Format("%04i/%02i/%02i", curYear, curMonth, curDay);
}

void DateLine::UpdateTempString() {
    tempString = KT::Str::Format("%04i/%02i/%02i", tempYear, tempMonth, tempDay);
}

int DateLine::Field() const {
    const int i = cursor.GetCursorIndex();
    return i < 4 ? 0 : i <= 6 ? 1 : 2;
}

void DateLine::Step(int delta) {
    int32_t* fields[3] = {&tempYear, &tempMonth, &tempDay};
    const int f = Field();
    *fields[f] = Wrap(*fields[f], delta, kRanges[f]);
    UpdateTempString();
}

void DateLine::KeyUp() {
    Step(1);
}

void DateLine::KeyDown() {
    Step(-1);
}

void DateLine::KeyRight() {
    const int i = cursor.GetCursorIndex();
    const int steps = i < 4 ? 5 - i : i >= 7 ? kTextLength - i : 8 - i;
    for (int n = 0; n < steps; ++n) {
        cursor.MoveCursorRight();
    }
}

void DateLine::KeyLeft() {
    // From the year this wraps round to the day; elsewhere three steps back,
    // which from the month lands inside the year (still the year field).
    const int i = cursor.GetCursorIndex();
    const int steps = i < 4 ? i + 2 : 3;
    for (int n = 0; n < steps; ++n) {
        cursor.MoveCursorLeft();
    }
}

bool DateLine::KeyPress(const KeyState_t& key) {
    cursor.EraseCursor(0);
    switch (key.key) {
        case KEY_LEFT:
            KeyLeft();
            break;
        case KEY_UP:
            KeyUp();
            break;
        case KEY_RIGHT:
            KeyRight();
            break;
        case KEY_DOWN:
            KeyDown();
            break;
        case KEY_EXIT:
            editing = false;
            return false;
        case KEY_ENTER:
            if (editing) {
                editing = false;
                curString = tempString;
                curYear = tempYear;
                curMonth = tempMonth;
                curDay = tempDay;
            } else {
                if (readOnly) {
                    return false;
                }
                editing = true;
                tempString = curString;
                tempYear = curYear;
                tempMonth = curMonth;
                tempDay = curDay;
            }
            break;
        default:
            break;
    }
    return editing;
}

void DateLine::DrawLine(int row) {
    if (!display) {
        return;
    }
    display->ClearLine(static_cast<unsigned int>(row));
    std::string head(offset > 0 ? static_cast<size_t>(offset) : 0, ' ');
    if (hasVariableName) {
        head += variableName;
    }
    LineText::WriteRow(*display, head, row, 0);
    const int column = offset + (hasVariableName ? static_cast<int>(variableName.size()) : 0);
    const std::string& text = editing ? tempString : curString;
    LineText::WriteRow(*display, text, row, column);
    if (editing) {
        // Field positions of a well-formed date; a field out of its range
        // may print wider, and then only what lies in the text is shown.
        static const int kStart[3] = {0, 5, 8};
        static const int kLength[3] = {4, 2, 2};
        const int f = Field();
        LineText::WriteReverseRow(*display, LineText::Part(text, kStart[f], kLength[f]), row,
                                  column + kStart[f]);
    }
    LineText::PadRow(*display, row, column + static_cast<int>(text.size()), lineWidth);
}

}  // namespace FP
