#pragma once

#include <atomic>
#include <memory>
#include <string>

#include "fp/display/Display.h"

namespace FP {

class FpControl;
namespace internal {
class PanelShadow;
}

/// The display model drawn on the front panel through the controller. The last
/// three columns of line 0 hold the navigation symbols, column 0 of line 0 the
/// lock or disable symbol.
/// By default every update sends the whole window, as the panel protocol was
/// first written for. SEND_CHANGES keeps a copy of what the panel shows and
/// sends only the cells that differ, which matters on a slow serial line.
/// Threads: one thread at a time (the application's UI thread), except
/// ResendAll; sends go out through FpControl, which may be shared with other
/// threads.
/// Borrows: the control, which must outlive the display.
class DisplayHw : public Display {
public:
    /// What an update puts on the wire.
    enum UpdateMode_e {
        SEND_WHOLE_WINDOW,  ///< every changed window goes out whole (the default)
        SEND_CHANGES,       ///< only cells that differ from what the panel shows
    };

    /// Blanks the panel.
    DisplayHw(FpControl& control, unsigned int width, unsigned int height);
    /// Sends nothing; the panel keeps what it shows.
    ~DisplayHw();

    /// Blanks the panel.
    void ClearHwDisplay() override;
    /// Writes count spaces on the panel.
    void SendBlankChars(unsigned int count, unsigned int column, unsigned int line) override;
    /// Writes text over the whole of line on the panel.
    void SendLineUpdate(const std::string& text, unsigned int line) override;
    void SendReverseWord(const std::string& text, unsigned int column, unsigned int line) override;
    void SendWindowUpdate(const std::string& text) override;
    /// Shows the lock or disable symbol in the first cell of line 0.
    void SendLockDisableSymbols(unsigned char mask) override;
    /// Shows the navigation symbols in the last cells of line 0.
    void SendNavSymbols(unsigned char mask) override;

    /// Marks the right edge of the model with a reverse-video cell on every line.
    void ShowBoundary();

    /// Chooses what updates send. The panel ends up showing the same in both
    /// modes. Switching to SEND_CHANGES starts from knowing nothing of the
    /// panel, so the next update sends every cell it touches.
    void SetUpdateMode(UpdateMode_e mode);
    /// The mode in use.
    UpdateMode_e GetUpdateMode() const { return mode; }
    /// In SEND_CHANGES, forgets what the panel shows, so that the next update
    /// sends everything the display knows. For a panel that restarted or may
    /// have lost frames. Threads: any (it only raises a flag).
    void ResendAll();

    using Display::SendLine;
    /// As Display's; in SEND_CHANGES the cells that differ go out once it is done.
    bool SelectWindow(int id) override;
    /// As Display's; in SEND_CHANGES every cell the display knows goes out
    /// again, the symbols included.
    void ForceUpdate() override;
    /// As Display's; in SEND_CHANGES the cells that differ go out once it is done.
    void SendLine(unsigned int line) override;
    /// As Display's; in SEND_CHANGES the cells that differ go out once it is done.
    void SendUpdate() override;

private:
    class Batch;
    // Every text the display sends goes through here.
    void Put(const std::string& text, unsigned int column, unsigned int line, bool inverted);
    void SendChanges();

    FpControl* control;
    unsigned int navColumn;
    unsigned int navLine;
    UpdateMode_e mode = SEND_WHOLE_WINDOW;
    std::unique_ptr<internal::PanelShadow> shadow;  // in SEND_CHANGES only
    unsigned batchDepth = 0;                        // > 0 while an update gathers
    std::atomic<bool> resendAll{false};
};

}  // namespace FP
