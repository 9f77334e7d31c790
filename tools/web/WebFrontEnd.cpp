#include "tools/web/WebFrontEnd.h"

#include <civetweb.h>

#include <chrono>
#include <cstring>
#include <vector>

#include "tools/panel/internal/ToolSupport.h"
#include "tools/web/internal/Assets.h"
#include "tools/web/internal/OriginCheck.h"
#include "tools/web/internal/StateJson.h"
#include "tools/web/internal/WebSession.h"

namespace FPWEB {

namespace {

const int kPumpMs = 20;
// Anything bigger than this is not even looked at; WebSession has the finer limit.
const size_t kMaxFrame = 4096;
// Workers serve plain page loads besides the sockets, each of which keeps one.
const unsigned kSpareWorkers = 3;

std::string Header(const mg_connection* conn, const char* name) {
    const char* value = mg_get_header(conn, name);
    return value ? value : "";
}

}  // namespace

struct WebFrontEnd::Client {
    mg_connection* conn = nullptr;
    std::unique_ptr<WebSession> session;
    bool writeFailed = false;
};

namespace {

// Sends one text message; the caller holds the mutex that serialises writes.
void Send(mg_connection* conn, const std::string& text, bool& failed) {
    if (mg_websocket_write(conn, MG_WEBSOCKET_OPCODE_TEXT, text.data(), text.size()) <= 0)
        failed = true;
}

}  // namespace

WebFrontEnd::WebFrontEnd(FPPANEL::PanelView& panel, const WebOptions_t& options)
    : panel_(panel), options_(options), loopback_(WebOptions::IsLoopback(options.host)) {}

WebFrontEnd::~WebFrontEnd() {
    Stop();
}

bool WebFrontEnd::Start(std::string& error) {
    if (context_)
        return FPPANEL::Fail(error, "the web view is already running");
    mg_init_library(0);
    const std::string ports = options_.host + ":" + std::to_string(options_.port);
    const std::string threads = std::to_string(options_.maxClients + kSpareWorkers);
    const char* config[] = {"listening_ports",
                            ports.c_str(),
                            "num_threads",
                            threads.c_str(),
                            "request_timeout_ms",
                            "10000",
                            "websocket_timeout_ms",
                            "10000",
                            "enable_websocket_ping_pong",
                            "yes",
                            "max_request_size",
                            "8192",
                            nullptr};
    mg_callbacks callbacks;
    std::memset(&callbacks, 0, sizeof callbacks);
    callbacks.log_message = &WebFrontEnd::OnServerLog;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        stopping_ = false;
    }
    context_ = mg_start(&callbacks, this, config);
    if (!context_) {
        mg_exit_library();
        return FPPANEL::Fail(error, "cannot serve the web view on " + ports);
    }
    mg_server_port bound[4];
    std::memset(bound, 0, sizeof bound);
    if (mg_get_server_ports(context_, 4, bound) > 0)
        port_ = unsigned(bound[0].port);
    mg_set_request_handler(context_, "/", &WebFrontEnd::OnHttp, this);
    mg_set_websocket_handler(context_, "/ws", &WebFrontEnd::OnWsConnect, &WebFrontEnd::OnWsReady,
                             &WebFrontEnd::OnWsData, &WebFrontEnd::OnWsClose, this);
    pump_ = std::thread(&WebFrontEnd::PumpRun, this);
    Log("web view at " + Url());
    return true;
}

void WebFrontEnd::Stop() {
    if (!context_)
        return;
    {
        std::lock_guard<std::mutex> lock(mutex_);
        stopping_ = true;
    }
    wake_.notify_all();
    if (pump_.joinable())
        pump_.join();
    {
        // Saying goodbye lets each connection's worker return at once instead
        // of at its next read timeout.
        std::lock_guard<std::mutex> lock(mutex_);
        for (auto& entry : clients_)
            mg_websocket_write(entry.second->conn, MG_WEBSOCKET_OPCODE_CONNECTION_CLOSE, "", 0);
    }
    // Closes the sockets; each close comes back through OnWsClose.
    mg_stop(context_);
    context_ = nullptr;
    mg_exit_library();
    std::lock_guard<std::mutex> lock(mutex_);
    for (auto& entry : clients_)
        for (const auto& e : entry.second->session->Close())
            e.down ? panel_.KeyDown(e.key) : panel_.KeyUp(e.key);
    clients_.clear();
}

