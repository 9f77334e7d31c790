#include "tov/EventDispatcher.h"

#include <pthread.h>
#include <chrono>

namespace TOV {

CEventDispatcher::CEventDispatcher(bool ownThread) : ownThread_(ownThread) {}

CEventDispatcher::~CEventDispatcher() {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        stopping_ = true;
        pending_.clear();
    }
    changed_.notify_all();
    if (thread_.joinable())
        thread_.join();
}

void CEventDispatcher::Post(const Event_t& event) {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        if (stopping_)
            return;
        pending_.push_back(event);
        // No thread until there is something to deliver: a store nobody
        // listens to stays single-threaded (and safe to use after fork).
        if (ownThread_ && !thread_.joinable())
            thread_ = std::thread(&CEventDispatcher::Run, this);
    }
    changed_.notify_all();
}

void CEventDispatcher::Forget(IManagedEventSink* sink, const std::string& name,
                              const std::string& instance) {
    std::unique_lock<std::mutex> lock(mutex_);
    for (auto it = pending_.begin(); it != pending_.end();) {
        if (it->sink == sink && it->name == name && it->oid.Instance() == instance)
            it = pending_.erase(it);
        else
            ++it;
    }
    // A sink removing itself from inside its own call must not wait for it.
    changed_.wait(lock, [&] {
        return busySink_ != sink || busyName_ != name || busyInstance_ != instance ||
               busyThread_ == std::this_thread::get_id();
    });
    changed_.notify_all();
}

bool CEventDispatcher::DeliverOne(std::unique_lock<std::mutex>& lock) {
    if (pending_.empty())
        return false;
    Event_t ev = std::move(pending_.front());
    pending_.pop_front();
    busySink_ = ev.sink;
    busyName_ = ev.name;
    busyInstance_ = ev.oid.Instance();
    busyThread_ = std::this_thread::get_id();
    lock.unlock();
    ev.sink->HandleEvent(ev.name, ev.oid, ev.user, ev.value, ev.param);
    lock.lock();
    busySink_ = nullptr;
    busyThread_ = std::thread::id();
    changed_.notify_all();
    return true;
}

size_t CEventDispatcher::DeliverPending() {
    std::unique_lock<std::mutex> lock(mutex_);
    size_t n = 0;
    while (!stopping_ && DeliverOne(lock))
        ++n;
    return n;
}

bool CEventDispatcher::WaitPending(unsigned int ms) {
    std::unique_lock<std::mutex> lock(mutex_);
    const unsigned long seen = wakes_.Seen();
    return changed_.wait_for(lock, std::chrono::milliseconds(ms), [&] {
        return !pending_.empty() || stopping_ || wakes_.WokenSince(seen);
    }) && !pending_.empty();
}

void CEventDispatcher::WakeWaiters() {
    wakes_.Wake();
}

bool CEventDispatcher::WaitIdle(unsigned int ms) {
    std::unique_lock<std::mutex> lock(mutex_);
    return changed_.wait_for(lock, std::chrono::milliseconds(ms),
                             [&] { return pending_.empty() && busySink_ == nullptr; });
}

void CEventDispatcher::Run() {
    pthread_setname_np(pthread_self(), "TOV-Delivery");
    std::unique_lock<std::mutex> lock(mutex_);
    while (!stopping_) {
        if (!DeliverOne(lock))
            changed_.wait(lock, [&] { return stopping_ || !pending_.empty(); });
    }
}

}  // namespace TOV
