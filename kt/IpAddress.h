#pragma once

#include <cstdint>
#include <string>

namespace KT {

/// An IPv4 address. Text that is not a dotted quad of four decimal numbers of
/// at most 255 (leading zeros allowed, as in "192.168.001.010") gives 0.0.0.0
/// and IsValid() false.
/// Threads: a plain value; share read-only.
class CIpAddress {
public:
    /// 0.0.0.0, valid.
    CIpAddress();
    /// Parses text (see Parse()).
    CIpAddress(const std::string& text);  // NOLINT: built from text throughout
    /// Parses text (see Parse()).
    CIpAddress(const char* text);  // NOLINT
    /// The address whose first octet is the high byte of hostOrder.
    explicit CIpAddress(uint32_t hostOrder);
    /// Parses text (see Parse()).
    CIpAddress& operator=(const std::string& text);
    /// Parses text (see Parse()).
    CIpAddress& operator=(const char* text);

    bool Parse(const std::string& text);  ///< false leaves 0.0.0.0
    /// False after text that was not a dotted quad.
    bool IsValid() const { return valid_; }

    /// "192.168.1.10", or with padded true "192.168.001.010".
    std::string GetIp(bool padded = false) const;
    /// Same as GetIp().
    std::string ToString(bool padded = false) const { return GetIp(padded); }
    /// The address as a number in host order, first octet in the high byte.
    uint32_t ToUint() const;

    /// Octet i (0 is the first written). Outside 0..3 reads give 0 and writes
    /// land in a scratch byte.
    unsigned char operator[](int i) const;
    /// Octet i for writing; see above.
    unsigned char& operator[](int i);

    /// Comparisons order addresses as numbers (see ToUint()).
    bool operator<(const CIpAddress& o) const { return ToUint() < o.ToUint(); }
    /// Compares as numbers.
    bool operator>(const CIpAddress& o) const { return ToUint() > o.ToUint(); }
    /// Compares as numbers.
    bool operator<=(const CIpAddress& o) const { return ToUint() <= o.ToUint(); }
    /// Compares as numbers.
    bool operator>=(const CIpAddress& o) const { return ToUint() >= o.ToUint(); }
    /// Same address.
    bool operator==(const CIpAddress& o) const { return ToUint() == o.ToUint(); }
    /// Different addresses.
    bool operator!=(const CIpAddress& o) const { return ToUint() != o.ToUint(); }

    static CIpAddress MaxIpAddress();  ///< 255.255.255.255
    static CIpAddress MinIpAddress();  ///< 0.0.0.0

private:
    unsigned char octets_[4];
    unsigned char scratch_ = 0;
    bool valid_ = true;
};

}  // namespace KT
