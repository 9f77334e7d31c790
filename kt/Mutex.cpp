#include "kt/Mutex.h"

namespace KT {

CMutex::CMutex(const std::string& name) : name_(name) {}

void CMutex::Lock() {
    mutex_.lock();
}
void CMutex::Unlock() {
    mutex_.unlock();
}
bool CMutex::TryLock() {
    return mutex_.try_lock();
}

}  // namespace KT
