// Plain lines, solid and dashed: one pixel a step. Only the visible stretch is walked.
#include "surface/lines/line_recurrence.h"
#include "surface/lines/line_target.h"
#include "surface/rows/pixel_pair.h"

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
    const auto alongX = [=](auto put) {
        gfx::WalkSteps(walk, steps, range, [=](int x, int y, const Steps&) {
            put(lines[y], static_cast<std::size_t>(x));
        });
    };
    const auto alongY = [=](auto put) {
        gfx::WalkSteps(walk, steps, range, [=](int y, int x, const Steps&) {
            put(lines[y], static_cast<std::size_t>(x));
        });
    };
    if (alpha == 0) {
        const std::uint32_t pixel = Format::FromRgb(color);
        const auto store = [=](std::uint8_t* row, std::size_t x) {
            gfx::StorePixel<Format>(row, x, pixel);
        };
        return walk.isAlongX ? alongX(store) : alongY(store);
    }
    const auto blendBy = [](const auto& mix) {
        return
            [=](std::uint8_t* row, std::size_t x) { mix(row + x * sizeof(typename Format::Unit)); };
    };
    constexpr unsigned kFewRows = 32;
    if (!walk.isAlongX && range.last - range.first > kFewRows && target.hasCrowdedRows) {
        return alongY(blendBy(gfx::PlainBlend<Format>(rgb, alpha)));
    }
    const auto blend = blendBy(gfx::PixelBlend<Format>(rgb, alpha));
    walk.isAlongX ? alongX(blend) : alongY(blend);
}

/// Plots a line's visible steps. @return whether any of them is drawn.
template <class Steps>
bool PlotLine(const LineTarget& target, const LineWalk& walk, const Steps& steps, StepRange visible,
              std::uint32_t color, const DashPattern& pattern) {
    bool isTouched = false;
    pattern.ForEachRun(visible, [&](StepRange run) {
        isTouched = true;
        if (gfx::AlphaOf(color) == 255) return;
        gfx::WithFormat(target.format, [&]<class Format>(Format) {
            PlotVisible<Format>(target, walk, steps, run, color);
        });
    });
    return isTouched;
}

}  // namespace

void GfxSurface::DrawLine(int x0, int y0, int x1, int y1, unsigned int color) {
    const gfx::RowSpan row = gfx::LevelRow(x0, y0, x1, y1, MAX_LINE_LENGTH);
    if (row.length != 0 && dots != nullptr) return RectFillBlend(row.x, y0, row.length, 1, color);
    DrawLine(x0, y0, x1, y1, color, nullptr, 0);
}

void GfxSurface::DrawLine(int x0, int y0, int x1, int y1, unsigned int color,
                          const unsigned short* pattern, int count) {
    const DashPattern dashes{pattern, count};
    const LineWalk walk = gfx::WalkOf(x0, y0, x1, y1);
    if (walk.steps == 0) return SetPixelRGBBlend(x0, y0, color);
    CheckLength(walk, MAX_LINE_LENGTH);
    // For every line: whether one can be drawn must not depend on its slope.
    if (dots == nullptr) AllocDotsBuffer();
    const gfx::SurfaceView view{*this};
    const LineTarget target(view);
    // And so all between.
    const bool isInside = view.Holds(x0, y0) && view.Holds(x1, y1);
    const auto plot = [&](const auto& steps, StepRange visible) {
        if (PlotLine(target, walk, steps, visible, color, dashes)) empty = false;
    };
    const auto visibleOf = [&](const auto& steps) {
        return StepsInside(walk, steps, StepsAlong(walk, target.Major(walk)), target.Minor(walk));
    };
    if (FixedSteps::ServesPlain(walk)) {
        const FixedSteps steps = FixedSteps::Plain(walk);
        return plot(steps, isInside ? gfx::WholeLine(walk) : visibleOf(steps));
    }
    const auto minorStart = static_cast<std::uint32_t>(walk.minorStart);
    if (isInside && dashes.IsSolid()) {
        const gfx::RecurringSteps steps(minorStart, 0.5, walk.Rise(), walk.steps);
        return plot(steps, gfx::WholeLine(walk));
    }
    ComputeLineDotsDX(0, minorStart, walk.steps, walk.Rise(), 0.5);
    const gfx::BufferedSteps steps(dots);
    plot(steps, visibleOf(steps));
}
