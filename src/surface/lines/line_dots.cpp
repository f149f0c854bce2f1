// Fills the dots buffer: where a line is at each step along its longer axis.
#include <gfx/surface.h>

#include <algorithm>
#include <climits>

#include "surface/lines/line_recurrence.h"

using gfx::RecurringSteps;

namespace {

/// Brings an offset into what an int can hold; NaN counts as 0.
double LimitedOffset(double offset) {
    return offset != offset ? 0.0 : std::clamp<double>(offset, -INT_MAX, INT_MAX);
}

/// A line's steps from `offset` pixels behind `start` on; that may be less than 0, or 1 and more.
RecurringSteps StepsFrom(std::uint32_t start, double offset, int rise, unsigned steps) {
    const int whole = offset < 0.0 ? -static_cast<int>(-offset) - 1 : static_cast<int>(offset);
    return {start + static_cast<std::uint32_t>(whole), offset - whole, rise, steps};
}

}  // namespace

void GfxSurface::ComputeLineDotsDX(unsigned int, unsigned int y0, unsigned int stepCount, int rise,
                                   double offset) {
    RecurringSteps steps = StepsFrom(y0, LimitedOffset(offset), rise, stepCount);
    if (dots == nullptr) AllocDotsBuffer();
    LineDot* dot = dots;
    for (unsigned i = 0; i < stepCount; ++i, ++dot) {
        *dot = {steps.Minor(), steps.Fraction()};
        steps.Advance();
    }
    *dot = {steps.Minor(), steps.Fraction()};
}

void GfxSurface::ComputeLineDotsDY(unsigned int x0, unsigned int y0, int rise,
                                   unsigned int stepCount, double offset) {
    ComputeLineDotsDX(y0, x0, stepCount, rise, offset);
}
