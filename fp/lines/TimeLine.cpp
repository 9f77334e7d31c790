#include "fp/lines/TimeLine.h"

#include "fp/core/Names.h"

namespace FP {

namespace {

const FieldEdit::Layout_t kLayout = {"%02i:%02i:%02i", 8,         {0, 0, 0},
                                     {23, 59, 59},     {0, 3, 6}, {2, 2, 2}};

}  // namespace

TimeLine::TimeLine() : TimeLine(0, 0, 0) {}

TimeLine::TimeLine(int hour, int minute, int second) : fields(kLayout, hour, minute, second) {
    cursor.SetCursorType(CURSOR_EDIT);
    cursor.SetItemCount(kLayout.textLength);
    hoverNavMask = NavSymbol::kUpDown | NavSymbol::kEnter;
    editNavMask = NavSymbol::kEnter | NavSymbol::kUpDown | NavSymbol::kLeftRight;
}

TimeLine::~TimeLine() = default;

bool TimeLine::SetCurrentValue(const std::string& /*value*/) {
    return false;
}

void TimeLine::SetHour(int hour) {
    fields.SetCommitted(0, hour);
}

void TimeLine::SetMinute(int minute) {
    fields.SetCommitted(1, minute);
}

void TimeLine::SetSecond(int second) {
    fields.SetCommitted(2, second);
}

void TimeLine::KeyUp() {
    fields.Step(cursor.GetCursorIndex(), 1);
}

void TimeLine::KeyDown() {
    fields.Step(cursor.GetCursorIndex(), -1);
}

void TimeLine::KeyRight() {
    fields.JumpRight(cursor);
}

void TimeLine::KeyLeft() {
    fields.JumpLeft(cursor);
}

bool TimeLine::KeyPress(const KeyState_t& key) {
    cursor.EraseCursor(0);
    if (!ArrowKey(key.key)) {
        fields.EnterExit(*this, key.key, editing);
    }
    return editing;
}

void TimeLine::DrawLine(int row) {
    if (display) {
        fields.DrawRow(*display, row, offset, hasVariableName ? variableName : std::string(),
                       editing, cursor.GetCursorIndex(), lineWidth);
    }
}

}  // namespace FP
