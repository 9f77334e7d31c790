#include "sim/PanelGrid.h"

#include <algorithm>

namespace FPSIM {

namespace {

unsigned ClampSide(unsigned n) {
    return std::min(std::max(n, 1u), PanelGrid::kMaxSide);
}

// One NUL-terminated string per byte, so Glyph can hand out plain pointers.
struct AsciiTable {
    char text[256][2];
    AsciiTable() {
        for (int i = 0; i < 256; ++i) {
            text[i][0] = (i >= 0x20 && i < 0x7F) ? char(i) : '?';
            text[i][1] = '\0';
        }
        static const char kSymbols[] = "^-<Lx*o?\?\?\?!";  // 0x7F to 0x8A
        for (int i = 0; i < 12; ++i)
            text[0x7F + i][0] = kSymbols[i];
    }
};

}  // namespace

PanelGrid::PanelGrid(unsigned width, unsigned height)
    : width_(ClampSide(width)),
      height_(ClampSide(height)),
      chars_(size_t(width_) * height_, ' '),
      reverse_(size_t(width_) * height_, false) {}

void PanelGrid::Clear() {
    std::fill(chars_.begin(), chars_.end(), uint8_t(' '));
    std::fill(reverse_.begin(), reverse_.end(), false);
}

size_t PanelGrid::Write(unsigned column, unsigned row, const uint8_t* text, size_t length,
                        bool reverse) {
    if (row >= height_ || column >= width_)
        return length;
    const size_t fits = std::min<size_t>(length, width_ - column);
    for (size_t i = 0; i < fits; ++i) {
        chars_[Index(column + i, row)] = text[i];
        reverse_[Index(column + i, row)] = reverse;
    }
    return length - fits;
}

uint8_t PanelGrid::Char(unsigned column, unsigned row) const {
    return column < width_ && row < height_ ? chars_[Index(column, row)] : 0;
}

bool PanelGrid::Reverse(unsigned column, unsigned row) const {
    return column < width_ && row < height_ && reverse_[Index(column, row)];
}

std::string PanelGrid::RowBytes(unsigned row) const {
    if (row >= height_)
        return std::string();
    const auto begin = chars_.begin() + Index(0, row);
    return std::string(begin, begin + width_);
}

std::string PanelGrid::RenderPlain(unsigned row, bool utf8) const {
    std::string out;
    for (unsigned c = 0; row < height_ && c < width_; ++c)
        out += Glyph(chars_[Index(c, row)], utf8);
    return out;
}

std::string PanelGrid::RenderMarked(unsigned row, bool utf8) const {
    std::string out;
    bool open = false;
    for (unsigned c = 0; row < height_ && c < width_; ++c) {
        const bool rev = reverse_[Index(c, row)];
        if (rev != open) {
            out += rev ? '[' : ']';
            open = rev;
        }
        out += Glyph(chars_[Index(c, row)], utf8);
    }
    if (open)
        out += ']';
    return out;
}

std::string PanelGrid::ReverseMask(unsigned row) const {
    std::string out;
    for (unsigned c = 0; row < height_ && c < width_; ++c)
        out += reverse_[Index(c, row)] ? '#' : '.';
    return out;
}

std::string PanelGrid::Render(bool marked, bool utf8) const {
    std::string out;
    for (unsigned r = 0; r < height_; ++r) {
        if (r)
            out += '\n';
        out += marked ? RenderMarked(r, utf8) : RenderPlain(r, utf8);
    }
    return out;
}

std::string PanelGrid::RenderPlain(bool utf8) const {
    return Render(false, utf8);
}

std::string PanelGrid::RenderMarked(bool utf8) const {
    return Render(true, utf8);
}

const char* PanelGrid::Glyph(uint8_t byte, bool utf8) {
    static const char* const kUtf8[] = {"↕", "↔", "↵", "⚿", "⎋", "✓", "✗", "□", "□", "□", "□", "⊘"};
    static const AsciiTable table;
    if (utf8 && byte >= 0x7F && byte <= 0x8A)
        return kUtf8[byte - 0x7F];
    if (utf8 && (byte < 0x20 || byte > 0x7E))
        return "\xEF\xBF\xBD";  // U+FFFD, so an unknown byte never passes for a literal '?'
    return table.text[byte];
}

}  // namespace FPSIM
