// A font cache whose protected fields and operations the tests can reach, as a derived cache can.
#pragma once

#include <gfx/font_cache.h>
#include <gfx/surface.h>

#include <array>

namespace test {

class ProbeCache : public GfxFontCache {
public:
    using GfxFontCache::antialias;
    using GfxFontCache::bandCount;
    using GfxFontCache::bandHeight;
    using GfxFontCache::bands;
    using GfxFontCache::bandWidth;
    using GfxFontCache::currentBand;
    using GfxFontCache::currentX;
    using GfxFontCache::faceData;
    using GfxFontCache::glyphs;
    using GfxFontCache::size;

    using GfxFontCache::FillGlyphInfo;
    using GfxFontCache::FindGlyphInfo;
    using GfxFontCache::NewBand;
    using GfxFontCache::NewGlyphInBand;
    using GfxFontCache::NewGlyphInfo;
};

/// The eight fields, to compare and to print.
inline std::array<int, 8> Fields(const GfxFontCache::GlyphGeom& g) {
    return {g.left, g.right, g.bottom, g.top, g.bearingX, g.bearingY, g.advance, g.reserved};
}

/// What AccessGlyph delivers.
struct Delivered {
    GfxSurface* band = nullptr;
    unsigned short x = 7;
    unsigned short y = 7;
    GfxFontCache::GlyphGeom geom = {1, 1, 1, 1, 1, 1, 1, 1};

    int Width() const { return geom.right - geom.left; }
    int Height() const { return geom.top - geom.bottom; }

    /// Whether the band holds this pixel of the image.
    bool Holds(long column, long row) const {
        return column >= 0 && row >= 0 && column < Width() && row < Height() &&
               x + column < long{band->DX()} && y + row < long{band->DY()};
    }
    unsigned char Pixel(long column, long row) const {
        return static_cast<unsigned char*>(band->Line(static_cast<int>(y + row)))[x + column];
    }
};

inline Delivered Access(GfxFontCache& cache, unsigned short code) {
    Delivered result;
    cache.AccessGlyph(code, result.band, result.x, result.y, result.geom);
    return result;
}

}  // namespace test
