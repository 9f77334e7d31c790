#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fp/core/KeyTypes.h"
#include "tools/panel/HeadlessCommand.h"
#include "tools/panel/HeldKeyTracker.h"
#include "tools/panel/KeyMap.h"
#include "tools/panel/PanelOptions.h"

// Last: curses' key macros would clash with the library's key names.
#include <curses.h>

using namespace FPPANEL;

namespace {

PanelOptions::Result_e Parse(std::vector<const char*> args, PanelOptions_t& out,
                             std::string& error) {
    args.insert(args.begin(), "fp-panel");
    return PanelOptions::Parse(int(args.size()), args.data(), out, error);
}

}  // namespace

TEST(PanelOptionsTest, FullCommandLine) {
    PanelOptions_t o;
    std::string error;
    ASSERT_EQ(Parse({"--listen", "unix:/tmp/p.sock", "--size=256x1", "--slot", "0x0f", "--voltage",
                     "11.5", "--display-type", "3", "--panel-version", "fw 2", "--headless",
                     "--dump-on-change"},
                    o, error),
              PanelOptions::PARSE_OK)
        << error;
    EXPECT_EQ(o.listen, "unix:/tmp/p.sock");
    EXPECT_EQ(o.width, 256u);
    EXPECT_EQ(o.height, 1u);
    EXPECT_EQ(o.slotId, 15);
    EXPECT_FLOAT_EQ(o.voltage, 11.5f);
    EXPECT_EQ(o.displayType, 3);
    EXPECT_EQ(o.version, "fw 2");
    EXPECT_TRUE(o.headless && o.dumpOnChange);
    EXPECT_EQ(Parse({"--help"}, o, error), PanelOptions::PARSE_HELP);
}

TEST(PanelOptionsTest, RefusesBadInput) {
    for (const char* size : {"0x4", "20x0", "257x4", "20x257", "20x", "x4", "20*4", "-1x4",
                             "20x4x2", " 20x4", "+20x4", "99999999999999999999x4", ""}) {
        PanelOptions_t o;
        std::string error;
        EXPECT_EQ(Parse({"--size", size}, o, error), PanelOptions::PARSE_ERROR) << size;
        EXPECT_FALSE(error.empty());
        EXPECT_EQ(o.width, 20u) << "a refused size must leave the default";
    }
    const std::vector<std::vector<const char*>> bad = {{"--slot", "256"},
                                                       {"--slot", "1x"},
                                                       {"--voltage", "nan"},
                                                       {"--listen", "x:1"},
                                                       {"--listen", "tcp:h:99999"},
                                                       {"--listen", "unix:"},
                                                       {"--size"},
                                                       {"--bogus"},
                                                       {"--headless=1"}};
    for (const auto& args : bad) {
        PanelOptions_t o;
        std::string error;
        EXPECT_EQ(Parse(args, o, error), PanelOptions::PARSE_ERROR) << args[0];
    }
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
    EXPECT_EQ(KeyMap::FromCurses('q' & 0x1F).action, ACTION_QUIT);
    EXPECT_EQ(KeyMap::FromCurses(KEY_F(10)).action, ACTION_QUIT);
    EXPECT_EQ(KeyMap::FromCurses(KEY_F(2)).action, ACTION_TEMP_UP);
    EXPECT_EQ(KeyMap::FromCurses(KEY_F(3)).action, ACTION_TEMP_DOWN);
    EXPECT_EQ(KeyMap::FromCurses(KEY_F(6)).action, ACTION_FAN_UP);
    EXPECT_EQ(KeyMap::FromCurses(KEY_F(7)).action, ACTION_FAN_DOWN);
    for (int unmapped : {int('!'), int('~'), KEY_F(1), KEY_HOME, ERR, 0x80})
        EXPECT_EQ(KeyMap::FromCurses(unmapped).action, ACTION_NONE) << unmapped;
}

TEST(KeyMapTest, NamesAndHeadlessCommands) {
    for (int key = 1; key <= 72; ++key)
        EXPECT_EQ(KeyMap::FromName(FP::KeyName(key)), key);
    for (const char* name : {"NONE", "ERROR", "up", "", "AB"})
        EXPECT_EQ(KeyMap::FromName(name), -1) << name;

    HeadlessCommand_t c = HeadlessCommand::Parse("  hold DOWN 700 ");
    EXPECT_EQ(c.kind, HeadlessCommand_t::HOLD);
    EXPECT_EQ(c.key, 4);
    EXPECT_EQ(c.value, 700);
    c = HeadlessCommand::Parse("fan 3 65535");
    EXPECT_EQ(c.kind, HeadlessCommand_t::FAN);
    EXPECT_EQ(c.fan, 2u);
    EXPECT_EQ(HeadlessCommand::Parse("a").key, 21);
    EXPECT_EQ(HeadlessCommand::Parse("temp -40").value, -40);
    EXPECT_EQ(HeadlessCommand::Parse("# note").kind, HeadlessCommand_t::NONE);
    for (const char* bad : {"NONE", "fan 4 10", "fan 1 65536", "hold UP", "hold UP -1",
                            "temp 40000", "down", "up nokey", "dump now"})
        EXPECT_EQ(HeadlessCommand::Parse(bad).kind, HeadlessCommand_t::BAD) << bad;
}

TEST(HeldKeyTrackerTest, RepeatsKeepAKeyDownUntilTheyStop) {
    using E = HeldKeyTracker::Event_t;
    using Events = std::vector<E>;
    HeldKeyTracker t(120);
    // A single tap: down at once, up 120 ms later.
    EXPECT_EQ(t.OnKey(2, 1000), (Events{{2, true}}));
    EXPECT_EQ(t.Poll(1119), Events{});
    EXPECT_EQ(t.Poll(1120), (Events{{2, false}}));
    EXPECT_EQ(t.Poll(5000), Events{});

    // Terminal repeats every 40 ms hold it; the release comes 120 ms after the last.
    EXPECT_EQ(t.OnKey(4, 2000), (Events{{4, true}}));
    for (uint64_t now = 2040; now <= 3000; now += 40) {
        EXPECT_EQ(t.OnKey(4, now), Events{}) << now;
        EXPECT_EQ(t.Poll(now + 60), Events{});
    }
    EXPECT_EQ(t.Poll(3120), (Events{{4, false}}));

    // Another key takes over at once: the old one goes up first.
    t.OnKey(1, 4000);
    EXPECT_EQ(t.OnKey(3, 4010), (Events{{1, false}, {3, true}}));
    // A late event after the release time: the release is sent before the new down.
    EXPECT_EQ(t.OnKey(3, 4200), (Events{{3, false}, {3, true}}));
    // A clock going backwards releases rather than holding for ever.
    EXPECT_EQ(t.Poll(100), (Events{{3, false}}));
    t.OnKey(6, 5000);
    EXPECT_EQ(t.ReleaseAll(), (Events{{6, false}}));
    EXPECT_FALSE(t.Holding());
}
