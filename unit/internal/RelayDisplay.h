#pragma once

#include <string>

#include "fp/display/Display.h"

namespace FP {

// The display model screens draw into for the unit's whole life. Changes go
// on to the display of the current link and are dropped while there is none,
// so no screen ever points at a display that went away with a dropped link.
// Threads: the UI thread only.
class RelayDisplay : public Display {
public:
    RelayDisplay(unsigned int width, unsigned int height) : Display(width, height) {}
    // Null while the link is down.
    void SetTarget(Display* target) { target_ = target; }
    bool HasTarget() const { return target_ != nullptr; }

    void ClearHwDisplay() override;
    void SendBlankChars(unsigned int count, unsigned int column, unsigned int line) override;
    void SendLineUpdate(const std::string& text, unsigned int line) override;
    void SendReverseWord(const std::string& text, unsigned int column, unsigned int line) override;
    void SendWindowUpdate(const std::string& text) override;
    void SendLockDisableSymbols(unsigned char mask) override;
    void SendNavSymbols(unsigned char mask) override;

private:
    Display* target_ = nullptr;
};

}  // namespace FP
