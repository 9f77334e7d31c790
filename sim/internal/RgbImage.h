#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace FPSIM {

// An RGB raster that a picture is painted on and then saved as PNG.
class RgbImage {
public:
    RgbImage(unsigned width, unsigned height, uint32_t background);

    unsigned Width() const { return width_; }
    unsigned Height() const { return height_; }

    // Paints a rectangle, clipped to the image; colours are 0xRRGGBB.
    void Fill(unsigned x, unsigned y, unsigned w, unsigned h, uint32_t rgb);
    uint32_t Pixel(unsigned x, unsigned y) const;

    // The image as a PNG file: 8-bit RGB, no time stamp or other chunk that
    // would make two saves of the same picture differ. Empty if libpng fails.
    std::string EncodePng() const;

private:
    unsigned width_;
    unsigned height_;
    std::vector<uint8_t> rgb_;
};

}  // namespace FPSIM
