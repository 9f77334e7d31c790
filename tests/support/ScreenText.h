#pragma once

#include <string>
#include <vector>

#include "fp/display/Display.h"

namespace FP {
class BaseLine;
}

namespace fptest {

// The one fake display of the tests: it sends nowhere but keeps what would
// have gone to the panel. Every send is logged as a readable line; the
// navigation masks are kept in order; the reverse words last sent are kept
// until a window update (all) or a line update (that line's) replaces them.
class TextDisplay : public FP::Display {
public:
    explicit TextDisplay(unsigned int width = 20, unsigned int height = 4)
        : FP::Display(width, height) {}

    void SendBlankChars(unsigned int count, unsigned int column, unsigned int line) override;
    void SendLineUpdate(const std::string& text, unsigned int line) override;
    void SendReverseWord(const std::string& text, unsigned int column, unsigned int line) override;
    void SendWindowUpdate(const std::string& text) override;
    void SendLockDisableSymbols(unsigned char) override {}
    void SendNavSymbols(unsigned char mask) override { navMasks.push_back(mask); }

    // The sends so far, e.g. "window [..]", "line 1 [..]", "rev 1,2 [..]",
    // "blank 3@1,2"; taking them starts a new log.
    std::vector<std::string> TakeSends() { return std::move(sends_); }
    // One row of the selected window with reverse cells (pending or sent)
    // wrapped in [ ] and trailing blanks cut.
    std::string Row(unsigned int row) const;
    // Draws line on row from a clean slate (no reverse words) and returns it.
    std::string Draw(FP::BaseLine& line, unsigned int row = 1);

    std::vector<unsigned char> navMasks;
    std::vector<ReverseWord_t> sentReverse;

private:
    std::vector<std::string> sends_;
};

// All rows of the selected window as TextDisplay::Row gives them, joined by '\n'.
std::string ScreenText(const TextDisplay& display);

}  // namespace fptest
