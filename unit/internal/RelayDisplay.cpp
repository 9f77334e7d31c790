#include "unit/internal/RelayDisplay.h"

namespace FP {

void RelayDisplay::ClearHwDisplay() {
    if (target_)
        target_->ClearHwDisplay();
}

void RelayDisplay::SendBlankChars(unsigned int count, unsigned int column, unsigned int line) {
    if (target_)
        target_->SendBlankChars(count, column, line);
}

void RelayDisplay::SendLineUpdate(const std::string& text, unsigned int line) {
    if (target_)
        target_->SendLineUpdate(text, line);
}

void RelayDisplay::SendReverseWord(const std::string& text, unsigned int column,
                                   unsigned int line) {
    if (target_)
        target_->SendReverseWord(text, column, line);
}

void RelayDisplay::SendWindowUpdate(const std::string& text) {
    if (target_)
        target_->SendWindowUpdate(text);
}

void RelayDisplay::SendLockDisableSymbols(unsigned char mask) {
    if (target_)
        target_->SendLockDisableSymbols(mask);
}

void RelayDisplay::SendNavSymbols(unsigned char mask) {
    if (target_)
        target_->SendNavSymbols(mask);
}

}  // namespace FP
