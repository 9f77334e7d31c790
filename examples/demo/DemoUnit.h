#pragma once

#include <functional>
#include <mutex>
#include <string>

#include "fp/core/KeyTypes.h"
#include "tov/ManagedEventSink.h"
#include "unit/Unit.h"

namespace FPDEMO {

// The demo's screens and what the demo keeps in its engine (temperature,
// fans, panel version), on the unit runtime, which does the link, the UI
// thread and the redraws.
class DemoUnit : public TOV::IManagedEventSink {
public:
    // Told about link changes, on the UI thread.
    using Notice = std::function<void(const std::string& line)>;

    // options: where the panel is and the display size.
    DemoUnit(TOV::CDataStore& store, const FP::Unit::Options& options);
    ~DemoUnit() override;
    DemoUnit(const DemoUnit&) = delete;
    DemoUnit& operator=(const DemoUnit&) = delete;

    void SetNotice(const Notice& notice) { notice_ = notice; }
    // False when the address can never work; the reason went to the notice.
    bool Start();
    void Stop() { unit_.Stop(); }

    // A key from elsewhere than the panel (a script against an external panel).
    void InjectKey(FP::Key_e key) { unit_.PressKey(key); }
    unsigned KeysReported() const { return unit_.KeysReported(); }
    // Waits until the UI thread has handled everything queued before, and the
    // panel has applied the frames that produced. False on timeout.
    bool Sync(unsigned timeoutMs) { return unit_.WaitIdle(timeoutMs); }
    std::string CurrentScreen() const { return unit_.CurrentScreen(); }
    bool LinkUp() const { return unit_.LinkUp(); }
    unsigned Reconnects() const { return unit_.Reconnects(); }
    // Why the link is down, or empty.
    std::string LinkReason() const;
    FP::Unit& Unit() { return unit_; }

    // Brightness changes, delivered on the UI thread.
    void HandleEvent(const std::string& name, const TOV::COid& oid, const std::string& user,
                     const std::string& value, const TOV::CParam& param) override;

private:
    void OnLink(const FP::Unit::LinkEvent_t& event);
    void SetUpPanel(FP::FpControl& control);
    void Write(const char* name, const std::string& value);

    TOV::CDataStore& store_;
    FP::Unit unit_;
    Notice notice_;
    mutable std::mutex mutex_;
    std::string reason_;  // guarded by mutex_
};

}  // namespace FPDEMO
