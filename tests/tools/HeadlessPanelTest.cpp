#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
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
    void TearDown() override { ClosePipes(); }
    void ClosePipes() {
        for (int* fd : {&toPanel_, &fromPanel_, &errPanel_}) {
            if (*fd >= 0)
                ::close(*fd);
            *fd = -1;
        }
    }

    // Starts fp-panel on a 8x2 display; input from a pipe unless args name a script.
    void Start(std::vector<std::string> args) {
        ClosePipes();
        int in[2], out[2], err[2];
        // Close-on-exec, so the panel holds only the ends it reads and writes.
        ASSERT_EQ(::pipe2(in, O_CLOEXEC), 0);
        ASSERT_EQ(::pipe2(out, O_CLOEXEC), 0);
        ASSERT_EQ(::pipe2(err, O_CLOEXEC), 0);
        std::vector<std::string> words = {FP_PANEL_EXE, "--headless", "--size",   "8x2",
                                          "--slot",     "7",          "--listen", "unix:" + path_};
        words.insert(words.end(), args.begin(), args.end());
        panel_.reset(new fptest::Child(words, in[0], out[1], err[1]));
        ::close(in[0]);
        ::close(out[1]);
        ::close(err[1]);
        toPanel_ = in[1];
        fromPanel_ = out[0];
        errPanel_ = err[0];
    }
    static bool ReadUntil(int fd, std::string& into, size_t max,
                          const std::function<bool()>& done) {
        char chunk[512];
        while (!done()) {
            pollfd p{fd, POLLIN, 0};
            ssize_t r = 0;
            const size_t room = std::min(sizeof chunk, max - into.size());
            if (::poll(&p, 1, 10000) != 1 || (r = ::read(fd, chunk, room)) <= 0)
                return false;
            into.append(chunk, size_t(r));
        }
        return true;
    }
    // Exit status once it ends, both outputs read to their end; -1 on failure.
    // Read one after the other: what the panel writes is far below a pipe's size.
    int Finish(std::string& out, std::string& err) {
        ::close(toPanel_);
        toPanel_ = -1;
        ReadUntil(fromPanel_, out, SIZE_MAX, [] { return false; });
        ReadUntil(errPanel_, err, SIZE_MAX, [] { return false; });
        ClosePipes();
        return panel_->Wait();
    }

    // Connects as the unit; the panel greets every connection with its start-up frame.
    void Connect(KT::CStreamSocket& unit) {
        ASSERT_TRUE(fptest::WaitFor([&] { return unit.Open("unix:" + path_); }));
        EXPECT_EQ(Read(unit, 3), (Bytes{0x09, 'i', 0x7E}));
    }
    Bytes Read(KT::CStreamSocket& unit, size_t n) {
        std::string got;
        ReadUntil(unit.GetFd(), got, n, [&] { return got.size() >= n; });
        return Bytes(got.begin(), got.end());
    }
    void Command(const std::string& line) {
        const std::string text = line + "\n";
        ASSERT_EQ(::write(toPanel_, text.data(), text.size()), ssize_t(text.size()));
    }
    // Asks for a dump and returns it, without the empty line that ends it.
    std::string Dump() {
        Command("dump");
        if (!ReadUntil(fromPanel_, buffered_, SIZE_MAX,
                       [&] { return buffered_.find("\n\n") != std::string::npos; }))
            return "no dump: " + buffered_;
        const size_t end = buffered_.find("\n\n");
        std::string dump = buffered_.substr(0, end + 1);
        buffered_.erase(0, end + 2);
        return dump;
    }

    fptest::TempDir dir_{"fp-panel-test"};
    const std::string path_ = dir_.At("panel.sock");
    std::unique_ptr<fptest::Child> panel_;
    int toPanel_ = -1, fromPanel_ = -1, errPanel_ = -1;
    std::string buffered_;
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