unsigned WebFrontEnd::Clients() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return unsigned(clients_.size());
}

int WebFrontEnd::OnHttp(mg_connection* conn, void* self) {
    // CivetWeb dates its answers with gmtime(), whose buffer is shared by all
    // threads, so two workers answering at once race on it. Pages are asked
    // for rarely; answering one at a time costs nothing.
    static std::mutex answering;
    std::lock_guard<std::mutex> lock(answering);
    return static_cast<WebFrontEnd*>(self)->ServePage(conn);
}

int WebFrontEnd::OnWsConnect(const mg_connection* conn, void* self) {
    return static_cast<WebFrontEnd*>(self)->Admit(conn) ? 0 : 1;
}

void WebFrontEnd::OnWsReady(mg_connection* conn, void* self) {
    static_cast<WebFrontEnd*>(self)->Ready(conn);
}

int WebFrontEnd::OnWsData(mg_connection* conn, int bits, char* data, size_t length, void* self) {
    return static_cast<WebFrontEnd*>(self)->Data(conn, bits, data, length) ? 1 : 0;
}

void WebFrontEnd::OnWsClose(const mg_connection* conn, void* self) {
    static_cast<WebFrontEnd*>(self)->Closed(conn);
}

int WebFrontEnd::OnServerLog(const mg_connection* conn, const char* message) {
    const mg_context* ctx = conn ? mg_get_context(conn) : nullptr;
    auto* self = ctx ? static_cast<WebFrontEnd*>(mg_get_user_data(ctx)) : nullptr;
    if (self)
        self->Log(std::string("web server: ") + message);
    return 1;  // handled: keep the server from printing it too
}

int WebFrontEnd::ServePage(mg_connection* conn) {
    const mg_request_info* request = mg_get_request_info(conn);
    if (!OriginCheck::Allowed(Header(conn, "Host"), Header(conn, "Origin"), loopback_)) {
        Log("web: refused a page request for another host");
        mg_send_http_error(conn, 403, "%s", "Forbidden");
        return 403;
    }
    const Asset_t* asset = Assets::Find(request->local_uri ? request->local_uri : "");
    if (!asset || std::strcmp(request->request_method, "GET") != 0) {
        mg_send_http_error(conn, 404, "%s", "Not found");
        return 404;
    }
    mg_response_header_start(conn, 200);
    mg_response_header_add(conn, "Content-Type", asset->type, -1);
    mg_response_header_add(conn, "Content-Length", std::to_string(asset->size).c_str(), -1);
    mg_response_header_add(conn, "Cache-Control", "no-store", -1);
    mg_response_header_add(conn, "X-Content-Type-Options", "nosniff", -1);
    mg_response_header_add(conn, "Content-Security-Policy",
                           "default-src 'self'; connect-src 'self'; frame-ancestors 'none'", -1);
    mg_response_header_send(conn);
    mg_write(conn, asset->data, asset->size);
    return 200;
}

bool WebFrontEnd::Admit(const mg_connection* conn) {
    if (!OriginCheck::Allowed(Header(conn, "Host"), Header(conn, "Origin"), loopback_)) {
        Log("web: refused a connection from another site (origin '" + Header(conn, "Origin") +
            "')");
        return false;
    }
    std::lock_guard<std::mutex> lock(mutex_);
    if (stopping_)
        return false;
    if (clients_.size() >= options_.maxClients) {
        Log("web: refused a connection: " + std::to_string(options_.maxClients) +
            " browsers are connected already");
        return false;
    }
    return true;
}

