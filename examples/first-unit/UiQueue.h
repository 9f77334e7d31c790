#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

#include "fp/input/KeyTypes.h"
#include "tov/TovClient.h"

namespace FirstUnit {

/// One piece of work for the UI thread.
struct UiEvent_t {
    enum Kind_e { KEY, ENGINE, PANEL_RESTART } kind;
    FP::Key_e key = FP::KEY_NONE;  ///< for KEY
};

/// The queue the UI thread takes all its work from, so that the screens are
/// only ever touched by that one thread. The keypad posts key presses, the
/// link a controller restart, and a small watcher thread of the queue's own
/// posts ENGINE when the engine holds events for the screens.
/// Threads: OnKeyPress and OnPanelRestart from any thread; Take and
/// DeliverEngineEvents from the UI thread only.
/// Borrows: the engine client, which must be in queued delivery mode and
/// outlive the queue. Owns: the watcher thread.
class UiQueue : public FP::IKeyPress {
public:
    /// Starts the watcher thread.
    explicit UiQueue(TOV::CTovClient& engine);
    /// Stops and joins the watcher thread.
    ~UiQueue() override;
    UiQueue(const UiQueue&) = delete;
    UiQueue& operator=(const UiQueue&) = delete;

    /// Keypad listener: queues the key, nothing more.
    void OnKeyPress(FP::Key_e key) override;
    /// Controller (re)start listener: queues a full redraw.
    void OnPanelRestart();
    /// Waits until an event is queued or until passes; false on timeout.
    bool Take(UiEvent_t& event, std::chrono::steady_clock::time_point until);
    /// Runs the engine's queued events (screens redraw) on the calling thread.
    void DeliverEngineEvents();

private:
    void Post(const UiEvent_t& event);
    void WatchEngine();

    TOV::CTovClient& engine_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<UiEvent_t> queue_;  // guarded by mutex_
    bool engineQueued_ = false;    // guarded by mutex_: an ENGINE not yet delivered
    bool stopping_ = false;        // guarded by mutex_
    std::thread watcher_;
};

}  // namespace FirstUnit
