#pragma once

#include <deque>
#include <string>

#include "kt/Mutex.h"
#include "kt/Semaphore.h"

namespace KT {

/// A bounded message queue: a mutex named "CMsgQ", a counting semaphore and a
/// deque. A maximum of 0 or less means unbounded.
/// Threads: any; typically producers on one thread, one consumer on another.
template <class T>
class CMsgQ {
public:
    /// A queue holding at most maxLength messages.
    explicit CMsgQ(int maxLength = 0) : mutex_("CMsgQ"), sem_(0), max_(maxLength) {}
    CMsgQ(const CMsgQ&) = delete;
    CMsgQ& operator=(const CMsgQ&) = delete;

    /// Appends at the back and signals once; a full queue drops the message and
    /// returns false without signalling.
    bool Put(const T& msg) {
        {
            CMutexLock lock(mutex_);
            if (max_ > 0 && static_cast<int>(queue_.size()) >= max_)
                return false;
            queue_.push_back(msg);
        }
        sem_.Signal();
        return true;
    }

    /// Waits up to timeoutMs for a signal. Returns true when the wait was
    /// signalled (`signalled`), and fills out with the front message if there
    /// was one left to take (the return value of TakeFront).
    bool Wait(unsigned int timeoutMs) { return sem_.Wait(timeoutMs); }
    /// Takes the front message into out without waiting; false when the queue is empty.
    bool TakeFront(T& out) {
        CMutexLock lock(mutex_);
        if (queue_.empty())
            return false;
        out = queue_.front();
        queue_.pop_front();
        return true;
    }
    /// Wait and TakeFront in one call: true when a message was taken.
    bool Get(T& out, unsigned int timeoutMs) { return Wait(timeoutMs) && TakeFront(out); }

    /// Discards every queued message. The semaphore keeps its count, so waiters
    /// may wake and find the queue empty.
    void Flush() {
        CMutexLock lock(mutex_);
        queue_.clear();
    }
    /// Number of queued messages.
    size_t Size() const {
        CMutexLock lock(mutex_);
        return queue_.size();
    }
    /// The bound given at construction.
    int MaxLength() const { return max_; }
    /// The name of the queue's lock, for diagnostics.
    const std::string& GetMutexName() const { return mutex_.GetName(); }

private:
    mutable CMutex mutex_;
    CSemaphore sem_;
    int max_;
    std::deque<T> queue_;
};

}  // namespace KT
