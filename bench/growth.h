// How our cost grows with what is asked for: area, width, length, visible share, cached glyphs,
// cores.
#ifndef GFX_BENCH_GROWTH_H
#define GFX_BENCH_GROWTH_H

#include "library.h"

#include <functional>
#include <string>

namespace bench {

/// Registers the series under names "growth AXIS COLUMN X/gfx", X being the place on the axis.
void RegisterGrowth(Scene& scene);

/// The series of growth_widths.cpp.
void RegisterWidths();

/// Registers one place `x` of a series "AXIS COLUMN". `prepare` delivers the pass, which draws
/// `items`, so that nothing is built for series that are filtered out. Passes on several cores are
/// timed by the clock on the wall. `seconds` is how long one repetition takes, 0 as asked for.
void RegisterPlace(const std::string& series, unsigned x, double items,
                   const std::function<Work()>& prepare, bool wallClock = false,
                   double seconds = 0);

}  // namespace bench

#endif  // GFX_BENCH_GROWTH_H
