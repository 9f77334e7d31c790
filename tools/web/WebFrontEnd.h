#pragma once

#include <condition_variable>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "kt/Functor.h"
#include "tools/panel/PanelView.h"
#include "tools/web/WebOptions.h"

struct mg_connection;
struct mg_context;

namespace FPWEB {

class WebSession;

/// Serves a page that shows a panel and takes its keys: the display, LEDs and
/// readings go out over a WebSocket whenever the panel changes; keys come back
/// from the browser's keyboard and an on-screen keypad. Several browsers may
/// watch at once, up to the configured number.
/// Threads: Start/Stop from one controlling thread; the rest from any. The
/// web server runs its own worker threads plus one thread ("fp-web") that
/// sends updates and lets go of keys whose repeats stopped.
/// Borrows: the panel, which must outlive Stop().
class WebFrontEnd {
public:
    using LogSink = KT::CFunctor<void(const std::string& line)>;

    /// options.token must already be filled in where it is needed
    /// (WebOptions::Secure).
    WebFrontEnd(FPPANEL::PanelView& panel, const WebOptions_t& options);
    ~WebFrontEnd();
    WebFrontEnd(const WebFrontEnd&) = delete;
    WebFrontEnd& operator=(const WebFrontEnd&) = delete;

    /// Set before Start; called on the server's threads.
    void SetLogSink(const LogSink& sink) { log_ = sink; }

    /// Binds and starts serving. False, with error set, when the address
    /// cannot be bound or the build has no web server.
    bool Start(std::string& error);
    /// Closes every connection, releasing keys they held. Safe to repeat.
    void Stop();

    /// The port actually bound (useful after asking for port 0); 0 before Start.
    unsigned Port() const { return port_; }
    /// What to open in a browser.
    std::string Url() const { return WebOptions::Url(options_, port_); }
    /// Browsers connected right now.
    unsigned Clients() const;

private:
    struct Client;

    static int OnHttp(mg_connection* conn, void* self);
    static int OnWsConnect(const mg_connection* conn, void* self);
    static void OnWsReady(mg_connection* conn, void* self);
    static int OnWsData(mg_connection* conn, int bits, char* data, size_t length, void* self);
    static void OnWsClose(const mg_connection* conn, void* self);
    static int OnServerLog(const mg_connection* conn, const char* message);

    int ServePage(mg_connection* conn);
    bool Admit(const mg_connection* conn);
    void Ready(mg_connection* conn);
    bool Data(mg_connection* conn, int bits, const char* data, size_t length);
    void Closed(const mg_connection* conn);
    void PumpRun();
    void Log(const std::string& line) { log_(line); }

    FPPANEL::PanelView& panel_;
    const WebOptions_t options_;
    const bool loopback_;
    LogSink log_;
    mg_context* context_ = nullptr;
    unsigned port_ = 0;

    mutable std::mutex mutex_;  // guards clients_, stopping_ and every write to a connection
    std::map<const mg_connection*, std::unique_ptr<Client>> clients_;
    bool stopping_ = false;
    std::condition_variable wake_;
    std::thread pump_;
    std::string lastState_;  // pump thread only
};

}  // namespace FPWEB
