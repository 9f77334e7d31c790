#pragma once

#include <string>

#include "fp/menu/BaseLine.h"
#include "kt/MacAddress.h"

namespace FP {

// A 48-bit hardware address edited one hex digit at a time in the form
// "00:1A:2B:3C:4D:5E": the cursor skips the colons, up and down step the
// digit under it through 0-9, A-F.
class MacLine : public BaseLine {
public:
    MacLine();
    MacLine(const std::string& dbName, const std::string& dbInstance);
    explicit MacLine(const KT::CMacAddress& address);
    ~MacLine() override;

    bool KeyPress(const KeyState_t& key) override;
    void KeyUp() override;
    void KeyDown() override;
    void KeyLeft() override;
    void KeyRight() override;
    using BaseLine::SetCurrentValue;
    // Text that is not an address gives 00:00:00:00:00:00.
    bool SetCurrentValue(const std::string& s) override;
    bool SetCurrentValue(const KT::CMacAddress& address);
    // A literal would otherwise match both overloads above.
    bool SetCurrentValue(const char* s) { return SetCurrentValue(std::string(s ? s : "")); }
    std::string GetCurrentString() const override;
    KT::CMacAddress GetMacAddress() const;
    // While editing with the display-in-edit-mode flag set, the address is
    // drawn without the caption so that all 17 characters fit.
    void DrawLine(int row) override;
    void DrawCursor(int row) override;
    void EraseCursor(int row) override;

    // Kept for the owner; no edit is limited by it.
    void SetRange(const std::string& min, const std::string& max);
    void SetDisplayInEditMode(bool on) { displayInEditMode = on; }
    bool GetDisplayInEditMode() const { return displayInEditMode; }

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
