#pragma once

#include <string>

namespace FPWEB {

/// How the browser view of a panel is served.
struct WebOptions_t {
    std::string host = "127.0.0.1";  ///< address to bind: a numeric IPv4 address or "localhost"
    unsigned port = 0;               ///< 0 picks a free port
    /// Needed by a browser before it may press keys. Empty on a loopback bind
    /// lets every page press; WebOptions::Secure() fills it in otherwise.
    std::string token;
    unsigned maxClients = 8;   ///< browsers watching at once; more are turned away
    unsigned releaseMs = 400;  ///< a held key goes up when the page stops repeating it this long
    std::string title = "fp-panel";
};

/// Parsing and checking of the web view's command-line values.
/// Threads: any; all functions are pure apart from the token's random source.
class WebOptions {
public:
    /// Splits "HOST:PORT" (HOST a dotted IPv4 address or "localhost", PORT
    /// 0..65535). False, with error set, for anything else.
    static bool ParseAddress(const std::string& text, WebOptions_t& out, std::string& error);
    /// A token given on the command line: 8 to 64 letters, digits, '-' or '_'.
    static bool ParseToken(const std::string& text, WebOptions_t& out, std::string& error);
    /// Whether host only reaches this machine.
    static bool IsLoopback(const std::string& host);
    /// A non-loopback bind must not let strangers press keys: gives it a
    /// fresh random token unless one was set. Answers whether it made one.
    static bool Secure(WebOptions_t& options);
    /// 32 hex digits from the system's random source.
    static std::string NewToken();
    /// The address to open in a browser, with the token when there is one.
    static std::string Url(const WebOptions_t& options, unsigned boundPort);
    /// The programs' --web and --web-token values (token may be empty) into
    /// options, with a token made up where the bind needs one.
    static bool FromCommandLine(const std::string& address, const std::string& token,
                                WebOptions_t& out, std::string& error);
};

}  // namespace FPWEB
