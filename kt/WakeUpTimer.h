#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

#include "kt/WakeCount.h"

namespace KT {

/// A timer that an application loop waits on: it wakes its waiters when its
/// period elapses or when someone calls Wake(). A period of 0 disarms it.
/// Threads: any; Wait usually on the application's loop thread.
class CWakeUpTimer {
public:
    /// A disarmed timer; priority is kept for callers that ask.
    explicit CWakeUpTimer(int priority = 0);
    CWakeUpTimer(const CWakeUpTimer&) = delete;
    CWakeUpTimer& operator=(const CWakeUpTimer&) = delete;

    /// Arms the timer with a period of periodMs (0 disarms).
    void Start(unsigned int periodMs);
    /// Disarms the timer.
    void Stop();
    /// Wakes every waiter now.
    void Wake();
    /// Blocks until the next period boundary or a Wake(), at most timeoutMs.
    /// True when woken (by the period or Wake()), false on timeout.
    bool Wait(unsigned int timeoutMs);
    /// The current period in milliseconds (0 when disarmed).
    unsigned int GetPeriod() const;
    /// The priority given at construction.
    int GetPriority() const { return priority_; }

private:
    using Clock = std::chrono::steady_clock;
    int priority_;
    mutable std::mutex mutex_;
    std::condition_variable cond_;
    unsigned int periodMs_ = 0;
    Clock::time_point next_;
    CWakeCount wakes_{mutex_, cond_};
};

}  // namespace KT
