#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

#include "tov/ManagedEventSink.h"

namespace TOV {

// A queue of change events and the calls into their sinks, either on a thread
// of its own ("TOV-Delivery", started on the first event) or on whichever
// thread calls DeliverPending. Forget guarantees that a sink is not called
// again for a variable once it returns.
class CEventDispatcher {
public:
    struct Event_t {
        IManagedEventSink* sink = nullptr;
        std::string name;
        COid oid;
        std::string user;
        std::string value;
        CParam param;
    };

    explicit CEventDispatcher(bool ownThread);
    ~CEventDispatcher();  // stops the thread; pending events are dropped
    CEventDispatcher(const CEventDispatcher&) = delete;
    CEventDispatcher& operator=(const CEventDispatcher&) = delete;

    void Post(const Event_t& event);
    // Drops pending events of sink for name/instance and waits for a call of
    // it in progress, unless that call is on the calling thread.
    void Forget(IManagedEventSink* sink, const std::string& name, const std::string& instance);
    // Calls the pending sinks on the calling thread; answers how many.
    size_t DeliverPending();
    // Waits up to ms for an event to be pending.
    bool WaitPending(unsigned int ms);
    // Waits up to ms until nothing is pending or being delivered.
    bool WaitIdle(unsigned int ms);

private:
    bool DeliverOne(std::unique_lock<std::mutex>& lock);
    void Run();

    const bool ownThread_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Event_t> pending_;
    bool stopping_ = false;
    std::thread thread_;
    // The call in progress, if any, and the thread making it.
    IManagedEventSink* busySink_ = nullptr;
    std::string busyName_, busyInstance_;
    std::thread::id busyThread_;
};

}  // namespace TOV
