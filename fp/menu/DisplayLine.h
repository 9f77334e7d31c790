#pragma once

#include <string>

#include "fp/menu/BaseLine.h"

namespace FP {

// A read-only caption and text value on one row; menus use it for titles.
// Enter toggles a do-nothing edit mode unless the line is read-only.
class DisplayLine : public BaseLine {
public:
    DisplayLine();
    explicit DisplayLine(const std::string& value);
    // Bound to a variable; the value is first read at the next refresh.
    DisplayLine(const std::string& dbName, std::string dbInstance);
    ~DisplayLine() override;

    bool KeyPress(const KeyState_t& key) override;
    using BaseLine::SetCurrentValue;
    bool SetCurrentValue(const std::string& v) override;
    bool SetCurrentValue(int n);
    std::string GetCurrentString() const override { return value; }
    void DrawCursor(int /*line*/) override {}
    void EraseCursor(int /*line*/) override {}

    int GetDisplayStringLength() const { return static_cast<int>(value.size()); }

private:
    std::string value;
};

}  // namespace FP