void WebFrontEnd::Ready(mg_connection* conn) {
    const std::string state = StateJson::State(panel_.Snapshot(), panel_.Info(), options_.title);
    std::lock_guard<std::mutex> lock(mutex_);
    std::unique_ptr<Client> client(new Client);
    client->conn = conn;
    client->session.reset(new WebSession(options_.token, options_.releaseMs));
    Send(conn, StateJson::Access(client->session->MayPress(), client->session->NeedsToken()),
         client->writeFailed);
    Send(conn, state, client->writeFailed);
    clients_[conn] = std::move(client);
    Log("web: a browser connected (" + std::to_string(clients_.size()) + " now)");
}

bool WebFrontEnd::Data(mg_connection* conn, int bits, const char* data, size_t length) {
    const int opcode = bits & 0x0F;
    const bool final = (bits & 0x80) != 0;
    if (opcode == MG_WEBSOCKET_OPCODE_CONNECTION_CLOSE)
        return false;
    if (opcode == MG_WEBSOCKET_OPCODE_PING || opcode == MG_WEBSOCKET_OPCODE_PONG)
        return true;
    const uint64_t now = FPPANEL::NowMs();
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = clients_.find(conn);
    if (it == clients_.end())
        return false;
    Client& client = *it->second;
    WebSession::Outcome_t out;
    if (opcode != MG_WEBSOCKET_OPCODE_TEXT || !final)
        out = client.session->OnUnusable("a binary or fragmented message", now);
    else if (length > kMaxFrame)
        out = client.session->OnUnusable(
            "an oversized message (" + std::to_string(length) + " bytes)", now);
    else
        out = client.session->OnText(std::string(data, length), now);
    for (const auto& e : out.keys)
        e.down ? panel_.KeyDown(e.key) : panel_.KeyUp(e.key);
    if (out.temperatureDelta)
        panel_.AdjustTemperature(out.temperatureDelta);
    if (out.fanDelta)
        panel_.AdjustFanSpeeds(out.fanDelta);
    if (!out.log.empty())
        Log(out.log);
    if (out.accessChanged)
        Send(conn, StateJson::Access(client.session->MayPress(), client.session->NeedsToken()),
             client.writeFailed);
    return !out.close;
}

void WebFrontEnd::Closed(const mg_connection* conn) {
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = clients_.find(conn);
    if (it == clients_.end())
        return;
    // A key held from this browser must not stay down once it is gone.
    for (const auto& e : it->second->session->Close())
        e.down ? panel_.KeyDown(e.key) : panel_.KeyUp(e.key);
    clients_.erase(it);
    Log("web: a browser went away (" + std::to_string(clients_.size()) + " left)");
}

void WebFrontEnd::PumpRun() {
    uint64_t seen = ~uint64_t(0);
    std::unique_lock<std::mutex> lock(mutex_);
    while (!stopping_) {
        wake_.wait_for(lock, std::chrono::milliseconds(kPumpMs));
        if (stopping_)
            break;
        const uint64_t now = FPPANEL::NowMs();
        for (auto& entry : clients_)
            for (const auto& e : entry.second->session->Poll(now).keys)
                e.down ? panel_.KeyDown(e.key) : panel_.KeyUp(e.key);
        const uint64_t changes = panel_.ChangeCount();
        if (changes == seen)
            continue;
        seen = changes;
        // Built without the lock: a snapshot may take the panel's own locks.
        lock.unlock();
        const std::string state =
            StateJson::State(panel_.Snapshot(), panel_.Info(), options_.title);
        lock.lock();
        if (state == lastState_)
            continue;
        lastState_ = state;
        for (auto& entry : clients_) {
            Client& client = *entry.second;
            const bool failedBefore = client.writeFailed;
            Send(client.conn, state, client.writeFailed);
            if (client.writeFailed && !failedBefore)
                Log("web: cannot write to a browser; it will be dropped");
        }
    }
}

}  // namespace FPWEB
