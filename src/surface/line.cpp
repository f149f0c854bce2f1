// Plain lines, solid and dashed: one pixel a step. Only the visible stretch is walked.
#include <gfx/surface.h>

#include "surface/line_target.h"

using gfx::DashPattern;
using gfx::FixedSteps;
using gfx::LineTarget;
using gfx::LineWalk;
using gfx::StepRange;

namespace {

/// Plots the steps of a range, all of them visible.
template <class Format, class Steps>
void PlotVisible(const LineTarget& target, const LineWalk& walk, const Steps& steps,
                 StepRange range, std::uint32_t color) {
    const std::uint32_t rgb = color & 0x00FFFFFF;
    const std::uint32_t alpha = gfx::AlphaOf(color);
    std::uint8_t* const* const lines = target.lines;
    const auto along = [=](auto put) {
        if (walk.isAlongX) {
            gfx::WalkSteps(walk, steps, range, [=](int x, int y, const Steps&) {
                put(lines[y], static_cast<std::size_t>(x));
            });
        } else {
            gfx::WalkSteps(walk, steps, range, [=](int y, int x, const Steps&) {
                put(lines[y], static_cast<std::size_t>(x));
            });
        }
    };
    if (alpha == 0) {
        const std::uint32_t pixel = Format::FromRgb(color);
        return along(
            [=](std::uint8_t* row, std::size_t x) { gfx::StorePixel<Format>(row, x, pixel); });
    }
    const std::uint32_t weight = gfx::OldWeight(alpha);
    along([=](std::uint8_t* row, std::size_t x) {
        const std::uint32_t old = gfx::LoadPixel<Format>(row, x);
        gfx::StorePixel<Format>(row, x, Format::Mix(old, rgb, weight));
    });
}

/// @return whether any step lies inside the clip rectangle and is drawn.
template <class Steps>
bool PlotLine(const LineTarget& target, const LineWalk& walk, const Steps& steps,
              std::uint32_t color, const DashPattern& pattern) {
    const StepRange visible =
        StepsInside(walk, steps, StepsAlong(walk, target.Major(walk)), target.Minor(walk));
    bool isTouched = false;
    pattern.ForEachRun(visible, [&](StepRange run) {
        isTouched = true;
        if (gfx::AlphaOf(color) == 255) return;
        gfx::WithFormat(target.storage, [&]<class Format>(Format) {
            PlotVisible<Format>(target, walk, steps, run, color);
        });
    });
    return isTouched;
}

}  // namespace

void GfxSurface::DrawLine(int x0, int y0, int x1, int y1, unsigned int color) {
    DrawLine(x0, y0, x1, y1, color, nullptr, 0);
}

void GfxSurface::DrawLine(int x0, int y0, int x1, int y1, unsigned int color,
                          const unsigned short* pattern, int count) {
    const LineWalk walk = gfx::WalkOf(x0, y0, x1, y1);
    if (walk.steps == 0) return SetPixelRGBBlend(x0, y0, color);
    CheckLength(walk, MAX_LINE_LENGTH);
    // For every line: whether one can be drawn must not depend on its slope.
    if (dots == nullptr) AllocDotsBuffer();
    const DashPattern dashes{pattern, count};
    if (walk.isAlongX && walk.IsStraight() && dashes.IsSolid()) {
        return RectFillBlend(walk.majorStart, walk.minorStart, walk.steps + 1, 1, color);
    }
    const LineTarget target{
        lines, gfx::StorageOf(depth, pixelShift, lines), {clipX0, clipX1}, {clipY0, clipY1}};
    bool isTouched = false;
    if (FixedSteps::ServesPlain(walk)) {
        isTouched = PlotLine(target, walk, FixedSteps::Plain(walk), color, dashes);
    } else {
        ComputeLineDots(static_cast<std::uint32_t>(walk.minorStart), walk.steps, walk.Rise(), 0.5);
        isTouched = PlotLine(target, walk, gfx::BufferedSteps(dots), color, dashes);
    }
    if (isTouched) empty = false;
}
