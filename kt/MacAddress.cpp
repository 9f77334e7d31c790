#include "kt/MacAddress.h"

#include <cstdio>
#include <cstring>

namespace KT {

namespace {
int HexValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}
}  // namespace

bool CMacAddress::Read(const std::string& text, unsigned char (&out)[6]) {
    if (text.size() != 17)
        return false;
    for (int i = 0; i < 6; ++i) {
        int hi = HexValue(text[i * 3]);
        int lo = HexValue(text[i * 3 + 1]);
        if (hi < 0 || lo < 0)
            return false;
        out[i] = static_cast<unsigned char>((hi << 4) | (lo & 0xF));
        if (i < 5 && text[i * 3 + 2] != ':' && text[i * 3 + 2] != '-')
            return false;
    }
    return true;
}

std::string CMacAddress::ToString(bool upperCase) const {
    char buf[18];
    std::snprintf(buf, sizeof buf,
                  upperCase ? "%02X:%02X:%02X:%02X:%02X:%02X" : "%02x:%02x:%02x:%02x:%02x:%02x",
                  bytes_[0], bytes_[1], bytes_[2], bytes_[3], bytes_[4], bytes_[5]);
    return buf;
}

int CMacAddress::Compare(const CMacAddress& o) const {
    return std::memcmp(bytes_, o.bytes_, 6);
}

}  // namespace KT
