#pragma once

#include <csignal>
#include <deque>
#include <mutex>
#include <string>

#include "tools/panel/HeldKeyTracker.h"
#include "tools/panel/KeyMap.h"
#include "tools/panel/KeyRecorder.h"
#include "tools/panel/PanelOptions.h"
#include "tools/panel/PanelView.h"

namespace FPPANEL {

// The terminal screen: draws the panel and turns keys into key messages.
// Kept thin; what it shows and sends comes from PanelText, KeyMap and
// HeldKeyTracker.
class CursesScreen {
public:
    // title heads the screen (the program's name).
    CursesScreen(PanelView& panel, const PanelOptions_t& options,
                 const std::string& title = "fp-panel");
    ~CursesScreen();
    CursesScreen(const CursesScreen&) = delete;
    CursesScreen& operator=(const CursesScreen&) = delete;

    // Until the quit key, or quit becoming non-zero.
    void Run(volatile std::sig_atomic_t& quit);
    // Keeps the latest lines for the screen's log area; any thread.
    void AddLogLine(const std::string& line);
    // Writes what is sent to the panel from now on to recorder (borrowed; may be null).
    void SetRecorder(KeyRecorder* recorder) { recorder_ = recorder; }

private:
    void Draw();
    void Send(const std::vector<HeldKeyTracker::Event_t>& events, uint64_t nowMs);
    void RecordReadings(KeyAction_e action, uint64_t nowMs);

    PanelView& server_;
    const std::string title_;
    const PanelOptions_t options_;
    bool utf8_ = false;
    HeldKeyTracker tracker_;
    KeyRecorder* recorder_ = nullptr;
    std::mutex logMutex_;
    std::deque<std::string> log_;
    bool logChanged_ = false;
};

}  // namespace FPPANEL
