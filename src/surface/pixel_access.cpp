// Single pixels: write, blend, read, and reading between pixels. Positions are tested against the
// clip rectangle alone, which always lies inside the surface's memory.
#include <gfx/surface.h>

#include "surface/surface_view.h"

namespace {

using gfx::LoadPixel;
using gfx::StorePixel;
using gfx::SurfaceView;

/// The four channels of a colour word, alpha first.
struct Channels {
    double value[4];
};

Channels Split(std::uint32_t color) {
    return {{static_cast<double>(color >> 24), static_cast<double>(color >> 16 & 0xFF),
             static_cast<double>(color >> 8 & 0xFF), static_cast<double>(color & 0xFF)}};
}

Channels Interpolate(const Channels& from, const Channels& to, double part) {
    Channels mixed;
    for (int i = 0; i < 4; ++i) {
        mixed.value[i] = from.value[i] + (to.value[i] - from.value[i]) * part;
    }
    return mixed;
}

/// Truncates to 0..255. Written so that NaN gives 0: fx and fy are the caller's.
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
    const SurfaceView view{*this};
    if (!view.Holds(x, y)) return;
    empty = false;
    gfx::WithFormat(view.Format(), [&]<class Format>(Format) {
        StorePixel<Format>(view.Row(y), static_cast<std::size_t>(x), Format::FromRgb(color));
    });
}

void GfxSurface::SetPixelRGBBlend(int x, int y, unsigned int color) {
    const SurfaceView view{*this};
    if (!view.Holds(x, y)) return;
    empty = false;
    gfx::WithFormat(view.Format(), [&]<class Format>(Format) {
        gfx::BlendInto<Format>(view.Row(y), static_cast<std::size_t>(x), color & 0x00FFFFFF,
                               gfx::AlphaOf(color));
    });
}

unsigned int GfxSurface::RetPixelRGB(int x, int y) const {
    const SurfaceView view{*this};
    std::uint32_t color = 0;
    if (!view.Holds(x, y)) return color;
    gfx::WithFormat(view.Format(), [&]<class Format>(Format) {
        color = Format::ToRgb(LoadPixel<Format>(view.Row(y), static_cast<std::size_t>(x)), alpha);
    });
    return color;
}

unsigned int GfxSurface::RetPixelMergeRGB(int x, int y, double fx, double fy) const {
    // One of the two positions of an axis may lie outside: the other one counts alone.
    const gfx::ClipBounds clip = SurfaceView{*this}.Clip();
    const int right = gfx::NextTo(x);
    const int below = gfx::NextTo(y);
    const bool hasLeft = clip.HoldsColumn(x);
    const bool hasTop = clip.HoldsRow(y);
    const bool hasRight = clip.HoldsColumn(right);
    const bool hasBelow = clip.HoldsRow(below);
    if (!(hasLeft || hasRight) || !(hasTop || hasBelow)) return 0;

    const auto column = [&](int at) {
        if (!hasBelow) return Split(RetPixelRGB(at, y));
        if (!hasTop) return Split(RetPixelRGB(at, below));
        return Interpolate(Split(RetPixelRGB(at, y)), Split(RetPixelRGB(at, below)), fy);
    };
    if (!hasRight) return Pack(column(x));
    if (!hasLeft) return Pack(column(right));
    return Pack(Interpolate(column(x), column(right), fx));
}
