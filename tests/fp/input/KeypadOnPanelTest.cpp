#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

#include "tests/support/PanelHarness.h"

namespace {

using fptest::PanelHarness;
using Keys = std::vector<FP::Key_e>;

// Collects reported keys; the keypad calls it on its watcher thread.
class Listener : public FP::IKeyPress {
public:
    void OnKeyPress(FP::Key_e key) override {
        std::lock_guard<std::mutex> lock(mutex_);
        keys_.push_back(key);
        cond_.notify_all();
    }
    // Waits (up to a wide limit) until done(keys) holds; the keys so far either way.
    template <class Done>
    Keys WaitUntil(Done done) {
        std::unique_lock<std::mutex> lock(mutex_);
        cond_.wait_for(lock, std::chrono::seconds(5), [&] { return done(keys_); });
        return keys_;
    }
    Keys WaitFor(size_t n) {
        return WaitUntil([n](const Keys& k) { return k.size() >= n; });
    }
    Keys Get() { return WaitFor(0); }

private:
    std::mutex mutex_;
    std::condition_variable cond_;
    Keys keys_;
};

TEST(KeypadOnPanel, EachPressIsReportedOnceInOrder) {
    PanelHarness h;
    Listener listener;
    h.Keypad().SetCallback(&listener);
    h.StartKeypad();
    // One at a time, so the keypad's short queue never overflows.
    const Keys keys{FP::KEY_UP, FP::KEY_DOWN, FP::KEY_5, FP::KEY_a, FP::KEY_ENTER};
    for (size_t i = 0; i < keys.size(); ++i) {
        ASSERT_TRUE(h.Sim().Press(static_cast<uint8_t>(keys[i])));
        ASSERT_EQ(listener.WaitFor(i + 1).size(), i + 1);
    }
    EXPECT_EQ(listener.Get(), keys);
}

TEST(KeypadOnPanel, HoldingAKeyRepeatsUntilReleased) {
    PanelHarness h;
    Listener listener;
    h.Keypad().SetCallback(&listener);
    h.StartKeypad();
    ASSERT_TRUE(h.Sim().KeyDown(FP::KEY_UP));
    // Repeats start after half a second and come every watcher pass; 1.5 s
    // leaves room for several even on a loaded machine.
    std::this_thread::sleep_for(std::chrono::milliseconds(1500));
    ASSERT_TRUE(h.Sim().KeyUp(FP::KEY_UP));
    ASSERT_TRUE(h.Sim().Press(FP::KEY_ENTER));
    Keys got =
        listener.WaitUntil([](const Keys& k) { return !k.empty() && k.back() == FP::KEY_ENTER; });
    ASSERT_GE(got.size(), 4u);
    EXPECT_EQ(got.back(), FP::KEY_ENTER);
    got.pop_back();
    EXPECT_EQ(got, Keys(got.size(), FP::KEY_UP));
    // Released: nothing more comes.
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_EQ(listener.Get().size(), got.size() + 1);
}

TEST(KeypadOnPanel, DestroyingAKeypadWhileKeysFlowIsClean) {
    PanelHarness h;
    Listener listener;
    std::atomic<bool> stop{false};
    std::thread panel;
    {
        // Listeners are installed before keys flow; only removal races them.
        FP::Keypad keypad(h.Control());
        keypad.SetCallback(&listener);
        keypad.StartThreads();
        panel = std::thread([&] {
            while (!stop.load() && h.Sim().Press(FP::KEY_RIGHT))
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
        });
        EXPECT_GE(listener.WaitFor(3).size(), 3u);
    }
    const size_t reported = listener.Get().size();
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    stop.store(true);
    panel.join();
    EXPECT_EQ(listener.Get().size(), reported);
}

}  // namespace
