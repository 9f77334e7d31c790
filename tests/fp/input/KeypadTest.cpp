#include <gtest/gtest.h>

#include <vector>

#include "fp/input/Keypad.h"
#include "fp/link/FpControl.h"
#include "testing/LogCapture.h"
#include "tests/fp/input/KeyListener.h"
#include "tests/fp/link/FakeAdapter.h"

namespace {

using fptest::Keys;
const unsigned char DOWN = 1, UP = 2;

class KeypadTest : public ::testing::Test {
protected:
    KeypadTest() { keypad.SetCallback(&rec); }
    // A key report as the link's read thread delivers it.
    void Key(unsigned char key, unsigned char state) {
        adapter.Deliver(FP::FpControl::OP_KEY, {key, state});
    }
    // Watcher passes without the thread, each after moving the clock by stepMs.
    void Passes(int n, uint32_t stepMs = 80) {
        for (int i = 0; i < n; ++i) {
            now += stepMs;
            keypad.RunOnce(0);
        }
    }
    uint32_t now = 0xFFFFFF00u;  // near the wrap, which must not matter
    fptest::FakeAdapter adapter;
    FP::FpControl control{adapter};
    FP::Keypad keypad{control, [this] { return now; }};
    fptest::KeyListener rec;
    FP::Testing::LogCapture log{"fp.keypad"};
};

TEST_F(KeypadTest, PressReportsOnceAndOddInputIsLogged) {
    Key(FP::KEY_ENTER, DOWN);
    Key(FP::KEY_ENTER, UP);
    Key(0, DOWN);  // "no key" is never reported as a press
    Key(0, UP);
    Key(73, DOWN);
    Key(200, 7);
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
    Key(FP::KEY_UP, DOWN);
    Passes(1);
    EXPECT_EQ(rec.Take(), Keys{FP::KEY_UP});
    Passes(1, 500);  // exactly 500 ms, across the wrap: not yet
    Passes(1, 1);    // past 500 ms: repeat armed, nothing reported yet
    EXPECT_TRUE(rec.Take().empty());
    Passes(18);  // the rest of a 2 s hold
    EXPECT_EQ(rec.Take(), Keys(18, FP::KEY_UP));
    EXPECT_EQ(log.Count("KeypadWatcherRun() Hold state active. time: 405 button: UP"), 1u);
    Key(FP::KEY_UP, UP);
    Passes(5);
    EXPECT_TRUE(rec.Take().empty());
}

TEST_F(KeypadTest, SecondKeyWhileFirstIsHeld) {
    Key(FP::KEY_UP, DOWN);
    Passes(1);
    Key(FP::KEY_DOWN, DOWN);  // first still pending: reported, no takeover
    Passes(8);
    EXPECT_EQ(rec.Take(), (Keys{FP::KEY_UP, FP::KEY_DOWN, FP::KEY_UP}));
    Key(FP::KEY_LEFT, DOWN);  // first repeating: swallowed
    Passes(1);
    EXPECT_EQ(rec.Take(), Keys{FP::KEY_UP});
    // Releasing the held key hands the repeat at once to the highest key down.
    Key(FP::KEY_UP, UP);
    Passes(1);
    Key(FP::KEY_DOWN, UP);
    Passes(1);
    Key(FP::KEY_LEFT, UP);
    Passes(10);
    EXPECT_EQ(rec.Take(), (Keys{FP::KEY_DOWN, FP::KEY_LEFT}));
}

TEST_F(KeypadTest, QueueOverflowAndQuiesce) {
    for (unsigned char k = 1; k <= 7; ++k)
        Key(k, DOWN);
    for (int i = 0; i < 7; ++i)
        keypad.RunOnce(0);  // clock still: no repeat
    EXPECT_EQ(rec.Take(), (Keys{1, 2, 3, 4, 5, 6}));

    Passes(10);  // key 6 repeating
    rec.Take();
    Key(FP::KEY_EXIT, DOWN);  // queued, must be flushed
    keypad.SetQuiesce(true);
    Key(FP::KEY_ENTER, DOWN);
    Passes(3);
    keypad.SetQuiesce(false);
    Passes(10);
    EXPECT_TRUE(rec.Take().empty());  // queue flushed, every key up again
    Key(FP::KEY_ENTER, DOWN);
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
