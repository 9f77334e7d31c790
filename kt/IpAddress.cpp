#include "kt/IpAddress.h"

#include <cstdio>

namespace KT {

CIpAddress::CIpAddress() : octets_{0, 0, 0, 0} {}
CIpAddress::CIpAddress(const std::string& text) : CIpAddress() {
    Parse(text);
}
CIpAddress::CIpAddress(const char* text) : CIpAddress() {
    Parse(text ? text : "");
}
CIpAddress::CIpAddress(uint32_t v)
    : octets_{static_cast<unsigned char>(v >> 24), static_cast<unsigned char>(v >> 16),
              static_cast<unsigned char>(v >> 8), static_cast<unsigned char>(v)} {}

CIpAddress& CIpAddress::operator=(const std::string& text) {
    Parse(text);
    return *this;
}
CIpAddress& CIpAddress::operator=(const char* text) {
    Parse(text ? text : "");
    return *this;
}

bool CIpAddress::Parse(const std::string& text) {
    unsigned char out[4] = {0, 0, 0, 0};
    size_t pos = 0;
    bool ok = true;
    for (int i = 0; i < 4 && ok; ++i) {
        unsigned value = 0;
        size_t digits = 0;
        while (pos < text.size() && text[pos] >= '0' && text[pos] <= '9' && digits < 4) {
            value = value * 10 + static_cast<unsigned>(text[pos] - '0');
            ++pos;
            ++digits;
        }
        if (digits == 0 || digits > 3 || value > 255)
            ok = false;
        out[i] = static_cast<unsigned char>(value);
        if (i < 3) {
            if (pos < text.size() && text[pos] == '.')
                ++pos;
            else
                ok = false;
        }
    }
    if (ok && pos != text.size())
        ok = false;
    for (int i = 0; i < 4; ++i)
        octets_[i] = ok ? out[i] : 0;
    valid_ = ok;
    return ok;
}

std::string CIpAddress::GetIp(bool padded) const {
    char buf[16];
    std::snprintf(buf, sizeof buf, padded ? "%03u.%03u.%03u.%03u" : "%u.%u.%u.%u", octets_[0],
                  octets_[1], octets_[2], octets_[3]);
    return buf;
}

uint32_t CIpAddress::ToUint() const {
    return (uint32_t(octets_[0]) << 24) | (uint32_t(octets_[1]) << 16) |
           (uint32_t(octets_[2]) << 8) | uint32_t(octets_[3]);
}

unsigned char CIpAddress::operator[](int i) const {
    return i >= 0 && i < 4 ? octets_[i] : 0;
}

unsigned char& CIpAddress::operator[](int i) {
    if (i >= 0 && i < 4)
        return octets_[i];
    scratch_ = 0;
    return scratch_;
}

CIpAddress CIpAddress::MaxIpAddress() {
    return CIpAddress(0xFFFFFFFFu);
}
CIpAddress CIpAddress::MinIpAddress() {
    return CIpAddress(0u);
}

}  // namespace KT
