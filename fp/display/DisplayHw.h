#pragma once

#include <string>

#include "fp/display/Display.h"

namespace FP {

class FpControl;

// The display model drawn on the front panel through the controller. The last
// three columns of line 0 hold the navigation symbols, column 0 of line 0 the
// lock or disable symbol.
class DisplayHw : public Display {
public:
    // Blanks the panel.
    DisplayHw(FpControl& control, unsigned int width, unsigned int height);
    ~DisplayHw();

    void ClearHwDisplay() override;
    void SendBlankChars(unsigned int count, unsigned int column, unsigned int line) override;
    void SendLineUpdate(const std::string& text, unsigned int line) override;
    void SendReverseWord(const std::string& text, unsigned int column, unsigned int line) override;
    void SendWindowUpdate(const std::string& text) override;
    void SendLockDisableSymbols(unsigned char mask) override;
    void SendNavSymbols(unsigned char mask) override;

    // Marks the right edge of the model with a reverse-video cell on every line.
    void ShowBoundary();

private:
    FpControl* control;
    unsigned int navColumn;
    unsigned int navLine;
};

}  // namespace FP
