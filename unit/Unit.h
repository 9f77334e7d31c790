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
#include <vector>

#include "fp/client/FpClient.h"
#include "fp/core/KeyTypes.h"
#include "fp/link/FpControl.h"
#include "tov/TovClient.h"

namespace KT {
class CStreamSocket;
}

namespace FP {

class BaseScreen;
class LogGuard;
class PanelConnection;
class RelayDisplay;

/// The runtime of a unit: keeps the panel link up (opening it, noticing when
/// it dies or goes silent, reopening it with back-off), builds the panel
/// stack on every new link, and runs the one UI thread that owns the screens.
/// Key presses, engine events, poll ticks and link changes all reach that
/// thread through one queue. After a reconnect or a controller restart the
/// panel is cleared and fully redrawn, and the LEDs, unit status,
/// brightness, fan state and report subscription last set are sent again.
///
/// Threads: every public operation from any thread unless it says otherwise;
/// screens, listeners and hooks run on the UI thread. Without a UI thread
/// (Options::uiThread false) Start, RunPending and Stop are called from one
/// application thread, which then is the UI thread.
/// Borrows: the data store (must outlive the unit). Owns: the engine client,
/// the panel client, the screens given to AddScreen, and its threads.
class Unit : private IKeyPress {
public:
    /// The clock the unit's timers (liveness, reconnect, idle) run on.
    using Clock = std::chrono::steady_clock;

    /// A change of the link, or a failed attempt to open it.
    struct LinkEvent_t {
        /// True when the panel answers on a (new) link.
        bool up = false;
        /// Why it is down or could not be opened, e.g. "connection refused:
        /// ..."; for an up event after a controller restart, "the panel restarted".
        std::string reason;
    };
    /// Told about link changes, on the UI thread.
    using LinkListener = std::function<void(const LinkEvent_t&)>;
    /// Application set-up of a fresh panel (after the unit's own), on the UI
    /// thread, before the full redraw.
    using PanelHook = std::function<void(FpControl&)>;
    /// Opens the link instead of the address (e.g. one end of a socket
    /// pair); null with reason filled on failure.
    using Connector = std::function<std::unique_ptr<KT::CStreamSocket>(std::string& reason)>;
    /// Temperature reports, on the UI thread.
    using TemperatureListener = std::function<void(short)>;
    /// Fan speed reports, on the UI thread.
    using FanListener = std::function<void(FpControl::Fan_e, unsigned short)>;

    /// What a unit is set up with; every field has a working default.
    struct Options {
        /// Where the panel is: "tcp:HOST:PORT", "unix:PATH", "serial:DEVICE@BAUD".
        std::string address = "unix:/tmp/fp-panel.sock";
        /// Used instead of address when set.
        Connector connector;
        /// The display, in character cells.
        unsigned width = 20;
        /// Rows of the display.
        unsigned height = 4;
        /// The screen shown first; the first one added when empty.
        std::string firstScreen;
        /// How often a link that has been quiet is asked whether it lives (ms;
        /// 0: never), and after how many unanswered requests it counts as dead.
        ///@{
        unsigned livenessPeriodMs = 1000;
        unsigned livenessMisses = 3;
        ///@}
        /// Reconnect delays: the first, doubled per failure up to the cap (ms).
        ///@{
        unsigned retryMinMs = 250;
        unsigned retryMaxMs = 5000;
        ///@}
        /// How long a refused write's reason stays on the panel (ms).
        unsigned refusalShownMs = 1500;
        /// Without keys for this long (ms; 0: never) the unit shows homeScreen
        /// (when set) and sets idleBrightness; the next key only wakes it.
        ///@{
        unsigned idleTimeoutMs = 0;
        std::string homeScreen;
        unsigned char idleBrightness = 0;
        ///@}
        /// Rate-limit the link's log category ("fpcontrol"): lines of one kind
        /// let through per window (0: no guard) and the window (ms).
        ///@{
        unsigned logBurst = 5;
        unsigned logWindowMs = 1000;
        ///@}
        /// On a serial link the display sends only the cells that changed
        /// (DisplayHw::SEND_CHANGES), since every byte costs 10 bit times
        /// there; false keeps the library's whole-window updates. Other links
        /// always send whole windows.
        bool sendChangesOnSerial = true;
        /// Run a UI thread; when false the application drives RunPending().
        bool uiThread = true;
        /// Time source for poll, refusal and idle timers; the steady clock when empty.
        std::function<Clock::time_point()> now;
    };

