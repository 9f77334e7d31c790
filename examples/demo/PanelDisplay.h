#pragma once

#include <string>

#include "fp/display/Display.h"

namespace FPDEMO {

// The display model the screens draw into for the whole run. What changes is
// sent on through the panel display of the current link, and dropped while
// there is none; the link's display comes and goes with reconnects, this one
// stays, so no screen is left pointing at a display that is gone.
class PanelDisplay : public FP::Display {
public:
    PanelDisplay(unsigned int width, unsigned int height) : FP::Display(width, height) {}
    // Null while the link is down.
    void SetTarget(FP::Display* target) { target_ = target; }

    void ClearHwDisplay() override;
    void SendBlankChars(unsigned int count, unsigned int column, unsigned int line) override;
    void SendLineUpdate(const std::string& text, unsigned int line) override;
    void SendReverseWord(const std::string& text, unsigned int column, unsigned int line) override;
    void SendWindowUpdate(const std::string& text) override;
    void SendLockDisableSymbols(unsigned char mask) override;
    void SendNavSymbols(unsigned char mask) override;

private:
    FP::Display* target_ = nullptr;
};

}  // namespace FPDEMO
