#include "fp/lines/NumberLine.h"

#include <log4cpp/Category.hh>

#include <cmath>
#include <limits>
#include <stdexcept>

#include "fp/client/FpClient.h"
#include "fp/core/Names.h"
#include "fp/lines/detail/RowWriter.h"
#include "fp/lines/internal/EditFlow.h"
#include "fp/menu/internal/EditCursor.h"
#include "kt/Str.h"

namespace FP {

namespace {

log4cpp::Category& Log() {
    return log4cpp::Category::getInstance("fp.lines");
}

// Reads text as the number line always does: a stream extraction, with
// "true" and "false" standing for 1 and 0. Whether the text was canonical
// does not matter here.
double ReadNumber(const std::string& text) {
    double v = 0.0;
    KT::Str::ToNum<double>(v, text);
    return v;
}

bool FitsInt(double v) {
    return std::isfinite(v) && v > static_cast<double>(std::numeric_limits<int>::min()) - 1.0 &&
           v < static_cast<double>(std::numeric_limits<int>::max()) + 1.0;
}

}  // namespace

NumberLine::NumberLine(const bool& isSignedArg, const double& unitArg, const int& decimalsArg,
                       const double& scaleArg)
    : numItems(0),
      minimum(0.0),
      maximum(0.0),
      currentString("0.0"),
      editString("0.0"),
      decimalPos(0),
      scale(scaleArg),
      unit(unitArg),
      decimals(decimalsArg < 0 ? 0 : decimalsArg),
      isSigned(isSignedArg) {
    SetNumItems(9);
    cursor.SetCursorType(CURSOR_EDIT);
    hoverNavMask = NavSymbol::kUpDown | NavSymbol::kEnter;
    editNavMask = NavSymbol::kEnter | NavSymbol::kUpDown | NavSymbol::kLeftRight;
}

NumberLine::NumberLine(const bool& isSignedArg) : NumberLine(isSignedArg, 1.0, 0, 0.0) {}

NumberLine::NumberLine(const double& min, const double& max) : NumberLine(min < 0) {
    SetMinMax(min, max);
}

NumberLine::NumberLine() : NumberLine(0.0, 0.0) {}

void NumberLine::SetNumItems(int n) {
    valueFormat = KT::Str::Format("%%0%d.%df", isSigned ? n - 1 : n, decimals);
    numItems = n;
    cursor.SetItemCount(n);
}

void NumberLine::SetMinMax(const double& min, const double& max) {
    minimum = min;
    maximum = max;
    const int a = GetLength(min);
    const int b = GetLength(max);
    SetNumItems(a > b ? a : b);
}

int NumberLine::GetOffset() const {
    return (isSigned ? 1 : 0) + (decimals > 0 ? 1 : 0);
}

int NumberLine::GetLength(const double& v) const {
    double whole = std::fabs(std::trunc(v));
    int digits = 1;
    while (whole >= 10.0) {
        whole /= 10.0;
        ++digits;
    }
    return GetOffset() + decimals + digits;
}

std::string NumberLine::GetFormattedString(double v) const {
    if (!isSigned) {
        return KT::Str::Format(valueFormat, v);
    }
    if (v > 0) {
        return "+" + KT::Str::Format(valueFormat, v);
    }
    if (v < 0) {
        return "-" + KT::Str::Format(valueFormat, -v);
    }
    // Zero carries a plus sign.
    return "+" + KT::Str::Format(valueFormat, 0.0);
}

std::string NumberLine::GetValidEntry(double v) const {
    if (minimum > v) {
        return GetFormattedString(minimum);
    }
    if (maximum < v) {
        return GetFormattedString(maximum);
    }
    return GetFormattedString(v);
}

bool NumberLine::SetCurrentValue(double v) {
    // No sign character here, even on a signed line; GetCurrentString adds it.
    currentString = KT::Str::Format(valueFormat, v);
    editString = currentString;
    return true;
}

bool NumberLine::SetCurrentValue(const std::string& value) {
    float parsed = 0.0f;
    bool ok = false;
    try {
        parsed = std::stof(value);
        ok = std::isfinite(parsed);
    } catch (const std::invalid_argument&) {
    } catch (const std::out_of_range&) {
    }
    if (!ok) {
        if (value != lastRefused) {
            Log().warn("%s() Not a number, keeping %s: '%s'", __func__, currentString.c_str(),
                       value.c_str());
            lastRefused = value;
        }
        return false;
    }
    lastRefused.clear();
    return SetCurrentValue(static_cast<double>(parsed));
}

bool NumberLine::SymbolCheck(const char& c) const {
    return c == '+' || c == '-' || c == '.';
}

bool NumberLine::SymbolAt(const std::string& s, int index) const {
    return index >= 0 && static_cast<size_t>(index) < s.size() && SymbolCheck(s[index]);
}

double NumberLine::Power(const int& base, const int& exp) const {
    if (exp >= 0) {
        return static_cast<double>(std::pow(static_cast<float>(base), static_cast<float>(exp)));
    }
    return 1.0 / std::pow(static_cast<double>(base), static_cast<double>(-exp));
}

int NumberLine::GetDecimalPos(const std::string& s) const {
    if (decimals == 0) {
        return static_cast<int>(s.size());
    }
    const size_t dot = s.find('.');
    return static_cast<int>(dot == std::string::npos ? s.size() : dot);
}

double NumberLine::GetUnitValue(const std::string& s, const int& pos) const {
    if (pos == static_cast<int>(s.size()) - 1) {
        return unit;
    }
    // decimalPos is taken when the edit starts.
    const int e = decimalPos - pos;
    return e < 0 ? Power(10, e) : Power(10, e - 1);
}

double NumberLine::EditValue() const {
    return ReadNumber(editString);
}

void NumberLine::NumKeyUp() {
    const double value = EditValue();
    const double step = GetUnitValue(editString, cursor.GetCursorIndex());
    double next = value + step;
    if (value < 0 && next > 0) {
        // Crossing zero keeps the digits and adds the step: -0.5 + 1 is 1.5.
        next = -(value - step);
    }
    editString = GetValidEntry(next);
}

void NumberLine::NumKeyDown() {
    const double value = EditValue();
    const double step = GetUnitValue(editString, cursor.GetCursorIndex());
    double next = value - step;
    if (value > 0 && next < 0) {
        next = -(step + value);
    }
    editString = GetValidEntry(next);
}

bool NumberLine::KeyPress(const KeyState_t& key) {
    const auto begin = [this] {
        editString = currentString;
        decimalPos = GetDecimalPos(editString);
        if (SymbolAt(editString, cursor.GetCursorIndex())) {
            cursor.MoveCursorRight();
        }
    };
    const auto commit = [this] {
        currentString = editString;
        return currentString;
    };
    if (EditFlow::Key(*this, key.key, editing, begin, commit) != EditFlow::STEP_NONE) {
        return editing;
    }
    switch (key.key) {
        case KEY_LEFT:
        case KEY_RIGHT:
            EditCursor::Step(cursor, key.key == KEY_RIGHT,
                             [this](int i) { return SymbolAt(editString, i); });
            break;
        case KEY_UP:
            NumKeyUp();
            break;
        case KEY_DOWN:
            NumKeyDown();
            break;
        default:
            break;
    }
    return editing;
}

std::string NumberLine::GetCurrentString() const {
    return GetFormattedString(ReadNumber(editing ? editString : currentString));
}

std::string NumberLine::GetDbValue() {
    if (!IsBound() || !client) {
        return std::string();
    }
    double value = ReadNumber(client->GetData(dbName, dbInstance)) * scale;
    if (unit >= 0) {
        const long long p = static_cast<long long>(Power(10, decimals));
        const long long u = static_cast<long long>(unit * static_cast<double>(p));
        const double t =
            static_cast<double>(p) * (value >= 0 ? value + unit / 2 : value - unit / 2);
        // A unit finer than the decimals, or a value beyond any count of
        // units, is shown unrounded.
        if (u > 0 && FitsInt(t / static_cast<double>(u))) {
            const long long steps = static_cast<long long>(t / static_cast<double>(u));
            value = static_cast<double>(u * steps) / static_cast<double>(p);
        }
    }
    return KT::Str::Format(valueFormat, value);
}

void NumberLine::SendDbData(std::string value) {
    if (!IsBound() || !client) {
        return;
    }
    const double inverse = 1.0 / scale;
    if (!FitsInt(inverse)) {
        Log().error("%s() No integer step for scale %g, %s not written", __func__, scale,
                    dbName.c_str());
        return;
    }
    // Truncated on purpose: a scale of 0.3 writes in steps of 3.
    const int factor = static_cast<int>(inverse);
    const double stored = static_cast<double>(factor) * ReadNumber(value);
    if (!FitsInt(stored)) {
        Log().error("%s() %s out of range for %s", __func__, value.c_str(), dbName.c_str());
        return;
    }
    client->SendData(dbName, dbInstance, KT::Str::Format("%d", static_cast<int>(stored)));
}

void NumberLine::DrawLine(int row) {
    if (!display) {
        return;
    }
    const int column =
        RowWriter::Caption(*display, row, offset, hasVariableName ? variableName : std::string());
    const std::string shown = GetCurrentString();
    RowWriter::Write(*display, shown, row, column);
    if (editing) {
        DrawCursor(row);
        const int i = cursor.GetCursorIndex();
        if (i >= 0 && static_cast<size_t>(i) < shown.size()) {
            RowWriter::Char(*display, static_cast<unsigned char>(shown[i]), row, column + i, true);
        }
    } else {
        EraseCursor(row);
    }
    int next = column + numItems;
    if (hasSuffix) {
        RowWriter::Write(*display, suffix, row, next);
        next += static_cast<int>(suffix.size());
    }
    RowWriter::Pad(*display, row, next, lineWidth);
}

void NumberLine::DrawCursor(int row) {
    cursor.SetCursorPosition(row);
    const double v = ReadNumber(editing ? editString : currentString);
    const std::string digits = KT::Str::Format(valueFormat, std::fabs(v));
    cursor.DrawCursor(offset + static_cast<int>(variableName.size()) + GetOffset(), digits);
}

void NumberLine::EraseCursor(int row) {
    EditCursor::Erase(cursor, row);
}

}  // namespace FP
