#include "kt/LinkAddress.h"

#include <cctype>

#include "kt/StreamSocket.h"

namespace KT {

namespace {

// Plain decimal digits only: no sign, no spaces, no hex, so what was typed is
// what the link uses.
bool Decimal(const std::string& text, unsigned long long max, unsigned long long& out) {
    if (text.empty() || text.size() > 10)
        return false;
    unsigned long long v = 0;
    for (unsigned char c : text) {
        if (!std::isdigit(c))
            return false;
        v = v * 10 + (c - '0');
    }
    if (v > max)
        return false;
    out = v;
    return true;
}

}  // namespace

CLinkAddress::CLinkAddress(const std::string& text) {
    Parse(text);
}

bool CLinkAddress::Fail(const std::string& reason) {
    *this = CLinkAddress();
    error_ = reason;
    return false;
}

bool CLinkAddress::Parse(const std::string& text) {
    *this = CLinkAddress();
    if (text.empty())
        return Fail("empty address");
    const size_t colon = text.find(':');
    if (colon == std::string::npos)
        return Fail("missing scheme (tcp:, unix: or serial:)");
    const std::string scheme = text.substr(0, colon);
    const std::string rest = text.substr(colon + 1);
    if (scheme == "tcp")
        return ParseTcp(rest);
    if (scheme == "unix") {
        if (rest.empty())
            return Fail("missing path");
        path_ = rest;
        scheme_ = SCHEME_UNIX;
        return true;
    }
    if (scheme == "serial")
        return ParseSerial(rest);
    return Fail("unknown scheme '" + scheme + "'");
}

bool CLinkAddress::ParseTcp(const std::string& rest) {
    std::string host, port;
    if (!rest.empty() && rest[0] == '[') {
        const size_t close = rest.find(']');
        if (close == std::string::npos)
            return Fail("missing ']' after the IPv6 host");
        host = rest.substr(1, close - 1);
        if (host.empty())
            return Fail("empty IPv6 host");
        if (close + 1 >= rest.size() || rest[close + 1] != ':')
            return Fail("missing port");
        port = rest.substr(close + 2);
    } else {
        // The last colon splits, so an unbracketed IPv6 host still works.
        const size_t last = rest.rfind(':');
        if (last == std::string::npos)
            return Fail("missing port");
        host = rest.substr(0, last);
        port = rest.substr(last + 1);
    }
    if (port.empty())
        return Fail("missing port");
    unsigned long long value;
    if (!Decimal(port, 65535, value))
        return Fail("bad port '" + port + "'");
    host_ = host;
    port_ = static_cast<unsigned short>(value);
    scheme_ = SCHEME_TCP;
    return true;
}

bool CLinkAddress::ParseSerial(const std::string& rest) {
    const size_t at = rest.find('@');
    const std::string device = rest.substr(0, at);
    if (device.empty())
        return Fail("missing device");
    unsigned int baud = kDefaultBaud;
    if (at != std::string::npos) {
        const std::string rate = rest.substr(at + 1);
        unsigned long long value;
        unsigned int speed;
        if (!Decimal(rate, 0xFFFFFFFFull, value) ||
            !CStreamSocket::ParseBaud(static_cast<unsigned int>(value), speed))
            return Fail("unsupported baud rate '" + rate + "'");
        baud = static_cast<unsigned int>(value);
    }
    path_ = device;
    baud_ = baud;
    scheme_ = SCHEME_SERIAL;
    return true;
}

std::string CLinkAddress::Tcp(const std::string& host, unsigned short port) {
    const bool v6 = host.find(':') != std::string::npos;
    return "tcp:" + (v6 ? "[" + host + "]" : host) + ":" + std::to_string(port);
}

std::string CLinkAddress::ToString() const {
    switch (scheme_) {
        case SCHEME_TCP:
            return Tcp(host_, port_);
        case SCHEME_UNIX:
            return "unix:" + path_;
        case SCHEME_SERIAL:
            return "serial:" + path_ + "@" + std::to_string(baud_);
        case SCHEME_NONE:
            break;
    }
    return std::string();
}

}  // namespace KT
