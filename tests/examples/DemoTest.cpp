#include <gtest/gtest.h>

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#include "tests/support/Emulator.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

std::string Slurp(const std::string& path) {
    std::ifstream in(path);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

// Polls until done() or the deadline; wide, so slow sanitizer builds pass.
bool WaitFor(const std::function<bool()>& done, int seconds = 20) {
    const auto end = Clock::now() + std::chrono::seconds(seconds);
    while (!done()) {
        if (Clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return true;
}

// A program run in the background, its output going to a file.
class Child {
public:
    Child(const std::vector<std::string>& argv, const std::string& out) {
        const int in = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
        const int fd = ::open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
        pid_ = fptest::Spawn(argv, in, fd, fd);
        ::close(in);
        ::close(fd);
    }
    ~Child() {
        if (pid_ > 0) {
            kill(pid_, SIGKILL);
            Wait();
        }
    }
    void Signal(int signo) { kill(pid_, signo); }
    // Exit code, or -1 when it did not end in time.
    int Wait(int seconds = 30) {
        int status = 0;
        bool ended = WaitFor([&] { return waitpid(pid_, &status, WNOHANG) == pid_; }, seconds);
        if (ended)
            pid_ = -1;
        return ended && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    pid_t pid_ = -1;
};

class DemoTest : public ::testing::Test {
protected:
    DemoTest() {
        char tmpl[] = "/tmp/fp-demo-test-XXXXXX";
        dir = mkdtemp(tmpl);
    }
    ~DemoTest() override { std::system(("rm -rf " + dir).c_str()); }
    // Runs fp-demo to the end; answers its exit code, output in out.
    int Demo(std::vector<std::string> args, std::string& out) {
        args.insert(args.begin(), {FP_DEMO_EXE, "--ascii", "--log", dir + "/demo.log"});
        Child child(args, dir + "/out");
        const int rc = child.Wait();
        out = Slurp(dir + "/out");
        return rc;
    }
    std::string dir;
};

// Network row, address row, type 192.168.001.020, commit.
const char kEditAddress[] = "DOWN ENTER DOWN ENTER 1 9 2 1 6 8 0 0 1 0 2 0 ENTER";

TEST_F(DemoTest, EditedAddressReachesTheEngineAndSurvivesARestart) {
    const std::string db = dir + "/settings.db";
    std::string out;
    ASSERT_EQ(Demo({"--db", db, "--keys", kEditAddress, "--print-var", "net.ipAddress"}, out), 0)
        << out;
    EXPECT_NE(out.find("== end [Network]"), std::string::npos) << out;
    EXPECT_NE(out.find(">192.168.1.20 "), std::string::npos) << out;
    EXPECT_NE(out.find("net.ipAddress=192.168.1.20\n"), std::string::npos) << out;

    ASSERT_EQ(Demo({"--db", db, "--print-var", "net.ipAddress"}, out), 0) << out;
    EXPECT_NE(out.find("net.ipAddress=192.168.1.20\n"), std::string::npos) << out;

    // Nothing kept without a file; bad scripts are refused before anything runs.
    ASSERT_EQ(Demo({"--db", ":memory:", "--print-var", "net.ipAddress"}, out), 0) << out;
    EXPECT_NE(out.find("net.ipAddress=192.168.1.10\n"), std::string::npos) << out;
    EXPECT_EQ(Demo({"--keys", "DOWN SIDEWAYS"}, out), 2);
    EXPECT_NE(out.find("unknown key 'SIDEWAYS'"), std::string::npos) << out;
    EXPECT_EQ(Demo({"--keys", "WAIT soon"}, out), 2);
}

TEST_F(DemoTest, DhcpChoiceStoresItsKeyAndComesBackAfterARestart) {
    const std::string db = dir + "/settings.db";
    std::string out;
    ASSERT_EQ(
        Demo({"--db", db, "--keys", "DOWN ENTER ENTER UP ENTER", "--print-var", "net.dhcp"}, out),
        0)
        << out;
    EXPECT_NE(out.find(">DHCP:On "), std::string::npos) << out;
    EXPECT_NE(out.find("net.dhcp=1\n"), std::string::npos) << out;
    ASSERT_EQ(Demo({"--db", db, "--keys", "DOWN ENTER"}, out), 0) << out;
    EXPECT_NE(out.find(">DHCP:On "), std::string::npos) << out;
}

// Date & Time, month to February, day to 31, commit: the engine refuses it
// and the panel says so. The keys depend on today, the demo's first date.
TEST_F(DemoTest, ANoSuchDateIsRefusedOnThePanel) {
    const std::time_t now = std::time(nullptr);
    std::tm today{};
    localtime_r(&now, &today);
    std::string keys = "DOWN DOWN DOWN ENTER ENTER RIGHT";
    for (int i = (2 - (today.tm_mon + 1) + 12) % 12; i > 0; --i)
        keys += " UP";
    keys += " RIGHT";
    for (int i = 31 - today.tm_mday; i > 0; --i)
        keys += " UP";
    std::string out;
    ASSERT_EQ(
        Demo({"--db", ":memory:", "--keys", keys + " ENTER", "--print-var", "clock.date"}, out), 0)
        << out;
    EXPECT_NE(out.find("Not saved"), std::string::npos) << out;
    EXPECT_NE(out.find("no such date"), std::string::npos) << out;
    EXPECT_EQ(out.find("clock.date=" + std::to_string(today.tm_year + 1900) + "/02/31"),
              std::string::npos)
        << out;
}

TEST_F(DemoTest, WizardRefusesAGatewayOutsideTheSubnet) {
    // Wizard, walk host, address and netmask, type gateway 010.000.000.001, apply.
    std::string out;
    ASSERT_EQ(
        Demo({"--db", ":memory:", "--keys",
              "DOWN DOWN DOWN DOWN ENTER ENTER ENTER ENTER ENTER 0 1 0 0 0 0 0 0 0 0 0 1 ENTER",
              "--print-var", "net.gateway", "--print-var", "net.hostName"},
             out),
        0)
        << out;
    EXPECT_NE(out.find("== end [Wizard]"), std::string::npos) << out;
    EXPECT_NE(out.find(">192.168.1.1 "), std::string::npos) << out;  // rows reloaded
    EXPECT_NE(out.find("net.gateway=192.168.1.1\n"), std::string::npos) << out;
    EXPECT_NE(out.find("net.hostName=fp-demo\n"), std::string::npos) << out;
    EXPECT_NE(Slurp(dir + "/demo.log").find("Invalid Input: gateway 10.0.0.1 is outside"),
              std::string::npos);
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

TEST_F(DemoTest, ReconnectsWhenAnExternalPanelComesBack) {
    const std::string address = "unix:" + dir + "/panel.sock";
    const std::vector<std::string> panelArgs{FP_PANEL_EXE, "--headless", "--dump-on-change",
                                             "--ascii",    "--listen",   address};
    std::unique_ptr<Child> panel(new Child(panelArgs, dir + "/panel1"));
    ASSERT_TRUE(WaitFor([&] { return access((dir + "/panel.sock").c_str(), F_OK) == 0; }));
    Child demo({FP_DEMO_EXE, "--log", dir + "/demo.log", "--db", ":memory:", "--panel", address,
                "--keys", "WAIT 8000 DOWN"},
               dir + "/demo");
    ASSERT_TRUE(WaitFor([&] {
        return Slurp(dir + "/panel1").find("Main Menu") != std::string::npos;
    })) << Slurp(dir + "/panel1");

    panel->Signal(SIGTERM);
    EXPECT_EQ(panel->Wait(), 0);
    ASSERT_TRUE(
        WaitFor([&] { return Slurp(dir + "/demo").find("link lost") != std::string::npos; }));
    panel.reset(new Child(panelArgs, dir + "/panel2"));
    ASSERT_TRUE(WaitFor([&] {
        return Slurp(dir + "/demo").find("link restored") != std::string::npos;
    })) << Slurp(dir + "/demo");
    // The new panel gets the whole screen, without a key pressed.
    EXPECT_TRUE(WaitFor([&] {
        return Slurp(dir + "/panel2").find("Main Menu") != std::string::npos;
    })) << Slurp(dir + "/panel2");
    EXPECT_EQ(demo.Wait(), 0) << Slurp(dir + "/demo");
}

// The README prints the program whole; it is the one built here, and it runs.
TEST_F(DemoTest, ReadmeUnitIsPrintedWholeAndDrivesAPanel) {
    const std::string source = Slurp(std::string(FP_SOURCE_DIR) + "/examples/readme-unit/main.cpp");
    ASSERT_FALSE(source.empty());
    EXPECT_NE(std::string::npos,
              Slurp(std::string(FP_SOURCE_DIR) + "/README.md").find("```cpp\n" + source + "```"));

    const std::string address = "unix:" + dir + "/panel.sock";
    Child panel({FP_PANEL_EXE, "--headless", "--dump-on-change", "--ascii", "--listen", address},
                dir + "/panel");
    ASSERT_TRUE(WaitFor([&] { return access((dir + "/panel.sock").c_str(), F_OK) == 0; }));
    Child unit({FP_README_UNIT_EXE, address}, dir + "/unit");
    ASSERT_TRUE(WaitFor([&] {
        return Slurp(dir + "/panel").find("Brightness:5") != std::string::npos;
    })) << Slurp(dir + "/panel");
    unit.Signal(SIGTERM);
    EXPECT_EQ(0, unit.Wait());
    EXPECT_NE(std::string::npos, Slurp(dir + "/unit").find("panel up"));

    Child bad({FP_README_UNIT_EXE, "tcp:127.0.0.1"}, dir + "/bad");
    EXPECT_EQ(1, bad.Wait());
    EXPECT_NE(std::string::npos, Slurp(dir + "/bad").find("malformed address"));
}

TEST_F(DemoTest, DrawsThePanelInARealTerminalAndQuitsOnCtrlQ) {
    if (std::system("command -v tmux >/dev/null 2>&1") != 0)
        GTEST_SKIP() << "tmux is not installed";
    const std::string session = "fpdemo" + std::to_string(getpid());
    auto tmux = [&](const std::string& args) {
        return std::system(("tmux -L " + session + " " + args + " >/dev/null 2>&1").c_str());
    };
    auto screen = [&] {
        std::system(("tmux -L " + session + " capture-pane -p -t " + session + " > " + dir +
                     "/pane 2>/dev/null")
                        .c_str());
        return Slurp(dir + "/pane");
    };
    ASSERT_EQ(
        tmux("new-session -d -x 120 -y 40 -s " + session + " '" + fptest::EmulatorCommandPrefix() +
             FP_DEMO_EXE + " --db :memory: --log " + dir + "/demo.log'"),
        0);
    EXPECT_TRUE(WaitFor([&] { return screen().find("Main Menu") != std::string::npos; }))
        << screen();
    tmux("send-keys -t " + session + " Down Enter");
    EXPECT_TRUE(WaitFor([&] { return screen().find("DHCP:Off") != std::string::npos; }))
        << screen();
    EXPECT_EQ(screen().find("fpcontrol"), std::string::npos);  // no log on the screen
    tmux("send-keys -t " + session + " C-q");
    EXPECT_TRUE(WaitFor([&] { return tmux("has-session -t " + session) != 0; }, 10));
    tmux("kill-server");
}

}  // namespace
