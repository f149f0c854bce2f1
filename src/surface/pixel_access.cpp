// Single pixels: write, blend, read, and reading between pixels. Positions are tested against the
// clip rectangle alone, which always lies inside the surface's memory.
#include <gfx/surface.h>

#include "surface/pixel_format.h"

namespace {

using gfx::LoadPixel;
using gfx::StorePixel;

/// The four channels of a colour word, alpha first.
struct Channels {
    double value[4];
};

Channels Split(std::uint32_t color) {
    return {{static_cast<double>(color >> 24), static_cast<double>(color >> 16 & 0xFF),
             static_cast<double>(color >> 8 & 0xFF), static_cast<double>(color & 0xFF)}};
}

Channels Interpolate(const Channels& from, const Channels& to, double weight) {
    Channels mixed;
    for (int i = 0; i < 4; ++i) {
        mixed.value[i] = from.value[i] + (to.value[i] - from.value[i]) * weight;
    }
    return mixed;
}

/// Truncates to 0..255. Written so that NaN gives 0: the weights are the caller's.
std::uint32_t ToByte(double value) {
    if (!(value > 0.0)) return 0;
    return value >= 255.0 ? 255U : static_cast<std::uint32_t>(value);
}

std::uint32_t Pack(const Channels& color) {
    return ToByte(color.value[0]) << 24 | ToByte(color.value[1]) << 16 |
           ToByte(color.value[2]) << 8 | ToByte(color.value[3]);
}

}  // namespace

void GfxSurface::SetPixelRGB(int x, int y, unsigned int color) {
    if (!IsInsideClip(x, y)) return;
    empty = false;
    gfx::WithFormat(gfx::FormatOf(depth, pixelShift, lines), [&]<class Format>(Format) {
        StorePixel<Format>(lines[y], static_cast<std::size_t>(x), Format::FromRgb(color));
    });
}

void GfxSurface::SetPixelRGBBlend(int x, int y, unsigned int color) {
    if (!IsInsideClip(x, y)) return;
    empty = false;
    gfx::WithFormat(gfx::FormatOf(depth, pixelShift, lines), [&]<class Format>(Format) {
        gfx::BlendInto<Format>(lines[y], static_cast<std::size_t>(x), color & 0x00FFFFFF,
                               gfx::AlphaOf(color));
    });
}

unsigned int GfxSurface::RetPixelRGB(int x, int y) const {
    std::uint32_t color = 0;
    if (!IsInsideClip(x, y)) return color;
    gfx::WithFormat(gfx::FormatOf(depth, pixelShift, lines), [&]<class Format>(Format) {
        color = Format::ToRgb(LoadPixel<Format>(lines[y], static_cast<std::size_t>(x)), alpha);
    });
    return color;
}

unsigned int GfxSurface::RetPixelMergeRGB(int x, int y, double fx, double fy) const {
    // One of the two positions of an axis may lie outside: the other carries the whole weight.
    const bool hasLeft = x >= clipX0 && x < clipX1;
    const bool hasTop = y >= clipY0 && y < clipY1;
    const bool hasRight = std::int64_t{x} + 1 >= clipX0 && std::int64_t{x} + 1 < clipX1;
    const bool hasBottom = std::int64_t{y} + 1 >= clipY0 && std::int64_t{y} + 1 < clipY1;
    if (!(hasLeft || hasRight) || !(hasTop || hasBottom)) return 0;

    const auto column = [&](int at) {
        if (!hasBottom) return Split(RetPixelRGB(at, y));
        if (!hasTop) return Split(RetPixelRGB(at, y + 1));
        return Interpolate(Split(RetPixelRGB(at, y)), Split(RetPixelRGB(at, y + 1)), fy);
    };
    if (!hasRight) return Pack(column(x));
    if (!hasLeft) return Pack(column(x + 1));
    return Pack(Interpolate(column(x), column(x + 1), fx));
}
