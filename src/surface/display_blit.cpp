// Unclipped conversion into 16-bit display memory. The rectangle and the memory are trusted.
#include "surface/surface_view.h"

namespace {

using gfx::PixelRows;

/// Stores each pixel of a 32-bit row as 5-6-5 in turn, whatever memory the two share.
void ConvertInOrder(std::uint8_t* to, const std::uint8_t* from, unsigned w) {
    for (std::size_t i = 0; i < w; ++i) {
        const std::uint32_t color = gfx::LoadPixel<gfx::Color32>(from, i);
        gfx::StorePixel<gfx::Rgb565>(to, i, gfx::RgbToPixel16(color));
    }
}

/// Calls blit(row of display memory, source row, pixels) for each row, or for all as one: display
/// memory has a pitch and no row table.
template <class Blit>
void BlitRows(const gfx::RectRows& from, unsigned w, unsigned h, void* dest, unsigned destPitch,
              Blit blit) {
    auto* const display = static_cast<std::uint8_t*>(dest);
    const gfx::SingleRow row{display};
    const gfx::RectRows first{row, sizeof(std::uint16_t)};
    if (destPitch == w * first.pixelBytes && IsOneRun(from, w, h) &&
        AreRunsApart(first, from, std::size_t{w} * h)) {
        return blit(first.rows, from.rows, w * h);
    }
    for (unsigned j = 0; j < h; ++j) {
        blit(gfx::SingleRow{display + std::size_t{j} * destPitch},
             PixelRows{from.rows.lines + j, from.rows.x}, w);
    }
}

void RowTo565(gfx::Rgb565, PixelRows to, PixelRows from, unsigned w) {
    gfx::Kernels()[gfx::PixelFormat::Rgb565].copy(to, from, w, 1, false);
}

void RowTo565(gfx::Color32, PixelRows to, PixelRows from, unsigned w) {
    if (gfx::Kernels()[gfx::PixelFormat::Rgb565].fromWords(to, from, w, 1) == 1) return;
    ConvertInOrder(*to.lines, *from.lines + from.x * sizeof(std::uint32_t), w);
}

}  // namespace

void GfxSurface::QuickBltTo565(unsigned int x, unsigned int y, unsigned int w, unsigned int h,
                               void* dest, unsigned int destPitch) const {
    if (w == 0) return;
    const gfx::SurfaceView view{*this};
    gfx::WithFormat(view.Format(), [&](auto format) {
        if constexpr (gfx::KeepsColor(format)) {
            BlitRows(
                view.RowsOf(x, y), w, h, dest, destPitch,
                [=](PixelRows to, PixelRows from, unsigned n) { RowTo565(format, to, from, n); });
        }
    });
}

void GfxSurface::QuickBltTo555(unsigned int x, unsigned int y, unsigned int w, unsigned int h,
                               void* dest, unsigned int destPitch) const {
    if (w == 0) return;
    const gfx::SurfaceView view{*this};
    gfx::WithFormat(view.Format(), [&](auto format) {
        if constexpr (gfx::KeepsColor(format)) {
            const auto toDisplay555 = view.KernelsOfPixels().toDisplay555;
            BlitRows(
                view.RowsOf(x, y), w, h, dest, destPitch,
                [=](PixelRows to, PixelRows from, unsigned n) { toDisplay555(to, from, n, 1); });
        }
    });
}

void GfxSurface::QuickBltTo24(unsigned int, unsigned int, unsigned int, unsigned int, void*,
                              unsigned int) const {}

void GfxSurface::QuickBltTo32(unsigned int, unsigned int, unsigned int, unsigned int, void*,
                              unsigned int) const {}
