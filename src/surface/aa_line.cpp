// Anti-aliased lines, solid and dashed: two neighbouring pixels a step share the colour by how far
// the exact line lies between them.
#include <gfx/surface.h>

#include "surface/line_walk.h"
#include "surface/pixel_format.h"

using gfx::DashPhase;
using gfx::LineWalk;

namespace {

/// A colour's share of a pixel that the line covers by `coverage` of 255, as an alpha byte. The
/// colour's own weight scales it, so that an invisible colour leaves both pixels alone.
std::uint32_t ShareAlpha(std::uint32_t coverage, std::uint32_t colorWeight) {
    return 255 - (coverage * colorWeight >> 8);
}

}  // namespace

void GfxSurface::DrawAALine(int x0, int y0, int x1, int y1, unsigned int color) {
    DrawAALine(x0, y0, x1, y1, color, nullptr, 0);
}

void GfxSurface::DrawAALine(int x0, int y0, int x1, int y1, unsigned int color,
                            const unsigned short* pattern, int count) {
    const LineWalk walk = gfx::WalkOf(x0, y0, x1, y1);
    if (walk.steps == 0) return SetPixelRGBBlend(x0, y0, color);
    CheckLength(walk, MAX_LINE_LENGTH);
    ComputeLineDots(static_cast<std::uint32_t>(walk.minorStart), walk.steps, walk.Rise(), 0.0);

    const std::uint32_t weight = 256 - gfx::OldWeight(gfx::AlphaOf(color));
    const std::uint32_t rgb = color & 0x00FFFFFF;
    const auto plot = [&](unsigned i) {
        const int major = walk.majorStart + static_cast<int>(i);
        const int near = dots[i].minor;
        const auto far = static_cast<int>(static_cast<unsigned>(near) + 1);
        const std::uint32_t nearColor = ShareAlpha(255U - dots[i].fraction, weight) << 24 | rgb;
        const std::uint32_t farColor = ShareAlpha(dots[i].fraction, weight) << 24 | rgb;
        if (walk.isAlongX) {
            SetPixelRGBBlend(major, near, nearColor);
            SetPixelRGBBlend(major, far, farColor);
        } else {
            SetPixelRGBBlend(near, major, nearColor);
            SetPixelRGBBlend(far, major, farColor);
        }
    };
    if (DashPhase::IsSolid(pattern, count)) {
        for (unsigned i = 0; i <= walk.steps; ++i)
            plot(i);
        return;
    }
    DashPhase phase(pattern, count);
    for (unsigned i = 0; i <= walk.steps; ++i) {
        if (phase.IsNextDrawn()) plot(i);
    }
}
