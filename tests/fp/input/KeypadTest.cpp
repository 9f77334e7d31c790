#include <gtest/gtest.h>

#include <map>
#include <mutex>
#include <vector>

#include "fp/input/Keypad.h"
#include "fp/link/FpControl.h"
#include "tests/support/LogCapture.h"

namespace {

using Keys = std::vector<int>;
const unsigned char DOWN = 1, UP = 2;

// Keeps the 'K' handler so a test can play the link's read thread.
struct FakeAdapter : FP::IFpAdapter {
    void SetResponseHandler(unsigned char op, Handler const& h) override { handlers[op] = h; }
    bool SendCommand(unsigned char, Payload const&) override { return true; }
    Payload SendRequest(unsigned char, Payload const&) override { return {}; }
    Payload SendRequest(unsigned char, Payload const&, unsigned int) override { return {}; }
    void Key(unsigned char key, unsigned char state) {
        Payload p(2);
        p.Set(0, key);
        p.Set(1, state);
        handlers[FP::FpControl::OP_KEY](p);
    }
    std::map<unsigned char, Handler> handlers;
};

struct Recorder : FP::IKeyPress {
    void OnKeyPress(FP::Key_e key) override {
        std::lock_guard<std::mutex> lock(m);
        keys.push_back(key);
    }
    Keys Take() {
        std::lock_guard<std::mutex> lock(m);
        return std::move(keys);
    }
    std::mutex m;
    Keys keys;
};

class KeypadTest : public ::testing::Test {
protected:
    KeypadTest() { keypad.SetCallback(&rec); }
    // Watcher passes without the thread, each after moving the clock by stepMs.
    void Passes(int n, uint32_t stepMs = 80) {
        for (int i = 0; i < n; ++i) {
            now += stepMs;
            keypad.RunOnce(0);
        }
    }
    uint32_t now = 0xFFFFFF00u;  // near the wrap, which must not matter
    FakeAdapter adapter;
    FP::FpControl control{adapter};
    FP::Keypad keypad{control, [this] { return now; }};
    Recorder rec;
    fptest::LogCapture log{"fp.keypad"};
};

TEST_F(KeypadTest, PressReportsOnceAndOddInputIsLogged) {
    adapter.Key(FP::KEY_ENTER, DOWN);
    adapter.Key(FP::KEY_ENTER, UP);
    adapter.Key(0, DOWN);  // "no key" is never reported as a press
    adapter.Key(0, UP);
    adapter.Key(73, DOWN);
    adapter.Key(200, 7);
    Passes(6);
    EXPECT_EQ(rec.Take(), (Keys{FP::KEY_ENTER, 73}));
    EXPECT_EQ(log.Messages(),
              (std::vector<std::string>{"HandleKeyPress() key: ENTER State: Down Tick: 4294967120",
                                        "HandleKeyPress() key: ENTER State: Up Tick: 4294967200",
                                        "HandleKeyPress() key: NONE State: Down Tick: 4294967280",
                                        "HandleKeyPress() key: NONE State: Up Tick: 64",
                                        "HandleKeyPress() key: ERROR State: Down Tick: 144",
                                        "HandleKeyPress() key: ERROR State: ERROR Tick: 224"}));
}

TEST_F(KeypadTest, HeldKeyRepeatsEveryPassAfterHalfASecond) {
    adapter.Key(FP::KEY_UP, DOWN);
    Passes(1);
    EXPECT_EQ(rec.Take(), Keys{FP::KEY_UP});
    Passes(1, 500);  // exactly 500 ms, across the wrap: not yet
    Passes(1, 1);    // past 500 ms: repeat armed, nothing reported yet
    EXPECT_TRUE(rec.Take().empty());
    Passes(18);  // the rest of a 2 s hold
    EXPECT_EQ(rec.Take(), Keys(18, FP::KEY_UP));
    EXPECT_EQ(log.Count("KeypadWatcherRun() Hold state active. time: 405 button: UP"), 1u);
    adapter.Key(FP::KEY_UP, UP);
    Passes(5);
    EXPECT_TRUE(rec.Take().empty());
}

TEST_F(KeypadTest, SecondKeyWhileFirstIsHeld) {
    adapter.Key(FP::KEY_UP, DOWN);
    Passes(1);
    adapter.Key(FP::KEY_DOWN, DOWN);  // first still pending: reported, no takeover
    Passes(8);
    EXPECT_EQ(rec.Take(), (Keys{FP::KEY_UP, FP::KEY_DOWN, FP::KEY_UP}));
    adapter.Key(FP::KEY_LEFT, DOWN);  // first repeating: swallowed
    Passes(1);
    EXPECT_EQ(rec.Take(), Keys{FP::KEY_UP});
    // Releasing the held key hands the repeat at once to the highest key down.
    adapter.Key(FP::KEY_UP, UP);
    Passes(1);
    adapter.Key(FP::KEY_DOWN, UP);
    Passes(1);
    adapter.Key(FP::KEY_LEFT, UP);
    Passes(10);
    EXPECT_EQ(rec.Take(), (Keys{FP::KEY_DOWN, FP::KEY_LEFT}));
}

TEST_F(KeypadTest, QueueOverflowAndQuiesce) {
    for (unsigned char k = 1; k <= 7; ++k)
        adapter.Key(k, DOWN);
    for (int i = 0; i < 7; ++i)
        keypad.RunOnce(0);  // clock still: no repeat
    EXPECT_EQ(rec.Take(), (Keys{1, 2, 3, 4, 5, 6}));

    Passes(10);  // key 6 repeating
    rec.Take();
    adapter.Key(FP::KEY_EXIT, DOWN);  // queued, must be flushed
    keypad.SetQuiesce(true);
    adapter.Key(FP::KEY_ENTER, DOWN);
    Passes(3);
    keypad.SetQuiesce(false);
    Passes(10);
    EXPECT_TRUE(rec.Take().empty());  // queue flushed, every key up again
    adapter.Key(FP::KEY_ENTER, DOWN);
    Passes(1);
    EXPECT_EQ(rec.Take(), Keys{FP::KEY_ENTER});
}

// The first and last code of each range, and what lies outside them.
TEST(KeyNames, CodesAndStates) {
    std::string all;
    for (int key : {0, 7, 8, 17, 20, 21, 46, 47, 72, 73, -1})
        all += std::string(FP::KeyName(key)) + " ";
    EXPECT_EQ(all, "NONE BACKSPACE 0 9 SPACEBAR a z A Z ERROR ERROR ");
    EXPECT_EQ(std::string(FP::KeyStateName(0)) + FP::KeyStateName(3), "UnknownERROR");
}

}  // namespace
