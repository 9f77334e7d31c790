#pragma once

#include <cstdint>

namespace FPSIM {

// A 5 x 7 dot font for pictures of the panel, built in so that a picture
// comes out the same on every machine. A glyph is five columns, left to
// right; bit 0 of a column is its top dot.
class CellFont {
public:
    static constexpr unsigned kColumns = 5;
    static constexpr unsigned kRows = 7;

    // The glyph for a byte as the panel shows it: printable ASCII, the
    // symbols 0x7F-0x8A, and a checker pattern for anything else.
    static const uint8_t* Glyph(uint8_t byte);
    // Whether the dot at (column, row) of a byte's glyph is lit.
    static bool Dot(uint8_t byte, unsigned column, unsigned row);
};

}  // namespace FPSIM
