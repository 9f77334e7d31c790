#pragma once

#include <string>

#include "fp/menu/BaseLine.h"
#include "kt/IpAddress.h"

namespace FP {

/// An IPv4 address edited digit by digit in its zero-padded form
/// ("192.168.001.010"): the cursor walks the digits and skips the dots, up and
/// down step the digit under it, digit keys type. Every octet is held to 255
/// as it is edited; the minimum and maximum are applied when the cursor moves.
/// Threads and ownership: as BaseLine (borrows the display and the client).
class IpLine : public BaseLine {
public:
    /// 0.0.0.0, limits from the lowest to the highest address.
    IpLine();
    /// Bound to dbName/dbInstance and loaded at once.
    IpLine(const std::string& dbName, const std::string& dbInstance);
    ~IpLine() override;

    /// Arrows and digit keys edit the padded dotted form, each octet held to
    /// 255. Enter starts or commits an edit (writing the address back when
    /// bound); exit drops it. Outside edit mode the keys change the value
    /// itself, without writing.
    bool KeyPress(const KeyState_t& key) override;
    /// Step the decimal digit under the cursor.
    ///@{
    void KeyUp() override;
    void KeyDown() override;
    ///@}
    /// Hold the address to its limits, then go to the previous or next digit.
    ///@{
    void KeyLeft() override;
    void KeyRight() override;
    ///@}
    using BaseLine::SetCurrentValue;
    /// Text that is not an address gives 0.0.0.0.
    bool SetCurrentValue(const std::string& s) override;
    /// Numbers are not addresses: refused.
    bool SetCurrentValue(int v);
    /// Always 0: an address has no number.
    int GetCurrentNumber() const { return 0; }
    /// Padded while editing, so that cursor positions match the text.
    std::string GetCurrentString() const override;
    /// The shown text as an address.
    KT::CIpAddress GetCurrentIpString() const;
    /// Reverses the digit under the edit cursor, or shows it plain again.
    ///@{
    void DrawCursor(int row) override;
    void EraseCursor(int row) override;
    ///@}

    /// Limits applied when the cursor moves (not on enter or typing).
    void SetMinMax(const std::string& min, const std::string& max);
    /// Digit entry for keys 0 to 9.
    void KeyNum(const KeyState_t& key);

private:
    // The edit address while editing, the current one otherwise: the keys
    // work on either.
    KT::CIpAddress& Work() { return editing ? editAddress : currentAddress; }
    void Clamp(KT::CIpAddress& a) const;
    void Move(bool next);

    KT::CIpAddress currentAddress;
    KT::CIpAddress editAddress;
    KT::CIpAddress maxAddress;
    KT::CIpAddress minAddress;
};

}  // namespace FP
