#pragma once

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

#include "fp/core/KeyTypes.h"
#include "kt/StreamSocket.h"
#include "sim/PanelSim.h"
#include "testing/PanelView.h"
#include "tov/DataStore.h"
#include "unit/Unit.h"

namespace FP {
class BaseScreen;
}

namespace FP::Testing {

/// A whole unit in one process around the application's own screens, for
/// its tests: an emulated panel on one end of a socket pair, the unit runtime
/// (link, keypad, display, UI thread) on the other, and an in-memory engine
/// holding the application's variables.
///
/// Every operation that changes something waits until the unit is idle
/// again before it returns: the key presses sent have reached the unit,
/// everything the UI thread was given (keys, engine events) is handled, and
/// the panel has applied all that was drawn. The wait is a chain of request
/// round trips, not a sleep. Timers run on a clock of the harness's own that
/// moves only in Advance(); a held key still auto-repeats on the keypad's
/// real-time clock.
///
/// A failed operation answers false and tells the failure sink why, with the
/// panel as it stands (ScreenTest routes that into GoogleTest).
///
/// Threads: one test thread. Owns: the store, the unit, the emulator and the
/// sockets; screens given to AddScreen.
class ScreenHarness {
public:
    /// Declares the application's variables on a fresh store; false with
    /// error filled when one is refused.
    using Declare = std::function<bool(TOV::CDataStore& store, std::string& error)>;
    /// Told every failure, with the panel appended.
    using FailureSink = std::function<void(const std::string& message)>;

    /// What the harness builds; every field has a working default.
    struct Options {
        /// The display, in character cells.
        ///@{
        unsigned width = 20;
        unsigned height = 4;
        ///@}
        /// The application's variable declarations; none when empty.
        Declare declare;
        /// The screen shown first; the first one added when empty.
        std::string firstScreen;
        /// How long any single wait may take before it counts as a failure
        /// (ms). Generous, because sanitizer builds are slow.
        unsigned timeoutMs = 20000;
        /// How long the unit shows a refused write's reason (ms of the
        /// harness's clock).
        unsigned refusalShownMs = 1500;
    };

    /// Builds the store (declaring the variables) and the emulated panel.
    /// Nothing runs before Start().
    explicit ScreenHarness(const Options& options);
    /// The same with default options.
    ScreenHarness();
    /// Stops the unit, then the emulator.
    ~ScreenHarness();
    ScreenHarness(const ScreenHarness&) = delete;
    ScreenHarness& operator=(const ScreenHarness&) = delete;

    /// Where failures go; by default to standard error.
    void SetFailureSink(FailureSink sink) { failureSink_ = std::move(sink); }

    /// Adds a screen (before Start()). Owns: screen.
    void AddScreen(std::unique_ptr<BaseScreen> screen);
    /// Starts the unit and waits until it shows its first screen.
    bool Start();

    /// Key presses, by code or by name ("UP", "ENTER", "7", "a"; as KeyName()
    /// spells them, the multi-letter names in any case). Press is down and up.
    ///@{
    bool Press(Key_e key);
    bool Press(const std::string& name);
    ///@}
    /// Several presses in a row, each waited for.
    bool Press(std::initializer_list<const char*> names);
    /// Key down without the up; Release sends the up.
    ///@{
    bool Hold(Key_e key);
    bool Release(Key_e key);
    ///@}

    /// Moves the harness's clock (and the emulator's) on by ms and lets the
    /// unit run its timers: polled redraws, refusal messages, idle timeout.
    bool Advance(unsigned ms);
    /// Waits until the unit is idle (see above).
    bool Idle();

    /// What the panel shows now.
    PanelView Panel() const;
    /// Saves a picture of the panel as it looks now, PNG or SVG by the path's
    /// extension. False, with error filled, when the file cannot be written
    /// or the extension is neither.
    bool SavePicture(const std::string& path, std::string& error) const;
    /// The screen the unit shows now.
    std::string CurrentScreen() const;

    /// The value of an engine variable's instance (empty when not declared).
    std::string Get(const std::string& name, const std::string& instance = "0") const;
    /// Writes an engine variable as another user of the engine would; false
    /// (and a failure) when the engine refuses.
    bool Set(const std::string& name, const std::string& value, const std::string& instance = "0");
    /// The next write (the unit's or Set's) is refused with reason.
    void RefuseNextWrite(const std::string& reason = "Refused by the test");

    /// Hangs up the panel's end; the unit sees the link die and keeps trying.
    /// Returns once the unit has noticed, which can take up to a second: the
    /// runtime looks at a quiet link that often.
    bool DropLink();
    /// Lets the unit connect to a fresh (blank) panel; waits until it has
    /// redrawn it.
    bool RestoreLink();
    /// Restarts the panel controller on the same link: it comes back blank
    /// and the unit sets it up and redraws it.
    bool RestartController();

    /// The parts, for what the harness does not wrap.
    ///@{
    FP::Unit& Unit() { return *unit_; }
    TOV::CDataStore& Store() { return store_; }
    FPSIM::PanelSim& Sim() { return *sim_; }
    ///@}

private:
    bool Fail(const std::string& what);
    bool SendKey(bool down, bool up, Key_e key);
    void MakePanel();
    bool WaitLinkEvents(unsigned count, bool up = true);
    FP::Unit::Clock::time_point Now() const;

    const Options options_;
    TOV::CDataStore store_;
    std::string declareError_;
    std::unique_ptr<FP::Unit> unit_;
    FailureSink failureSink_;

    // The panel's end and the emulator on it; replaced on RestoreLink and
    // (the emulator only) on RestartController. Test thread only.
    std::unique_ptr<KT::CStreamSocket> panelEnd_;
    std::unique_ptr<FPSIM::PanelSim> sim_;

    std::mutex mutex_;
    std::condition_variable linkChanged_;
    std::unique_ptr<KT::CStreamSocket> unitEnd_;  // guarded by mutex_: the connector hands it out
    unsigned linkEvents_ = 0;                     // guarded by mutex_: up events the unit told
    unsigned linkDowns_ = 0;                      // guarded by mutex_: down events the unit told

    const FP::Unit::Clock::time_point epoch_;
    std::atomic<long long> offsetMs_{0};
    unsigned keysSent_ = 0;  // key-downs the unit should have received
    bool started_ = false;
};

}  // namespace FP::Testing
