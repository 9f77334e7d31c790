#include "sim/PanelPicture.h"

#include <algorithm>
#include <fstream>
#include <vector>

#include "sim/internal/CellFont.h"
#include "sim/internal/RgbImage.h"

namespace FPSIM {

namespace {

// Colours, as 0xRRGGBB.
constexpr uint32_t kBezel = 0x202428;
constexpr uint32_t kGlass = 0x1F3F9F;
constexpr uint32_t kLit = 0xE6EEFF;
constexpr uint32_t kUnlit = 0x2A4BAA;  // an LCD's dark dots still show faintly
constexpr uint32_t kLabel = 0xC8CCD0;
constexpr uint32_t kLampOn = 0x35D05A;
constexpr uint32_t kLampOff = 0x3A4048;

// Display geometry in pixels. A cell is 6 x 9 dots: the 5 x 7 glyph one dot
// down from the top, so neighbouring rows and cells keep a dot of space.
constexpr unsigned kDot = 4;      // pitch of the display's dots
constexpr unsigned kDotSize = 3;  // lit square; the rest of the pitch is gap
constexpr unsigned kCellW = 6 * kDot;
constexpr unsigned kCellH = 9 * kDot;
constexpr unsigned kBaseline = 8 * kDot;  // SVG text sits on the glyph's bottom
constexpr unsigned kMargin = 16;          // bezel around the glass
constexpr unsigned kPad = 12;             // glass around the cells
constexpr unsigned kGap = 12;             // between the glass and the indicator line

// The indicator line's text is the same font, solid, 2 px a dot.
constexpr unsigned kSmallDot = 2;
constexpr unsigned kSmallAdvance = 6 * kSmallDot;
constexpr unsigned kLineH = 7 * kSmallDot;
constexpr unsigned kLamp = kLineH;

std::string OrDash(int value) {
    return value < 0 ? "-" : std::to_string(value);
}

// One thing on the indicator line: an LED lamp, or text.
struct Item_t {
    unsigned x;
    bool lamp;
    bool on;
    std::string text;
};

// Where everything goes; both formats draw from the same layout.
struct Layout_t {
    unsigned cellsX, cellsY;  // the top left cell
    unsigned glassW, glassH;
    unsigned lineY;
    unsigned width, height;
    std::vector<Item_t> items;

    explicit Layout_t(const PanelState_t& state) {
        cellsX = kMargin + kPad;
        cellsY = kMargin + kPad;
        glassW = 2 * kPad + state.grid.Width() * kCellW;
        glassH = 2 * kPad + state.grid.Height() * kCellH;
        lineY = kMargin + glassH + kGap;

        unsigned x = kMargin;
        auto text = [&](const std::string& s) {
            items.push_back({x, false, false, s});
            x += unsigned(s.size()) * kSmallAdvance;
        };
        for (const auto& led : state.leds) {
            items.push_back({x, true, led.second, std::string()});
            x += kLamp + kSmallDot * 2;
            text(std::to_string(led.first));
            x += kSmallAdvance;
        }
        const int fan = state.fanState;
        text("status " + OrDash(state.unitStatus) + "  brightness " + OrDash(state.brightness) +
             "  fan " +
             (fan < 0 ? "-"
              : fan   ? "on"
                      : "off"));

        width = std::max(glassW + 2 * kMargin, x + kMargin);
        height = lineY + kLineH + kMargin;
    }

