#pragma once

#include <mutex>
#include <string>

namespace KT {

// A named, non-recursive mutex.
class CMutex {
public:
    explicit CMutex(const std::string& name = "");
    CMutex(const CMutex&) = delete;
    CMutex& operator=(const CMutex&) = delete;

    void Lock();
    void Unlock();
    bool TryLock();
    const std::string& GetName() const { return name_; }

    // BasicLockable, for std::lock_guard and friends.
    void lock() { Lock(); }
    void unlock() { Unlock(); }

private:
    std::string name_;
    std::mutex mutex_;
};

// Holds a CMutex for the lifetime of a scope.
class CMutexLock {
public:
    explicit CMutexLock(CMutex& m) : mutex_(m) { mutex_.Lock(); }
    ~CMutexLock() { mutex_.Unlock(); }
    CMutexLock(const CMutexLock&) = delete;
    CMutexLock& operator=(const CMutexLock&) = delete;

private:
    CMutex& mutex_;
};

}  // namespace KT
