#include "fp/display/DisplayHw.h"

#include <cstring>

#include "fp/link/FpControl.h"

namespace FP {

namespace {

// Columns kept free at the right end of line 0 for the navigation symbols.
const unsigned int kNavSymbolColumns = 3;

unsigned char Byte(unsigned int value) {
    return static_cast<unsigned char>(value);
}

}  // namespace

DisplayHw::DisplayHw(FpControl& control, unsigned int width, unsigned int height)
    : Display(width, height), control(&control), navColumn(width - kNavSymbolColumns), navLine(0) {
    ClearHwDisplay();
}

DisplayHw::~DisplayHw() = default;

void DisplayHw::ClearHwDisplay() {
    control->ClearDisplay();
}

void DisplayHw::SendBlankChars(unsigned int count, unsigned int column, unsigned int line) {
    control->DisplayText(std::string(count, ' '), Byte(column), Byte(line), false);
}

void DisplayHw::SendLineUpdate(const std::string& text, unsigned int line) {
    unsigned int width = GetDisplayWidth();
    if (line == 0) {
        // Keep clear of the navigation symbols.
        width = width > kNavSymbolColumns ? width - kNavSymbolColumns : 0;
    }
    control->DisplayText(text.substr(0, width), 0, Byte(line), false);
}

void DisplayHw::SendReverseWord(const std::string& text, unsigned int column, unsigned int line) {
    control->DisplayText(text, Byte(column), Byte(line), true);
}

void DisplayHw::SendWindowUpdate(const std::string& text) {
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
    if (mask & 0x08) {
        symbol[0] = '\x82';
    }
    if (mask & 0x10) {
        symbol[0] = '\x8A';
    }
    control->DisplayText(symbol, 0, 0, false);
}

void DisplayHw::SendNavSymbols(unsigned char mask) {
    if (lockShown) {
        SendLockDisableSymbols(0x08);
    }
    if (disableShown) {
        SendLockDisableSymbols(0x10);
    }
    std::string symbols(kNavSymbolColumns, ' ');
    if (mask & 0x40) {
        symbols[0] = '\x83';
    }
    if (mask & 0x80) {
        symbols[1] = '\x84';
    }
    if (mask & 0x20) {
        symbols[2] = '\x85';
    }
    control->DisplayText(symbols, Byte(navColumn), Byte(navLine), false);
    // Sent again with the low bits laid over, so a low-bit symbol wins its
    // position and a high-bit one stays where its partner is clear.
    if (mask & 0x01) {
        symbols[0] = '\x80';
    }
    if (mask & 0x02) {
        symbols[1] = '\x7F';
    }
    if (mask & 0x04) {
        symbols[2] = '\x81';
    }
    control->DisplayText(symbols, Byte(navColumn), Byte(navLine), false);
}

void DisplayHw::ShowBoundary() {
    for (unsigned int line = 0; line < GetDisplayHeight(); ++line) {
        SendReverseWord(" ", GetDisplayWidth(), line);
    }
}

}  // namespace FP