    unsigned CellX(unsigned column) const { return cellsX + column * kCellW; }
    unsigned CellY(unsigned row) const { return cellsY + row * kCellH; }
};

bool IsText(uint8_t byte) {
    return byte > 0x20 && byte < 0x7F;
}

// ---- SVG ----

std::string Hex(uint32_t rgb) {
    static const char kDigits[] = "0123456789abcdef";
    std::string out = "#";
    for (int shift = 20; shift >= 0; shift -= 4)
        out += kDigits[rgb >> shift & 0xF];
    return out;
}

std::string Escape(const std::string& text) {
    std::string out;
    for (char c : text) {
        switch (c) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            case '>':
                out += "&gt;";
                break;
            case '"':
                out += "&quot;";
                break;
            default:
                out += c;
        }
    }
    return out;
}

std::string Rect(unsigned x, unsigned y, unsigned w, unsigned h, uint32_t fill) {
    return "<rect x=\"" + std::to_string(x) + "\" y=\"" + std::to_string(y) + "\" width=\"" +
           std::to_string(w) + "\" height=\"" + std::to_string(h) + "\" fill=\"" + Hex(fill) +
           "\"/>\n";
}

// Path segments for the lit dots of a glyph whose top left is (x, y).
std::string GlyphPath(uint8_t byte, unsigned x, unsigned y, unsigned pitch, unsigned size) {
    std::string d;
    const std::string side = std::to_string(size);
    for (unsigned c = 0; c < CellFont::kColumns; ++c)
        for (unsigned r = 0; r < CellFont::kRows; ++r)
            if (CellFont::Dot(byte, c, r))
                d += "M" + std::to_string(x + c * pitch) + " " + std::to_string(y + r * pitch) +
                     "h" + side + "v" + side + "h-" + side + "z";
    return d;
}

// One row of cells: reverse runs as rectangles, each word of plain characters
// as one text element placed cell by cell, symbols as dot paths.
std::string SvgRow(const PanelGrid& grid, unsigned row, const Layout_t& layout) {
    std::string out;
    for (unsigned c = 0; c < grid.Width();) {
        unsigned end = c;
        while (end < grid.Width() && grid.Reverse(end, row))
            ++end;
        if (end > c)
            out += Rect(layout.CellX(c), layout.CellY(row), (end - c) * kCellW, kCellH, kLit);
        c = end + 1;
    }
    const unsigned y = layout.CellY(row);
    for (unsigned c = 0; c < grid.Width();) {
        const uint8_t byte = grid.Char(c, row);
        const bool rev = grid.Reverse(c, row);
        const uint32_t ink = rev ? kGlass : kLit;
        if (byte == ' ') {
            ++c;
        } else if (!IsText(byte)) {
            out += "<path fill=\"" + Hex(ink) + "\" d=\"" +
                   GlyphPath(byte, layout.CellX(c), y + kDot, kDot, kDotSize) + "\"/>\n";
            ++c;
        } else {
            std::string xs, word;
            for (; c < grid.Width() && IsText(grid.Char(c, row)) && grid.Reverse(c, row) == rev;
                 ++c) {
                xs += (xs.empty() ? "" : " ") + std::to_string(layout.CellX(c) + 5 * kDot / 2);
                word += char(grid.Char(c, row));
            }
            out += "<text x=\"" + xs + "\" y=\"" + std::to_string(y + kBaseline) + "\" fill=\"" +
                   Hex(ink) + "\">" + Escape(word) + "</text>\n";
        }
    }
    return out;
}

// ---- PNG ----

void DrawCell(RgbImage& image, uint8_t byte, bool rev, unsigned x, unsigned y) {
    if (rev)
        image.Fill(x, y, kCellW, kCellH, kLit);
    for (unsigned c = 0; c < CellFont::kColumns; ++c) {
        for (unsigned r = 0; r < CellFont::kRows; ++r) {
            const bool lit = CellFont::Dot(byte, c, r);
            if (lit || !rev)
                image.Fill(x + c * kDot, y + (r + 1) * kDot, kDotSize, kDotSize,
                           lit ? (rev ? kGlass : kLit) : kUnlit);
        }
    }
}

void DrawSmallText(RgbImage& image, const std::string& text, unsigned x, unsigned y) {
    for (size_t i = 0; i < text.size(); ++i)
        for (unsigned c = 0; c < CellFont::kColumns; ++c)
            for (unsigned r = 0; r < CellFont::kRows; ++r)
                if (CellFont::Dot(uint8_t(text[i]), c, r))
                    image.Fill(x + unsigned(i) * kSmallAdvance + c * kSmallDot, y + r * kSmallDot,
                               kSmallDot, kSmallDot, kLabel);
}

// A round lamp on a square raster: the square less its corners.
void DrawLamp(RgbImage& image, unsigned x, unsigned y, uint32_t rgb) {
    const unsigned cut = kLamp / 4;
    image.Fill(x + cut, y, kLamp - 2 * cut, kLamp, rgb);
    image.Fill(x, y + cut, kLamp, kLamp - 2 * cut, rgb);
    image.Fill(x + cut / 2, y + cut / 2, kLamp - cut, kLamp - cut, rgb);
}

bool EndsWith(const std::string& s, const char* end) {
    const std::string e(end);
    return s.size() >= e.size() && s.compare(s.size() - e.size(), e.size(), e) == 0;
}

}  // namespace

