// Fills the dots buffer: where a line is at each step along its longer axis.
//
// The position is carried from step to step in double precision, and that recurrence decides each
// pixel. The build keeps compilers from fusing its multiplications and additions, and excess
// precision is refused here: with either, some lines get other dots.
#include <gfx/surface.h>

#include <cfloat>
#include <climits>

static_assert(FLT_EVAL_METHOD == 0, "line dots need double arithmetic without excess precision");

namespace {

/// Where the upward wrap happens. Below 1.0, so that a rising line whose accumulated sum falls just
/// short of a whole number still ends on its endpoint.
constexpr double kUpperWrap = 0.9999;

/// A fraction of a pixel in 0..1 as a byte. Slightly negative values occur after the upward wrap
/// and give 0.
std::uint8_t FractionByte(double fraction) {
    return static_cast<std::uint8_t>(static_cast<int>(fraction * 255.99));
}

/// Brings an offset into what an int can hold; NaN counts as 0.
double LimitedOffset(double offset) {
    if (offset != offset) return 0.0;
    if (offset < -INT_MAX) return -INT_MAX;
    return offset > INT_MAX ? INT_MAX : offset;
}

/// A position as whole pixel and fraction. The pixel wraps in 32 bits instead of overflowing.
struct Position {
    std::uint32_t pixel;
    double fraction;
};

Position Split(std::uint32_t start, double offset) {
    if (offset < 0.0) {
        const auto whole = static_cast<std::uint32_t>(-offset) + 1;
        return {start - whole, offset + whole};
    }
    if (offset >= 1.0) {
        const auto whole = static_cast<std::uint32_t>(offset);
        return {start + whole, offset - whole};
    }
    return {start, offset};
}

}  // namespace

void GfxSurface::ComputeLineDots(std::uint32_t minorStart, unsigned int stepCount, int rise,
                                 double offset) {
    Position at = Split(minorStart, LimitedOffset(offset));
    const double slope = static_cast<double>(rise) / static_cast<double>(stepCount);
    if (dots == nullptr) AllocDotsBuffer();
    LineDot* dot = dots;
    for (unsigned i = 0; i < stepCount; ++i, ++dot) {
        *dot = {static_cast<std::int32_t>(at.pixel), FractionByte(at.fraction)};
        at.fraction += slope;
        if (slope >= 0.0) {
            if (at.fraction >= kUpperWrap) {
                ++at.pixel;
                at.fraction -= 1.0;
            }
        } else if (at.fraction < 0.0) {
            --at.pixel;
            at.fraction += 1.0;
        }
    }
    *dot = {static_cast<std::int32_t>(at.pixel), FractionByte(at.fraction)};
}

void GfxSurface::ComputeLineDotsDX(unsigned int, unsigned int y0, unsigned int stepCount, int rise,
                                   double offset) {
    ComputeLineDots(y0, stepCount, rise, offset);
}

void GfxSurface::ComputeLineDotsDY(unsigned int x0, unsigned int, int rise, unsigned int stepCount,
                                   double offset) {
    ComputeLineDots(x0, stepCount, rise, offset);
}
