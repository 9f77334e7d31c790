#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "fp/core/KeyTypes.h"
#include "tools/panel/HeadlessCommand.h"
#include "tools/panel/HeldKeyTracker.h"
#include "tools/panel/KeyMap.h"
#include "tools/panel/KeyRecorder.h"
#include "tools/panel/PanelOptions.h"
#include "tools/panel/QuietWatch.h"
#include "tools/panel/ScreenCheck.h"

// Last: curses' key macros would clash with the library's key names.
#include <curses.h>

using namespace FPPANEL;

namespace {

struct Parsed {
    PanelOptions::Result_e result;
    PanelOptions_t options;
    std::string error;
};

Parsed Parse(std::vector<const char*> args) {
    args.insert(args.begin(), "fp-panel");
    Parsed p;
    p.result = PanelOptions::Parse(int(args.size()), args.data(), p.options, p.error);
    return p;
}

}  // namespace

// Listen, slot, script, sync and the answers' options are driven end to end
// by the headless tests, --dump-on-change by the demo's.
TEST(PanelOptionsTest, FullCommandLine) {
    const Parsed p = Parse({"--size=256x1", "--record=r.txt", "--baud", "9600"});
    ASSERT_EQ(p.result, PanelOptions::PARSE_OK) << p.error;
    EXPECT_EQ(p.options.width, 256u);
    EXPECT_EQ(p.options.height, 1u);
    EXPECT_EQ(p.options.record, "r.txt");
    EXPECT_EQ(p.options.baud, 9600u);
    EXPECT_EQ(Parse({"--help"}).result, PanelOptions::PARSE_HELP);
}

TEST(PanelOptionsTest, RefusesBadInput) {
    for (const char* size : {"0x4", "257x4", "20x257", "20x", "x4", "-1x4", "20x4x2", " 20x4",
                             "+20x4", "99999999999999999999x4"}) {
        const Parsed p = Parse({"--size", size});
        EXPECT_EQ(p.result, PanelOptions::PARSE_ERROR) << size;
        EXPECT_FALSE(p.error.empty());
        EXPECT_EQ(p.options.width, 20u) << "a refused size must leave the default";
    }
    const std::vector<std::vector<const char*>> bad = {
        {"--slot", "256"}, {"--slot", "1x"},   {"--voltage", "nan"}, {"--listen", "x:1"},
        {"--size"},        {"--sync-ms", "0"}, {"--baud", "0"},      {"--script", ""},
        {"--bogus"},       {"--headless=1"}};
    for (const auto& args : bad)
        EXPECT_EQ(Parse(args).result, PanelOptions::PARSE_ERROR) << args[0];
}

TEST(KeyMapTest, CursesKeysToWireCodes) {
    const std::vector<std::pair<int, int>> table = {
        {KEY_LEFT, 1}, {KEY_UP, 2},    {KEY_RIGHT, 3},     {KEY_DOWN, 4}, {27, 5},   {'\n', 6},
        {'\r', 6},     {KEY_ENTER, 6}, {KEY_BACKSPACE, 7}, {127, 7},      {'\b', 7}, {'0', 8},
        {'1', 9},      {'9', 17},      {KEY_F(5), 18},     {KEY_DC, 19},  {' ', 20}, {'a', 21},
        {'z', 46},     {'A', 47},      {'Z', 72}};
    for (const auto& entry : table) {
        const KeyAction_t a = KeyMap::FromCurses(entry.first);
        EXPECT_EQ(a.action, ACTION_PANEL_KEY) << entry.first;
        EXPECT_EQ(a.panelKey, entry.second) << entry.first;
    }
    const std::vector<std::pair<int, KeyAction_e>> actions = {
        {'q' & 0x1F, ACTION_QUIT},    {KEY_F(10), ACTION_QUIT},  {KEY_F(2), ACTION_TEMP_UP},
        {KEY_F(3), ACTION_TEMP_DOWN}, {KEY_F(6), ACTION_FAN_UP}, {KEY_F(7), ACTION_FAN_DOWN},
        {'!', ACTION_NONE},           {'~', ACTION_NONE},        {KEY_F(1), ACTION_NONE},
        {KEY_HOME, ACTION_NONE},      {ERR, ACTION_NONE},        {0x80, ACTION_NONE}};
    for (const auto& entry : actions)
        EXPECT_EQ(KeyMap::FromCurses(entry.first).action, entry.second) << entry.first;
}

