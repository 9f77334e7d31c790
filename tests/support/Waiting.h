#pragma once

#include <chrono>
#include <functional>
#include <thread>

namespace fptest {

// Polls done() every few milliseconds until it holds; false once `seconds`
// have passed. The default is wide on purpose: sanitizer builds on a shared
// machine run many times slower than a plain one.
inline bool WaitFor(const std::function<bool()>& done, int seconds = 20) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    while (!done()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

}  // namespace fptest
