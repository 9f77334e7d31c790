#include "fp/lines/MacLine.h"

#include "fp/lines/detail/RowWriter.h"
#include "fp/lines/internal/EditFlow.h"
#include "fp/menu/internal/EditCursor.h"

namespace FP {

namespace {

const int kTextLength = 17;

bool IsDigitPosition(int p) {
    return p >= 0 && p < kTextLength && p % 3 != 2;
}

}  // namespace

MacLine::MacLine()
    : maxAddress("FF:FF:FF:FF:FF:FF"), minAddress("00:00:00:00:00:00"), displayInEditMode(false) {
    cursor.SetCursorType(CURSOR_EDIT);
    SetCurrentValue("00:00:00:00:00:00");
}

MacLine::MacLine(const std::string& dbName, const std::string& dbInstance) : MacLine() {
    SetDbName(dbName);
    SetDbInstance(dbInstance);
    cursor.SetCursorType(CURSOR_EDIT);
    SetCurrentValue(GetDbValue());
}

MacLine::MacLine(const KT::CMacAddress& address) : MacLine() {
    SetCurrentValue(address);
}

MacLine::~MacLine() = default;

bool MacLine::SetCurrentValue(const std::string& s) {
    return SetCurrentValue(KT::CMacAddress(s));
}

bool MacLine::SetCurrentValue(const KT::CMacAddress& address) {
    currentAddress = address;
    EditCursor::Span(cursor, kTextLength);
    editAddress = currentAddress;
    return true;
}

std::string MacLine::GetCurrentString() const {
    return (editing ? editAddress : currentAddress).ToString(true);
}

KT::CMacAddress MacLine::GetMacAddress() const {
    return editing ? editAddress : currentAddress;
}

void MacLine::SetRange(const std::string& min, const std::string& max) {
    minAddress = min;
    maxAddress = max;
}

void MacLine::Step(bool up) {
    const int p = cursor.GetCursorIndex();
    if (!IsDigitPosition(p)) {
        return;
    }
    std::string text = Work().ToString(true);
    char& c = text[static_cast<size_t>(p)];
    if (up) {
        c = c == 'F' ? '0' : c == '9' ? 'A' : static_cast<char>(c + 1);
    } else {
        c = c == '0' ? 'F' : c == 'A' ? '9' : static_cast<char>(c - 1);
    }
    Work() = text;
}

void MacLine::KeyUp() {
    Step(true);
}

void MacLine::KeyDown() {
    Step(false);
}

void MacLine::Move(bool next) {
    // Every third cell is the colon between two bytes.
    EditCursor::Step(cursor, next, [](int i) { return i % 3 == 2; });
}

void MacLine::KeyRight() {
    Move(true);
}

void MacLine::KeyLeft() {
    Move(false);
}

bool MacLine::KeyPress(const KeyState_t& key) {
    cursor.EraseCursor(0);
    if (!ArrowKey(key.key)) {
        EditFlow::Key(
            *this, key.key, editing, [this] { editAddress = currentAddress; },
            [this] {
                currentAddress = editAddress;
                return currentAddress.ToString(true);
            });
    }
    return editing;
}

int MacLine::TextColumn() const {
    return offset + (displayInEditMode ? 0 : static_cast<int>(variableName.size()));
}

void MacLine::DrawLine(int row) {
    if (!display || !editing || !displayInEditMode) {
        BaseLine::DrawLine(row);
        return;
    }
    RowWriter::Caption(*display, row, offset, std::string());
    RowWriter::Write(*display, editAddress.ToString(true), row, offset);
    DrawCursor(row);
}

void MacLine::DrawCursor(int row) {
    EditCursor::Draw(cursor, display, row, TextColumn(), editAddress.ToString(true));
}

void MacLine::EraseCursor(int row) {
    EditCursor::Erase(cursor, row);
}

}  // namespace FP
