#include "fp/lines/DateLine.h"

#include "fp/core/Names.h"

namespace FP {

namespace {

const FieldEdit::Layout_t kLayout = {"%04i/%02i/%02i", 10,        {2010, 1, 1},
                                     {2035, 12, 31},   {0, 5, 8}, {4, 2, 2}};

}  // namespace

DateLine::DateLine() : DateLine(0, 0, 0) {}

DateLine::DateLine(int year, int month, int day) : fields(kLayout, year, month, day) {
    cursor.SetCursorType(CURSOR_EDIT);
    cursor.SetItemCount(kLayout.textLength);
    hoverNavMask = NavSymbol::kUpDown | NavSymbol::kEnter;
    editNavMask = NavSymbol::kEnter | NavSymbol::kUpDown | NavSymbol::kLeftRight;
}

bool DateLine::SetCurrentValue(std::string /*value*/) {
    return false;
}

void DateLine::SetYear(int year) {
    fields.SetCommitted(0, year);
}

void DateLine::SetMonth(int month) {
    fields.SetCommitted(1, month);
}

void DateLine::SetDay(int day) {
    fields.SetCommitted(2, day);
}

void DateLine::KeyUp() {
    fields.Step(cursor.GetCursorIndex(), 1);
}

void DateLine::KeyDown() {
    fields.Step(cursor.GetCursorIndex(), -1);
}

void DateLine::KeyRight() {
    fields.JumpRight(cursor);
}

void DateLine::KeyLeft() {
    fields.JumpLeft(cursor);
}

bool DateLine::KeyPress(const KeyState_t& key) {
    cursor.EraseCursor(0);
    if (!ArrowKey(key.key)) {
        fields.EnterExit(*this, key.key, editing);
    }
    return editing;
}

void DateLine::DrawLine(int row) {
    if (display) {
        fields.DrawRow(*display, row, offset, hasVariableName ? variableName : std::string(),
                       editing, cursor.GetCursorIndex(), lineWidth);
    }
}

}  // namespace FP
