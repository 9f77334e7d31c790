#pragma once

#include <string>

namespace KT {

/// A 48-bit hardware address. Accepts six pairs of hex digits separated by ':'
/// or '-' in either case; anything else gives 00:00:00:00:00:00 and IsValid()
/// false.
/// Threads: a plain value; share read-only.
class CMacAddress {
public:
    /// 00:00:00:00:00:00, valid.
    CMacAddress();
    /// Parses text (see Parse()).
    CMacAddress(const std::string& text);  // NOLINT
    /// Parses text (see Parse()).
    CMacAddress(const char* text);  // NOLINT
    /// Parses text (see Parse()).
    CMacAddress& operator=(const std::string& text);
    /// Parses text (see Parse()).
    CMacAddress& operator=(const char* text);

    /// Replaces the address with text parsed; false (and all zeros) when malformed.
    bool Parse(const std::string& text);
    /// False after text that was not a hardware address.
    bool IsValid() const { return valid_; }

    /// "00:1A:2B:3C:4D:5E" with upperCase true, "00:1a:2b:3c:4d:5e" otherwise.
    std::string ToString(bool upperCase = true) const;

    /// Byte i (0 is the first written); outside 0..5 reads give 0.
    unsigned char operator[](int i) const;
    /// Byte i for writing; outside 0..5 writes land in a scratch byte.
    unsigned char& operator[](int i);

    /// Orders byte by byte from the first.
    bool operator<(const CMacAddress& o) const { return Compare(o) < 0; }
    /// Orders byte by byte from the first.
    bool operator>(const CMacAddress& o) const { return Compare(o) > 0; }
    /// Same address.
    bool operator==(const CMacAddress& o) const { return Compare(o) == 0; }
    /// Different addresses.
    bool operator!=(const CMacAddress& o) const { return Compare(o) != 0; }

private:
    int Compare(const CMacAddress& o) const;
    unsigned char bytes_[6];
    unsigned char scratch_ = 0;
    bool valid_ = true;
};

}  // namespace KT
