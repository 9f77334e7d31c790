#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

#include "kt/WakeCount.h"
#include "tov/ManagedEventSink.h"

namespace TOV {

/// A queue of change events and the calls into their sinks, either on a
/// thread of its own ("TOV-Delivery", started on the first event) or on
/// whichever thread calls DeliverPending. Forget guarantees that a sink is
/// not called again for a variable once it returns.
/// Threads: every operation from any thread; sinks are called without a
/// lock of the dispatcher held. Owns: its thread and copies of the events.
/// Borrows: the sinks, which must stay alive until forgotten.
class CEventDispatcher {
public:
    /// One change to deliver: the sink to call and the arguments of its
    /// HandleEvent.
    struct Event_t {
        IManagedEventSink* sink = nullptr;  ///< borrowed; called with the rest
        std::string name;                   ///< variable that changed
        COid oid;                           ///< its instance
        std::string user;                   ///< who made the change
        std::string value;                  ///< the new value as text
        CParam param;                       ///< old and new values as a tree
    };

    /// ownThread true delivers on the dispatcher's own thread; false leaves
    /// delivery to whoever calls DeliverPending.
    explicit CEventDispatcher(bool ownThread);
    /// Stops the thread; pending events are dropped.
    ~CEventDispatcher();
    CEventDispatcher(const CEventDispatcher&) = delete;
    CEventDispatcher& operator=(const CEventDispatcher&) = delete;

    /// Queues a copy of event (starting the own thread on first use).
    void Post(const Event_t& event);
    /// Drops pending events of sink for name/instance and waits for a call of
    /// it in progress, unless that call is on the calling thread.
    void Forget(IManagedEventSink* sink, const std::string& name, const std::string& instance);
    /// Calls the pending sinks on the calling thread; answers how many.
    size_t DeliverPending();
    /// Waits up to ms for an event to be pending; true if one is.
    bool WaitPending(unsigned int ms);
    /// Makes every WaitPending in progress return now, as if it timed out.
    void WakeWaiters();
    /// Waits up to ms until nothing is pending or being delivered; true if so.
    bool WaitIdle(unsigned int ms);

private:
    bool DeliverOne(std::unique_lock<std::mutex>& lock);
    void Run();

    const bool ownThread_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Event_t> pending_;
    bool stopping_ = false;
    KT::CWakeCount wakes_{mutex_, changed_};  // bumped by WakeWaiters
    std::thread thread_;
    // The call in progress, if any, and the thread making it.
    IManagedEventSink* busySink_ = nullptr;
    std::string busyName_, busyInstance_;
    std::thread::id busyThread_;
};

}  // namespace TOV
