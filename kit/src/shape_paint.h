// Brings bands of coverage onto a surface, in one colour or in a gradient's. It decides which
// columns are drawn solid, through the mask or not at all.
#ifndef GFX_KIT_SRC_SHAPE_PAINT_H
#define GFX_KIT_SRC_SHAPE_PAINT_H

#include <gfx/kit/paint.h>
#include <gfx/surface.h>

#include "shape_raster.h"

namespace gfx::kit {

/// Blends a colour through a band; `mask` is the depth-8 surface that holds the band's coverage.
void PaintColor(GfxSurface& target, const Band& band, const GfxSurface& mask, std::uint32_t word);

/// Blends a gradient through a band; `words` is a 32-bit surface at least as large as the band.
void PaintGradient(GfxSurface& target, const Band& band, GfxSurface& words,
                   const Gradient& gradient);

/// The gradient's colour words for the pixels x .. x + n - 1 of row y.
void GradientRow(const Gradient& gradient, int x, int y, int n, std::uint32_t* words);

}  // namespace gfx::kit

#endif  // GFX_KIT_SRC_SHAPE_PAINT_H
