#pragma once

#include <string>
#include <vector>

#include "fp/display/Display.h"

namespace fptest {

// A display model that sends nowhere but remembers what would have gone to
// the panel: the navigation masks in order, and the reverse words last sent
// (a window update forgets them all, a line update those of its line).
class TextDisplay : public FP::Display {
public:
    TextDisplay(unsigned int width, unsigned int height) : FP::Display(width, height) {}
    ~TextDisplay() = default;

    void SendBlankChars(unsigned int, unsigned int, unsigned int) override {}
    void SendLineUpdate(const std::string& text, unsigned int line) override;
    void SendReverseWord(const std::string& text, unsigned int column, unsigned int line) override;
    void SendWindowUpdate(const std::string&) override { sentReverse.clear(); }
    void SendLockDisableSymbols(unsigned char) override {}
    void SendNavSymbols(unsigned char mask) override { navMasks.push_back(mask); }

    std::vector<unsigned char> navMasks;
    std::vector<ReverseWord_t> sentReverse;
};

// The selected window as rows joined by '\n', trailing blanks cut, with the
// cells of reverse words (pending or last sent) wrapped in [ ].
std::string ScreenText(const TextDisplay& display);

}  // namespace fptest
