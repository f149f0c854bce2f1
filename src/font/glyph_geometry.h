// How a glyph that the engine measured becomes whole pixels.
#ifndef GFX_FONT_GLYPH_GEOMETRY_H
#define GFX_FONT_GLYPH_GEOMETRY_H

#include <gfx/font_cache.h>

#include "font/font_engine.h"

namespace gfx {

inline constexpr int kMaxImageSide = 32767;  // pixels; the 1-bit renderer does not return beyond it
inline constexpr std::uint32_t kMaxRenderBytes = 64u << 20;

/// Bytes from row to row of the render buffer of an image.
inline std::uint32_t RenderPitch(std::uint32_t width) { return (width + 31) & ~31u; }

/// The box that covers the outline, and the three metrics. A glyph that leaves the limits above or
/// has a value of more than 16 bits gets an empty box, bearings 0 and the advance, saturated.
GfxFontCache::GlyphGeom RoundToPixels(const GlyphMetrics& metrics);

/// The same glyph with an empty box and bearings 0.
GfxFontCache::GlyphGeom WithoutImage(const GfxFontCache::GlyphGeom& geom);

}  // namespace gfx

#endif  // GFX_FONT_GLYPH_GEOMETRY_H
