#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "examples/demo/PanelDisplay.h"
#include "examples/demo/PanelLink.h"
#include "fp/client/FpClient.h"
#include "fp/core/KeyTypes.h"
#include "fp/screens/BaseScreen.h"
#include "kt/StreamSocket.h"
#include "tov/ManagedEventSink.h"
#include "tov/TovClient.h"

namespace FPDEMO {

// The unit: its screens over the data engine, driven from one UI thread.
//
// Key presses (keypad thread), engine events (a pump thread that only
// notices them), panel reports and start-up (link read thread) are all put
// on one queue; the UI thread alone touches the screens, the display and the
// engine client's event sinks. Between events it redraws the current screen
// at the screen's poll period and watches the link; a dropped link is rebuilt
// from the connector every second or so. A write the engine refuses is
// shown on the panel for a moment, then the screen comes back.
class DemoUnit : public FP::IKeyPress, public TOV::IManagedEventSink {
public:
    // Opens a fresh connection to the panel, or answers null.
    using Connector = std::function<std::unique_ptr<KT::CStreamSocket>()>;
    // Told about link changes, on the UI thread.
    using Notice = std::function<void(const std::string& line)>;

    DemoUnit(TOV::CDataStore& store, unsigned width, unsigned height);
    ~DemoUnit() override;
    DemoUnit(const DemoUnit&) = delete;
    DemoUnit& operator=(const DemoUnit&) = delete;

    void SetNotice(const Notice& notice) { notice_ = notice; }
    // Connects once (false if that fails and retry is off) and starts the
    // UI and pump threads. With retry, a failed or lost link is retried.
    bool Start(const Connector& connector, bool retry);
    void Stop();

    // Keypad listener: only queues.
    void OnKeyPress(FP::Key_e key) override;
    // A key from elsewhere than the panel (a script against an external panel).
    void InjectKey(FP::Key_e key) { OnKeyPress(key); }
    // Key presses the keypad has reported so far.
    unsigned KeysReported() const { return keysReported_.load(); }
    // Waits until the UI thread has handled everything queued before, and the
    // panel has applied the frames that produced. False on timeout.
    bool Sync(unsigned timeoutMs);
    std::string CurrentScreen() const;
    bool LinkUp() const { return linkUp_.load(); }
    unsigned Reconnects() const { return reconnects_.load(); }

    // Brightness changes, delivered on the UI thread.
    void HandleEvent(const std::string& name, const TOV::COid& oid, const std::string& user,
                     const std::string& value, const TOV::CParam& param) override;

private:
    struct Event_t {
        enum Kind_e { KEY, ENGINE, PANEL_INIT, TEMPERATURE, FAN, SYNC, QUIT } kind;
        int a = 0;
        int b = 0;
        unsigned long sync = 0;
    };
    void Post(const Event_t& event);
    void UiRun();
    void PumpRun();
    void Handle(const Event_t& event);
    void Tick();
    bool Connect();
    void Disconnect();
    void SetUpPanel();
    void ShowScreen(const std::string& name);
    void Write(const char* name, const std::string& value);
    void OnTemperature(short value);
    void OnFanSpeed(FP::FpControl::Fan_e fan, unsigned short speed);
    void OnPanelInit();
    // Puts the last refusal on the panel until kRefusalShownFor has passed or
    // a key is pressed; the current screen is drawn again after it.
    void ShowRefusal();

    TOV::CDataStore& store_;
    TOV::CTovClient tov_;
    FP::FpClient client_;
    const unsigned width_;
    const unsigned height_;
    Notice notice_;
    Connector connector_;
    bool retry_ = false;

    std::map<std::string, std::unique_ptr<FP::BaseScreen>> screens_;
    FP::BaseScreen* current_ = nullptr;
    std::unique_ptr<PanelLink> link_;
    std::chrono::steady_clock::time_point nextRetry_;
    std::chrono::steady_clock::time_point nextDraw_;
    PanelDisplay display_;
    // UI thread only: screens write from there, so the listener runs there.
    std::string refusal_;
    bool refusalShown_ = false;
    std::chrono::steady_clock::time_point refusalUntil_;

    mutable std::mutex mutex_;
    std::condition_variable queued_;
    std::condition_variable synced_;
    std::deque<Event_t> queue_;
    std::string currentName_;
    unsigned long syncPosted_ = 0;
    unsigned long syncDone_ = 0;
    bool enginePending_ = false;
    bool stopping_ = false;

    std::atomic<unsigned> keysReported_{0};
    std::atomic<bool> linkUp_{false};
    std::atomic<unsigned> reconnects_{0};
    std::thread ui_;
    std::thread pump_;
};

}  // namespace FPDEMO
