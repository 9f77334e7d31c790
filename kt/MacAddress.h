#pragma once

#include <string>

namespace KT {

// A 48-bit hardware address. Accepts six pairs of hex digits separated by ':'
// or '-' in either case; anything else gives 00:00:00:00:00:00 and IsValid()
// false.
class CMacAddress {
public:
    CMacAddress();
    CMacAddress(const std::string& text);  // NOLINT
    CMacAddress(const char* text);         // NOLINT
    CMacAddress& operator=(const std::string& text);
    CMacAddress& operator=(const char* text);

    bool Parse(const std::string& text);
    bool IsValid() const { return valid_; }

    // "00:1A:2B:3C:4D:5E" with upperCase true, "00:1a:2b:3c:4d:5e" otherwise.
    std::string ToString(bool upperCase = true) const;

    unsigned char operator[](int i) const;
    unsigned char& operator[](int i);

    bool operator<(const CMacAddress& o) const { return Compare(o) < 0; }
    bool operator>(const CMacAddress& o) const { return Compare(o) > 0; }
    bool operator==(const CMacAddress& o) const { return Compare(o) == 0; }
    bool operator!=(const CMacAddress& o) const { return Compare(o) != 0; }

private:
    int Compare(const CMacAddress& o) const;
    unsigned char bytes_[6];
    unsigned char scratch_ = 0;
    bool valid_ = true;
};

}  // namespace KT
