#pragma once

#include <string>
#include <vector>

#include "fp/display/Display.h"

namespace FP {
class BaseLine;
}

namespace FP::Testing {

/// A display that sends nowhere and keeps what would have gone to the panel,
/// for testing a line kind or a menu style of your own without an emulator
/// or a link. Every send is kept as a readable line; the navigation masks are
/// kept in order; the reverse words last sent are kept until a window update
/// (all of them) or a line update (that line's) replaces them.
/// Threads: one test thread.
class RecordingDisplay : public Display {
public:
    /// width by height character cells.
    explicit RecordingDisplay(unsigned int width = 20, unsigned int height = 4)
        : Display(width, height) {}

    /// Kept as readable lines instead of going to a panel.
    ///@{
    void SendBlankChars(unsigned int count, unsigned int column, unsigned int line) override;
    void SendLineUpdate(const std::string& text, unsigned int line) override;
    void SendReverseWord(const std::string& text, unsigned int column, unsigned int line) override;
    void SendWindowUpdate(const std::string& text) override;
    void SendLockDisableSymbols(unsigned char) override {}
    void SendNavSymbols(unsigned char mask) override { navMasks.push_back(mask); }
    ///@}

    /// The sends so far, e.g. "window [..]", "line 1 [..]", "rev 1,2 [..]",
    /// "blank 3@1,2"; taking them starts a new record.
    std::vector<std::string> TakeSends() { return std::move(sends_); }
    /// One row of the selected window, reverse cells (queued or sent) wrapped
    /// in '[' and ']', trailing blanks cut.
    std::string Row(unsigned int row) const;
    /// Every row as Row() gives it, joined by '\n'.
    std::string Text() const;
    /// Draws line on row from a clean slate (no reverse words) and returns
    /// the row.
    std::string Draw(BaseLine& line, unsigned int row = 1);

    /// The navigation masks sent, oldest first.
    std::vector<unsigned char> navMasks;
    /// The reverse words sent and not yet replaced.
    std::vector<ReverseWord_t> sentReverse;

private:
    std::vector<std::string> sends_;
};

}  // namespace FP::Testing
