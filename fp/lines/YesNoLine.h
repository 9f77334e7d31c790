#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "fp/menu/BaseLine.h"

namespace FP {

/// A two-word confirmation ("Yes" / "No") shown side by side in the middle of
/// the row. Left and Right move the choice at once; there is no edit mode.
/// The owner gives the cursor its item count (SetNumItems(2)) before keys come.
/// Threads and ownership: as BaseLine (borrows the display and the client).
class YesNoLine : public BaseLine {
public:
    /// "Yes" and "No", with "No" chosen.
    YesNoLine();
    ~YesNoLine() override;

    /// Left and right change the choice at once; always true.
    bool KeyPress(const KeyState_t& key) override;
    using BaseLine::SetCurrentValue;
    /// Text values are accepted and ignored.
    bool SetCurrentValue(const std::string& value) override;
    /// The chosen word.
    std::string GetCurrentString() const override;
    /// Both words, the chosen one reversed; the reversed word is kept whole
    /// even where the row ends inside it.
    void DrawLine(int row) override;
    /// DrawLine marks the choice itself; there is no separate cursor.
    ///@{
    void DrawCursor(int /*line*/) override {}
    void EraseCursor(int /*line*/) override {}
    ///@}

    /// Copies the first item-count strings of items.
    void SetMenuItems(const std::string* items);
    /// Gives the cursor its item count; call with 2 before keys come.
    void SetNumItems(int n);
    /// Kept for the owner; the line does not draw it.
    ///@{
    void SetDisplayLine(const std::string& text) { displayLine = text; }
    const std::string& GetDisplayLine() const { return displayLine; }
    ///@}
    /// Out-of-range indices are ignored, and still answered with true.
    bool SetCurrentValue(int index);
    /// Index of the chosen word (0 for the first).
    int GetSelectedIndex() const { return selectedIndex; }

private:
    std::string Item(int i) const;

    std::vector<std::string> menuItems;
    std::string displayLine;
    int32_t itemCount;
    int32_t selectedIndex;
};

}  // namespace FP
