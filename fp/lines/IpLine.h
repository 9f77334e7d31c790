#pragma once

#include <string>

#include "fp/menu/BaseLine.h"
#include "kt/IpAddress.h"

namespace FP {

// An IPv4 address edited digit by digit in its zero-padded form
// ("192.168.001.010"): the cursor walks the digits and skips the dots, up and
// down step the digit under it, digit keys type. Every octet is held to 255
// as it is edited; the minimum and maximum are applied when the cursor moves.
class IpLine : public BaseLine {
public:
    IpLine();
    IpLine(const std::string& dbName, const std::string& dbInstance);
    ~IpLine() override;

    bool KeyPress(const KeyState_t& key) override;
    void KeyUp() override;
    void KeyDown() override;
    void KeyLeft() override;
    void KeyRight() override;
    using BaseLine::SetCurrentValue;
    // Text that is not an address gives 0.0.0.0.
    bool SetCurrentValue(const std::string& s) override;
    // Numbers are not addresses: refused.
    bool SetCurrentValue(int v);
    int GetCurrentNumber() const { return 0; }
    // Padded while editing, so that cursor positions match the text.
    std::string GetCurrentString() const override;
    KT::CIpAddress GetCurrentIpString() const;
    void DrawCursor(int row) override;
    void EraseCursor(int row) override;

    void SetMinMax(const std::string& min, const std::string& max);
    // Digit entry for keys 0 to 9.
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
