#include "fp/display/DisplayHw.h"

#include <cstring>

#include "fp/core/Names.h"
#include "fp/display/internal/PanelShadow.h"
#include "fp/link/FpControl.h"

namespace FP {

namespace {

// Columns kept free at the right end of line 0 for the navigation symbols.
const unsigned int kNavSymbolColumns = 3;

// The glyph each navigation bit lights and the cell it takes. Every cell has
// one low bit and one high bit; the low one wins when both are set.
struct NavGlyph {
    unsigned char bit;
    unsigned int cell;
    char glyph;
};
const NavGlyph kNavGlyphs[] = {
    {NavSymbol::kLeftRight, 0, '\x80'}, {NavSymbol::kUpDown, 1, '\x7F'},
    {NavSymbol::kEnter, 2, '\x81'},     {NavSymbol::kExit, 0, '\x83'},
    {NavSymbol::kCheck, 1, '\x84'},     {NavSymbol::kCross, 2, '\x85'},
};
const unsigned char kLowNavBits = NavSymbol::kLeftRight | NavSymbol::kUpDown | NavSymbol::kEnter;

void LayNavGlyphs(std::string& symbols, unsigned bits) {
    for (const NavGlyph& nav : kNavGlyphs) {
        if (bits & nav.bit)
            symbols[nav.cell] = nav.glyph;
    }
}

unsigned char Byte(unsigned int value) {
    return static_cast<unsigned char>(value);
}

}  // namespace

DisplayHw::DisplayHw(FpControl& control, unsigned int width, unsigned int height)
    : Display(width, height), control(&control), navColumn(width - kNavSymbolColumns), navLine(0) {
    ClearHwDisplay();
}

DisplayHw::~DisplayHw() = default;

// Holds back what the hooks send until the outermost operation is done, so
// that a cell rewritten several times in one update goes out once.
class DisplayHw::Batch {
public:
    explicit Batch(DisplayHw& display) : display(display) { ++display.batchDepth; }
    ~Batch() {
        if (--display.batchDepth == 0)
            display.SendChanges();
    }
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;

private:
    DisplayHw& display;
};

void DisplayHw::SetUpdateMode(UpdateMode_e newMode) {
    if (newMode == mode)
        return;
    mode = newMode;
    if (mode == SEND_CHANGES) {
        shadow.reset(new internal::PanelShadow(GetDisplayWidth(), GetDisplayHeight()));
    } else {
        shadow.reset();
    }
}

void DisplayHw::ResendAll() {
    resendAll = true;
}

bool DisplayHw::SelectWindow(int id) {
    Batch batch(*this);
    return Display::SelectWindow(id);
}

void DisplayHw::ForceUpdate() {
    if (shadow)
        shadow->Forget();
    Batch batch(*this);
    Display::ForceUpdate();
}

void DisplayHw::SendLine(unsigned int line) {
    Batch batch(*this);
    Display::SendLine(line);
}

void DisplayHw::SendUpdate() {
    Batch batch(*this);
    Display::SendUpdate();
}

void DisplayHw::Put(const std::string& text, unsigned int column, unsigned int line,
                    bool inverted) {
    if (!shadow) {
        control->DisplayText(text, Byte(column), Byte(line), inverted);
        return;
    }
    if (shadow->Fits(text, column, line)) {
        shadow->Write(text, column, line, inverted, false);
        if (batchDepth == 0)
            SendChanges();
        return;
    }
    // Text that runs off the grid goes out as it is, after what is pending,
    // so the panel sees the writes in their order; the cells it covers on the
    // grid are then known to show it.
    SendChanges();
    control->DisplayText(text, Byte(column), Byte(line), inverted);
    shadow->Write(text, column, line, inverted, true);
}

void DisplayHw::SendChanges() {
    if (!shadow)
        return;
    if (resendAll.exchange(false))
        shadow->Forget();
    for (const internal::PanelShadow::Run_t& run : shadow->TakeChanges())
        control->DisplayText(run.text, Byte(run.column), Byte(run.line), run.inverted);
}

void DisplayHw::ClearHwDisplay() {
    control->ClearDisplay();
    if (shadow)
        shadow->Clear();
}

void DisplayHw::SendBlankChars(unsigned int count, unsigned int column, unsigned int line) {
    Put(std::string(count, ' '), column, line, false);
}

void DisplayHw::SendLineUpdate(const std::string& text, unsigned int line) {
    unsigned int width = GetDisplayWidth();
    if (line == 0) {
        // Keep clear of the navigation symbols.
        width = width > kNavSymbolColumns ? width - kNavSymbolColumns : 0;
    }
    Put(text.substr(0, width), 0, line, false);
}

void DisplayHw::SendReverseWord(const std::string& text, unsigned int column, unsigned int line) {
    Put(text, column, line, true);
}

void DisplayHw::SendWindowUpdate(const std::string& text) {
    Batch batch(*this);
    unsigned int width = GetDisplayWidth();
    unsigned int height = GetDisplayHeight();
    std::size_t length = std::strlen(text.c_str());
    std::size_t whole = width == 0 ? 0 : length / width;
    unsigned int lines = whole < height ? static_cast<unsigned int>(whole) : height;
    for (unsigned int i = 0; i < lines; ++i) {
        SendLineUpdate(text.substr(static_cast<std::size_t>(i) * width, length), i);
    }
    // Every blank goes to the first line below the text; lines further down
    // keep what the panel already shows.
    const std::string blank(width, ' ');
    for (unsigned int i = lines; i < height; ++i) {
        SendLineUpdate(blank, lines);
    }
}

void DisplayHw::SendLockDisableSymbols(unsigned char mask) {
    std::string symbol(1, ' ');
    if (mask & NavSymbol::kLock) {
        symbol[0] = '\x82';
    }
    if (mask & NavSymbol::kDisabled) {
        symbol[0] = '\x8A';
    }
    Put(symbol, 0, 0, false);
}

void DisplayHw::SendNavSymbols(unsigned char mask) {
    Batch batch(*this);
    if (lockShown) {
        SendLockDisableSymbols(NavSymbol::kLock);
    }
    if (disableShown) {
        SendLockDisableSymbols(NavSymbol::kDisabled);
    }
    std::string symbols(kNavSymbolColumns, ' ');
    LayNavGlyphs(symbols, mask & ~kLowNavBits);
    Put(symbols, navColumn, navLine, false);
    // Sent again with the low bits laid over, so a low-bit symbol wins its
    // position and a high-bit one stays where its partner is clear.
    LayNavGlyphs(symbols, mask & kLowNavBits);
    Put(symbols, navColumn, navLine, false);
}

void DisplayHw::ShowBoundary() {
    Batch batch(*this);
    for (unsigned int line = 0; line < GetDisplayHeight(); ++line) {
        SendReverseWord(" ", GetDisplayWidth(), line);
    }
}

}  // namespace FP
