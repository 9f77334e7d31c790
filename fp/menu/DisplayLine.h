#pragma once

#include <string>

#include "fp/menu/BaseLine.h"

namespace FP {

/// A caption and a text value on one row that the user cannot change; menus
/// use it for their titles. Enter toggles an edit mode that alters nothing,
/// unless the line is read-only.
/// Threads and ownership: as BaseLine.
class DisplayLine : public BaseLine {
public:
    /// An empty value, unbound.
    DisplayLine();
    /// Shows value as given.
    explicit DisplayLine(const std::string& value);
    /// Bound to a variable; the value is first read at the next refresh.
    DisplayLine(const std::string& dbName, std::string dbInstance);
    ~DisplayLine() override;

    /// Enter toggles edit mode and exit leaves it; nothing else happens.
    /// Returns whether the line is in edit mode afterwards.
    bool KeyPress(const KeyState_t& key) override;
    /// Keeps the base's reload-from-engine form visible next to the overrides.
    using BaseLine::SetCurrentValue;
    /// Takes the text (or the number, written in decimal); always accepted.
    ///@{
    bool SetCurrentValue(const std::string& v) override;
    bool SetCurrentValue(int n);
    ///@}
    /// The text as it was last set.
    std::string GetCurrentString() const override { return value; }
    /// The line has no character cursor; these draw nothing.
    ///@{
    void DrawCursor(int /*line*/) override {}
    void EraseCursor(int /*line*/) override {}
    ///@}

    /// Length in characters of the value, without caption or suffix.
    int GetDisplayStringLength() const { return static_cast<int>(value.size()); }

private:
    std::string value;
};

}  // namespace FP
