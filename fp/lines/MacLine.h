#pragma once

#include <string>

#include "fp/menu/BaseLine.h"
#include "kt/MacAddress.h"

namespace FP {

/// A 48-bit hardware address edited one hex digit at a time in the form
/// "00:1A:2B:3C:4D:5E": the cursor skips the colons, up and down step the
/// digit under it through 0-9, A-F.
/// Threads and ownership: as BaseLine (borrows the display and the client).
class MacLine : public BaseLine {
public:
    /// 00:00:00:00:00:00.
    MacLine();
    /// Bound to dbName/dbInstance and loaded at once.
    MacLine(const std::string& dbName, const std::string& dbInstance);
    /// Starts from address.
    explicit MacLine(const KT::CMacAddress& address);
    ~MacLine() override;

    /// Arrows edit the address one hex digit at a time. Enter starts or
    /// commits an edit (writing it back when bound); exit drops it. Outside
    /// edit mode the arrows change the value itself, without writing.
    bool KeyPress(const KeyState_t& key) override;
    /// Step the hex digit under the cursor through 0-9 and A-F.
    ///@{
    void KeyUp() override;
    void KeyDown() override;
    ///@}
    /// Previous or next digit, skipping the colons.
    ///@{
    void KeyLeft() override;
    void KeyRight() override;
    ///@}
    using BaseLine::SetCurrentValue;
    /// Text that is not an address gives 00:00:00:00:00:00.
    bool SetCurrentValue(const std::string& s) override;
    /// Takes address as it is; always true.
    bool SetCurrentValue(const KT::CMacAddress& address);
    /// A literal would otherwise match both overloads above.
    bool SetCurrentValue(const char* s) { return SetCurrentValue(std::string(s ? s : "")); }
    /// Upper-case hex with colons; the edited copy while editing.
    std::string GetCurrentString() const override;
    /// The edited copy while editing, the value otherwise.
    KT::CMacAddress GetMacAddress() const;
    /// While editing with the display-in-edit-mode flag set, the address is
    /// drawn without the caption so that all 17 characters fit.
    void DrawLine(int row) override;
    /// Reverses the digit under the edit cursor, or shows it plain again.
    ///@{
    void DrawCursor(int row) override;
    void EraseCursor(int row) override;
    ///@}

    /// Kept for the owner; no edit is limited by it.
    void SetRange(const std::string& min, const std::string& max);
    /// Lets an edited address take the caption's place on the row.
    ///@{
    void SetDisplayInEditMode(bool on) { displayInEditMode = on; }
    bool GetDisplayInEditMode() const { return displayInEditMode; }
    ///@}

private:
    KT::CMacAddress& Work() { return editing ? editAddress : currentAddress; }
    void Step(bool up);
    void Move(bool next);
    int TextColumn() const;

    KT::CMacAddress currentAddress;
    KT::CMacAddress editAddress;
    KT::CMacAddress maxAddress;
    KT::CMacAddress minAddress;
    bool displayInEditMode;
};

}  // namespace FP
