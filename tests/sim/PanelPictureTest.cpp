#include <gtest/gtest.h>
#include <png.h>

#include <string>
#include <vector>

#include "sim/PanelPicture.h"

using FPSIM::PanelPicture;

namespace {

// The geometry pictures are drawn with: cells from (28, 28), 24 x 36 pixels,
// dots every 4 pixels, a glyph's top row one dot below the cell's top.
unsigned DotX(unsigned column, unsigned dot) {
    return 28 + column * 24 + dot * 4 + 1;
}
unsigned DotY(unsigned row, unsigned dot) {
    return 28 + row * 36 + (dot + 1) * 4 + 1;
}

constexpr uint32_t kGlass = 0x1F3F9F, kLit = 0xE6EEFF, kUnlit = 0x2A4BAA;

struct Decoded_t {
    unsigned width = 0, height = 0;
    std::vector<uint8_t> rgb;
    uint32_t At(unsigned x, unsigned y) const {
        const uint8_t* p = &rgb[(size_t(y) * width + x) * 3];
        return uint32_t(p[0]) << 16 | uint32_t(p[1]) << 8 | p[2];
    }
};

Decoded_t Decode(const std::string& png) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    Decoded_t out;
    if (!png_image_begin_read_from_memory(&image, png.data(), png.size()))
        return out;
    image.format = PNG_FORMAT_RGB;
    out.rgb.resize(PNG_IMAGE_SIZE(image));
    if (!png_image_finish_read(&image, nullptr, out.rgb.data(), 0, nullptr))
        return Decoded_t();
    out.width = image.width;
    out.height = image.height;
    return out;
}

// Every symbol on the top row; on the second a word, a reverse run with
// characters SVG must escape, and a byte the panel has no glyph for.
FPSIM::PanelState_t SmallPanel() {
    FPSIM::PanelState_t s;
    s.grid = FPSIM::PanelGrid(12, 2);
    std::vector<uint8_t> symbols;
    for (uint8_t b = 0x7F; b <= 0x8A; ++b)
        symbols.push_back(b);
    s.grid.Write(0, 0, symbols.data(), symbols.size(), false);
    s.grid.Write(0, 1, reinterpret_cast<const uint8_t*>("a<b"), 3, false);
    s.grid.Write(5, 1, reinterpret_cast<const uint8_t*>("Go&"), 3, true);
    const uint8_t unknown = 0x01;
    s.grid.Write(10, 1, &unknown, 1, false);
    s.leds = {{1, true}, {3, false}};
    s.unitStatus = 2;
    s.fanState = 0;
    return s;
}

TEST(PanelPictureTest, PngShowsCellsSymbolsReverseVideoAndLamps) {
    const Decoded_t png = Decode(PanelPicture::Png(SmallPanel()));
    ASSERT_GT(png.width, 12u * 24);
    ASSERT_GT(png.height, 2u * 36);
    const struct {
        unsigned x, y;
        uint32_t rgb;
        const char* what;
    } spots[] = {
        {DotX(0, 2), DotY(0, 0), kLit, "up/down: top of the shaft"},
        {DotX(0, 2), DotY(0, 6), kLit, "up/down: bottom of the shaft"},
        {DotX(0, 0), DotY(0, 0), kUnlit, "up/down: an unlit dot still shows"},
        {DotX(1, 0), DotY(0, 3), kLit, "left/right: left tip"},
        {DotX(2, 4), DotY(0, 0), kLit, "enter: top of the return"},
        {DotX(3, 2), DotY(0, 4), kUnlit, "lock: the keyhole"},
        {DotX(3, 2), DotY(0, 3), kLit, "lock: the body"},
        {DotX(4, 0), DotY(0, 2), kLit, "back: the arrow's tip"},
        {DotX(5, 4), DotY(0, 1), kLit, "tick: the long stroke's end"},
        {DotX(6, 2), DotY(0, 3), kLit, "cross: the middle"},
        {DotX(7, 2), DotY(0, 3), kUnlit, "spare symbol: a hollow box"},
        {DotX(7, 0), DotY(0, 1), kLit, "spare symbol: the box's side"},
        {DotX(11, 2), DotY(0, 3), kLit, "disabled: the stroke through the ring"},
        {DotX(5, 0), DotY(1, 3), kGlass, "reverse: a lit dot takes the glass colour"},
        {DotX(5, 0), DotY(1, 0), kLit, "reverse: an unlit dot is the background"},
        {28 + 6 * 24 - 1, DotY(1, 3), kLit, "reverse: no gap between cells of a run"},
        {28 + 3 * 24 - 1, DotY(1, 3), kGlass, "normal: the gap between cells"},
        {DotX(10, 0), DotY(1, 0), kLit, "an unknown byte: checker pattern"},
        {DotX(10, 1), DotY(1, 0), kUnlit, "an unknown byte: checker pattern"},
        {23, 131, 0x35D05A, "LED 1 on"},
        {65, 131, 0x3A4048, "LED 3 off"},
    };
    for (const auto& s : spots)
        EXPECT_EQ(png.At(s.x, s.y), s.rgb) << s.what << " at " << s.x << "," << s.y;
}

TEST(PanelPictureTest, SvgKeepsTextSearchableAndDrawsSymbolsAsDots) {
    const std::string svg = PanelPicture::Svg(SmallPanel());
    EXPECT_EQ(svg.rfind("<svg xmlns=\"http://www.w3.org/2000/svg\"", 0), 0u);
    EXPECT_EQ(svg.substr(svg.size() - 7), "</svg>\n");
    for (const char* part : {
             ">a&lt;b</text>",                                       // escaped
             "fill=\"#1f3f9f\">Go&amp;</text>",                      // reverse ink
             "<rect x=\"148\" y=\"64\" width=\"72\" height=\"36\"",  // reverse run, 3 cells
             ">status 2  brightness -  fan off</text>",
             "fill=\"#35d05a\"/>\n<text x=\"34\" y=\"138\">1</text>",
             "fill=\"#3a4048\"/>\n<text x=\"76\" y=\"138\">3</text>",
         })
        EXPECT_NE(svg.find(part), std::string::npos) << part << "\n" << svg;
    // The dot pattern, twelve symbols and the unknown byte are paths.
    size_t paths = 0;
    for (size_t at = svg.find("<path"); at != std::string::npos; at = svg.find("<path", at + 1))
        ++paths;
    EXPECT_EQ(paths, 14u);
}

TEST(PanelPictureTest, SameStateSameBytesAndSaveByEnding) {
    FPSIM::PanelState_t s = SmallPanel();
    const std::string png = PanelPicture::Png(s);
    EXPECT_EQ(png, PanelPicture::Png(s));
    EXPECT_EQ(PanelPicture::Svg(s), PanelPicture::Svg(s));
    s.grid.Write(0, 1, reinterpret_cast<const uint8_t*>("a"), 1, true);
    EXPECT_NE(png, PanelPicture::Png(s));

    std::string error;
    EXPECT_FALSE(PanelPicture::Save("panel.gif", s, error));
    EXPECT_EQ(error, "a picture is .svg or .png: panel.gif");
    EXPECT_FALSE(PanelPicture::Save("/nonexistent/dir/panel.png", s, error));
    EXPECT_EQ(error, "cannot write /nonexistent/dir/panel.png");
}

}  // namespace
