#include "fp/lines/StringLine.h"

#include "fp/core/Names.h"
#include "fp/lines/detail/RowWriter.h"
#include "fp/lines/internal/EditFlow.h"
#include "fp/menu/internal/EditCursor.h"
#include "kt/Str.h"

namespace FP {

namespace {

bool IsAlnum(unsigned char c) {
    // Spelled out rather than isalnum() so that a locale set by the
    // application cannot change the cycle.
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool IsHostChar(unsigned char c) {
    return IsAlnum(c) || c == '-' || c == '_';
}

// The printable set is walked as: punctuation, '_', lower case, upper case,
// digits, back to space. Each pair is a jump of the Up direction; Down
// follows the same pairs backwards.
const char kAllCharJumps[][2] = {{'/', ':'}, {'9', ' '}, {'@', '['}, {'Z', '0'}, {'^', '`'},
                                 {'_', 'a'}, {'`', '{'}, {'z', 'A'}, {'~', '_'}};

void StepAllChar(char& c, bool up) {
    const int from = up ? 0 : 1;
    for (const auto& jump : kAllCharJumps) {
        if (c == jump[from]) {
            c = jump[1 - from];
            return;
        }
    }
    c = static_cast<char>(static_cast<unsigned char>(c) + (up ? 1 : -1));
}

// Up or down within the line's character set; an unknown set cycles as
// alphanumeric.
void Cycle(StringLine& line, bool up) {
    switch (line.GetCharacterSet()) {
        case StringLine::Hostname:
            up ? line.HostnameKeyUp() : line.HostnameKeyDown();
            break;
        case StringLine::AllChar:
            up ? line.AllCharKeyUp() : line.AllCharKeyDown();
            break;
        default:
            up ? line.AlphaNumericKeyUp() : line.AlphaNumericKeyDown();
            break;
    }
}

}  // namespace

StringLine::StringLine() : maxLength(1), characterSet(AlphaNumeric) {
    cursor.SetCursorType(CURSOR_EDIT);
    hoverNavMask = NavSymbol::kUpDown | NavSymbol::kEnter;
    editNavMask = NavSymbol::kCheck | NavSymbol::kCross | NavSymbol::kEnter | NavSymbol::kUpDown |
                  NavSymbol::kLeftRight;
}

StringLine::~StringLine() = default;

void StringLine::SetNumItems(int n) {
    maxLength = n;
    cursor.SetItemCount(n);
}

bool StringLine::SetCurrentValue(const std::string& s) {
    committedText = s;
    if (static_cast<int>(s.size()) < maxLength) {
        committedText.append(static_cast<size_t>(maxLength) - s.size(), '_');
    }
    cursor.SetDisplayLines(0, maxLength);
    editText = committedText;
    return true;
}

bool StringLine::SetCurrentValue(int v) {
    return SetCurrentValue(KT::Str::Format("%d", v));
}

std::string StringLine::GetCurrentString() const {
    const std::string& text = editing ? editText : committedText;
    const size_t last = text.find_last_not_of('_');
    return last == std::string::npos ? std::string() : text.substr(0, last + 1);
}

int StringLine::GetCurrentNumber() const {
    int n = 0;
    // The padding makes the text non-canonical, so the result flag says
    // nothing here; n holds whatever number the text starts with.
    KT::Str::ToNum<int>(n, editing ? editText : committedText);
    return n;
}

char* StringLine::EditChar() {
    const int i = cursor.GetCursorIndex();
    if (i < 0 || static_cast<size_t>(i) >= editText.size()) {
        return nullptr;
    }
    return &editText[static_cast<size_t>(i)];
}

void StringLine::Step(bool up, bool (*accept)(unsigned char)) {
    char* c = EditChar();
    if (!c) {
        return;
    }
    unsigned char v = static_cast<unsigned char>(*c);
    do {
        v = static_cast<unsigned char>(up ? v + 1 : v - 1);
    } while (!accept(v));
    *c = static_cast<char>(v);
}

void StringLine::AlphaNumericKeyUp() {
    Step(true, IsAlnum);
}

void StringLine::AlphaNumericKeyDown() {
    Step(false, IsAlnum);
}

void StringLine::HostnameKeyUp() {
    Step(true, IsHostChar);
}

void StringLine::HostnameKeyDown() {
    Step(false, IsHostChar);
}

void StringLine::AllCharKeyUp() {
    if (char* c = EditChar()) {
        StepAllChar(*c, true);
    }
}

void StringLine::AllCharKeyDown() {
    if (char* c = EditChar()) {
        StepAllChar(*c, false);
    }
}

int StringLine::TextColumn() const {
    return offset + (hasVariableName ? static_cast<int>(variableName.size()) : 0);
}

void StringLine::PutCharacter(char c) {
    const int i = cursor.GetCursorIndex();
    if (i < 0 || static_cast<size_t>(i) > editText.size()) {
        return;
    }
    const size_t before = editText.size();
    editText.insert(static_cast<size_t>(i), 1, c);
    // Typing inserts, so the padding is pushed right and drops off where the
    // row ends. A caption that fills the row leaves no room at all; the text
    // then keeps its length rather than growing with every key.
    if (display) {
        const int room = static_cast<int>(display->GetDisplayWidth()) - TextColumn();
        const size_t keep = room >= 0 ? static_cast<size_t>(room) : before;
        if (editText.size() > keep) {
            editText.resize(keep);
        }
    }
    cursor.MoveCursorRight();
}

void StringLine::PutBackspace() {
    const int i = cursor.GetCursorIndex();
    if (i <= 0 || static_cast<size_t>(i) > editText.size()) {
        return;
    }
    editText.erase(static_cast<size_t>(i) - 1, 1);
    cursor.MoveCursorLeft();
    editText.push_back('_');
}

void StringLine::PutDelete() {
    const int i = cursor.GetCursorIndex();
    if (i < 0 || static_cast<size_t>(i) > editText.size()) {
        return;
    }
    if (static_cast<size_t>(i) < editText.size()) {
        editText.erase(static_cast<size_t>(i), 1);
    }
    editText.push_back('_');
}

bool StringLine::KeyPress(const KeyState_t& key) {
    cursor.EraseCursor(0);
    // Outside edit mode only enter does anything.
    if (!editing && key.key != KEY_ENTER) {
        return editing;
    }
    if (EditFlow::Key(
            *this, key.key, editing, [this] { editText = committedText; },
            [this] {
                committedText = editText;
                return GetCurrentString();
            }) != EditFlow::STEP_NONE) {
        return editing;
    }
    const int code = key.key;
    switch (code) {
        case KEY_LEFT:
            cursor.MoveCursorLeft();
            break;
        case KEY_RIGHT:
            cursor.MoveCursorRight();
            break;
        case KEY_UP:
        case KEY_DOWN:
            Cycle(*this, code == KEY_UP);
            break;
        case KEY_BACKSPACE:
            PutBackspace();
            break;
        case KEY_DELETE:
            PutDelete();
            break;
        case KEY_SPACEBAR:
            PutCharacter('_');
            break;
        default:
            if (code >= KEY_0 && code <= KEY_9) {
                PutCharacter(static_cast<char>('0' + (code - KEY_0)));
            } else if (code >= KEY_a && code <= KEY_z) {
                PutCharacter(static_cast<char>('a' + (code - KEY_a)));
            } else if (code >= KEY_A && code <= KEY_Z) {
                PutCharacter(static_cast<char>('A' + (code - KEY_A)));
            }
            break;
    }
    return editing;
}

void StringLine::DrawLine(int row) {
    if (!display) {
        return;
    }
    RowWriter::Caption(*display, row, offset, hasVariableName ? variableName : std::string());
    const int column = TextColumn();
    // Past the maximum length the suffix or the padding would overwrite the
    // text anyway; cutting it here also keeps an over-long value on its row.
    const std::string& text = editing ? editText : committedText;
    RowWriter::Write(*display, RowWriter::Part(text, 0, maxLength > 0 ? maxLength : 0), row,
                     column);
    if (editing) {
        DrawCursor(row);
        const int i = cursor.GetCursorIndex();
        if (i >= 0 && i < maxLength && static_cast<size_t>(i) < editText.size()) {
            EditCursor::CellOnce(*display, static_cast<unsigned char>(editText[i]), row,
                                 column + i);
        }
    } else {
        EraseCursor(row);
    }
    int end = column + (maxLength > 0 ? maxLength : 0);
    if (hasSuffix) {
        RowWriter::Write(*display, suffix, row, end);
        end += static_cast<int>(suffix.size());
    }
    RowWriter::Pad(*display, row, end, lineWidth);
}

void StringLine::DrawCursor(int row) {
    EditCursor::Draw(cursor, display, row, TextColumn(), editText);
}

void StringLine::EraseCursor(int row) {
    EditCursor::Erase(cursor, row);
}

}  // namespace FP
