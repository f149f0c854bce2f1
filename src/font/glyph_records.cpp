// The glyph records: their life, and the rounding of what the engine measured.
#include "font/glyph_geometry.h"

#include <algorithm>
#include <limits>

#include "memory/hook_block.h"

namespace {

using Limits = std::numeric_limits<short>;

bool FitsShort(std::int64_t value) { return value >= Limits::min() && value <= Limits::max(); }

// Clearing the low six bits of a two's-complement number is the floor, below zero too.
std::int64_t FloorToPixel(std::int64_t position) { return (position & ~std::int64_t{63}) / 64; }
std::int64_t CeilToPixel(std::int64_t position) { return FloorToPixel(position + 63); }

// Unlike the box, the metrics are divided with truncation toward zero: -100 becomes 0, not -1.
std::int64_t RoundMetric(std::int64_t value) { return (value + 63) / 64; }

struct WideGeom {
    std::int64_t left, right, bottom, top, bearingX, bearingY, advance;
};

bool IsWithinLimits(const WideGeom& g) {
    for (const std::int64_t value :
         {g.left, g.right, g.bottom, g.top, g.bearingX, g.bearingY, g.advance}) {
        if (!FitsShort(value)) return false;
    }
    const std::int64_t width = g.right - g.left;
    const std::int64_t height = g.top - g.bottom;
    if (std::max(width, height) > gfx::kMaxImageSide || std::min(width, height) < 0) return false;
    return gfx::RenderPitch(static_cast<std::uint32_t>(width)) * height <= gfx::kMaxRenderBytes;
}

}  // namespace

GfxFontCache::GlyphInfo::GlyphInfo()
    : next(nullptr), bandX(0), bandY(0), width(0), height(0), code(0xFFFF), band(0), geom{} {}

GfxFontCache::GlyphInfo::~GlyphInfo() noexcept(false) {
    if (next == nullptr) return;
    // The block leaves after the record in it, and also when a block further down could not.
    const auto block = gfx::HookBlock::Adopt(next);
    GlyphInfo* const chained = next;
    next = nullptr;
    chained->~GlyphInfo();
}

GfxFontCache::GlyphGeom gfx::RoundToPixels(const GlyphMetrics& m) {
    const WideGeom g = {FloorToPixel(m.xMin),  CeilToPixel(m.xMax),     FloorToPixel(m.yMin),
                        CeilToPixel(m.yMax),   RoundMetric(m.bearingX), RoundMetric(m.bearingY),
                        RoundMetric(m.advance)};
    GfxFontCache::GlyphGeom geom = {};
    geom.advance =
        static_cast<short>(std::clamp<std::int64_t>(g.advance, Limits::min(), Limits::max()));
    if (!IsWithinLimits(g)) return geom;
    geom.left = static_cast<short>(g.left);
    geom.right = static_cast<short>(g.right);
    geom.bottom = static_cast<short>(g.bottom);
    geom.top = static_cast<short>(g.top);
    geom.bearingX = static_cast<short>(g.bearingX);
    geom.bearingY = static_cast<short>(g.bearingY);
    return geom;
}

GfxFontCache::GlyphGeom gfx::WithoutImage(const GfxFontCache::GlyphGeom& geom) {
    GfxFontCache::GlyphGeom bare = {};
    bare.advance = geom.advance;
    return bare;
}
