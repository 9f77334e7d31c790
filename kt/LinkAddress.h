#pragma once

#include <string>

namespace KT {

/// A link address as written on command lines and in configuration:
/// "tcp:HOST:PORT", "tcp:[V6-HOST]:PORT", "unix:PATH" or
/// "serial:DEVICE[@BAUD]". Parsing checks the form only; whether the host
/// resolves or the device exists is found out when the link is opened.
/// Threads: a plain value; copy it freely, share it only read-only.
class CLinkAddress {
public:
    /// The kind of link an address names.
    enum Scheme_e { SCHEME_NONE, SCHEME_TCP, SCHEME_UNIX, SCHEME_SERIAL };

    /// The rate a serial address without "@BAUD" runs at.
    static constexpr unsigned int kDefaultBaud = 115200;

    /// An empty, invalid address.
    CLinkAddress() = default;
    /// Parses text; see IsValid() and GetError() for the outcome.
    explicit CLinkAddress(const std::string& text);

    /// Replaces this address with text parsed. False when text is malformed;
    /// the address is then SCHEME_NONE and GetError() says why.
    bool Parse(const std::string& text);

    /// True when the last parse succeeded.
    bool IsValid() const { return scheme_ != SCHEME_NONE; }
    /// Why the last parse failed, e.g. "missing port"; empty when it did not.
    const std::string& GetError() const { return error_; }

    /// What kind of link the address names (SCHEME_NONE when invalid).
    Scheme_e GetScheme() const { return scheme_; }
    /// TCP: the host without brackets; empty means any local address.
    const std::string& GetHost() const { return host_; }
    /// TCP: the port; 0 asks a listener to pick a free one.
    unsigned short GetPort() const { return port_; }
    /// Unix: the socket path. Serial: the device path.
    const std::string& GetPath() const { return path_; }
    /// Serial: the baud rate, one the serial line can be set to.
    unsigned int GetBaud() const { return baud_; }

    /// The address written back in its canonical form (brackets around an
    /// IPv6 host, the baud rate always given); empty when invalid.
    std::string ToString() const;
    /// "tcp:HOST:PORT", with brackets when host is an IPv6 address.
    static std::string Tcp(const std::string& host, unsigned short port);

private:
    bool Fail(const std::string& reason);
    bool ParseTcp(const std::string& rest);
    bool ParseSerial(const std::string& rest);

    Scheme_e scheme_ = SCHEME_NONE;
    std::string host_;
    unsigned short port_ = 0;
    std::string path_;
    unsigned int baud_ = kDefaultBaud;
    std::string error_;
};

}  // namespace KT
