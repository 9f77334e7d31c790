#include "kt/IpAddress.h"

#include <cstdio>

namespace KT {

CIpAddress::CIpAddress(uint32_t v) {
    for (int i = 0; i < 4; ++i)
        bytes_[i] = static_cast<unsigned char>(v >> (24 - 8 * i));
}

bool CIpAddress::Read(const std::string& text, unsigned char (&out)[4]) {
    size_t pos = 0;
    for (int i = 0; i < 4; ++i) {
        unsigned value = 0;
        size_t digits = 0;
        while (pos < text.size() && text[pos] >= '0' && text[pos] <= '9' && digits < 4) {
            value = value * 10 + static_cast<unsigned>(text[pos] - '0');
            ++pos;
            ++digits;
        }
        if (digits == 0 || digits > 3 || value > 255)
            return false;
        out[i] = static_cast<unsigned char>(value);
        if (i < 3) {
            if (pos < text.size() && text[pos] == '.')
                ++pos;
            else
                return false;
        }
    }
    return pos == text.size();
}

std::string CIpAddress::GetIp(bool padded) const {
    char buf[16];
    std::snprintf(buf, sizeof buf, padded ? "%03u.%03u.%03u.%03u" : "%u.%u.%u.%u", bytes_[0],
                  bytes_[1], bytes_[2], bytes_[3]);
    return buf;
}

uint32_t CIpAddress::ToUint() const {
    return (uint32_t(bytes_[0]) << 24) | (uint32_t(bytes_[1]) << 16) | (uint32_t(bytes_[2]) << 8) |
           uint32_t(bytes_[3]);
}

CIpAddress CIpAddress::MaxIpAddress() {
    return CIpAddress(0xFFFFFFFFu);
}
CIpAddress CIpAddress::MinIpAddress() {
    return CIpAddress(0u);
}

}  // namespace KT