TEST(KeyMapTest, NamesAndHeadlessCommands) {
    for (int key = 1; key <= 72; ++key)
        EXPECT_EQ(KeyMap::FromName(FP::KeyName(key)), key);
    for (const char* name : {"NONE", "ERROR", "up", "", "AB"})
        EXPECT_EQ(KeyMap::FromName(name), -1) << name;

    // Plain keys, sync, wait, snapshot and expect run end to end in the headless tests.
    HeadlessCommand_t c = HeadlessCommand::Parse("  hold DOWN 700 ");
    EXPECT_EQ(c.kind, HeadlessCommand_t::HOLD);
    EXPECT_EQ(c.key, 4);
    EXPECT_EQ(c.value, 700);
    c = HeadlessCommand::Parse("fan 3 65535");
    EXPECT_EQ(c.kind, HeadlessCommand_t::FAN);
    EXPECT_EQ(c.fan, 2u);
    EXPECT_EQ(HeadlessCommand::Parse("temp -40").value, -40);
    EXPECT_EQ(HeadlessCommand::Parse("# note").kind, HeadlessCommand_t::NONE);
    EXPECT_EQ(HeadlessCommand::Parse("expect 1   two blanks").text, "  two blanks");
    EXPECT_EQ(HeadlessCommand::Parse("snapshot  out dir/p.txt ").text, "out dir/p.txt");
    for (const char* bad :
         {"NONE", "fan 4 10", "fan 1 65536", "hold UP", "hold UP -1", "temp 40000", "down",
          "up nokey", "dump now", "wait", "wait -5", "sync 0", "expect 0 x", "expect x", "expect",
          "snapshot", "expect-screen now", "bogus"})
        EXPECT_EQ(HeadlessCommand::Parse(bad).kind, HeadlessCommand_t::BAD) << bad;
}

namespace {

// Plays terminal events (ms, key) through a tracker polled every millisecond
// until endMs, and lists what the panel was sent: "50:4v" down, "50:4^" up.
std::string Play(HeldKeyTracker& t, const std::vector<std::pair<uint64_t, int>>& events,
                 uint64_t endMs) {
    std::string out;
    auto note = [&](uint64_t now, const std::vector<HeldKeyTracker::Event_t>& sent) {
        for (const auto& e : sent)
            out += (out.empty() ? "" : " ") + std::to_string(now) + ":" + std::to_string(e.key) +
                   (e.down ? "v" : "^");
    };
    size_t next = 0;
    for (uint64_t now = 0; now <= endMs; ++now) {
        note(now, t.Poll(now));
        for (; next < events.size() && events[next].first == now; ++next)
            note(now, t.OnKey(events[next].second, now));
    }
    return out;
}

// A held key as a terminal reports it: one event, the delay, then repeats.
std::vector<std::pair<uint64_t, int>> Repeats(int key, uint64_t delay, uint64_t period,
                                              uint64_t until) {
    std::vector<std::pair<uint64_t, int>> events{{0, key}};
    for (uint64_t at = delay; at <= until; at += period)
        events.push_back({at, key});
    return events;
}

}  // namespace

TEST(HeldKeyTrackerTest, TapsStaySeparateAndHoldsStayDown) {
    const uint64_t kDown = 4, kUp = 2;
    struct Case {
        const char* what;
        std::vector<std::pair<uint64_t, int>> events;
        const char* sent;
    } cases[] = {
        {"taps 50 ms apart",
         {{0, kDown}, {50, kDown}, {100, kDown}},
         "0:4v 50:4^ 50:4v 100:4^ 100:4v 550:4^"},
        // Slow enough to look like a first repeat: sent once no stream follows.
        {"taps 300 ms apart",
         {{0, kDown}, {300, kDown}, {600, kDown}},
         "0:4v 420:4^ 420:4v 720:4^ 720:4v 1170:4^"},
        {"Linux console hold (250 ms, then every 92 ms)", Repeats(kDown, 250, 92, 2000),
         "0:4v 2118:4^"},
        {"hold at 400 ms, 30 ms", Repeats(kDown, 400, 30, 1000), "0:4v 1120:4^"},
        // Longer than a tap may stay down: a second press when the stream starts.
        {"desktop hold (500 ms, then every 33 ms)", Repeats(kDown, 500, 33, 1000),
         "0:4v 450:4^ 500:4v 1115:4^"},
        {"another key takes over",
         {{0, kDown}, {100, kUp}, {150, kDown}},
         "0:4v 100:4^ 100:2v 150:2^ 150:4v 600:4^"},
        {"a tap long after the last is a fresh press",
         {{0, kDown}, {2000, kDown}},
         "0:4v 450:4^ 2000:4v 2450:4^"},
    };
    for (const Case& c : cases) {
        HeldKeyTracker t;
        EXPECT_EQ(Play(t, c.events, 3000), c.sent) << c.what;
        EXPECT_FALSE(t.Holding()) << c.what;
    }

    // --release-ms still sets when a stream has ended.
    HeldKeyTracker slow(300);
    EXPECT_EQ(Play(slow, Repeats(kDown, 250, 92, 1000), 2000), "0:4v 1286:4^");
}

