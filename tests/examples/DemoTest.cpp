#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/Child.h"
#include "tests/support/Emulator.h"
#include "tests/support/TempDir.h"
#include "tests/support/Waiting.h"

namespace {

using fptest::Child;
using fptest::WaitFor;
using testing::HasSubstr;
using testing::Not;

class DemoTest : public ::testing::Test {
protected:
    // Runs fp-demo to the end; answers its exit code, output in out.
    int Demo(std::vector<std::string> args, std::string& out) {
        args.insert(args.begin(), {FP_DEMO_EXE, "--ascii", "--log", dir.At("demo.log")});
        const int rc = Child(args, dir.At("out")).Wait();
        out = dir.Read("out");
        return rc;
    }
    fptest::TempDir dir{"fp-demo-test"};
};

// An address typed on the panel is in the engine when the program ends, and
// a restarted program shows it again from the file. Only the second run is
// looked at: it shows nothing new unless the first one stored the edit.
TEST_F(DemoTest, EditsReachTheEngineAndSurviveARestart) {
    const std::string db = dir.At("settings.db");
    std::string out;
    // Address row, type 192.168.001.020, commit.
    ASSERT_EQ(Demo({"--db", db, "--keys", "DOWN ENTER DOWN ENTER 1 9 2 1 6 8 0 0 1 0 2 0 ENTER",
                    "--print-var", "net.ipAddress"},
                   out),
              0)
        << out;
    ASSERT_EQ(Demo({"--db", db, "--keys", "DOWN ENTER", "--print-var", "net.ipAddress"}, out), 0)
        << out;
    EXPECT_THAT(out, HasSubstr(" 192.168.1.20 "));
    EXPECT_THAT(out, HasSubstr("net.ipAddress=192.168.1.20\n"));

    // Bad scripts are refused before anything runs.
    EXPECT_EQ(Demo({"--keys", "DOWN SIDEWAYS"}, out), 2);
    EXPECT_THAT(out, HasSubstr("unknown key 'SIDEWAYS'"));
    EXPECT_EQ(Demo({"--keys", "WAIT soon"}, out), 2);
}

TEST_F(DemoTest, WizardRefusesAGatewayOutsideTheSubnet) {
    // Wizard, walk host, address and netmask, type gateway 010.000.000.001, apply.
    const char* keys =
        "DOWN DOWN DOWN DOWN ENTER ENTER ENTER ENTER ENTER 0 1 0 0 0 0 0 0 0 0 0 1 ENTER";
    std::string out;
    ASSERT_EQ(Demo({"--db", ":memory:", "--keys", keys, "--print-var", "net.gateway"}, out), 0)
        << out;
    EXPECT_THAT(out, HasSubstr(">192.168.1.1 "));  // rows reloaded
    EXPECT_THAT(out, HasSubstr("net.gateway=192.168.1.1\n"));
    EXPECT_THAT(dir.Read("demo.log"), HasSubstr("Invalid Input: gateway 10.0.0.1 is outside"));
}

// One panel picture from --trace: the key, the screen, the rows, and whether
// any cell is reversed.
struct Frame {
    std::string key, screen;
    std::vector<std::string> rows;
    bool reversed = false;
};

std::vector<Frame> Frames(const std::string& out) {
    std::vector<Frame> frames;
    std::istringstream in(out);
    for (std::string line; std::getline(in, line);) {
        if (line.rfind("== ", 0) == 0) {
            Frame f;
            f.key = line.substr(3, line.find(' ', 3) - 3);
            f.screen = line.substr(line.find('[') + 1, line.find(']') - line.find('[') - 1);
            frames.push_back(f);
        } else if (!frames.empty() && line.size() > 2 && line[0] == '|') {
            const size_t end = line.find('|', 1);
            frames.back().rows.push_back(line.substr(1, end - 1));
            frames.back().reversed |= line.find('#', end) != std::string::npos;
        }
    }
    return frames;
}

// Walks every screen, every editable row in edit mode and every scroll row,
// at both sizes; the values come from the engine, not from a picture.
TEST_F(DemoTest, EveryValueAndEditCursorFitsThePanel) {
    auto n = [](const char* key, int count) {
        std::string keys;
        for (int i = 0; i < count; ++i)
            keys += std::string(" ") + key;
        return keys;
    };
    const std::string edit12 = " ENTER" + n("RIGHT", 12) + " EXIT DOWN";
    const std::string keys = "ENTER" + n("DOWN", 8) + " EXIT DOWN ENTER DOWN" + edit12 + edit12 +
                             edit12 + " ENTER" + n("RIGHT", 16) + " EXIT DOWN" + n("RIGHT", 4) +
                             " EXIT DOWN DOWN ENTER ENTER" + n("RIGHT", 3) + " EXIT DOWN ENTER" +
                             n("RIGHT", 3) + " EXIT EXIT DOWN ENTER ENTER" + n("RIGHT", 16) +
                             " ENTER" + n("RIGHT", 12) + " EXIT EXIT DOWN ENTER" + n("RIGHT", 140) +
                             " DOWN DOWN" + n("RIGHT", 12);
    const std::vector<std::pair<std::string, std::vector<std::string>>> shown = {
        {"Status", {"net.ipAddress", "sys.slotVoltage"}},
        {"Network", {"net.ipAddress", "net.netmask", "net.gateway", "net.hostName", "net.mac"}},
        {"DateTime", {"clock.date"}},
        {"Wizard", {"net.hostName", "net.ipAddress"}},
        {"About", {"sys.unitVersion", "sys.panelVersion"}},
    };
    for (const char* size : {"20x4", "16x2"}) {
        SCOPED_TRACE(size);
        std::vector<std::string> args{"--db",    ":memory:", "--size", size,
                                      "--trace", "--keys",   keys};
        for (const auto& screen : shown)
            for (const std::string& var : screen.second)
                args.insert(args.end(), {"--print-var", var});
        std::string out;
        ASSERT_EQ(Demo(args, out), 0) << out;
        const std::vector<Frame> frames = Frames(out);
        ASSERT_GT(frames.size(), 250u) << out;

        // A cursor moved while editing must stay on the panel.
        bool editing = false;
        for (size_t i = 1; i < frames.size(); ++i) {
            const Frame& f = frames[i];
            if (f.screen != frames[i - 1].screen || f.key == "EXIT")
                editing = false;
            else if (f.key == "ENTER")
                editing = true;
            if (editing && f.key == "RIGHT") {
                EXPECT_TRUE(f.reversed) << "frame " << i << " on " << f.screen;
            }
        }

        for (const auto& screen : shown) {
            for (const std::string& var : screen.second) {
                const std::string tag = var + "=";
                const size_t at = out.find("\n" + tag);
                ASSERT_NE(at, std::string::npos) << out;
                const std::string value =
                    out.substr(at + 1 + tag.size(), out.find('\n', at + 1) - at - 1 - tag.size());
                // Each character must be seen in place in some frame (scroll
                // rows show it a window at a time), and no frame may show the
                // value with a cell under an arrow or its tail past the edge.
                std::vector<bool> seen(value.size(), false);
                for (const Frame& f : frames) {
                    if (f.screen != screen.first)
                        continue;
                    for (size_t r = 1; r < f.rows.size(); ++r) {
                        const std::string& row = f.rows[r];
                        for (size_t c = 0; c < row.size(); ++c) {
                            for (size_t p = 0; p < value.size(); ++p) {
                                size_t len = 0, hidden = std::string::npos;
                                while (c + len < row.size() && p + len < value.size()) {
                                    if (row[c + len] != value[p + len]) {
                                        const char cell = row[c + len];
                                        if (p != 0 || hidden != std::string::npos ||
                                            (cell != '^' && cell != 'v'))
                                            break;
                                        hidden = len;
                                    }
                                    ++len;
                                }
                                // A scroll row may be cut while its hint shows.
                                const bool hint = f.rows[0].find('-') != std::string::npos;
                                const bool cut = len < value.size() && c + len == row.size();
                                if (!hint && p == 0 && len >= 4 &&
                                    (hidden != std::string::npos || cut))
                                    ADD_FAILURE() << screen.first << " row \"" << row
                                                  << "\" hides part of " << value;
                                for (size_t k = 0;
                                     len >= std::min<size_t>(4, value.size()) && k < len; ++k)
                                    seen[p + k] = seen[p + k] || k != hidden;
                            }
                        }
                    }
                }
                EXPECT_EQ(std::count(seen.begin(), seen.end(), false), 0)
                    << screen.first << " never shows all of " << var << "=" << value;
            }
        }
    }
}

// The README prints the program whole; it is the one built here, and it runs.
TEST_F(DemoTest, ReadmeUnitIsPrintedWholeAndDrivesAPanel) {
    const std::string source =
        fptest::ReadFile(std::string(FP_SOURCE_DIR) + "/examples/readme-unit/main.cpp");
    ASSERT_FALSE(source.empty());
    EXPECT_THAT(fptest::ReadFile(std::string(FP_SOURCE_DIR) + "/README.md"),
                HasSubstr("```cpp\n" + source + "```"));

    const std::string address = "unix:" + dir.At("panel.sock");
    Child panel({FP_PANEL_EXE, "--headless", "--dump-on-change", "--ascii", "--listen", address},
                dir.At("panel"));
    ASSERT_TRUE(WaitFor([&] { return access(dir.At("panel.sock").c_str(), F_OK) == 0; }));
    Child unit({FP_README_UNIT_EXE, address}, dir.At("unit"));
    ASSERT_TRUE(WaitFor([&] {
        return dir.Read("panel").find("Brightness:5") != std::string::npos;
    })) << dir.Read("panel");
    unit.Signal(SIGTERM);
    EXPECT_EQ(0, unit.Wait());
    EXPECT_THAT(dir.Read("unit"), HasSubstr("panel up"));

    EXPECT_EQ(1, Child({FP_README_UNIT_EXE, "tcp:127.0.0.1"}, dir.At("bad")).Wait());
    EXPECT_THAT(dir.Read("bad"), HasSubstr("malformed address"));
}

TEST_F(DemoTest, DrawsThePanelInARealTerminalAndQuitsOnCtrlQ) {
    if (std::system("command -v tmux >/dev/null 2>&1") != 0)
        GTEST_SKIP() << "tmux is not installed";
    const std::string session = "fpdemo" + std::to_string(getpid());
    auto tmux = [&](const std::string& args) {
        return std::system(("tmux -L " + session + " " + args + " >/dev/null 2>&1").c_str());
    };
    auto screen = [&] {
        std::system(("tmux -L " + session + " capture-pane -p -t " + session + " > " +
                     dir.At("pane") + " 2>/dev/null")
                        .c_str());
        return dir.Read("pane");
    };
    auto shows = [&](const char* text) {
        return WaitFor([&] { return screen().find(text) != std::string::npos; });
    };
    // Behind the user-mode emulator on a cross build, like every program the tests start.
    std::string demo;
    for (const std::string& word : fptest::EmulatorPrefix())
        demo += word + " ";
    demo += std::string(FP_DEMO_EXE) + " --db :memory: --log " + dir.At("demo.log");
    ASSERT_EQ(tmux("new-session -d -x 120 -y 40 -s " + session + " '" + demo + "'"), 0);
    EXPECT_TRUE(shows("Main Menu")) << screen();
    tmux("send-keys -t " + session + " Down Enter");
    EXPECT_TRUE(shows("DHCP:Off")) << screen();
    EXPECT_THAT(screen(), Not(HasSubstr("fpcontrol")));  // no log on the screen
    tmux("send-keys -t " + session + " C-q");
    EXPECT_TRUE(WaitFor([&] { return tmux("has-session -t " + session) != 0; }, 10));
    tmux("kill-server");
}

}  // namespace
