// How our cost grows with what is asked for: area, width, length, visible share, cached glyphs,
// cores.
#ifndef GFX_BENCH_GROWTH_H
#define GFX_BENCH_GROWTH_H

#include "scene.h"

namespace bench {

/// Registers the series under names "growth AXIS COLUMN X/gfx", X being the place on the axis.
void RegisterGrowth(Scene& scene);

}  // namespace bench

#endif  // GFX_BENCH_GROWTH_H
