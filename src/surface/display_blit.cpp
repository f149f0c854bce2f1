// Unclipped conversion into 16-bit display memory. The rectangle and the memory are trusted.
#include <gfx/surface.h>

#include "surface/pixel_format.h"
#include "surface/rows/row_dispatch.h"

namespace {

using gfx::PixelRows;

/// Runs a kernel row by row: display memory has a pitch and no row table.
template <class Kernel>
void BlitRows(PixelRows from, unsigned w, unsigned h, void* dest, unsigned destPitch,
              Kernel kernel) {
    auto* row = static_cast<std::uint8_t*>(dest);
    for (unsigned j = 0; j < h; ++j) {
        kernel(PixelRows{&row, 0}, PixelRows{from.lines + j, from.x}, w, 1U);
        row += destPitch;
    }
}

}  // namespace

void GfxSurface::QuickBltTo565(unsigned int x, unsigned int y, unsigned int w, unsigned int h,
                               void* dest, unsigned int destPitch) const {
    const gfx::FormatKernels& kernels = gfx::Kernels()[gfx::Storage::Rgb565];
    switch (gfx::StorageOf(depth, pixelShift, lines)) {
        case gfx::Storage::Rgb565: {
            const auto copy = [&](PixelRows to, PixelRows from, unsigned n, unsigned rows) {
                kernels.copy(to, from, n, rows, false);
            };
            return BlitRows({lines + y, x}, w, h, dest, destPitch, copy);
        }
        case gfx::Storage::Color32:
            return BlitRows({lines + y, x}, w, h, dest, destPitch, kernels.fromWords);
        default:
            return;
    }
}

void GfxSurface::QuickBltTo555(unsigned int x, unsigned int y, unsigned int w, unsigned int h,
                               void* dest, unsigned int destPitch) const {
    const gfx::Storage storage = gfx::StorageOf(depth, pixelShift, lines);
    if (storage != gfx::Storage::Rgb565 && storage != gfx::Storage::Color32) return;
    BlitRows({lines + y, x}, w, h, dest, destPitch, gfx::Kernels()[storage].toDisplay555);
}

void GfxSurface::QuickBltTo24(unsigned int, unsigned int, unsigned int, unsigned int, void*,
                              unsigned int) const {}

void GfxSurface::QuickBltTo32(unsigned int, unsigned int, unsigned int, unsigned int, void*,
                              unsigned int) const {}
