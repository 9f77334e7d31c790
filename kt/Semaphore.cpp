#include "kt/Semaphore.h"

#include <chrono>

namespace KT {

CSemaphore::CSemaphore(unsigned int initial) : count_(initial) {}

bool CSemaphore::Wait() {
    std::unique_lock<std::mutex> lock(mutex_);
    cond_.wait(lock, [this] { return count_ > 0; });
    --count_;
    return true;
}

bool CSemaphore::Wait(unsigned int timeoutMs) {
    std::unique_lock<std::mutex> lock(mutex_);
    if (!cond_.wait_for(lock, std::chrono::milliseconds(timeoutMs), [this] { return count_ > 0; }))
        return false;
    --count_;
    return true;
}

void CSemaphore::Signal() {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        ++count_;
    }
    cond_.notify_one();
}

unsigned int CSemaphore::GetCount() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return count_;
}

}  // namespace KT
