#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "kt/StreamSocket.h"
#include "tests/support/Child.h"
#include "tests/support/TempDir.h"
#include "tests/support/Waiting.h"

// Runs the real fp-panel program headless, as a script would, and plays the
// unit over its Unix socket with hand-written frames.
namespace {

using Bytes = std::vector<uint8_t>;
using Clock = std::chrono::steady_clock;

// Reverse "Hi", then a check mark (0x84) and an escaped '~' on the second row,
// an LED and the brightness.
const Bytes kDrawing = {0x09, 'R',  1,    0x7E, 0x09, 'T',  'H', 'i',  0x7E, 0x09, 'R', 2,
                        0x7E, 0x09, 'X',  2,    0x7E, 0x09, 'Y', 1,    0x7E, 0x09, 'T', 0x84,
                        0x7D, 0x5E, 0x7E, 0x09, 'L',  4,    1,   0x7E, 0x09, 'B',  5,   0x7E};
const Bytes kSlotQuery = {0x09, 'A', 0x7E};

class HeadlessPanelTest : public ::testing::Test {
protected:
    void TearDown() override { CloseInput(); }
    void CloseInput() {
        if (toPanel_ >= 0)
            ::close(toPanel_);
        toPanel_ = -1;
    }

    // Starts fp-panel on a 8x2 display, writing to the files "out" and "err";
    // input from a pipe unless args name a script.
    void Start(std::vector<std::string> args) {
        CloseInput();
        int in[2];
        // Close-on-exec, so the panel holds only the end it reads.
        ASSERT_EQ(::pipe2(in, O_CLOEXEC), 0);
        std::vector<std::string> words = {FP_PANEL_EXE, "--headless", "--size",   "8x2",
                                          "--slot",     "7",          "--listen", "unix:" + path_};
        words.insert(words.end(), args.begin(), args.end());
        const int out = Create("out"), err = Create("err");
        panel_.reset(new fptest::Child(words, in[0], out, err));
        for (int fd : {in[0], out, err})
            ::close(fd);
        toPanel_ = in[1];
        dumped_ = 0;
    }
    int Create(const std::string& name) {
        return ::open(dir_.At(name).c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    }
    // Exit status once it ends (-1 on failure), and what it wrote.
    int Finish(std::string& out, std::string& err) {
        CloseInput();
        const int status = panel_->Wait();
        out = dir_.Read("out");
        err = dir_.Read("err");
        return status;
    }

    // Connects as the unit; the panel greets every connection with its start-up frame.
    void Connect(KT::CStreamSocket& unit) {
        ASSERT_TRUE(fptest::WaitFor([&] { return unit.Open("unix:" + path_); }));
        EXPECT_EQ(Read(unit, 3), (Bytes{0x09, 'i', 0x7E}));
    }
    // Exactly n bytes, or fewer if none come for a long while.
    Bytes Read(KT::CStreamSocket& unit, size_t n) {
        Bytes got(n);
        size_t have = 0;
        for (ssize_t r = 0; have < n; have += size_t(r)) {
            pollfd p{unit.GetFd(), POLLIN, 0};
            if (::poll(&p, 1, 10000) != 1 || (r = ::read(unit.GetFd(), &got[have], n - have)) <= 0)
                break;
        }
        got.resize(have);
        return got;
    }
    void Command(const std::string& line) {
        const std::string text = line + "\n";
        ASSERT_EQ(::write(toPanel_, text.data(), text.size()), ssize_t(text.size()));
    }
    // Asks for a dump and returns it, without the empty line that ends it.
    std::string Dump() {
        Command("dump");
        std::string out;
        if (!fptest::WaitFor([&] {
                out = dir_.Read("out");
                return out.find("\n\n", dumped_) != std::string::npos;
            }))
            return "no dump: " + out.substr(dumped_);
        const size_t end = out.find("\n\n", dumped_);
        const std::string dump = out.substr(dumped_, end + 1 - dumped_);
        dumped_ = end + 2;
        return dump;
    }

    fptest::TempDir dir_{"fp-panel-test"};
    const std::string path_ = dir_.At("panel.sock");
    std::unique_ptr<fptest::Child> panel_;
    int toPanel_ = -1;
    size_t dumped_ = 0;  // where the next dump starts in "out"
};

TEST_F(HeadlessPanelTest, DrawsKeysAnswersAndServesTheNextConnection) {
    Start({"--voltage", "11.5", "--display-type", "3", "--panel-version", "fw 2"});
    KT::CStreamSocket unit;
    Connect(unit);
    // The slot query answers once all that is applied.
    Bytes frames = kDrawing;
    frames.insert(frames.end(), kSlotQuery.begin(), kSlotQuery.end());
    ASSERT_TRUE(unit.Write(frames.data(), frames.size()));
    EXPECT_EQ(Read(unit, 4), (Bytes{0x09, 'A', 7, 0x7E}));
    EXPECT_EQ(Dump(),
              "+--------+\n|Hi      |  ##......\n|  \xE2\x9C\x93~    |\n+--------+\n"
              "link: unit connected on unix:" +
                  path_ +
                  "\nLEDs: 4 on\nstatus: -  brightness: 5  fan: -\nreports: off\n"
                  "temperature: 25  fans: 2000 2000 2000\n"
                  "answers: slot 7, 11.50 V, display type 3, version \"fw 2\"\n");

    Command("ENTER");
    Command("down z");
    Command("up z");
    EXPECT_EQ(Read(unit, 20), (Bytes{0x09, 'K', 6,  1, 0x7E, 0x09, 'K', 6,  2, 0x7E,
                                     0x09, 'K', 46, 1, 0x7E, 0x09, 'K', 46, 2, 0x7E}));

    // The unit restarts: the panel waits for it, greets it again with a blank display.
    unit.Close();
    KT::CStreamSocket again;
    Connect(again);
    EXPECT_EQ(Dump().substr(0, 33), "+--------+\n|        |\n|        |\n");

    // The end of input ends a run that had commands, with every one of them fine.
    std::string out, err;
    EXPECT_EQ(Finish(out, err), 0) << err;
}

// A script waits for the unit, checks the screen, holds a key for as long as
// it says, and sees the answer to a key only once the unit has drawn it.
TEST_F(HeadlessPanelTest, ScriptSyncsExpectsHoldsAndSnapshots) {
    const std::string snap = dir_.At("panel.txt");
    Start({"--script",
           dir_.Write(
               "script",
               "sync\nexpect 1 |Hi      |  ##\nexpect-screen\n+--------+\n|Hi      |  ##......\n"
               "|  \xE2\x9C\x93~\nsnapshot " +
                   snap + "\nsnapshot " + snap +
                   ".svg\ndown ENTER\nwait 300\nup ENTER\nsync\nexpect 2 Done\n"),
           "--sync-ms", "300"});
    KT::CStreamSocket unit;
    Connect(unit);
    ASSERT_TRUE(unit.Write(kDrawing.data(), kDrawing.size()));

    EXPECT_EQ(Read(unit, 5), (Bytes{0x09, 'K', 6, 1, 0x7E}));
    const auto down = Clock::now();
    EXPECT_EQ(Read(unit, 5), (Bytes{0x09, 'K', 6, 2, 0x7E}));
    EXPECT_GE(Clock::now() - down,
              std::chrono::milliseconds(150));  // wide: a loaded machine reads late
    // Answers the key after it went up; the script's sync must wait for this.
    const Bytes done = {0x09, 'X', 0,   0x7E, 0x09, 'Y', 1,   0x7E,
                        0x09, 'T', 'D', 'o',  'n',  'e', 0x7E};
    ASSERT_TRUE(unit.Write(done.data(), done.size()));

    std::string out, err;
    EXPECT_EQ(Finish(out, err), 0) << err;  // "expect 2 Done" held
    EXPECT_EQ(fptest::ReadFile(snap),
              "+--------+\n|Hi      |  ##......\n|  \xE2\x9C\x93~    |\n+--------+\nLEDs: 4 on\n"
              "status: -  brightness: 5  fan: -\n");
    // The picture of the same moment, "Hi" in reverse; how pictures draw is
    // the picture test's business.
    const std::string svg = fptest::ReadFile(snap + ".svg");
    EXPECT_NE(svg.find("fill=\"#1f3f9f\">Hi</text>"), std::string::npos) << svg;
}

TEST_F(HeadlessPanelTest, AScriptStopsAtTheFirstFailureAndShowsThePanel) {
    const struct {
        const char* script;
        bool unit;
        const char* message;
    } cases[] = {
        {"sync\nbogus\ndump\n", true, "line 2: unknown key or command 'bogus'"},
        {"sync\nexpect 2 |  \xE2\x9C\x93~|\nexpect 1 Hi there\n", true,
         "line 3: expect failed: row 1 shows |Hi      |, expected |Hi there|"},
        {"sync\nexpect-screen\n|Hi\n|  x\n", true, "line 2: expect-screen failed:\nrow 2 shows"},
        {"sync\nsnapshot p.gif\n", true,
         "no snapshot format for 'p.gif' (known: .txt, .svg, .png)"},
        {"ENTER\n", false, "line 1: key not sent, no unit connected: ENTER"},
        {"sync 50\n", false, "line 1: sync: the unit did not settle within 400 ms"},
    };
    for (const auto& c : cases) {
        Start({"--script", dir_.Write("script", c.script), "--sync-ms", "100", "--sync-timeout-ms",
               "400"});
        KT::CStreamSocket unit;
        if (c.unit) {
            Connect(unit);
            ASSERT_TRUE(unit.Write(kDrawing.data(), kDrawing.size()));
        }
        std::string out, err;
        EXPECT_EQ(Finish(out, err), 1) << c.script << err;
        EXPECT_NE(err.find(c.message), std::string::npos) << err;
        EXPECT_NE(err.find("fp-panel: the panel shows:\n+--------+\n"), std::string::npos) << err;
        EXPECT_EQ(out, "") << "nothing runs after a failure";
    }
    // "quit" ends a script early, and well.
    Start({"--script", dir_.Write("script", "quit\nbogus\n")});
    std::string out, err;
    EXPECT_EQ(Finish(out, err), 0) << err;
}

}  // namespace
