// Anti-aliased lines, solid and dashed: two neighbouring pixels a step, near and far, share the
// colour by how far the exact line lies between them.
#include <gfx/surface.h>

#include "surface/lines/line_blend.h"
#include "surface/lines/line_target.h"

using gfx::DashPattern;
using gfx::FixedSteps;
using gfx::Interval;
using gfx::LineTarget;
using gfx::LineWalk;
using gfx::StepRange;

namespace {

/// The colour of a line without its alpha, and the alpha's weight for the colour, of 256.
struct LineColor {
    std::uint32_t rgb;
    std::uint32_t weight;
    std::uint32_t whole;  // 255 times the weight: both shares come from one product

    explicit LineColor(std::uint32_t color)
        : rgb(color & 0x00FFFFFF),
          weight(256 - gfx::OldWeight(gfx::AlphaOf(color))),
          whole(255 * weight) {}

    // The colour's shares in the two pixels, of 255, at a fraction of 0..255. The weight scales
    // both, so that an invisible colour leaves both pixels alone.
    std::uint32_t NearShare(std::uint32_t fraction) const {
        return (whole - fraction * weight) >> 8;
    }
    std::uint32_t FarShare(std::uint32_t fraction) const { return fraction * weight >> 8; }

    /// The colour with a share as its alpha.
    std::uint32_t WithShare(std::uint32_t share) const { return (255 - share) << 24 | rgb; }

    /// The near pixel's where the dot meets it exactly.
    std::uint32_t WholeNear() const { return WithShare(NearShare(0)); }
};

/// The steps of a line by what of them is visible: some pixel in `touched`, both in `inner`.
struct VisibleSteps {
    StepRange touched;
    StepRange inner;
};

template <class Steps>
VisibleSteps VisibleStepsOf(const LineTarget& target, const LineWalk& walk, const Steps& steps) {
    const Interval minor = target.Minor(walk);
    const StepRange along = StepsAlong(walk, target.Major(walk));
    const StepRange touched = StepsInside(walk, steps, along, {minor.lo - 1, minor.hi});
    return {touched, StepsInside(walk, steps, touched, {minor.lo, minor.hi - 1})};
}

/// Whether two pixels share no byte. Their distance wraps: pixels that overlap are less than one
/// away on either side.
template <std::size_t kSize>
bool AreApart(const std::uint8_t* a, const std::uint8_t* b) {
    const auto distance = reinterpret_cast<std::uintptr_t>(b) - reinterpret_cast<std::uintptr_t>(a);
    return distance + (kSize - 1) >= 2 * kSize - 1;
}

/// Plots steps along x whose pixels are all visible, one pixel after the other. A derived surface
/// may show one row twice, or rows that begin within a pixel: there one share follows the other.
template <class Format, class Steps>
[[gnu::noinline]] void PlotOneByOne(std::uint8_t* const* lines, const LineWalk& walk,
                                    const Steps& steps, StepRange range, const LineColor& color) {
    gfx::WalkSteps(walk, steps, range, [=](int x, int y, const Steps& at) {
        const auto column = static_cast<std::size_t>(x);
        gfx::BlendInto<Format>(lines[y], column, color.rgb, 255 - color.NearShare(at.Fraction()));
        gfx::BlendInto<Format>(lines[y + 1], column, color.rgb,
                               255 - color.FarShare(at.Fraction()));
    });
}

/// Plots the steps of a range whose pixels are all visible.
template <class Format, class Steps>
void PlotInner(const LineTarget& target, const LineWalk& walk, const Steps& steps, StepRange range,
               const LineColor& color) {
    constexpr std::size_t kSize = sizeof(typename Format::Unit);
    std::uint8_t* const* const lines = target.lines;
    const gfx::PairBlend<Format> blend(color.rgb);
    if (walk.isAlongX) {
        const StepRange rest =
            gfx::WalkStepsWhile(walk, steps, range, [=](int x, int y, const Steps& at) {
                const std::size_t offset = static_cast<std::size_t>(x) * kSize;
                std::uint8_t* const near = lines[y] + offset;
                std::uint8_t* const far = lines[y + 1] + offset;
                if (!AreApart<kSize>(near, far)) return false;
                blend(near, color.NearShare(at.Fraction()), far, color.FarShare(at.Fraction()));
                return true;
            });
        if (!rest.IsEmpty()) PlotOneByOne<Format>(lines, walk, steps, rest, color);
        return;
    }
    gfx::WalkSteps(walk, steps, range, [=](int y, int x, const Steps& at) {
        std::uint8_t* const near = lines[y] + static_cast<std::size_t>(x) * kSize;
        blend.Neighbours(near, color.NearShare(at.Fraction()), color.FarShare(at.Fraction()));
    });
}

/// Plots the drawn ones of a range of steps whose pixels are all visible. @return whether there are
/// any.
template <class Steps>
bool PlotInnerRuns(const LineTarget& target, const LineWalk& walk, const Steps& steps,
                   StepRange range, const LineColor& color, const DashPattern& pattern) {
    bool isDrawn = false;
    pattern.ForEachRun(range, [&](StepRange run) {
        isDrawn = true;
        gfx::WithFormat(target.format, [&]<class Format>(Format) {
            PlotInner<Format>(target, walk, steps, run, color);
        });
    });
    return isDrawn;
}

/// Plots a line; pixels of steps at the clip rectangle's edge go through plotOne(x, y, color).
/// @return whether any step of the inner stretch is drawn.
template <class Steps, class PlotOne>
bool PlotLine(const LineTarget& target, const LineWalk& walk, const Steps& steps,
              const VisibleSteps& visible, const LineColor& color, const DashPattern& pattern,
              PlotOne plotOne) {
    const auto plotEdge = [&](StepRange range) {
        gfx::WalkSteps(walk, steps, range, [&](int major, int near, const Steps& at) {
            const auto far = static_cast<int>(static_cast<unsigned>(near) + 1);
            const std::uint32_t nearColor = color.WithShare(color.NearShare(at.Fraction()));
            const std::uint32_t farColor = color.WithShare(color.FarShare(at.Fraction()));
            walk.isAlongX ? plotOne(major, near, nearColor) : plotOne(near, major, nearColor);
            walk.isAlongX ? plotOne(major, far, farColor) : plotOne(far, major, farColor);
        });
    };
    pattern.ForEachRun({visible.touched.first, visible.inner.first}, plotEdge);
    const bool isInnerDrawn = PlotInnerRuns(target, walk, steps, visible.inner, color, pattern);
    pattern.ForEachRun({visible.inner.last, visible.touched.last}, plotEdge);
    return isInnerDrawn;
}

/// Where a falling line meets whole pixels the closed form may name another dot that draws the same
/// (see line_steps.h). That dot's second, unchanged pixel is another one, and whether it lies
/// inside the clip rectangle decides the surface's `empty` flag, unless some other dot is inside
/// for sure.
bool IsTouchCertain(const LineWalk& walk, const VisibleSteps& visible, bool isSolid) {
    return walk.isRising || (!visible.inner.IsEmpty() && isSolid);
}

}  // namespace

