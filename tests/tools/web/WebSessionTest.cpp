#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fp/input/KeyTypes.h"
#include "tools/web/WebOptions.h"
#include "tools/web/internal/OriginCheck.h"
#include "tools/web/internal/StateJson.h"
#include "tools/web/internal/WebSession.h"

using FPPANEL::HeldKeyTracker;
using FPWEB::WebSession;

namespace {

using Events = std::vector<HeldKeyTracker::Event_t>;

const unsigned kReleaseMs = 400;

}  // namespace

// Whatever a page sends that is not a well-formed key must leave the panel alone.
TEST(WebSessionTest, BadInputPressesNothingAndIsLogged) {
    std::vector<std::string> bad = {
        "",        "key",         "key ",     "bogus ArrowUp", "key Arrow Up", "key Shift",
        "key F10", "pad LEFTISH", "pad 0x01", "keyup",         "\x01\x02",     "auth x y"};
    bad.push_back(std::string("key \0Up", 7));
    bad.push_back("key " + std::string(200, 'x'));
    for (const std::string& text : bad) {
        WebSession session("", kReleaseMs);
        const WebSession::Outcome_t out = session.OnText(text, 1000);
        EXPECT_TRUE(out.keys.empty()) << text;
        EXPECT_FALSE(out.close) << text;
        EXPECT_NE(out.log.find("web: dropped"), std::string::npos) << text;
        EXPECT_EQ(out.log.find('\x01'), std::string::npos) << "log lines stay printable";
    }
    WebSession session("", kReleaseMs);
    EXPECT_TRUE(session.OnUnusable("a binary or fragmented message", 0).keys.empty());
}

// A key before the token, unlocking with it, and a page that needs none run
// through the real server in the front-end test; here, near misses and the
// guess limit.
TEST(WebSessionTest, NearMissesDoNotUnlockAndTooManyClose) {
    WebSession session("s3cret-token", kReleaseMs);
    EXPECT_FALSE(session.OnText("auth s3cret-tokeN", 10).accessChanged);
    EXPECT_FALSE(session.OnText("auth s3cret", 20).accessChanged);  // a prefix is not the token
    EXPECT_FALSE(session.MayPress());

    WebSession guesser("s3cret-token", kReleaseMs);
    for (int i = 0; i < 2; ++i)
        EXPECT_FALSE(guesser.OnText("auth guess" + std::to_string(i), i).close);
    EXPECT_TRUE(guesser.OnText("auth guess2", 5).close);
    EXPECT_FALSE(guesser.MayPress());
}

// The page repeats a held key; the key stays down while repeats come and goes
// up on key-up or when they stop. The release when the browser leaves is
// checked through the real server in the front-end test.
TEST(WebSessionTest, HoldsFollowRepeatsAndKeyUps) {
    WebSession s("", kReleaseMs);
    EXPECT_EQ(s.OnText("key ArrowUp", 0).keys, (Events{{FP::KEY_UP, true}}));
    EXPECT_TRUE(s.OnText("key ArrowUp", 100).keys.empty());
    EXPECT_TRUE(s.Poll(450).keys.empty());
    EXPECT_EQ(s.Poll(500).keys, (Events{{FP::KEY_UP, false}}));  // repeats stopped

    EXPECT_EQ(s.OnText("pad 7", 1000).keys, (Events{{FP::KEY_7, true}}));
    EXPECT_TRUE(s.OnText("padup 8", 1010).keys.empty()) << "a stray up releases nothing";
    EXPECT_EQ(s.OnText("key Escape", 1020).keys,
              (Events{{FP::KEY_7, false}, {FP::KEY_EXIT, true}}));
    EXPECT_EQ(s.OnText("keyup Escape", 1030).keys, (Events{{FP::KEY_EXIT, false}}));

    const WebSession::Outcome_t temp = s.OnText("key F2", 3000);
    EXPECT_EQ(temp.temperatureDelta, 1);
    EXPECT_EQ(s.OnText("key F7", 3010).fanDelta, -100);
}

TEST(WebSessionTest, FloodIsCutAndLoggedOncePerSecond) {
    WebSession::Limits_t limits;
    WebSession s("", kReleaseMs, limits);
    unsigned pressed = 0, logged = 0;
    for (unsigned i = 0; i < 200; ++i) {
        const WebSession::Outcome_t out = s.OnText(i % 2 ? "keyup 5" : "key 5", 0);
        pressed += unsigned(out.keys.size());
        logged += out.log.empty() ? 0 : 1;
    }
    EXPECT_EQ(pressed, limits.burst) << "one event per message within the burst";
    EXPECT_EQ(logged, 1u);
    // A second later the budget is back and the next drop line counts the rest.
    EXPECT_FALSE(s.OnText("key 5", 1000).keys.empty());
    const WebSession::Outcome_t out = s.OnText("bogus 1", 1001);
    EXPECT_NE(out.log.find("169 more"), std::string::npos) << out.log;
}

TEST(WebOriginTest, OnlyThisServersPagesGetIn) {
    struct Case {
        const char* host;
        const char* origin;
        bool loopback;
        bool allowed;
    } cases[] = {
        {"127.0.0.1:8080", "http://127.0.0.1:8080", true, true},
        {"localhost:8080", "", true, true},  // not a browser: no origin to check
        {"[::1]:8080", "http://[::1]:8080", true, true},
        {"127.0.0.1:8080", "http://evil.example", true, false},
        {"evil.example:8080", "http://evil.example:8080", true, false},  // rebound DNS name
        {"panel.lan:8080", "http://panel.lan:8080", false, true},
        {"panel.lan:8080", "http://panel.lan:9090", false, false},
        {"", "", true, false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(FPWEB::OriginCheck::Allowed(c.host, c.origin, c.loopback), c.allowed)
            << c.host << " " << c.origin;
}

TEST(WebOptionsTest, AddressesTokensAndTheUrl) {
    FPWEB::WebOptions_t o;
    std::string error;
    for (const char* bad : {"8080", ":8080", "127.0.0.1:", "127.0.0.1:65536", "127.0.0.1:-1",
                            "example.com:80", "127.0.0.1:80x", "[::1]:80"})
        EXPECT_FALSE(FPWEB::WebOptions::ParseAddress(bad, o, error)) << bad;
    EXPECT_FALSE(FPWEB::WebOptions::FromCommandLine("127.0.0.1:0", "short", o, error));
    EXPECT_FALSE(FPWEB::WebOptions::FromCommandLine("127.0.0.1:0", "has space in", o, error));

    // A loopback bind needs no token: the browser test opens the address the
    // demo prints and presses at once.
    FPWEB::WebOptions_t lan;
    ASSERT_TRUE(FPWEB::WebOptions::FromCommandLine("0.0.0.0:8080", "", lan, error)) << error;
    EXPECT_EQ(lan.token.size(), 32u) << "an open bind gets a made-up token";
    EXPECT_NE(lan.token, FPWEB::WebOptions::NewToken());
    EXPECT_EQ(FPWEB::WebOptions::Url(lan, 8080), "http://0.0.0.0:8080/#token=" + lan.token);
}

TEST(WebStateTest, TextIsEscapedForJson) {
    EXPECT_EQ(FPWEB::StateJson::Quote("a\"b\\c\n\x01\x7F\xE2\x86\xB5"),
              "\"a\\\"b\\\\c\\u000a\\u0001\\u007f\xE2\x86\xB5\"");
}
