#include "fp/input/Keypad.h"

#include <sys/time.h>

#include <log4cpp/Category.hh>

#include <typeinfo>

#include "fp/link/FpControl.h"

namespace FP {

Keypad::Keypad(FpControl& control) : Keypad(control, TickSource(&Keypad::GetTickCount)) {}

Keypad::Keypad(FpControl& control, TickSource tickSource)
    : control_(control),
      log_(log4cpp::Category::getInstance("fp.keypad")),
      queue_(kQueueLength),
      thread_("TOV-KeyPad", KT::CThread::GetPriority(),
              KT::CThread::Body(this, &Keypad::KeypadWatcherRun)),
      tick_(tickSource) {
    SetAllKeysUp();
    control_.SetKeyPressHandler(
        FpControl::KeyDelegate(FpControl::KeyDelegate::Functor(this, &Keypad::EnqueueKeyPress)));
}

Keypad::~Keypad() {
    // Stop the producer first so nothing is queued into a dying object.
    control_.ClearKeyPressHandler();
    thread_.Cancel();
}

void Keypad::StartThreads() {
    log_.debug("%s::%s(%i) Starting thread", typeid(this).name(), "StartThreads", __LINE__);
    thread_.Run();
}

void Keypad::SetCallback(IKeyPress* listener) {
    listener_.store(listener);
}

void Keypad::SetQuiesce(bool quiesce) {
    quiesce_.store(quiesce);
    if (!quiesce)
        return;
    queue_.Flush();
    // A key held across a quiet period must be pressed again afterwards.
    KT::CMutexLock lock(stateMutex_);
    holdActive_ = false;
    holdKey_ = KEY_NONE;
    holdStart_ = 0;
    SetAllKeysUp();
}

void Keypad::EnqueueKeyPress(Key_e key, KeyState_e state) {
    if (quiesce_.load())
        return;
    // A full queue drops the message: a burst of stale keys is worth less
    // than a responsive panel.
    queue_.Put(KeyState_t{key, state});
}

void Keypad::HandleKeyPress(KeyState_t event) {
    const uint32_t now = tick_();
    bool report;
    {
        KT::CMutexLock lock(stateMutex_);
        report = UpdateKeyState(event, now);
    }

    log_.debug("%s() key: %s State: %s Tick: %u", "HandleKeyPress", KeyName(event.key),
               KeyStateName(event.state), now);

    IKeyPress* listener = listener_.load();
    if (report && listener)
        listener->OnKeyPress(event.key);
}

bool Keypad::UpdateKeyState(KeyState_t event, uint32_t now) {
    keyStates_[event.key] = event.state;

    if (keyStates_[holdKey_] == KEY_STATE_UP) {
        // The held key went up: the highest key still down takes over, and
        // an active repeat carries on with it.
        Key_e next = KEY_NONE;
        for (const auto& entry : keyStates_) {
            if (entry.second == KEY_STATE_DOWN)
                next = entry.first;
        }
        holdKey_ = next;
        holdStart_ = now;
        if (next == KEY_NONE)
            holdActive_ = false;
    }
    return event.state == KEY_STATE_DOWN && !holdActive_ && event.key != KEY_NONE;
}

bool Keypad::KeypadWatcherRun() {
    RunOnce(kWatchWaitMs);
    return true;
}

void Keypad::RunOnce(unsigned int waitMs) {
    KeyState_t event;
    if (queue_.Wait(waitMs) && queue_.TakeFront(event))
        HandleKeyPress(event);

    Key_e repeat;
    uint32_t now;
    {
        KT::CMutexLock lock(stateMutex_);
        if (keyStates_[holdKey_] != KEY_STATE_DOWN)
            return;
        now = tick_();
        if (!holdActive_) {
            if (static_cast<uint32_t>(now - holdStart_) > kHoldDelayMs) {
                holdStart_ = now;
                holdActive_ = true;
            }
            return;
        }
        repeat = holdKey_;
    }
    log_.debug("%s() Hold state active. time: %u button: %s", "KeypadWatcherRun", now,
               KeyName(repeat));
    IKeyPress* listener = listener_.load();
    if (listener)
        listener->OnKeyPress(repeat);
}

uint32_t Keypad::GetTickCount() {
    struct timeval tv;
    if (gettimeofday(&tv, nullptr) != 0)
        return 0;
    return static_cast<uint32_t>(static_cast<uint64_t>(tv.tv_sec) * 1000u +
                                 static_cast<uint64_t>(tv.tv_usec) / 1000u);
}

void Keypad::SetAllKeysUp() {
    for (int k = KEY_NONE; k <= KEY_LAST; ++k)
        keyStates_[static_cast<Key_e>(k)] = KEY_STATE_UP;
}

}  // namespace FP
