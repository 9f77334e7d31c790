#pragma once

#include <string>

#include "kt/detail/ByteAddress.h"

namespace KT {

/// A 48-bit hardware address, 00:00:00:00:00:00 when new. Accepts six pairs
/// of hex digits separated by ':' or '-' in either case; anything else gives
/// all zeros and IsValid() false. Built, assigned and parsed from text, and
/// indexed by byte, as every byte address is (see detail::ByteAddress).
/// Threads: a plain value; share read-only.
class CMacAddress : public detail::ByteAddress<CMacAddress, 6> {
public:
    using ByteAddress::ByteAddress;
    using ByteAddress::operator=;

    /// "00:1A:2B:3C:4D:5E" with upperCase true, "00:1a:2b:3c:4d:5e" otherwise.
    std::string ToString(bool upperCase = true) const;

    /// Orders byte by byte from the first.
    bool operator<(const CMacAddress& o) const { return Compare(o) < 0; }
    /// Orders byte by byte from the first.
    bool operator>(const CMacAddress& o) const { return Compare(o) > 0; }
    /// Same address.
    bool operator==(const CMacAddress& o) const { return Compare(o) == 0; }
    /// Different addresses.
    bool operator!=(const CMacAddress& o) const { return Compare(o) != 0; }

private:
    friend class detail::ByteAddress<CMacAddress, 6>;
    // Reads six hex pairs into out; false when text is not a hardware address.
    static bool Read(const std::string& text, unsigned char (&out)[6]);
    int Compare(const CMacAddress& o) const;
};

}  // namespace KT
