#include "fp/lines/TimeLine.h"

#include "fp/lines/LineText.h"
#include "kt/Str.h"

namespace FP {

namespace {

const int kTextLength = 8;

struct Range_t {
    int bottom;
    int top;
};

const Range_t kRanges[3] = {{0, 23}, {0, 59}, {0, 59}};

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

TimeLine::TimeLine() : TimeLine(0, 0, 0) {}

TimeLine::TimeLine(int hour, int minute, int second)
    : curHour(hour),
      curMinute(minute),
      curSecond(second),
      tempHour(hour),
      tempMinute(minute),
      tempSecond(second) {
    cursor.SetCursorType(CURSOR_EDIT);
    cursor.SetItemCount(kTextLength);
    hoverNavMask = 0x06;
    editNavMask = 0x07;
    UpdateCurString();
    UpdateTempString();
}

TimeLine::~TimeLine() = default;

bool TimeLine::SetCurrentValue(const std::string& /*value*/) {
    return false;
}

void TimeLine::SetHour(int hour) {
    if (hour >= kRanges[0].bottom && hour <= kRanges[0].top) {
        curHour = hour;
    }
}

void TimeLine::SetMinute(int minute) {
    if (minute >= kRanges[1].bottom && minute <= kRanges[1].top) {
        curMinute = minute;
    }
}

void TimeLine::SetSecond(int second) {
    if (second >= kRanges[2].bottom && second <= kRanges[2].top) {
        curSecond = second;
    }
}

void TimeLine::UpdateCurString() {
    curString = KT::Str::Format("%02i:%02i:%02i", curHour, curMinute, curSecond);
}

void TimeLine::UpdateTempString() {
    tempString = KT::Str::Format("%02i:%02i:%02i", tempHour, tempMinute, tempSecond);
}

int TimeLine::Field() const {
    const int i = cursor.GetCursorIndex();
    return i < 2 ? 0 : i <= 4 ? 1 : 2;
}

void TimeLine::Step(int delta) {
    int32_t* fields[3] = {&tempHour, &tempMinute, &tempSecond};
    const int f = Field();
    *fields[f] = Wrap(*fields[f], delta, kRanges[f]);
    UpdateTempString();
}

void TimeLine::KeyUp() {
    Step(1);
}

void TimeLine::KeyDown() {
    Step(-1);
}

void TimeLine::KeyRight() {
    const int i = cursor.GetCursorIndex();
    const int steps = i < 2 ? 3 - i : i >= 5 ? kTextLength - i : 6 - i;
    for (int n = 0; n < steps; ++n) {
        cursor.MoveCursorRight();
    }
}

void TimeLine::KeyLeft() {
    // From the hour this wraps round to the second.
    const int i = cursor.GetCursorIndex();
    const int steps = i < 2 ? i + 2 : 3;
    for (int n = 0; n < steps; ++n) {
        cursor.MoveCursorLeft();
    }
}

bool TimeLine::KeyPress(const KeyState_t& key) {
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
                curHour = tempHour;
                curMinute = tempMinute;
                curSecond = tempSecond;
            } else {
                if (readOnly) {
                    return false;
                }
                editing = true;
                tempString = curString;
                tempHour = curHour;
                tempMinute = curMinute;
                tempSecond = curSecond;
            }
            break;
        default:
            break;
    }
    return editing;
}

void TimeLine::DrawLine(int row) {
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
        // Field positions of a well-formed time; a field out of its range
        // may print wider, and then only what lies in the text is shown.
        const int start = Field() * 3;
        LineText::WriteReverseRow(*display, LineText::Part(text, start, 2), row, column + start);
    }
    LineText::PadRow(*display, row, column + static_cast<int>(text.size()), lineWidth);
}

}  // namespace FP
