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

CMacAddress::CMacAddress() : bytes_{0, 0, 0, 0, 0, 0} {}
CMacAddress::CMacAddress(const std::string& text) : CMacAddress() {
    Parse(text);
}
CMacAddress::CMacAddress(const char* text) : CMacAddress() {
    Parse(text ? text : "");
}

CMacAddress& CMacAddress::operator=(const std::string& text) {
    Parse(text);
    return *this;
}
CMacAddress& CMacAddress::operator=(const char* text) {
    Parse(text ? text : "");
    return *this;
}

bool CMacAddress::Parse(const std::string& text) {
    unsigned char out[6] = {0, 0, 0, 0, 0, 0};
    bool ok = text.size() == 17;
    for (int i = 0; i < 6 && ok; ++i) {
        int hi = HexValue(text[i * 3]);
        int lo = HexValue(text[i * 3 + 1]);
        if (hi < 0 || lo < 0) {
            ok = false;
            break;  // no value to shift
        }
        out[i] = static_cast<unsigned char>((hi << 4) | (lo & 0xF));
        if (i < 5 && text[i * 3 + 2] != ':' && text[i * 3 + 2] != '-')
            ok = false;
    }
    if (!ok)
        std::memset(out, 0, sizeof out);
    std::memcpy(bytes_, out, sizeof out);
    valid_ = ok;
    return ok;
}

std::string CMacAddress::ToString(bool upperCase) const {
    char buf[18];
    std::snprintf(buf, sizeof buf,
                  upperCase ? "%02X:%02X:%02X:%02X:%02X:%02X" : "%02x:%02x:%02x:%02x:%02x:%02x",
                  bytes_[0], bytes_[1], bytes_[2], bytes_[3], bytes_[4], bytes_[5]);
    return buf;
}

unsigned char CMacAddress::operator[](int i) const {
    return i >= 0 && i < 6 ? bytes_[i] : 0;
}

unsigned char& CMacAddress::operator[](int i) {
    if (i >= 0 && i < 6)
        return bytes_[i];
    scratch_ = 0;
    return scratch_;
}

int CMacAddress::Compare(const CMacAddress& o) const {
    return std::memcmp(bytes_, o.bytes_, 6);
}

}  // namespace KT
