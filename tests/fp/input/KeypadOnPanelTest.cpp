#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <typeinfo>
#include <vector>

#include "testing/LogCapture.h"
#include "tests/fp/input/KeyListener.h"
#include "tests/support/PanelHarness.h"

namespace {

using fptest::Keys;
using std::chrono::milliseconds;

// Hold repeats are timed on an injected clock in the keypad's own tests; here
// the real watcher thread takes presses off the real link.
TEST(KeypadOnPanel, PressesReportOnceInOrder) {
    FP::Testing::LogCapture log("fp.keypad");
    fptest::PanelHarness h;
    fptest::KeyListener listener;
    h.Keypad().SetCallback(&listener);
    h.StartKeypad();
    EXPECT_EQ(log.Count(std::string(typeid(FP::Keypad*).name()) + "::StartThreads(", true), 1u);
    // One at a time, so the keypad's short queue never overflows.
    const Keys keys{FP::KEY_UP, FP::KEY_DOWN, FP::KEY_5, FP::KEY_a, FP::KEY_ENTER};
    for (int key : keys) {
        ASSERT_TRUE(h.Sim().Press(static_cast<uint8_t>(key)));
        listener.WaitFor(key);
    }
    EXPECT_EQ(listener.WaitFor(FP::KEY_ENTER), keys);
}

TEST(KeypadOnPanel, DestroyingAKeypadWhileKeysFlowIsClean) {
    fptest::PanelHarness h;
    fptest::KeyListener listener;
    std::atomic<bool> stop{false};
    std::thread panel;
    {
        // Listeners are installed before keys flow; only their removal races.
        FP::Keypad keypad(h.Control());
        keypad.SetCallback(&listener);
        keypad.StartThreads();
        panel = std::thread([&] {
            while (!stop.load() && h.Sim().Press(FP::KEY_RIGHT))
                std::this_thread::sleep_for(milliseconds(1));
        });
        EXPECT_FALSE(listener.WaitFor(FP::KEY_RIGHT).empty());
    }
    const size_t reported = listener.WaitFor(FP::KEY_RIGHT).size();
    std::this_thread::sleep_for(milliseconds(50));
    stop.store(true);
    panel.join();
    EXPECT_EQ(listener.WaitFor(FP::KEY_RIGHT).size(), reported);
}

}  // namespace
