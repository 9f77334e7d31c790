#include "kt/WakeUpTimer.h"

namespace KT {

CWakeUpTimer::CWakeUpTimer(int priority) : priority_(priority) {}

void CWakeUpTimer::Start(unsigned int periodMs) {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        periodMs_ = periodMs;
        next_ = Clock::now() + std::chrono::milliseconds(periodMs);
    }
    cond_.notify_all();
}

void CWakeUpTimer::Stop() {
    Start(0);
}

void CWakeUpTimer::Wake() {
    wakes_.Wake();
}

bool CWakeUpTimer::Wait(unsigned int timeoutMs) {
    std::unique_lock<std::mutex> lock(mutex_);
    const auto deadline = Clock::now() + std::chrono::milliseconds(timeoutMs);
    const unsigned long seen = wakes_.Seen();
    for (;;) {
        if (wakes_.WokenSince(seen))
            return true;
        auto now = Clock::now();
        if (periodMs_ > 0 && now >= next_) {
            // Skip boundaries missed while nobody waited.
            while (next_ <= now)
                next_ += std::chrono::milliseconds(periodMs_);
            return true;
        }
        if (now >= deadline)
            return false;
        auto until = deadline;
        if (periodMs_ > 0 && next_ < until)
            until = next_;
        cond_.wait_until(lock, until);
    }
}

unsigned int CWakeUpTimer::GetPeriod() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return periodMs_;
}

}  // namespace KT
