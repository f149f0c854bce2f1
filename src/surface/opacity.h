// The factor by which RectBlendAlpha scales the opaque share of a source.
#ifndef GFX_SURFACE_OPACITY_H
#define GFX_SURFACE_OPACITY_H

#include <cstdint>

namespace gfx {

/// The scale that leaves a source as it is. Larger ones make it more opaque.
inline constexpr std::uint32_t kUnitOpacity = 256;

/// Beyond it every product with a share of 255 is far above 255 anyway, and none wraps.
inline constexpr std::uint32_t kMaxOpacityScale = 65536;

/// k = trunc(256 (1 - transparency) + 0.5), 0 from 1 on. NaN counts as 0.
inline std::uint32_t OpacityScale(double transparency) {
    if (transparency != transparency) return kUnitOpacity;
    if (transparency > 1.0) return 0;
    const double k = 256.0 * (1.0 - transparency) + 0.5;
    return k >= kMaxOpacityScale ? kMaxOpacityScale : static_cast<std::uint32_t>(k);
}

}  // namespace gfx

#endif  // GFX_SURFACE_OPACITY_H
