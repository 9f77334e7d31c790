#pragma once

#include <cstdint>
#include <string>

#include "fp/menu/BaseLine.h"

namespace FP {

/// Edits a decimal value one digit at a time. The field is zero-padded to a
/// set width, may start with '+' or '-', keeps a set count of digits after
/// the point and stays within [minimum, maximum]. Up and down change the value
/// by the weight of the digit under the cursor.
///
/// Stored values are whole counts of 1 / scale steps: reading scales and
/// rounds to the unit, writing multiplies by the truncated 1 / scale and
/// drops the fraction.
/// Threads and ownership: as BaseLine (borrows the display and the client).
class NumberLine : public BaseLine {
public:
    /// unit: the step of the last digit; decimals: digits after the point;
    /// scale: shown value = stored value * scale.
    NumberLine(const bool& isSigned, const double& unit, const int& decimals, const double& scale);
    /// Whole numbers in steps of 1, scale 0 (set one before binding).
    explicit NumberLine(const bool& isSigned);
    /// Signed exactly when min is negative.
    NumberLine(const double& min, const double& max);
    /// Unsigned, limits 0 and 0.
    NumberLine();

    /// Left and right walk the digits (skipping sign and point); up and down
    /// add or take the digit's weight, held to the limits. Enter starts an
    /// edit or commits it (writing it back when bound); exit drops it.
    bool KeyPress(const KeyState_t& key) override;
    using BaseLine::SetCurrentValue;
    /// Text that is not a number is refused (logged); the line keeps its value.
    bool SetCurrentValue(const std::string& value) override;
    /// Takes value as it is (no limits, no sign character).
    bool SetCurrentValue(double value);
    /// The edited (while editing) or committed value, signed on a signed line.
    std::string GetCurrentString() const override;
    /// Caption, field and suffix; while editing the digit under the cursor
    /// is reversed.
    void DrawLine(int row) override;
    /// Reverses the digit in the unsigned rendering of the value, or shows
    /// it plain again.
    ///@{
    void DrawCursor(int row) override;
    void EraseCursor(int row) override;
    ///@}

    /// Field width in characters, sign included.
    void SetNumItems(int n);
    /// Limits; the wider of the two sets the field width.
    void SetMinMax(const double& min, const double& max);
    /// Non-digit characters of the field: sign and point.
    int GetOffset() const;
    /// Characters v needs in this field.
    int GetLength(const double& v) const;
    /// v in the field's format, with '+' or '-' on a signed line.
    std::string GetFormattedString(double v) const;
    /// The same, held to the limits first.
    std::string GetValidEntry(double v) const;
    /// True for sign and point characters.
    bool SymbolCheck(const char& c) const;
    /// base raised to exp; a negative exp gives the reciprocal power.
    double Power(const int& base, const int& exp) const;
    /// Where the point stands in s (its length when there is none).
    int GetDecimalPos(const std::string& s) const;
    /// Weight of the digit at pos.
    double GetUnitValue(const std::string& s, const int& pos) const;
    /// Steps the edited value by the weight of the digit under the cursor.
    ///@{
    void NumKeyUp();
    void NumKeyDown();
    ///@}

    /// Field width in characters, sign included.
    int GetNumItems() const { return numItems; }
    /// True when the field carries a sign character.
    bool IsSigned() const { return isSigned; }
    /// The field texts, as edited and as last committed.
    ///@{
    const std::string& GetEditString() const { return editString; }
    const std::string& GetCommittedString() const { return currentString; }
    ///@}

    /// The line's own engine conversions (scaled and rounded); they hide the
    /// base's text binding on purpose rather than override it.
    ///@{
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Woverloaded-virtual"
    std::string GetDbValue();
    void SendDbData(std::string value);
#pragma GCC diagnostic pop
    ///@}

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
