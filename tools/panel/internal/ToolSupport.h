#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace FPPANEL {

// Milliseconds on the steady clock: the tools' loops time ticks and key
// repeats with it, and wall-clock jumps must not disturb them.
inline uint64_t NowMs() {
    return uint64_t(std::chrono::duration_cast<std::chrono::milliseconds>(
                        std::chrono::steady_clock::now().time_since_epoch())
                        .count());
}

// Gives the reason and reports failure, so that an operation that can fail in
// several ways says each in one statement.
inline bool Fail(std::string& error, const std::string& why) {
    error = why;
    return false;
}

}  // namespace FPPANEL
