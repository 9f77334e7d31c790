#include "fp/lines/IpLine.h"

#include "fp/core/Names.h"
#include "fp/lines/internal/EditFlow.h"
#include "fp/menu/internal/EditCursor.h"

namespace FP {

namespace {

const int kTextLength = 15;

bool IsSeparator(int p) {
    return p % 4 == 3;
}

bool IsDigitPosition(int p) {
    return p >= 0 && p < kTextLength && !IsSeparator(p);
}

// Holds the octet containing position p of a padded text to 255. Only the
// cases that digit stepping and typing can produce need handling: a first
// digit of 2 with a second digit above 5, or 25 followed by more than 5.
void LimitOctet(std::string& text, int p) {
    const size_t first = static_cast<size_t>(p / 4) * 4;
    if (first + 2 >= text.size() || text[first] != '2' || text[first + 1] <= '4') {
        return;
    }
    text[first + 1] = '5';
    if (text[first + 2] > '5') {
        text[first + 2] = '5';
    }
}

bool OctetStarts25(const std::string& text, int p) {
    const size_t first = static_cast<size_t>(p / 4) * 4;
    return text[first] == '2' && text[first + 1] == '5';
}

}  // namespace

IpLine::IpLine()
    : maxAddress(KT::CIpAddress::MaxIpAddress()), minAddress(KT::CIpAddress::MinIpAddress()) {
    cursor.SetCursorType(CURSOR_EDIT);
    // Walkable from the start, before any value is set.
    EditCursor::Span(cursor, kTextLength);
    hoverNavMask = NavSymbol::kUpDown | NavSymbol::kEnter;
    editNavMask =
        NavSymbol::kCheck | NavSymbol::kEnter | NavSymbol::kUpDown | NavSymbol::kLeftRight;
}

IpLine::IpLine(const std::string& dbName, const std::string& dbInstance) : IpLine() {
    SetDbName(dbName);
    SetDbInstance(dbInstance);
    SetCurrentValue(GetDbValue());
}

IpLine::~IpLine() = default;

bool IpLine::SetCurrentValue(const std::string& s) {
    currentAddress = s;
    EditCursor::Span(cursor, kTextLength);
    editAddress = currentAddress;
    return true;
}

bool IpLine::SetCurrentValue(int /*v*/) {
    return false;
}

std::string IpLine::GetCurrentString() const {
    return editing ? editAddress.GetIp(true) : currentAddress.GetIp(false);
}

KT::CIpAddress IpLine::GetCurrentIpString() const {
    return KT::CIpAddress(GetCurrentString());
}

void IpLine::SetMinMax(const std::string& min, const std::string& max) {
    minAddress = min;
    maxAddress = max;
}

void IpLine::KeyUp() {
    const int p = cursor.GetCursorIndex();
    if (!IsDigitPosition(p)) {
        return;
    }
    std::string text = Work().GetIp(true);
    char& c = text[static_cast<size_t>(p)];
    if (p % 4 == 0) {
        c = c == '2' ? '0' : static_cast<char>(c + 1);
    } else if (OctetStarts25(text, p)) {
        c = c == '5' ? '0' : static_cast<char>(c + 1);
    } else {
        c = c == '9' ? '0' : static_cast<char>(c + 1);
    }
    LimitOctet(text, p);
    Work() = text;
}

void IpLine::KeyDown() {
    const int p = cursor.GetCursorIndex();
    if (!IsDigitPosition(p)) {
        return;
    }
    std::string text = Work().GetIp(true);
    const size_t first = static_cast<size_t>(p / 4) * 4;
    char& c = text[static_cast<size_t>(p)];
    char top = '9';
    if (p % 4 == 0) {
        top = '2';
    } else if (p % 4 == 1 && text[first] == '2') {
        top = '5';
    } else if (p % 4 == 2 && OctetStarts25(text, p)) {
        top = '5';
    }
    c = c == '0' ? top : static_cast<char>(c - 1);
    LimitOctet(text, p);
    Work() = text;
}

void IpLine::Clamp(KT::CIpAddress& a) const {
    // Octet by octet from the first, stopping as soon as the address is in
    // range: 192.168.1.1 against a maximum of 10.0.0.255 gives 10.0.0.1.
    for (int i = 0; i < 4 && a > maxAddress; ++i) {
        if (a[i] > maxAddress[i]) {
            a[i] = maxAddress[i];
        }
    }
    for (int i = 0; i < 4 && a < minAddress; ++i) {
        if (a[i] < minAddress[i]) {
            a[i] = minAddress[i];
        }
    }
}

void IpLine::Move(bool next) {
    const int p = cursor.GetCursorIndex();
    std::string text = Work().GetIp(true);
    if (IsDigitPosition(p)) {
        LimitOctet(text, p);
    }
    KT::CIpAddress a(text);
    Clamp(a);
    Work() = a;
    EditCursor::Step(cursor, next, IsSeparator);
}

void IpLine::KeyRight() {
    Move(true);
}

void IpLine::KeyLeft() {
    Move(false);
}

void IpLine::KeyNum(const KeyState_t& key) {
    const int digit = static_cast<int>(key.key) - KEY_0;
    const int p = cursor.GetCursorIndex();
    if (digit < 0 || digit > 9 || !IsDigitPosition(p)) {
        return;
    }
    std::string text = Work().GetIp(true);
    const size_t first = static_cast<size_t>(p / 4) * 4;
    if ((p % 4 == 0 && digit >= 3) || (p % 4 == 1 && text[first] == '2' && digit >= 6) ||
        (p % 4 == 2 && OctetStarts25(text, p) && digit >= 6)) {
        return;
    }
    text[static_cast<size_t>(p)] = static_cast<char>('0' + digit);
    // The cursor moves first, clamping the address as it stood before this
    // digit; the typed text then replaces that result. So a typed digit can
    // take the address past the minimum or maximum until the next move.
    KeyRight();
    LimitOctet(text, p);
    Work() = text;
}

bool IpLine::KeyPress(const KeyState_t& key) {
    cursor.EraseCursor(0);
    if (ArrowKey(key.key)) {
        return editing;
    }
    const auto step = EditFlow::Key(
        *this, key.key, editing, [this] { editAddress = currentAddress; },
        [this] {
            currentAddress = editAddress;
            return currentAddress.GetIp(false);
        });
    if (step == EditFlow::STEP_NONE && key.key >= KEY_0 && key.key <= KEY_9) {
        KeyNum(key);
    }
    return editing;
}

void IpLine::DrawCursor(int row) {
    EditCursor::Draw(cursor, display, row, offset + static_cast<int>(variableName.size()),
                     editAddress.GetIp(true));
}

void IpLine::EraseCursor(int row) {
    EditCursor::Erase(cursor, row);
}

}  // namespace FP
