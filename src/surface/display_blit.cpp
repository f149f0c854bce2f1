// Unclipped conversion into 16-bit display memory. The rectangle and the memory are trusted.
#include <gfx/surface.h>

#include "surface/pixel_format.h"
#include "surface/rows/row_dispatch.h"

namespace {

using gfx::PixelRows;

/// Stores each pixel of a 32-bit row as 5-6-5 in turn, whatever memory the two share.
void ConvertInOrder(std::uint8_t* to, const std::uint8_t* from, unsigned w) {
    for (std::size_t i = 0; i < w; ++i) {
        const std::uint32_t color = gfx::LoadPixel<gfx::Color32>(from, i);
        gfx::StorePixel<gfx::Rgb565>(to, i, gfx::RgbToPixel16(color));
    }
}

/// Calls blit(row of display memory, source row) for each row: display memory has a pitch and no
/// row table.
template <class Blit>
void BlitRows(PixelRows from, unsigned h, void* dest, unsigned destPitch, Blit blit) {
    for (unsigned j = 0; j < h; ++j) {
        std::uint8_t* row = static_cast<std::uint8_t*>(dest) + std::size_t{j} * destPitch;
        blit(PixelRows{&row, 0}, PixelRows{from.lines + j, from.x});
    }
}

}  // namespace

void GfxSurface::QuickBltTo565(unsigned int x, unsigned int y, unsigned int w, unsigned int h,
                               void* dest, unsigned int destPitch) const {
    const gfx::PixelFormat format = gfx::FormatOf(depth, pixelShift, lines);
    const gfx::FormatKernels& kernels = gfx::Kernels()[gfx::PixelFormat::Rgb565];
    if (w == 0) return;
    if (format == gfx::PixelFormat::Rgb565) {
        BlitRows({lines + y, x}, h, dest, destPitch,
                 [&](PixelRows to, PixelRows from) { kernels.copy(to, from, w, 1, false); });
    } else if (format == gfx::PixelFormat::Color32) {
        BlitRows({lines + y, x}, h, dest, destPitch, [&](PixelRows to, PixelRows from) {
            if (kernels.fromWords(to, from, w, 1) == 1) return;
            ConvertInOrder(*to.lines, *from.lines + from.x * sizeof(std::uint32_t), w);
        });
    }
}

void GfxSurface::QuickBltTo555(unsigned int x, unsigned int y, unsigned int w, unsigned int h,
                               void* dest, unsigned int destPitch) const {
    const gfx::PixelFormat format = gfx::FormatOf(depth, pixelShift, lines);
    const bool isServed = format == gfx::PixelFormat::Rgb565 || format == gfx::PixelFormat::Color32;
    if (w == 0 || !isServed) return;
    const auto toDisplay555 = gfx::Kernels()[format].toDisplay555;
    BlitRows({lines + y, x}, h, dest, destPitch,
             [&](PixelRows to, PixelRows from) { toDisplay555(to, from, w, 1); });
}

void GfxSurface::QuickBltTo24(unsigned int, unsigned int, unsigned int, unsigned int, void*,
                              unsigned int) const {}

void GfxSurface::QuickBltTo32(unsigned int, unsigned int, unsigned int, unsigned int, void*,
                              unsigned int) const {}
