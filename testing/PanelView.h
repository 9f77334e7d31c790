#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>

#include "sim/PanelState.h"

namespace FP::Testing {

/// What the emulated panel shows at one moment, read back for a test: the
/// character rows, reverse cells, symbol glyphs, LEDs, unit status,
/// brightness and fans. A plain value; copy it freely.
/// Threads: any; it shares nothing.
class PanelView {
public:
    /// A view of state (normally taken by ScreenHarness::Panel()).
    explicit PanelView(const FPSIM::PanelState_t& state = FPSIM::PanelState_t());

    /// Columns and rows of the display.
    ///@{
    unsigned Width() const { return state_.grid.Width(); }
    unsigned Height() const { return state_.grid.Height(); }
    ///@}

    /// The text of row with trailing blanks cut; symbols as ASCII stand-ins
    /// ('^' up/down, '-' left/right, '<' enter, 'x' back, 'L' lock, ...).
    std::string Row(unsigned row) const;
    /// As Row(), with every run of reverse cells wrapped in '[' and ']'.
    std::string Marked(unsigned row) const;
    /// Every row as Row() gives it, joined with '\n'.
    std::string Text() const;
    /// True when the cell shows reverse video.
    bool Reverse(unsigned column, unsigned row) const;
    /// The characters of row shown in reverse video, in order.
    std::string ReverseText(unsigned row) const;
    /// True when some cell shows the panel symbol byte (0x7F to 0x8A).
    bool HasSymbol(uint8_t symbol) const;

    /// An LED the unit switched on (LEDs never set read as off).
    bool Led(unsigned led) const;
    /// The unit status and the brightness last set; -1 while unset.
    ///@{
    int UnitStatus() const { return state_.unitStatus; }
    int Brightness() const { return state_.brightness; }
    ///@}
    /// 1 on, 0 off, -1 unset.
    int Fans() const { return state_.fanState; }
    /// True while the unit's link to the panel is up (as the panel sees it).
    bool LinkUp() const { return state_.linkUp; }

    /// The panel drawn as its user sees it: the display in a frame with
    /// reverse runs in [ ], then one line of indicators.
    std::string Picture() const;
    /// Everything the emulator knows, for checks this class does not wrap.
    const FPSIM::PanelState_t& State() const { return state_; }

private:
    FPSIM::PanelState_t state_;
};

/// Prints view.Picture(); GoogleTest uses it for a failed expectation.
void PrintTo(const PanelView& view, std::ostream* out);
/// The same, for streams.
std::ostream& operator<<(std::ostream& out, const PanelView& view);

}  // namespace FP::Testing
