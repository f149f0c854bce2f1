// Plain lines, solid and dashed: one pixel a step.
#include <gfx/surface.h>

#include "surface/line_walk.h"

using gfx::DashPhase;
using gfx::LineWalk;

void GfxSurface::DrawLine(int x0, int y0, int x1, int y1, unsigned int color) {
    DrawLine(x0, y0, x1, y1, color, nullptr, 0);
}

void GfxSurface::DrawLine(int x0, int y0, int x1, int y1, unsigned int color,
                          const unsigned short* pattern, int count) {
    const LineWalk walk = gfx::WalkOf(x0, y0, x1, y1);
    if (walk.steps == 0) return SetPixelRGBBlend(x0, y0, color);
    CheckLength(walk, MAX_LINE_LENGTH);
    ComputeLineDots(static_cast<std::uint32_t>(walk.minorStart), walk.steps, walk.Rise(), 0.5);

    const auto plot = [&](unsigned i) {
        const int major = walk.majorStart + static_cast<int>(i);
        const int minor = dots[i].minor;
        walk.isAlongX ? SetPixelRGBBlend(major, minor, color)
                      : SetPixelRGBBlend(minor, major, color);
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
