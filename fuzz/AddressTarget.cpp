// Address parsing: whatever parses prints in a form that parses back to the
// same address; whatever does not parse leaves the zero address.
#include <algorithm>
#include <cctype>
#include <string>

#include "fuzz/FuzzInput.h"
#include "fuzz/FuzzTargets.h"
#include "kt/IpAddress.h"
#include "kt/MacAddress.h"

namespace fpfuzz {

namespace {

void CheckIp(const std::string& text, int index) {
    KT::CIpAddress ip(text);
    if (!ip.IsValid()) {
        FUZZ_CHECK(ip.ToUint() == 0);
        return;
    }
    FUZZ_CHECK(std::count(text.begin(), text.end(), '.') == 3);
    FUZZ_CHECK(std::all_of(text.begin(), text.end(),
                           [](unsigned char c) { return c == '.' || std::isdigit(c); }));
    for (bool padded : {false, true}) {
        const std::string shown = ip.GetIp(padded);
        FUZZ_CHECK(shown.size() <= 15 && (!padded || shown.size() == 15));
        KT::CIpAddress back(shown);
        FUZZ_CHECK(back.IsValid() && back == ip && back.GetIp(padded) == shown);
    }
    FUZZ_CHECK(KT::CIpAddress(ip.ToUint()) == ip);
    const KT::CIpAddress& constIp = ip;
    FUZZ_CHECK(index >= 0 && index < 4 ? constIp[index] == (ip.ToUint() >> (24 - 8 * index) & 0xFF)
                                       : constIp[index] == 0);
    ip[index] = 7;  // out of range lands in scratch, in range sets the octet
}

void CheckMac(const std::string& text, int index) {
    KT::CMacAddress mac(text);
    if (!mac.IsValid()) {
        FUZZ_CHECK(mac == KT::CMacAddress("00:00:00:00:00:00"));
        return;
    }
    std::string canonical(text);
    for (char& c : canonical)
        c = c == '-' ? ':' : static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    FUZZ_CHECK(mac.ToString(true) == canonical);
    for (bool upper : {false, true}) {
        KT::CMacAddress back(mac.ToString(upper));
        FUZZ_CHECK(back.IsValid() && back == mac);
    }
    const KT::CMacAddress& constMac = mac;
    FUZZ_CHECK(index >= 0 && index < 6 ? true : constMac[index] == 0);
    mac[index] = 7;
}

}  // namespace

int Addresses(const uint8_t* data, size_t size) {
    FuzzInput in(data, size);
    const int index = static_cast<int8_t>(in.Byte());
    const std::string text = in.RestAsText();
    CheckIp(text, index);
    CheckMac(text, index);
    return 0;
}

}  // namespace fpfuzz
