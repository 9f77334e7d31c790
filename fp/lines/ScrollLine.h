#pragma once

#include <cstdint>
#include <string>

#include "fp/menu/BaseLine.h"

namespace FP {

/// A read-only value that may be longer than its row; left and right scroll
/// it sideways without entering edit mode, up, down and exit scroll it back.
/// Threads and ownership: as BaseLine (borrows the display and the client).
class ScrollLine : public BaseLine {
public:
    ScrollLine();
    /// Starts with value.
    explicit ScrollLine(std::string value);
    /// Bound to a variable and loaded at once (empty until a client is set).
    ScrollLine(std::string dbName, std::string dbInstance);
    ~ScrollLine() override;

    /// Left and right scroll by one character; up, down and exit go back to
    /// the start. Never enters edit mode.
    bool KeyPress(const KeyState_t& key) override;
    using BaseLine::SetCurrentValue;
    /// Takes v (a very long value is cut); always true.
    bool SetCurrentValue(const std::string& v) override;
    /// The decimal text of n.
    bool SetCurrentValue(int n);
    std::string GetCurrentString() const override { return value; }
    /// Caption, then the part of value and suffix from the scroll position.
    void DrawLine(int row) override;
    /// The value is never edited, so there is no cursor to draw.
    ///@{
    void DrawCursor(int /*line*/) override {}
    void EraseCursor(int /*line*/) override {}
    ///@}

    /// The value's length, not a parsed number.
    int GetCurrentNumber() const { return static_cast<int>(value.size()); }
    /// Index of the first character shown.
    unsigned int GetScrollPos() const { return scrollPos; }

    /// As in BaseLine, keeping the scroll bound in step with caption and
    /// suffix.
    ///@{
    void SetVariableName(const std::string& name);
    void SetSuffix(const std::string& s);
    ///@}

private:
    std::string value;
    uint32_t scrollPos;
    int32_t textLength;
};

}  // namespace FP