    /// A unit on store with options. Nothing runs before Start().
    Unit(TOV::CDataStore& store, const Options& options);
    /// Stops the unit.
    ~Unit() override;
    Unit(const Unit&) = delete;
    Unit& operator=(const Unit&) = delete;

    /// The client screens read and write the engine through.
    FpClient& Client() { return client_; }
    /// The engine client under it (events delivered on the UI thread).
    TOV::CTovClient& EngineClient() { return tov_; }

    /// Adds a screen under its GetName(), wiring it to the unit's client and
    /// display. Before Start() only. Owns: screen.
    void AddScreen(std::unique_ptr<BaseScreen> screen);
    /// Before Start() only.
    void SetLinkListener(LinkListener listener) { linkListener_ = std::move(listener); }
    /// Before Start() only.
    void SetPanelHook(PanelHook hook) { panelHook_ = std::move(hook); }

    /// Starts the threads and the first connection attempt. False (with the
    /// reason logged and told to the link listener) when the address is
    /// malformed, or when no screen was added.
    bool Start();
    /// Stops the threads and tears the link down; the current screen is
    /// deinitialized. Idempotent.
    void Stop();

    /// Switches to the screen named name (unknown names are logged and ignored).
    void ShowScreen(const std::string& name);
    /// Runs call on the UI thread.
    void Post(std::function<void()> call);
    /// A key from elsewhere than the panel, handled like a panel key.
    void PressKey(Key_e key);

    /// What the panel shows besides the display; remembered and sent again
    /// on every new link.
    void SetLed(FpControl::Led_e led, bool on);
    /// The status light; remembered like SetLed.
    void SetUnitStatus(FpControl::UnitStatus_e status);
    /// The backlight level; remembered like SetLed (and restored after idle).
    void SetBrightness(unsigned char level);
    /// The fans on or off; remembered like SetLed.
    void SetFans(bool on);
    /// Subscribes to the panel's reports (interval in tenths of a second).
    void Subscribe(unsigned char intervalTenths, bool temperature,
                   const std::vector<FpControl::Fan_e>& fans, TemperatureListener onTemperature,
                   FanListener onFan);

    /// Without a UI thread: handles everything queued and every timer due
    /// now, delivering engine events on the calling thread; answers how much
    /// was handled. UI-thread mode: does nothing.
    size_t RunPending();
    /// How long until a timer of the UI thread is due (ms); -1 for none.
    long NextDueMs() const;
    /// UI-thread mode: waits until the UI thread handled all posted before
    /// and the panel applied what that drew. False on timeout.
    bool WaitIdle(unsigned timeoutMs);
    /// Waits until at least count key presses have been received in all
    /// (see KeysReported). False on timeout.
    bool WaitKeysReported(unsigned count, unsigned timeoutMs);
    /// Waits until the panel answers on a link. False on timeout.
    bool WaitLinkUp(unsigned timeoutMs);