std::string PanelPicture::Svg(const PanelState_t& state) {
    const Layout_t layout(state);
    const PanelGrid& grid = state.grid;
    const std::string w = std::to_string(layout.width), h = std::to_string(layout.height);
    std::string out = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + w + "\" height=\"" +
                      h + "\" viewBox=\"0 0 " + w + " " + h + "\">\n";
    // The unlit dots of every cell, as a pattern laid over the glass.
    std::string unlit;
    for (unsigned c = 0; c < CellFont::kColumns; ++c)
        for (unsigned r = 0; r < CellFont::kRows; ++r)
            unlit += "M" + std::to_string(c * kDot) + " " + std::to_string((r + 1) * kDot) + "h" +
                     std::to_string(kDotSize) + "v" + std::to_string(kDotSize) + "h-" +
                     std::to_string(kDotSize) + "z";
    out += "<defs><pattern id=\"unlit\" patternUnits=\"userSpaceOnUse\" x=\"" +
           std::to_string(layout.cellsX) + "\" y=\"" + std::to_string(layout.cellsY) +
           "\" width=\"" + std::to_string(kCellW) + "\" height=\"" + std::to_string(kCellH) +
           "\"><path fill=\"" + Hex(kUnlit) + "\" d=\"" + unlit + "\"/></pattern></defs>\n";
    out += Rect(0, 0, layout.width, layout.height, kBezel);
    out += Rect(kMargin, kMargin, layout.glassW, layout.glassH, kGlass);
    out += "<rect x=\"" + std::to_string(layout.cellsX) + "\" y=\"" +
           std::to_string(layout.cellsY) + "\" width=\"" + std::to_string(grid.Width() * kCellW) +
           "\" height=\"" + std::to_string(grid.Height() * kCellH) + "\" fill=\"url(#unlit)\"/>\n";
    out += "<g font-family=\"monospace\" font-size=\"34\" text-anchor=\"middle\">\n";
    for (unsigned row = 0; row < grid.Height(); ++row)
        out += SvgRow(grid, row, layout);
    out += "</g>\n<g xml:space=\"preserve\" font-family=\"monospace\" font-size=\"" +
           std::to_string(kLineH + 4) + "\" fill=\"" + Hex(kLabel) + "\">\n";
    const unsigned r = kLamp / 2;
    for (const Item_t& item : layout.items) {
        if (item.lamp)
            out += "<circle cx=\"" + std::to_string(item.x + r) + "\" cy=\"" +
                   std::to_string(layout.lineY + r) + "\" r=\"" + std::to_string(r) + "\" fill=\"" +
                   Hex(item.on ? kLampOn : kLampOff) + "\"/>\n";
        else
            out += "<text x=\"" + std::to_string(item.x) + "\" y=\"" +
                   std::to_string(layout.lineY + kLineH) + "\">" + Escape(item.text) + "</text>\n";
    }
    return out + "</g>\n</svg>\n";
}

std::string PanelPicture::Png(const PanelState_t& state) {
    const Layout_t layout(state);
    const PanelGrid& grid = state.grid;
    RgbImage image(layout.width, layout.height, kBezel);
    image.Fill(kMargin, kMargin, layout.glassW, layout.glassH, kGlass);
    for (unsigned row = 0; row < grid.Height(); ++row)
        for (unsigned c = 0; c < grid.Width(); ++c)
            DrawCell(image, grid.Char(c, row), grid.Reverse(c, row), layout.CellX(c),
                     layout.CellY(row));
    for (const Item_t& item : layout.items) {
        if (item.lamp)
            DrawLamp(image, item.x, layout.lineY, item.on ? kLampOn : kLampOff);
        else
            DrawSmallText(image, item.text, item.x, layout.lineY);
    }
    return image.EncodePng();
}

bool PanelPicture::Save(const std::string& path, const PanelState_t& state, std::string& error) {
    std::string bytes;
    if (EndsWith(path, ".svg")) {
        bytes = Svg(state);
    } else if (EndsWith(path, ".png")) {
        bytes = Png(state);
    } else {
        error = "a picture is .svg or .png: " + path;
        return false;
    }
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << bytes;
    file.close();
    if (bytes.empty() || !file) {
        error = "cannot write " + path;
        return false;
    }
    return true;
}

}  // namespace FPSIM
