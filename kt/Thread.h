#pragma once

#include <atomic>
#include <mutex>
#include <string>
#include <thread>

#include "kt/Functor.h"

namespace KT {

/// A named thread that calls its body again and again while the body returns
/// true. Cancel() asks it to stop, wakes it if it is blocked in a
/// CStreamSocket::Read or CThread::Sleep, and joins it.
/// Threads: Run and Cancel from any thread but the body's own (Cancel from the
/// body only marks it). Owns: the system thread; Borrows: the body's target.
class CThread {
public:
    /// The body: called while it returns true.
    using Body = CFunctor<bool()>;

    /// A thread named name (as the system shows it) that will run body; not started.
    CThread(const std::string& name, int priority, const Body& body);
    ~CThread();  // cancels and joins
    CThread(const CThread&) = delete;
    CThread& operator=(const CThread&) = delete;

    /// Starts the thread. False if it is already running or cannot be started.
    bool Run();
    /// Stops the thread and waits for it. Called from the thread itself it only
    /// marks the thread to stop once its body returns.
    void Cancel();

    /// True from Run() until the body has finished.
    bool IsRunning() const { return running_.load(); }
    /// True once Cancel() was called.
    bool IsCancelRequested() const { return cancel_.load(); }
    /// The name given at construction.
    const std::string& GetName() const { return name_; }
    /// The priority given at construction.
    int GetThreadPriority() const { return priority_; }

    /// The scheduling priority of the calling thread (0 under the normal policy).
    static int GetPriority();
    /// Sleeps ms milliseconds; on a CThread, returns early (false) when it is
    /// cancelled.
    static bool Sleep(unsigned int ms);
    /// The CThread that runs the caller, or null.
    static CThread* Current();
    /// A descriptor that becomes readable once Cancel() was called on the
    /// CThread running the caller; -1 off such a thread.
    static int CurrentCancelFd();

private:
    void Main();

    std::string name_;
    int priority_;
    Body body_;
    std::thread thread_;
    std::mutex startMutex_;
    std::atomic<bool> running_{false};
    std::atomic<bool> cancel_{false};
    int cancelFd_ = -1;
};

}  // namespace KT
