#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "kt/StreamSocket.h"
#include "tests/support/Emulator.h"

// Runs the real fp-panel program headless, as a script would, and plays the
// unit over its Unix socket with hand-written frames.
namespace {

using Bytes = std::vector<uint8_t>;

class HeadlessPanelTest : public ::testing::Test {
protected:
    void SetUp() override {
        path_ = "/tmp/fp-panel-test-" + std::to_string(getpid()) + ".sock";
        ::unlink(path_.c_str());
        int in[2], out[2];
        // Close-on-exec, so the panel holds only the ends it reads and writes.
        ASSERT_EQ(::pipe2(in, O_CLOEXEC), 0);
        ASSERT_EQ(::pipe2(out, O_CLOEXEC), 0);
        const std::string listen = "unix:" + path_;
        pid_ = fptest::Spawn(
            {FP_PANEL_EXE, "--headless", "--listen", listen, "--size", "8x2", "--slot", "7"}, in[0],
            out[1], -1);
        ASSERT_GE(pid_, 0);
        ::close(in[0]);
        ::close(out[1]);
        toPanel_ = in[1];
        fromPanel_ = out[0];
    }
    void TearDown() override {
        ::close(toPanel_);
        ::close(fromPanel_);
        if (pid_ > 0) {
            ::kill(pid_, SIGTERM);
            ::waitpid(pid_, nullptr, 0);
        }
        ::unlink(path_.c_str());
    }

    // Connects as the unit; the panel greets every connection with its start-up frame.
    void Connect(KT::CStreamSocket& unit) {
        for (int i = 0; i < 200 && !unit.Open("unix:" + path_); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(25));
        ASSERT_TRUE(unit.IsOpen());
        EXPECT_EQ(Read(unit, 3), (Bytes{0x09, 'i', 0x7E}));
    }
    Bytes Read(KT::CStreamSocket& unit, size_t n) {
        Bytes got;
        while (got.size() < n) {
            pollfd p{unit.GetFd(), POLLIN, 0};
            if (::poll(&p, 1, 5000) != 1)
                break;
            KT::CSlice<unsigned char> s(n - got.size());
            const int r = unit.Read(s);
            if (r <= 0)
                break;
            got.insert(got.end(), s.Data(), s.Data() + r);
        }
        return got;
    }
    void Command(const std::string& line) {
        const std::string text = line + "\n";
        ASSERT_EQ(::write(toPanel_, text.data(), text.size()), ssize_t(text.size()));
    }
    // Asks for a dump and returns it, without the empty line that ends it.
    std::string Dump() {
        Command("dump");
        while (buffered_.find("\n\n") == std::string::npos) {
            pollfd p{fromPanel_, POLLIN, 0};
            char chunk[512];
            ssize_t r = 0;
            if (::poll(&p, 1, 5000) != 1 || (r = ::read(fromPanel_, chunk, sizeof chunk)) <= 0)
                return "no dump: " + buffered_;
            buffered_.append(chunk, size_t(r));
        }
        const size_t end = buffered_.find("\n\n");
        std::string dump = buffered_.substr(0, end + 1);
        buffered_.erase(0, end + 2);
        return dump;
    }

    std::string path_;
    pid_t pid_ = -1;
    int toPanel_ = -1, fromPanel_ = -1;
    std::string buffered_;
};

TEST_F(HeadlessPanelTest, DrawsKeysAnswersAndServesTheNextConnection) {
    KT::CStreamSocket unit;
    Connect(unit);
    // Reverse "Hi", then a check mark (0x84) and an escaped '~' on the second row,
    // an LED and the brightness; the slot query answers once all that is applied.
    const Bytes frames = {0x09, 'R',  1,    0x7E, 0x09, 'T',  'H',  'i',  0x7E, 0x09,
                          'R',  2,    0x7E, 0x09, 'X',  2,    0x7E, 0x09, 'Y',  1,
                          0x7E, 0x09, 'T',  0x84, 0x7D, 0x5E, 0x7E, 0x09, 'L',  4,
                          1,    0x7E, 0x09, 'B',  5,    0x7E, 0x09, 'A',  0x7E};
    ASSERT_TRUE(unit.Write(frames.data(), frames.size()));
    EXPECT_EQ(Read(unit, 4), (Bytes{0x09, 'A', 7, 0x7E}));
    EXPECT_EQ(Dump(),
              "+--------+\n"
              "|Hi      |  ##......\n"
              "|  \xE2\x9C\x93~    |\n"
              "+--------+\n"
              "link: unit connected on unix:" +
                  path_ +
                  "\n"
                  "LEDs: 4 on\n"
                  "status: -  brightness: 5  fan: -\n"
                  "reports: off\n"
                  "temperature: 25  fans: 2000 2000 2000\n"
                  "answers: slot 7, 12.00 V, display type 1, version \"fp-panel 1.0\"\n");

    Command("ENTER");
    Command("down z");
    Command("nonsense");  // refused on stderr, the rest goes on
    Command("up z");
    EXPECT_EQ(Read(unit, 20), (Bytes{0x09, 'K', 6,  1, 0x7E, 0x09, 'K', 6,  2, 0x7E,
                                     0x09, 'K', 46, 1, 0x7E, 0x09, 'K', 46, 2, 0x7E}));

    // The unit restarts: the panel waits for it, greets it again with a blank display.
    unit.Close();
    KT::CStreamSocket again;
    Connect(again);
    const std::string dump = Dump();
    EXPECT_EQ(dump.substr(0, 33), "+--------+\n|        |\n|        |\n");

    Command("quit");
    int status = -1;
    ASSERT_EQ(::waitpid(pid_, &status, 0), pid_);
    pid_ = -1;
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

}  // namespace