    /// The screen shown now.
    std::string CurrentScreen() const;
    /// True while a link is up.
    bool LinkUp() const { return linkUp_.load(); }
    /// Links opened after the first.
    unsigned Reconnects() const { return reconnects_.load(); }
    /// Key presses received so far (panel and PressKey).
    unsigned KeysReported() const { return keysReported_.load(); }
    /// Log lines the guard dropped so far.
    unsigned long LogLinesSuppressed() const;

private:
    struct Event_t {
        enum Kind_e {
            KEY,
            ENGINE,
            LINK_UP,
            LINK_DOWN,
            RESTART,
            TEMPERATURE,
            FAN,
            CALL,
            SHOW,
            SYNC,
            QUIT
        };
        explicit Event_t(Kind_e k, int first = 0, int second = 0) : kind(k), a(first), b(second) {}
        Kind_e kind;
        int a;
        int b;
        std::shared_ptr<PanelConnection> link;
        std::string text;
        std::function<void()> call;
    };
    struct PanelState_t {
        std::map<int, bool> leds;
        bool statusSet = false;
        FpControl::UnitStatus_e status = FpControl::UnitStatus_e(0);
        bool brightnessSet = false;
        unsigned char brightness = 0;
        bool fansSet = false;
        bool fans = false;
        unsigned char interval = 0;
        bool temperature = false;
        std::vector<FpControl::Fan_e> fanReports;
    };

    void OnKeyPress(Key_e key) override;
    void OnTemperature(short value);
    void OnFanSpeed(FpControl::Fan_e fan, unsigned short speed);
    void OnRestart();
    void Enqueue(Event_t event);

    // UI thread.
    void UiRun();
    bool Next(Event_t& event, bool wait);
    void Handle(Event_t& event);
    void HandleKey(Key_e key, int link);
    void Timers();
    Clock::time_point NextDue() const;
    void Switch(const std::string& name);
    void Draw();
    void Restore();
    void ShowRefusal();
    void Install(const std::shared_ptr<PanelConnection>& link);
    void Release();
    void Finish();
    Clock::time_point Now() const;

    // Link thread.
    void LinkRun();
    std::shared_ptr<PanelConnection> Connect(std::string& reason, bool& permanent);
    std::string Watch(PanelConnection& link);
    bool Report(bool up, const std::string& reason);
    bool Pause(unsigned ms);

    // Engine pump.
    void PumpRun();

    TOV::CTovClient tov_;
    FpClient client_;
    const Options options_;
    std::unique_ptr<RelayDisplay> display_;
    std::unique_ptr<LogGuard> logGuard_;
    LinkListener linkListener_;
    PanelHook panelHook_;
    TemperatureListener onTemperature_;
    FanListener onFan_;

    // UI thread only.
    std::map<std::string, std::unique_ptr<BaseScreen>> screens_;
    std::string firstScreen_;
    BaseScreen* current_ = nullptr;
    std::shared_ptr<PanelConnection> link_;
    PanelState_t panel_;
    std::string refusal_;
    bool refusalShown_ = false;
    Clock::time_point refusalUntil_;
    Clock::time_point nextDraw_;
    Clock::time_point lastKey_;
    bool idle_ = false;
    bool started_ = false;
    int linkNumber_ = 0;  // of the link installed; 0 while down

    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::condition_variable linkWake_;  // the link thread's own, so UI traffic does not wake it
    std::deque<Event_t> queue_;         // guarded by mutex_
    std::string currentName_;           // guarded by mutex_
    unsigned long syncPosted_ = 0;      // guarded by mutex_
    unsigned long syncDone_ = 0;        // guarded by mutex_
    unsigned long released_ = 0;        // guarded by mutex_: links the UI let go of
    bool enginePending_ = false;        // guarded by mutex_
    bool pumpDone_ = false;             // guarded by mutex_
    bool stopping_ = false;             // guarded by mutex_
    std::string lastReported_ = "-";    // link thread only
    int links_ = 0;                     // link thread only: links opened

    std::atomic<int> keypadLink_{0};  // the link whose keypad reports keys now
    std::atomic<bool> heard_{false};  // read thread sets, link thread clears
    std::atomic<bool> linkUp_{false};
    std::atomic<unsigned> reconnects_{0};
    std::atomic<unsigned> keysReported_{0};
    std::thread ui_;
    std::thread linkThread_;
    std::thread pump_;
};

}  // namespace FP
