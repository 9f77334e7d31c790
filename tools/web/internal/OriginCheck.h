#pragma once

#include <string>

namespace FPWEB {

// Keeps other web sites out: any page a user visits can open a WebSocket to
// 127.0.0.1, and a rebound DNS name can make a foreign site look local.
class OriginCheck {
public:
    // host and origin are the request's headers (empty when absent). A
    // browser always sends Origin with a WebSocket; it must name this very
    // server. On a loopback bind the Host must be a loopback name too.
    static bool Allowed(const std::string& host, const std::string& origin, bool loopbackBind);
    // Whether a Host header ("name[:port]") names this machine.
    static bool LoopbackHost(const std::string& host);
};

}  // namespace FPWEB
