#include "fp/lines/FieldEdit.h"

#include <algorithm>
#include <iterator>

#include "fp/lines/detail/RowWriter.h"
#include "fp/lines/internal/EditFlow.h"
#include "fp/menu/BaseLine.h"
#include "kt/Str.h"

namespace FP {

FieldEdit::FieldEdit(const Layout_t& l, int first, int second, int third)
    : layout(l), cur{first, second, third}, temp{first, second, third} {
    UpdateCurString();
    UpdateTempString();
}

void FieldEdit::SetCommitted(int field, int value) {
    if (field >= 0 && field < 3 && value >= layout.bottom[field] && value <= layout.top[field]) {
        cur[field] = value;
    }
}

void FieldEdit::UpdateCurString() {
    curString = KT::Str::Format(layout.format, cur[0], cur[1], cur[2]);
}

void FieldEdit::UpdateTempString() {
    tempString = KT::Str::Format(layout.format, temp[0], temp[1], temp[2]);
}

int FieldEdit::Field(int index) const {
    return index < layout.start[1] - 1 ? 0 : index < layout.start[2] - 1 ? 1 : 2;
}

void FieldEdit::Step(int index, int delta) {
    const int f = Field(index);
    int value = temp[f] + delta;
    if (delta > 0 && value > layout.top[f]) {
        value = layout.bottom[f];
    } else if (delta < 0 && value < layout.bottom[f]) {
        value = layout.top[f];
    }
    temp[f] = value;
    UpdateTempString();
}

void FieldEdit::JumpRight(Cursor& cursor) const {
    const int i = cursor.GetCursorIndex();
    const int f = Field(i);
    const int steps = (f == 2 ? layout.textLength : layout.start[f + 1]) - i;
    for (int n = 0; n < steps; ++n) {
        cursor.MoveCursorRight();
    }
}

void FieldEdit::JumpLeft(Cursor& cursor) const {
    // Three steps back from a later field, which from the second lands
    // inside the first (still the first field).
    const int i = cursor.GetCursorIndex();
    const int steps = Field(i) == 0 ? i + 2 : 3;
    for (int n = 0; n < steps; ++n) {
        cursor.MoveCursorLeft();
    }
}

void FieldEdit::Begin() {
    tempString = curString;
    std::copy(std::begin(cur), std::end(cur), std::begin(temp));
}

void FieldEdit::Commit() {
    curString = tempString;
    std::copy(std::begin(temp), std::end(temp), std::begin(cur));
}

void FieldEdit::EnterExit(const BaseLine& line, Key_e key, bool& editing) {
    EditFlow::Key(
        line, key, editing,
        [this, &editing] {
            // A read-only line keeps its working copy: it never enters edit mode.
            if (editing) {
                Begin();
            }
        },
        [this] { Commit(); });
}

void FieldEdit::DrawRow(Display& display, int row, int offset, const std::string& caption,
                        bool editing, int index, int lineWidth) const {
    RowWriter::Caption(display, row, offset, caption);
    // The text follows the caption even when a negative offset hides part of it.
    Draw(display, row, offset + static_cast<int>(caption.size()), editing, index, lineWidth);
}

void FieldEdit::Draw(Display& display, int row, int column, bool editing, int index,
                     int lineWidth) const {
    const std::string& text = editing ? tempString : curString;
    RowWriter::Write(display, text, row, column);
    if (editing) {
        // A field out of its range may print wider than its place; then only
        // what lies in the text is shown.
        const int f = Field(index);
        RowWriter::Word(display, RowWriter::Part(text, layout.start[f], layout.length[f]), row,
                        column + layout.start[f], true);
    }
    RowWriter::Pad(display, row, column + static_cast<int>(text.size()), lineWidth);
}

}  // namespace FP
