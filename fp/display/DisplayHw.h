#pragma once

#include <string>

#include "fp/display/Display.h"

namespace FP {

class FpControl;

/// The display model drawn on the front panel through the controller. The last
/// three columns of line 0 hold the navigation symbols, column 0 of line 0 the
/// lock or disable symbol.
/// Threads: one thread at a time (the application's UI thread); sends go out
/// through FpControl, which may be shared with other threads.
/// Borrows: the control, which must outlive the display.
class DisplayHw : public Display {
public:
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

private:
    FpControl* control;
    unsigned int navColumn;
    unsigned int navLine;
};

}  // namespace FP