void GfxSurface::DrawAALine(int x0, int y0, int x1, int y1, unsigned int color) {
    const gfx::RowSpan row = gfx::LevelRow(x0, y0, x1, y1, MAX_LINE_LENGTH);
    if (row.length != 0 && dots != nullptr && !empty) {
        return RectFillBlend(row.x, y0, row.length, 1, LineColor(color).WholeNear());
    }
    DrawAALine(x0, y0, x1, y1, color, nullptr, 0);
}

void GfxSurface::DrawAALine(int x0, int y0, int x1, int y1, unsigned int color,
                            const unsigned short* pattern, int count) {
    const LineWalk walk = gfx::WalkOf(x0, y0, x1, y1);
    if (walk.steps == 0) return SetPixelRGBBlend(x0, y0, color);
    CheckLength(walk, MAX_LINE_LENGTH);
    // For every line: whether one can be drawn must not depend on its slope.
    if (dots == nullptr) AllocDotsBuffer();
    const DashPattern dashes{pattern, count};
    const LineColor lineColor(color);
    if (walk.IsStraight() && dashes.IsSolid()) {
        // All of the share is the near pixel's. The far ones stay as they are but count as drawn
        // on, which matters only where no near one was visible.
        const std::uint32_t near = lineColor.WholeNear();
        constexpr std::uint32_t kInvisible = 0xFF000000;
        const unsigned length = walk.steps + 1;
        if (walk.isAlongX) {
            RectFillBlend(walk.majorStart, walk.minorStart, length, 1, near);
            if (empty) RectFillBlend(walk.majorStart, walk.minorStart + 1, length, 1, kInvisible);
        } else {
            DrawLine(x0, y0, x1, y1, near);
            if (empty) RectFillBlend(walk.minorStart + 1, walk.majorStart, 1, length, kInvisible);
        }
        return;
    }
    const LineTarget target{
        lines, pitch, gfx::FormatOf(depth, pixelShift, lines), {clipX0, clipX1}, {clipY0, clipY1}};
    const bool hasClosedForm = FixedSteps::ServesSmooth(walk);
    const int farX = walk.isAlongX ? 0 : 1;
    const int farY = 1 - farX;
    if (hasClosedForm && IsInsideClip(x0, y0) && IsInsideClip(x1, y1) &&
        IsInsideClip(x0 + farX, y0 + farY) && IsInsideClip(x1 + farX, y1 + farY)) {
        const auto steps = FixedSteps::Smooth(walk);
        if (PlotInnerRuns(target, walk, steps, gfx::WholeLine(walk), lineColor, dashes)) {
            empty = false;
        }
        return;
    }
    const auto plotOne = [this](int x, int y, std::uint32_t pixelColor) {
        SetPixelRGBBlend(x, y, pixelColor);
    };
    const auto plot = [&](const auto& steps, const VisibleSteps& visible) {
        if (PlotLine(target, walk, steps, visible, lineColor, dashes, plotOne)) empty = false;
    };
    if (hasClosedForm) {
        const FixedSteps steps = FixedSteps::Smooth(walk);
        const VisibleSteps visible = VisibleStepsOf(target, walk, steps);
        if (IsTouchCertain(walk, visible, dashes.IsSolid())) return plot(steps, visible);
    }
    ComputeLineDots(static_cast<std::uint32_t>(walk.minorStart), walk.steps, walk.Rise(), 0.0);
    const gfx::BufferedSteps steps(dots);
    plot(steps, VisibleStepsOf(target, walk, steps));
}
