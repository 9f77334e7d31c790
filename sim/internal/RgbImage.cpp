#include "sim/internal/RgbImage.h"

#include <png.h>

#include <algorithm>
#include <csetjmp>

namespace FPSIM {

namespace {

void Append(png_structp png, png_bytep data, png_size_t length) {
    auto* out = static_cast<std::string*>(png_get_io_ptr(png));
    out->append(reinterpret_cast<const char*>(data), length);
}

void NoFlush(png_structp) {}

}  // namespace

RgbImage::RgbImage(unsigned width, unsigned height, uint32_t background)
    : width_(width), height_(height), rgb_(size_t(width) * height * 3) {
    Fill(0, 0, width, height, background);
}

void RgbImage::Fill(unsigned x, unsigned y, unsigned w, unsigned h, uint32_t rgb) {
    const unsigned right = std::min(width_, x + w);
    const unsigned bottom = std::min(height_, y + h);
    for (unsigned py = y; py < bottom; ++py) {
        for (unsigned px = x; px < right; ++px) {
            uint8_t* p = &rgb_[(size_t(py) * width_ + px) * 3];
            p[0] = uint8_t(rgb >> 16);
            p[1] = uint8_t(rgb >> 8);
            p[2] = uint8_t(rgb);
        }
    }
}

uint32_t RgbImage::Pixel(unsigned x, unsigned y) const {
    if (x >= width_ || y >= height_)
        return 0;
    const uint8_t* p = &rgb_[(size_t(y) * width_ + x) * 3];
    return uint32_t(p[0]) << 16 | uint32_t(p[1]) << 8 | p[2];
}

std::string RgbImage::EncodePng() const {
    std::string out;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    if (!info) {
        png_destroy_write_struct(&png, nullptr);
        return out;
    }
    // libpng reports errors by longjmp; nothing with a destructor is created
    // between here and the end, so jumping back is safe.
    if (setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        return std::string();
    }
    png_set_write_fn(png, &out, &Append, &NoFlush);
    png_set_IHDR(png, info, width_, height_, 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    // Fixed settings, so the bytes depend on the pixels only.
    png_set_compression_level(png, 9);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
    png_write_info(png, info);
    for (unsigned y = 0; y < height_; ++y)
        png_write_row(png, const_cast<png_bytep>(&rgb_[size_t(y) * width_ * 3]));
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return out;
}

}  // namespace FPSIM
