#pragma once

#include <atomic>
#include <cstdint>
#include <map>

#include "fp/core/KeyTypes.h"
#include "kt/Functor.h"
#include "kt/MsgQ.h"
#include "kt/Mutex.h"
#include "kt/Thread.h"

namespace log4cpp {
class Category;
}

namespace FP {

class FpControl;

/// Turns the panel's raw key messages into key presses: queues them from the
/// link's read thread, tracks which keys are down on a watcher thread of its
/// own, reports each new key-down once and auto-repeats a held key.
/// Threads: SetCallback and SetQuiesce from any thread; the listener runs on the
/// watcher thread ("TOV-KeyPad"). Owns: the watcher thread, cancelled by the
/// destructor. Borrows: the control (must outlive this object) and the listener.
class Keypad {
public:
    /// A millisecond clock.
    using TickSource = KT::CFunctor<uint32_t()>;

    /// Key messages held while the watcher is busy; more are dropped.
    static const int kQueueLength = 6;
    /// How long one watcher pass waits for a message.
    static const unsigned int kWatchWaitMs = 80;
    /// How long a key is held before it starts to repeat.
    static const uint32_t kHoldDelayMs = 500;

    /// Listens for keys on control, with the wall clock.
    explicit Keypad(FpControl& control);
    /// As above, with a replacement for the millisecond clock.
    Keypad(FpControl& control, TickSource tickSource);
    ~Keypad();
    Keypad(const Keypad&) = delete;
    Keypad& operator=(const Keypad&) = delete;

    /// Starts the watcher thread; without it, drive RunOnce() directly.
    void StartThreads();
    /// The listener told of key presses; null for none.
    void SetCallback(IKeyPress* listener);
    /// While quiet, key messages are dropped; going quiet also forgets keys held.
    void SetQuiesce(bool quiesce);

    /// Link side: called on the read thread for every key message.
    void EnqueueKeyPress(Key_e key, KeyState_e state);

    /// Watcher side.
    void HandleKeyPress(KeyState_t event);
    /// The watcher thread's body: one pass, then true to go on.
    bool KeypadWatcherRun();
    /// One watcher pass, waiting at most waitMs for a queued message.
    void RunOnce(unsigned int waitMs);

    /// Wall-clock milliseconds, truncated to 32 bits; compare by unsigned
    /// subtraction so the wrap does no harm.
    static uint32_t GetTickCount();

private:
    // Applies one event to the key table and hold state; true when it is a
    // press to report.
    bool UpdateKeyState(KeyState_t event, uint32_t now);
    void SetAllKeysUp();

    // The flag and the listener are written from the application's thread and
    // read on the link and watcher threads, hence atomic.
    std::atomic<bool> quiesce_{false};
    bool holdActive_ = false;
    Key_e holdKey_ = KEY_NONE;
    uint32_t holdStart_ = 0;
    FpControl& control_;
    std::atomic<IKeyPress*> listener_{nullptr};
    log4cpp::Category& log_;
    std::map<Key_e, KeyState_e> keyStates_;
    // Guards the key table and hold fields: SetQuiesce resets them from the
    // application's thread while the watcher may be using them. Never held
    // while the listener runs.
    KT::CMutex stateMutex_;
    KT::CMsgQ<KeyState_t> queue_;
    KT::CThread thread_;
    TickSource tick_;
};

}  // namespace FP
