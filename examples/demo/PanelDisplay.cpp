#include "examples/demo/PanelDisplay.h"

namespace FPDEMO {

void PanelDisplay::ClearHwDisplay() {
    if (target_)
        target_->ClearHwDisplay();
}

void PanelDisplay::SendBlankChars(unsigned int count, unsigned int column, unsigned int line) {
    if (target_)
        target_->SendBlankChars(count, column, line);
}

void PanelDisplay::SendLineUpdate(const std::string& text, unsigned int line) {
    if (target_)
        target_->SendLineUpdate(text, line);
}

void PanelDisplay::SendReverseWord(const std::string& text, unsigned int column,
                                   unsigned int line) {
    if (target_)
        target_->SendReverseWord(text, column, line);
}

void PanelDisplay::SendWindowUpdate(const std::string& text) {
    if (target_)
        target_->SendWindowUpdate(text);
}

void PanelDisplay::SendLockDisableSymbols(unsigned char mask) {
    if (target_)
        target_->SendLockDisableSymbols(mask);
}

void PanelDisplay::SendNavSymbols(unsigned char mask) {
    if (target_)
        target_->SendNavSymbols(mask);
}

}  // namespace FPDEMO
