#include "kt/WakeCount.h"

namespace KT {

void CWakeCount::Wake() {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        ++count_;
    }
    // Outside the lock, so the woken do not go straight back to sleep on it.
    cond_.notify_all();
}

}  // namespace KT
