#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

#include "tests/support/PanelHarness.h"

namespace {

using Keys = std::vector<FP::Key_e>;
using std::chrono::milliseconds;

// Collects reported keys; the keypad calls it on its watcher thread.
struct Listener : FP::IKeyPress {
    void OnKeyPress(FP::Key_e key) override {
        std::lock_guard<std::mutex> lock(mutex);
        keys.push_back(key);
        cond.notify_all();
    }
    // Waits (up to a wide limit) until the last key reported is last; all keys so far.
    Keys WaitFor(FP::Key_e last) {
        std::unique_lock<std::mutex> lock(mutex);
        cond.wait_for(lock, std::chrono::seconds(5),
                      [&] { return !keys.empty() && keys.back() == last; });
        return keys;
    }
    std::mutex mutex;
    std::condition_variable cond;
    Keys keys;
};

TEST(KeypadOnPanel, PressesReportOnceInOrderAndAHeldKeyRepeats) {
    fptest::PanelHarness h;
    Listener listener;
    h.Keypad().SetCallback(&listener);
    h.StartKeypad();
    // One at a time, so the keypad's short queue never overflows.
    const Keys keys{FP::KEY_UP, FP::KEY_DOWN, FP::KEY_5, FP::KEY_a, FP::KEY_ENTER};
    for (FP::Key_e key : keys) {
        ASSERT_TRUE(h.Sim().Press(static_cast<uint8_t>(key)));
        listener.WaitFor(key);
    }
    ASSERT_EQ(listener.WaitFor(FP::KEY_ENTER), keys);

    // Repeats start after half a second, one per watcher pass: 1.5 s leaves
    // room for several even on a loaded machine.
    ASSERT_TRUE(h.Sim().KeyDown(FP::KEY_LEFT));
    std::this_thread::sleep_for(milliseconds(1500));
    ASSERT_TRUE(h.Sim().KeyUp(FP::KEY_LEFT));
    ASSERT_TRUE(h.Sim().Press(FP::KEY_EXIT));
    const size_t got = listener.WaitFor(FP::KEY_EXIT).size();
    ASSERT_GE(got, keys.size() + 4);
    Keys want(keys);
    want.resize(got - 1, FP::KEY_LEFT);
    want.push_back(FP::KEY_EXIT);
    std::this_thread::sleep_for(milliseconds(300));  // released: no more repeats
    EXPECT_EQ(listener.WaitFor(FP::KEY_EXIT), want);
}

TEST(KeypadOnPanel, DestroyingAKeypadWhileKeysFlowIsClean) {
    fptest::PanelHarness h;
    Listener listener;
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