// Releasing everything on request is what the web view does when a browser
// leaves, which its front-end test checks through a real socket.
TEST(HeldKeyTrackerTest, ReleasesOnABackwardClock) {
    using Events = std::vector<HeldKeyTracker::Event_t>;
    HeldKeyTracker t;
    t.OnKey(3, 5000);
    EXPECT_EQ(t.Poll(100), (Events{{3, false}}));
    EXPECT_EQ(t.OnKey(6, 200), (Events{{6, true}}));
    EXPECT_EQ(t.HeldKey(), 6);
}

TEST(KeyRecorderTest, WritesAScriptThatParses) {
    std::ostringstream out;
    {
        KeyRecorder r(out);
        // What the tracker sends for two quick taps, then a 1.5 s hold.
        r.OnKey({4, true}, 1000);
        r.OnKey({4, false}, 1050);
        r.OnKey({4, true}, 1050);
        r.OnKey({4, false}, 1500);
        r.OnKey({6, true}, 2000);
        r.Poll(2600);  // a hold is written once it is clearly one
        r.OnKey({6, false}, 3500);
        r.OnCommand("temp 26", 4000);
        r.OnKey({2, true}, 4100);  // still down when the session ends
    }
    EXPECT_EQ(out.str(),
              "# recorded by fp-panel; replay with fp-panel --script FILE\n"
              "sync\nDOWN\nwait 50\nDOWN\nwait 950\ndown ENTER\nwait 1500\nup ENTER\n"
              "wait 500\ntemp 26\nwait 100\ndown UP\nup UP\nsync\ndump\n");
    std::istringstream lines(out.str());
    for (std::string line; std::getline(lines, line);)
        EXPECT_NE(HeadlessCommand::Parse(line).kind, HeadlessCommand_t::BAD) << line;
}

TEST(QuietWatchTest, SettledOnlyWhenConnectedAndAnswered) {
    // Waiting for a unit that never comes is the headless tests' failing sync.
    QuietWatch q;
    q.Observe(1000, true, 1, 0);  // connects; its first screen is due
    EXPECT_FALSE(q.Quiet(1150, 150));
    for (uint64_t t = 1300; t <= 1400; t += 50)
        q.Observe(t, true, 1, t);  // draws in frames 50 ms apart
    EXPECT_FALSE(q.Quiet(1549, 150));
    EXPECT_TRUE(q.Quiet(1550, 150));

    q.Touch(1600);  // a key sent; the answer is late, and quiet counts from it
    EXPECT_FALSE(q.Quiet(1900, 150));
    q.Observe(1900, true, 1, 2000);
    EXPECT_FALSE(q.Quiet(2049, 150));
    EXPECT_TRUE(q.Quiet(2050, 150));
    q.Touch(3000);  // a key with nothing to redraw: settled after the longer wait
    EXPECT_FALSE(q.Quiet(3599, 150));
    EXPECT_TRUE(q.Quiet(3600, 150));

    q.ExpectUntil(5000);  // a timed release still to go out
    EXPECT_FALSE(q.Quiet(5100, 150));
    EXPECT_TRUE(q.Quiet(5150, 150));
    q.Observe(5200, true, 2, 2000);  // a new unit whose count happens to match
    EXPECT_FALSE(q.Quiet(5349, 150));
    q.Observe(5400, false, 2, 2000);
    EXPECT_FALSE(q.Quiet(9000, 150)) << "gone";
}

TEST(ScreenCheckTest, RowsAsWrittenAgainstTheGrid) {
    FPSIM::PanelState_t state;
    state.grid = FPSIM::PanelGrid(8, 2);
    const uint8_t hi[] = {' ', 'H', 'i', 0x84};
    state.grid.Write(0, 0, hi, 2, false);
    state.grid.Write(2, 0, hi + 2, 2, true);
    // Rows that match are checked through the real tool by the headless tests;
    // here, the ways a row can differ: text, too few marks, wrong marks, junk.
    for (const char* written :
         {"Hi\xE2\x9C\x93", "| Hi\xE2\x9C\x93|  .##", "| Hi\xE2\x9C\x93|  ....", "| Hi|x"})
        EXPECT_NE(ScreenCheck::CheckRow(state, 0, ScreenCheck::ParseRow(written), true), "")
            << written;
    EXPECT_EQ(ScreenCheck::CheckRow(state, 1, ScreenCheck::ParseRow(""), true), "");
    EXPECT_NE(ScreenCheck::CheckRow(state, 2, ScreenCheck::ParseRow(""), true), "");
    // A pasted dump, and one that differs, are checked through the real tool by
    // the headless tests; here, a short one and one with too many rows.
    EXPECT_EQ(ScreenCheck::CheckScreen(state, {"| Hi\xE2\x9C\x93"}, true), "");
    EXPECT_NE(ScreenCheck::CheckScreen(state, {"a", "b", "c"}, true), "");
}
