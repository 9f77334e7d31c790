#pragma once

#include <condition_variable>
#include <mutex>

namespace KT {

/// The "return now" signal of a class whose waiters sleep on its own mutex
/// and condition variable: Wake() counts a wake-up and notifies them all; a
/// waiter that noted Seen() before sleeping finds WokenSince() true after.
/// Threads: Wake() from any thread without the mutex held; Seen() and
/// WokenSince() with it held.
/// Borrows: the mutex and the condition variable (they must outlive it).
class CWakeCount {
public:
    /// Signals through cond, guarded by mutex.
    CWakeCount(std::mutex& mutex, std::condition_variable& cond) : mutex_(mutex), cond_(cond) {}
    CWakeCount(const CWakeCount&) = delete;
    CWakeCount& operator=(const CWakeCount&) = delete;

    /// Makes every wait in progress see a wake-up.
    void Wake();
    /// The count to compare against later.
    unsigned long Seen() const { return count_; }
    /// True once Wake() was called after Seen() answered seen.
    bool WokenSince(unsigned long seen) const { return count_ != seen; }

private:
    std::mutex& mutex_;
    std::condition_variable& cond_;
    unsigned long count_ = 0;  // guarded by mutex_
};

}  // namespace KT
