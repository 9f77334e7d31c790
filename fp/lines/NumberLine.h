#pragma once

#include <cstdint>
#include <string>

#include "fp/menu/BaseLine.h"

namespace FP {

// Edits a decimal value one digit at a time. The field is zero-padded to a
// set width, may start with '+' or '-', keeps a set count of digits after
// the point and stays within [minimum, maximum]. Up and down change the value
// by the weight of the digit under the cursor.
//
// Stored values are whole counts of 1 / scale steps: reading scales and
// rounds to the unit, writing multiplies by the truncated 1 / scale and
// drops the fraction.
class NumberLine : public BaseLine {
public:
    NumberLine(const bool& isSigned, const double& unit, const int& decimals, const double& scale);
    explicit NumberLine(const bool& isSigned);
    // Signed exactly when min is negative.
    NumberLine(const double& min, const double& max);
    NumberLine();

    bool KeyPress(const KeyState_t& key) override;
    using BaseLine::SetCurrentValue;
    // Text that is not a number is refused (logged); the line keeps its value.
    bool SetCurrentValue(const std::string& value) override;
    bool SetCurrentValue(double value);
    // The edited (while editing) or committed value, signed on a signed line.
    std::string GetCurrentString() const override;
    void DrawLine(int row) override;
    void DrawCursor(int row) override;
    void EraseCursor(int row) override;

    void SetNumItems(int n);
    void SetMinMax(const double& min, const double& max);
    // Non-digit characters of the field: sign and point.
    int GetOffset() const;
    int GetLength(const double& v) const;
    std::string GetFormattedString(double v) const;
    std::string GetValidEntry(double v) const;
    bool SymbolCheck(const char& c) const;
    double Power(const int& base, const int& exp) const;
    int GetDecimalPos(const std::string& s) const;
    double GetUnitValue(const std::string& s, const int& pos) const;
    void NumKeyUp();
    void NumKeyDown();

    int GetNumItems() const { return numItems; }
    bool IsSigned() const { return isSigned; }
    const std::string& GetEditString() const { return editString; }
    const std::string& GetCommittedString() const { return currentString; }

    // The line's own engine conversions (scaled and rounded); they hide the
    // base's text binding on purpose rather than override it.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Woverloaded-virtual"
    std::string GetDbValue();
    void SendDbData(std::string value);
#pragma GCC diagnostic pop

private:
    bool SymbolAt(const std::string& s, int index) const;
    double EditValue() const;

    int32_t numItems;
    double minimum;
    double maximum;
    std::string currentString;
    std::string editString;
    int32_t decimalPos;
    double scale;
    double unit;
    int32_t decimals;
    bool isSigned;
    // The last text refused, so that a poll loop logs a bad value once.
    std::string lastRefused;
};

}  // namespace FP
