#include "UiQueue.h"

namespace FirstUnit {

namespace {
// Bounds how long the destructor waits for the watcher.
const unsigned kEngineWaitMs = 200;
}  // namespace

UiQueue::UiQueue(TOV::CTovClient& engine) : engine_(engine) {
    watcher_ = std::thread(&UiQueue::WatchEngine, this);
}

UiQueue::~UiQueue() {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        stopping_ = true;
    }
    changed_.notify_all();
    watcher_.join();
}

void UiQueue::OnKeyPress(FP::Key_e key) {
    Post(UiEvent_t{UiEvent_t::KEY, key});
}

void UiQueue::OnPanelRestart() {
    Post(UiEvent_t{UiEvent_t::PANEL_RESTART});
}

void UiQueue::Post(const UiEvent_t& event) {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        queue_.push_back(event);
    }
    changed_.notify_all();
}

bool UiQueue::Take(UiEvent_t& event, std::chrono::steady_clock::time_point until) {
    std::unique_lock<std::mutex> lock(mutex_);
    if (!changed_.wait_until(lock, until, [&] { return !queue_.empty(); }))
        return false;
    event = queue_.front();
    queue_.pop_front();
    return true;
}

void UiQueue::DeliverEngineEvents() {
    engine_.DeliverEvents();
    {
        std::lock_guard<std::mutex> lock(mutex_);
        engineQueued_ = false;
    }
    changed_.notify_all();
}

void UiQueue::WatchEngine() {
    std::unique_lock<std::mutex> lock(mutex_);
    while (!stopping_) {
        // The engine keeps reporting pending events until the UI thread has
        // delivered them: one ENGINE in the queue at a time is enough.
        if (engineQueued_) {
            changed_.wait(lock);
            continue;
        }
        lock.unlock();
        const bool pending = engine_.WaitEvents(kEngineWaitMs);
        lock.lock();
        if (pending && !stopping_) {
            queue_.push_back(UiEvent_t{UiEvent_t::ENGINE});
            engineQueued_ = true;
            changed_.notify_all();
        }
    }
}

}  // namespace FirstUnit
