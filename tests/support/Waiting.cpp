#include "tests/support/Waiting.h"

#include <chrono>
#include <thread>

namespace fptest {

bool WaitFor(const std::function<bool()>& done, int seconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    while (!done()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

}  // namespace fptest
