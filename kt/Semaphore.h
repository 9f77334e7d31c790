#pragma once

#include <condition_variable>
#include <mutex>

namespace KT {

/// A counting semaphore.
/// Threads: any.
class CSemaphore {
public:
    /// A semaphore whose count starts at initial.
    explicit CSemaphore(unsigned int initial = 0);
    CSemaphore(const CSemaphore&) = delete;
    CSemaphore& operator=(const CSemaphore&) = delete;

    /// Waits until the count is above zero and takes one; always true.
    bool Wait();
    /// As Wait, giving up after timeoutMs milliseconds: false on timeout.
    bool Wait(unsigned int timeoutMs);
    /// Adds one to the count, waking one waiter.
    void Signal();
    /// The current count.
    unsigned int GetCount() const;

private:
    mutable std::mutex mutex_;
    std::condition_variable cond_;
    unsigned int count_;
};

}  // namespace KT
