// The vectors that every processor of the target has: for the baseline table, and for code outside
// the tables that works on a pixel or two.
#ifndef GFX_SURFACE_ROWS_LANES_BASELINE_H
#define GFX_SURFACE_ROWS_LANES_BASELINE_H

#if defined(__x86_64__)
#include "surface/rows/lanes_sse2.h"
#else
#include "surface/rows/lanes_portable.h"
#endif

namespace gfx {
namespace {

#if defined(__x86_64__)
using BaselineLanes = Lanes128;
#else
using BaselineLanes = PortableLanes;
#endif

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_LANES_BASELINE_H
