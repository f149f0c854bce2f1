// The factor by which RectBlendAlpha scales the opacity, 255 - alpha, of a source.
#ifndef GFX_SURFACE_OPACITY_H
#define GFX_SURFACE_OPACITY_H

#include <cstdint>

namespace gfx {

/// The scale that leaves a source as it is. Larger ones make it more opaque.
inline constexpr std::uint32_t kUnitOpacityScale = 256;

/// Beyond it every opacity but 0 is scaled to 255 anyway, and no product wraps.
inline constexpr std::uint32_t kMaxOpacityScale = 65536;

/// k = trunc(256 (1 - transparency) + 0.5), 0 from 1 on. NaN counts as 0.
inline std::uint32_t OpacityScale(double transparency) {
    if (transparency != transparency) return kUnitOpacityScale;
    if (transparency > 1.0) return 0;
    const double k = 256.0 * (1.0 - transparency) + 0.5;
    return k >= kMaxOpacityScale ? kMaxOpacityScale : static_cast<std::uint32_t>(k);
}

}  // namespace gfx

#endif  // GFX_SURFACE_OPACITY_H
