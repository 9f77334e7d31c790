#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>
#include <vector>

#include "fp/input/Keypad.h"

namespace fptest {

using Keys = std::vector<int>;

// Collects the keys a keypad reports, from whichever thread reports them. Once
// closed, any further report is a fault and only counted in lateCalls.
struct KeyListener : FP::IKeyPress {
    void OnKeyPress(FP::Key_e key) override {
        std::lock_guard<std::mutex> lock(mutex);
        keys.push_back(key);
        lateCalls += closed ? 1 : 0;
        cond.notify_all();
    }
    // Waits, up to a wide limit, until `last` is the latest key; all keys so far.
    Keys WaitFor(int last) {
        std::unique_lock<std::mutex> lock(mutex);
        cond.wait_for(lock, std::chrono::seconds(5),
                      [&] { return !keys.empty() && keys.back() == last; });
        return keys;
    }
    // The keys so far, which are then forgotten.
    Keys Take() {
        std::lock_guard<std::mutex> lock(mutex);
        return std::move(keys);
    }
    void Close() {
        std::lock_guard<std::mutex> lock(mutex);
        closed = true;
    }
    std::mutex mutex;
    std::condition_variable cond;
    Keys keys;
    unsigned lateCalls = 0;
    bool closed = false;
};

}  // namespace fptest
