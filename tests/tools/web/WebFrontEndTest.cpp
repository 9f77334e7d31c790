#ifdef FP_WEB_SERVER

#include <civetweb.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fp/input/KeyTypes.h"
#include "tests/fp/link/LinkPeer.h"
#include "tests/support/Waiting.h"
#include "tools/web/WebFrontEnd.h"

// The web view through a real socket, with CivetWeb's own client as the browser.
namespace {

const int kWaitMs = 10000;  // wide: sanitizer builds are slow

// A panel that records the keys it is sent.
class FakePanel : public FPPANEL::PanelView {
public:
    FPSIM::PanelState_t Snapshot() const override {
        FPSIM::PanelState_t s;
        const uint8_t text[] = {'H', 'i', 0x81};
        s.grid.Write(0, 0, text, sizeof text, true);
        return s;
    }
    FPPANEL::PanelInfo_t Info() const override { return FPPANEL::PanelInfo_t(); }
    uint64_t ChangeCount() const override { return 1; }
    bool KeyDown(int key) override { return Record("down ", key); }
    bool KeyUp(int key) override { return Record("up ", key); }
    void AdjustTemperature(int) override {}
    void AdjustFanSpeeds(int) override {}

    // True once the panel has seen just these events, in this order.
    bool Saw(const std::vector<std::string>& want) {
        return events_.WaitFor(want.size(), kWaitMs) == want;
    }

private:
    bool Record(const char* what, int key) {
        events_.Add(what + std::string(FP::KeyName(key)));
        return true;
    }
    fptest::Collected<std::string> events_;
};

class Browser {
public:
    Browser(unsigned port, const char* origin = nullptr) {
        char error[256] = "";
        conn_ = mg_connect_websocket_client("127.0.0.1", int(port), 0, error, sizeof error, "/ws",
                                            origin, &Browser::OnData, &Browser::OnClose, this);
    }
    ~Browser() { Close(); }
    bool Connected() const { return conn_ != nullptr; }
    void Send(const std::string& text) {
        mg_websocket_client_write(conn_, MG_WEBSOCKET_OPCODE_TEXT, text.data(), text.size());
    }
    void Close() {
        if (conn_) {
            // A close frame first, so neither side waits out a read timeout.
            mg_websocket_client_write(conn_, MG_WEBSOCKET_OPCODE_CONNECTION_CLOSE, "", 0);
            mg_close_connection(conn_);
        }
        conn_ = nullptr;
    }
    // Waits for a message containing part.
    bool Got(const std::string& part) {
        return fptest::WaitFor([&] {
            for (const auto& m : messages_.WaitFor(0))
                if (m.find(part) != std::string::npos)
                    return true;
            return false;
        });
    }

private:
    static int OnData(mg_connection*, int, char* data, size_t length, void* self) {
        static_cast<Browser*>(self)->messages_.Add(std::string(data, length));
        return 1;
    }
    static void OnClose(const mg_connection*, void*) {}

    mg_connection* conn_ = nullptr;
    fptest::Collected<std::string> messages_;
};

struct Served {
    explicit Served(const std::string& token = "", unsigned maxClients = 8) {
        FPWEB::WebOptions_t o;
        o.token = token;
        o.maxClients = maxClients;
        web.reset(new FPWEB::WebFrontEnd(panel, o));
        std::string error;
        EXPECT_TRUE(web->Start(error)) << error;
    }
    bool ClientsBecome(unsigned n) {
        return fptest::WaitFor([&] { return web->Clients() == n; });
    }
    FakePanel panel;
    std::unique_ptr<FPWEB::WebFrontEnd> web;
};

}  // namespace

TEST(WebFrontEndTest, StateOutKeysInAndAHeldKeyGoesUpWhenTheBrowserLeaves) {
    Served s;
    Browser b(s.web->Port());
    ASSERT_TRUE(b.Connected());
    // The enter glyph in a reverse cell, as the terminal would draw it.
    EXPECT_TRUE(b.Got("\"rows\":[\"Hi\xE2\x86\xB5"));
    EXPECT_TRUE(b.Got("\"reverse\":[\"###."));
    b.Send("key ArrowDown");
    EXPECT_TRUE(s.panel.Saw({"down DOWN"}));
    b.Close();
    EXPECT_TRUE(s.panel.Saw({"down DOWN", "up DOWN"}));
    EXPECT_TRUE(s.ClientsBecome(0));
}

TEST(WebFrontEndTest, ViewersNeedTheTokenToPress) {
    Served s("tok-12345678");
    Browser b(s.web->Port());
    ASSERT_TRUE(b.Got("\"mayPress\":false,\"needsToken\":true"));
    b.Send("pad ENTER");
    b.Send("auth tok-12345678");
    ASSERT_TRUE(b.Got("\"mayPress\":true"));
    b.Send("pad 5");
    b.Send("padup 5");
    EXPECT_TRUE(s.panel.Saw({"down 5", "up 5"})) << "the ENTER before the token went nowhere";
}

TEST(WebFrontEndTest, TooManyBrowsersAndForeignSitesAreTurnedAway) {
    Served s("", 1);
    Browser first(s.web->Port());
    ASSERT_TRUE(first.Got("\"type\":\"state\""));
    Browser second(s.web->Port());
    EXPECT_FALSE(second.Connected());
    first.Close();
    ASSERT_TRUE(s.ClientsBecome(0));
    Browser foreign(s.web->Port(), "http://evil.example");
    EXPECT_FALSE(foreign.Connected());
    Browser third(s.web->Port());
    EXPECT_TRUE(third.Connected());
}

#endif  // FP_WEB_SERVER
