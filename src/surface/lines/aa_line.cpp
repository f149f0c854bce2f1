// Anti-aliased lines, solid and dashed: two neighbouring pixels a step, near and far, share the
// colour by how far the exact line lies between them.
#include "surface/lines/line_target.h"
#include "surface/rows/pixel_pair.h"

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

/// A line and what it is drawn on.
struct AALine {
    const LineTarget& target;
    const LineWalk& walk;
    std::uint32_t color;
    DashPattern dashes;
};

/// The steps of a line by what of them is visible: some pixel in `touched`, both in `inner`.
struct VisibleSteps {
    StepRange touched;
    StepRange inner;
};

template <class Steps>
VisibleSteps VisibleStepsOf(const AALine& line, const Steps& steps) {
    const LineWalk& walk = line.walk;
    const Interval minor = line.target.Minor(walk);
    const StepRange along = StepsAlong(walk, line.target.Major(walk));
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
[[gnu::noinline]] void PlotOneByOne(const AALine& line, const Steps& steps, StepRange range) {
    const LineColor color(line.color);
    std::uint8_t* const* const lines = line.target.lines;
    gfx::WalkSteps(line.walk, steps, range, [=](int x, int y, const Steps& at) {
        const auto column = static_cast<std::size_t>(x);
        gfx::BlendInto<Format>(lines[y], column, color.rgb, 255 - color.NearShare(at.Fraction()));
        gfx::BlendInto<Format>(lines[y + 1], column, color.rgb,
                               255 - color.FarShare(at.Fraction()));
    });
}

/// Plots the steps of a range whose pixels are all visible.
template <class Format, class Steps>
void PlotPairs(const AALine& line, const Steps& steps, StepRange range) {
    constexpr std::size_t kSize = sizeof(typename Format::Unit);
    const LineColor color(line.color);
    std::uint8_t* const* const lines = line.target.lines;
    const gfx::PairBlend<Format> blend(color.rgb);
    if (line.walk.isAlongX) {
        const StepRange rest =
            gfx::WalkStepsWhile(line.walk, steps, range, [=](int x, int y, const Steps& at) {
                const std::size_t offset = static_cast<std::size_t>(x) * kSize;
                std::uint8_t* const near = lines[y] + offset;
                std::uint8_t* const far = lines[y + 1] + offset;
                if (!AreApart<kSize>(near, far)) return false;
                blend(near, color.NearShare(at.Fraction()), far, color.FarShare(at.Fraction()));
                return true;
            });
        if (!rest.IsEmpty()) PlotOneByOne<Format>(line, steps, rest);
        return;
    }
    gfx::WalkSteps(line.walk, steps, range, [=](int y, int x, const Steps& at) {
        std::uint8_t* const near = lines[y] + static_cast<std::size_t>(x) * kSize;
        blend.Neighbours(near, color.NearShare(at.Fraction()), color.FarShare(at.Fraction()));
    });
}

/// Plots the drawn ones of a range of steps whose pixels are all visible. @return whether there are
/// any.
template <class Steps>
bool PlotInside(const AALine& line, const Steps& steps, StepRange range) {
    bool isDrawn = false;
    line.dashes.ForEachRun(range, [&](StepRange run) {
        isDrawn = true;
        gfx::WithFormat(line.target.format,
                        [&]<class Format>(Format) { PlotPairs<Format>(line, steps, run); });
    });
    return isDrawn;
}

/// Plots what is visible of a line; of steps at the clip rectangle's edge each pixel by itself.
template <class Steps>
void PlotClipped(GfxSurface& surface, const AALine& line, const Steps& steps,
                 const VisibleSteps& visible) {
    const LineColor color(line.color);
    const bool isAlongX = line.walk.isAlongX;
    const auto plotOne = [&](int major, int minor, std::uint32_t share) {
        surface.SetPixelRGBBlend(isAlongX ? major : minor, isAlongX ? minor : major,
                                 color.WithShare(share));
    };
    const auto plotEdge = [&](StepRange range) {
        gfx::WalkSteps(line.walk, steps, range, [&](int major, int near, const Steps& at) {
            plotOne(major, near, color.NearShare(at.Fraction()));
            plotOne(major, gfx::NextTo(near), color.FarShare(at.Fraction()));
        });
    };
    line.dashes.ForEachRun({visible.touched.first, visible.inner.first}, plotEdge);
    if (PlotInside(line, steps, visible.inner)) surface.SetEmpty(false);
    line.dashes.ForEachRun({visible.inner.last, visible.touched.last}, plotEdge);
}

/// Where a falling line meets whole pixels the closed form may name another dot that draws the same
/// (see line_steps.h). That dot's second, unchanged pixel is another one, and whether it lies
/// inside the clip rectangle decides the surface's `empty` flag, unless some other dot is inside
/// for sure.
bool IsTouchCertain(const AALine& line, const VisibleSteps& visible) {
    return line.walk.isRising || (!visible.inner.IsEmpty() && line.dashes.IsSolid());
}

}  // namespace

void GfxSurface::DrawAALine(int x0, int y0, int x1, int y1, unsigned int color) {
    // A line along an axis gives all of its colour to the near pixels. The far ones stay as they
    // are but count as drawn on, which is to be seen while the surface is empty.
    if (!empty && dots != nullptr) {
        const std::uint32_t near = LineColor(color).WholeNear();
        const gfx::RowSpan row = gfx::LevelRow(x0, y0, x1, y1, MAX_LINE_LENGTH);
        if (row.length != 0) return RectFillBlend(row.x, y0, row.length, 1, near);
        if (x0 == x1 && y0 != y1) return DrawLine(x0, y0, x1, y1, near);
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
    const gfx::SurfaceView view{*this};
    const LineTarget target(view);
    const AALine line{target, walk, color, {pattern, count}};
    if (FixedSteps::ServesAntiAliased(walk)) {
        const FixedSteps steps = FixedSteps::AntiAliased(walk);
        const int toFarX = walk.isAlongX ? 0 : 1;
        const int toFarY = 1 - toFarX;
        // Near and far pixel of both ends, and so all between.
        if (view.Holds(x0, y0) && view.Holds(x1, y1) && view.Holds(x0 + toFarX, y0 + toFarY) &&
            view.Holds(x1 + toFarX, y1 + toFarY)) {
            if (PlotInside(line, steps, gfx::WholeLine(walk))) empty = false;
            return;
        }
        const VisibleSteps visible = VisibleStepsOf(line, steps);
        if (IsTouchCertain(line, visible)) return PlotClipped(*this, line, steps, visible);
    }
    ComputeLineDotsDX(0, static_cast<std::uint32_t>(walk.minorStart), walk.steps, walk.Rise(), 0.0);
    const gfx::BufferedSteps steps(dots);
    PlotClipped(*this, line, steps, VisibleStepsOf(line, steps));
}
