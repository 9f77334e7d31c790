#pragma once

#include <cstdint>
#include <string>

#include "kt/detail/ByteAddress.h"

namespace KT {

/// An IPv4 address. Text that is not a dotted quad of four decimal numbers of
/// at most 255 (leading zeros allowed, as in "192.168.001.010") gives 0.0.0.0
/// and IsValid() false. Built, assigned and parsed from text, and indexed by
/// octet, as every byte address is (see detail::ByteAddress).
/// Threads: a plain value; share read-only.
class CIpAddress : public detail::ByteAddress<CIpAddress, 4> {
public:
    using ByteAddress::ByteAddress;
    using ByteAddress::operator=;
    /// 0.0.0.0, valid.
    CIpAddress() = default;
    /// The address whose first octet is the high byte of hostOrder.
    explicit CIpAddress(uint32_t hostOrder);

    /// "192.168.1.10", or with padded true "192.168.001.010".
    std::string GetIp(bool padded = false) const;
    /// Same as GetIp().
    std::string ToString(bool padded = false) const { return GetIp(padded); }
    /// The address as a number in host order, first octet in the high byte.
    uint32_t ToUint() const;

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
    friend class detail::ByteAddress<CIpAddress, 4>;
    // Reads a dotted quad into out; false when text is not one.
    static bool Read(const std::string& text, unsigned char (&out)[4]);
};

}  // namespace KT
