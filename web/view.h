// What a browser needs to see a surface: its pixels in the order of a canvas, and as they are
// stored.
#pragma once

#include <gfx/surface.h>

#include <cstdint>
#include <vector>

namespace playground {

/// Turns rectangles of surfaces into pixels of a canvas. Keeps its memory from call to call.
class View {
public:
    View() = default;
    View(const View&) = delete;
    View& operator=(const View&) = delete;
    ~View() { GfxSurface::Delete(words_); }

    /// Red, green, blue and 255 of each pixel of a rectangle, row by row, whatever the depth; what
    /// lies outside the surface is black. Valid until the next call.
    const std::vector<std::uint8_t>& Bytes(const GfxSurface& surface, int x, int y, unsigned w,
                                           unsigned h);

private:
    GfxSurface* words_ = nullptr;
    std::vector<std::uint8_t> bytes_;
};

/// The bytes of pixel (x, y) as one number, as the surface stores it; 0 outside of it.
std::uint32_t StoredPixel(const GfxSurface& surface, int x, int y);

}  // namespace playground
