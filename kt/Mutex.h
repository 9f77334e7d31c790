#pragma once

#include <mutex>
#include <string>

namespace KT {

/// A named, non-recursive mutex.
/// Threads: any.
class CMutex {
public:
    /// A mutex with a name for diagnostics.
    explicit CMutex(const std::string& name = "");
    CMutex(const CMutex&) = delete;
    CMutex& operator=(const CMutex&) = delete;

    /// Waits for and takes the mutex.
    void Lock();
    /// Releases the mutex; only its holder may call this.
    void Unlock();
    /// Takes the mutex if it is free; false otherwise.
    bool TryLock();
    /// The name given at construction.
    const std::string& GetName() const { return name_; }

    /// BasicLockable, for std::lock_guard and friends.
    void lock() { Lock(); }
    /// Same as Unlock().
    void unlock() { Unlock(); }

private:
    std::string name_;
    std::mutex mutex_;
};

/// Holds a CMutex for the lifetime of a scope.
/// Threads: the thread that created it. Borrows: the mutex.
class CMutexLock {
public:
    /// Takes m; the destructor releases it.
    explicit CMutexLock(CMutex& m) : mutex_(m) { mutex_.Lock(); }
    ~CMutexLock() { mutex_.Unlock(); }
    CMutexLock(const CMutexLock&) = delete;
    CMutexLock& operator=(const CMutexLock&) = delete;

private:
    CMutex& mutex_;
};

}  // namespace KT
