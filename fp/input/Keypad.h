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

// Turns the panel's raw key messages into key presses: queues them from the
// link's read thread, tracks which keys are down on a watcher thread of its
// own, reports each new key-down once and auto-repeats a held key.
class Keypad {
public:
    using TickSource = KT::CFunctor<uint32_t()>;

    static const int kQueueLength = 6;
    static const unsigned int kWatchWaitMs = 80;
    static const uint32_t kHoldDelayMs = 500;

    explicit Keypad(FpControl& control);
    // As above, with a replacement for the millisecond clock.
    Keypad(FpControl& control, TickSource tickSource);
    ~Keypad();
    Keypad(const Keypad&) = delete;
    Keypad& operator=(const Keypad&) = delete;

    void StartThreads();
    void SetCallback(IKeyPress* listener);
    void SetQuiesce(bool quiesce);

    // Link side: called on the read thread for every key message.
    void EnqueueKeyPress(Key_e key, KeyState_e state);

    // Watcher side.
    void HandleKeyPress(KeyState_t event);
    bool KeypadWatcherRun();
    // One watcher pass, waiting at most waitMs for a queued message.
    void RunOnce(unsigned int waitMs);

    // Wall-clock milliseconds, truncated to 32 bits; compare by unsigned
    // subtraction so the wrap does no harm.
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
