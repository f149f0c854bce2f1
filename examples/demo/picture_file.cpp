// Display memory, its way back to 8-bit channels, and the PNG file.
#include "picture_file.h"

#include <gfx/surface.h>
#include <png.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

#include "surface.h"

namespace demo {
namespace {

using RgbBytes = std::vector<std::uint8_t>;

void WritePng(const std::string& path, unsigned width, unsigned height, const RgbBytes& rgb) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = width;
    image.height = height;
    image.format = PNG_FORMAT_RGB;
    if (png_image_write_to_file(&image, path.c_str(), 0, rgb.data(), 0, nullptr) == 0) {
        throw std::runtime_error(path + ": " + image.message);
    }
}

// Bit replication, so that the largest value of n bits becomes 255.
std::uint8_t Widen5(unsigned v) { return static_cast<std::uint8_t>(v << 3 | v >> 2); }
std::uint8_t Widen6(unsigned v) { return static_cast<std::uint8_t>(v << 2 | v >> 4); }

void AppendPixel(RgbBytes& rgb, unsigned pixel, Display display) {
    if (display == Display::k565) {  // [RRRRRGGG GGGBBBBB]
        rgb.push_back(Widen5(pixel >> 11));
        rgb.push_back(Widen6(pixel >> 5 & 0x3F));
    } else {  // [0RRRRRGG GGGBBBBB]
        if ((pixel & 0x8000) != 0) throw std::runtime_error("the unused bit of a pixel is set");
        rgb.push_back(Widen5(pixel >> 10));
        rgb.push_back(Widen5(pixel >> 5 & 0x1F));
    }
    rgb.push_back(Widen5(pixel & 0x1F));
}

// A Bayer matrix of 8 x 8: the bits of x ^ y and y, interleaved and reversed.
unsigned BayerThreshold(unsigned x, unsigned y) {
    const unsigned m = x ^ y;
    return (m & 1) << 5 | (y & 1) << 4 | (m & 2) << 2 | (y & 2) << 1 | (m & 4) >> 1 | (y & 4) >> 2;
}

}  // namespace

void WritePicture(const std::string& path, const GfxSurface& surface) {
    RgbBytes rgb;
    rgb.reserve(std::size_t{3} * surface.DX() * surface.DY());
    for (unsigned y = 0; y < surface.DY(); ++y) {
        for (unsigned x = 0; x < surface.DX(); ++x) {
            const unsigned color = surface.RetPixelRGB(static_cast<int>(x), static_cast<int>(y));
            rgb.push_back(static_cast<std::uint8_t>(color >> 16));
            rgb.push_back(static_cast<std::uint8_t>(color >> 8));
            rgb.push_back(static_cast<std::uint8_t>(color));
        }
    }
    WritePng(path, surface.DX(), surface.DY(), rgb);
}

void WriteDisplayPicture(const std::string& path, const GfxSurface& surface, Display display) {
    const unsigned width = surface.DX();
    const unsigned height = surface.DY();
    const unsigned pitch = 2 * width + 64;  // real display rows are longer than what they show
    std::vector<std::uint8_t> memory(std::size_t{pitch} * height);
    if (display == Display::k565) {
        surface.QuickBltTo565(0, 0, width, height, memory.data(), pitch);
    } else {
        surface.QuickBltTo555(0, 0, width, height, memory.data(), pitch);
    }

    RgbBytes rgb;
    rgb.reserve(std::size_t{3} * width * height);
    for (unsigned y = 0; y < height; ++y) {
        const std::uint8_t* row = &memory[std::size_t{y} * pitch];
        for (unsigned x = 0; x < width; ++x) {
            AppendPixel(rgb, row[2 * x] | unsigned{row[2 * x + 1]} << 8, display);
        }
    }
    WritePng(path, width, height, rgb);
}

void Dither(GfxSurface& surface, Display display) {
    for (unsigned y = 0; y < surface.DY(); ++y) {
        std::uint32_t* row = Words(surface, static_cast<int>(y));
        for (unsigned x = 0; x < surface.DX(); ++x) {
            const unsigned step8 = BayerThreshold(x, y) >> 3;  // 0 to 7, below one step of 5 bits
            const unsigned green = display == Display::k565 ? step8 >> 1 : step8;
            const auto raise = [&](unsigned shift, unsigned by) {
                return std::min((row[x] >> shift & 0xFF) + by, 255u) << shift;
            };
            row[x] = (row[x] & 0xFF000000) | raise(16, step8) | raise(8, green) | raise(0, step8);
        }
    }
}

}  // namespace demo
