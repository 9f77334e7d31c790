#pragma once

#include <cstdint>
#include <string>

#include "fp/menu/BaseLine.h"

namespace FP {

// Shows and edits a decimal number digit by digit: a zero-padded field of
// fixed width, optionally with a leading sign, with a fixed number of
// decimals, clamped to [minimum, maximum]. Up and down add or subtract the
// place value of the character under the cursor.
//
// The engine holds the number as an integer count of 1 / scale steps:
// GetDbValue multiplies by scale and rounds to the unit, SendDbData
// multiplies by the truncated 1 / scale and truncates the result.
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

    // The line's own engine conversions; they hide, and do not override, the
    // base's text binding.
    std::string GetDbValue();
    void SendDbData(std::string value);

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
