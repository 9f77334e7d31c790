#include "tools/web/WebOptions.h"

#include <arpa/inet.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>

#include "tools/panel/internal/ToolSupport.h"

namespace FPWEB {

bool WebOptions::ParseAddress(const std::string& text, WebOptions_t& out, std::string& error) {
    const size_t colon = text.rfind(':');
    if (colon == std::string::npos || colon == 0 || colon + 1 == text.size())
        return FPPANEL::Fail(error, "bad web address '" + text + "' (HOST:PORT)");
    const std::string host = text.substr(0, colon);
    const std::string port = text.substr(colon + 1);
    in_addr a{};
    if (host != "localhost" && inet_pton(AF_INET, host.c_str(), &a) != 1)
        return FPPANEL::Fail(error, "bad web host '" + host + "' (an IPv4 address or localhost)");
    char* end = nullptr;
    errno = 0;
    const long p = std::strtol(port.c_str(), &end, 10);
    if (port.find_first_not_of("0123456789") != std::string::npos || errno != 0 || *end != '\0' ||
        p < 0 || p > 65535)
        return FPPANEL::Fail(error, "bad web port '" + port + "' (0..65535)");
    out.host = host;
    out.port = unsigned(p);
    return true;
}

bool WebOptions::ParseToken(const std::string& text, WebOptions_t& out, std::string& error) {
    const bool fits = text.size() >= 8 && text.size() <= 64 &&
                      text.find_first_not_of(
                          "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                          "0123456789-_") == std::string::npos;
    if (!fits)
        return FPPANEL::Fail(error, "bad web token (8 to 64 letters, digits, '-' or '_')");
    out.token = text;
    return true;
}

bool WebOptions::IsLoopback(const std::string& host) {
    if (host == "localhost")
        return true;
    in_addr a{};
    return inet_pton(AF_INET, host.c_str(), &a) == 1 && (ntohl(a.s_addr) >> 24) == 127;
}

bool WebOptions::Secure(WebOptions_t& options) {
    if (!options.token.empty() || IsLoopback(options.host))
        return false;
    options.token = NewToken();
    return true;
}

std::string WebOptions::NewToken() {
    unsigned char bytes[16] = {};
    std::ifstream urandom("/dev/urandom", std::ios::binary);
    if (!urandom.read(reinterpret_cast<char*>(bytes), sizeof bytes)) {
        // Only when /dev/urandom is missing; random_device is the next best.
        std::random_device rd;
        for (auto& b : bytes)
            b = static_cast<unsigned char>(rd());
    }
    std::string out;
    char hex[3];
    for (unsigned char b : bytes) {
        std::snprintf(hex, sizeof hex, "%02x", b);
        out += hex;
    }
    return out;
}

std::string WebOptions::Url(const WebOptions_t& options, unsigned boundPort) {
    std::string url = "http://" + options.host + ":" + std::to_string(boundPort) + "/";
    if (!options.token.empty())
        url += "#token=" + options.token;
    return url;
}

bool WebOptions::FromCommandLine(const std::string& address, const std::string& token,
                                 WebOptions_t& out, std::string& error) {
    if (!ParseAddress(address, out, error))
        return false;
    if (!token.empty() && !ParseToken(token, out, error))
        return false;
    Secure(out);
    return true;
}

}  // namespace FPWEB
