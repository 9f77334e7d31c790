#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace KT {

// A timer that an application loop waits on: it wakes its waiters when its
// period elapses or when someone calls Wake(). A period of 0 disarms it.
class CWakeUpTimer {
public:
    explicit CWakeUpTimer(int priority = 0);
    CWakeUpTimer(const CWakeUpTimer&) = delete;
    CWakeUpTimer& operator=(const CWakeUpTimer&) = delete;

    void Start(unsigned int periodMs);
    void Stop();
    void Wake();
    // Blocks until the next period boundary or a Wake(), at most timeoutMs.
    // True when woken (by the period or Wake()), false on timeout.
    bool Wait(unsigned int timeoutMs);
    unsigned int GetPeriod() const;
    int GetPriority() const { return priority_; }

private:
    using Clock = std::chrono::steady_clock;
    int priority_;
    mutable std::mutex mutex_;
    std::condition_variable cond_;
    unsigned int periodMs_ = 0;
    Clock::time_point next_;
    unsigned long wakeCount_ = 0;
};

}  // namespace KT
