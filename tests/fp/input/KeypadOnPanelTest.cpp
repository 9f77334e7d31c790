#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <typeinfo>
#include <vector>

#include "tests/support/LogCapture.h"
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

// Hold repeats are timed on an injected clock in the keypad's own tests; here
// the real watcher thread takes presses off the real link.
TEST(KeypadOnPanel, PressesReportOnceInOrder) {
    fptest::LogCapture log("fp.keypad");
    fptest::PanelHarness h;
    Listener listener;
    h.Keypad().SetCallback(&listener);
    h.StartKeypad();
    EXPECT_EQ(log.Count(std::string(typeid(FP::Keypad*).name()) + "::StartThreads(", true), 1u);
    // One at a time, so the keypad's short queue never overflows.
    const Keys keys{FP::KEY_UP, FP::KEY_DOWN, FP::KEY_5, FP::KEY_a, FP::KEY_ENTER};
    for (FP::Key_e key : keys) {
        ASSERT_TRUE(h.Sim().Press(static_cast<uint8_t>(key)));
        listener.WaitFor(key);
    }
    EXPECT_EQ(listener.WaitFor(FP::KEY_ENTER), keys);
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
