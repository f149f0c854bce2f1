// The public glyph operations: delivering a glyph and drawing it upright or turned.
#include <gfx/font_cache.h>

#include <algorithm>

#include <gfx/surface.h>

namespace {

/// Pen position plus an offset, in 32-bit two's complement: a negative pen comes as unsigned.
int Offset(unsigned pen, int offset) {
    return static_cast<int>(pen + static_cast<unsigned>(offset));
}

/// Calls plot(column, row) for every pixel of full ink that the band holds of an image.
template <class Plot>
void ForEachFullInk(const GfxSurface& band, const GfxFontCache::GlyphInfo& info, Plot plot) {
    const int width = std::min<int>(info.width, static_cast<int>(band.DX()) - info.bandX);
    const int height = std::min<int>(info.height, static_cast<int>(band.DY()) - info.bandY);
    for (int column = 0; column < width; ++column) {
        for (int row = 0; row < height; ++row) {
            const auto* const pixels =
                static_cast<const std::uint8_t*>(band.Line(info.bandY + row));
            if (pixels[info.bandX + column] == 0) plot(column, row);
        }
    }
}

}  // namespace

void GfxFontCache::AccessGlyph(unsigned short code, GfxSurface*& band, unsigned short& x,
                               unsigned short& y, GlyphGeom& geom) {
    const GlyphInfo* const info = ObtainGlyphInfo(code);
    if (info == nullptr) {
        x = 0;
        y = 0;
        geom = {};
        return;
    }
    band = bands[info->band];
    x = info->bandX;
    y = info->bandY;
    geom = info->geom;
}

void GfxFontCache::GetGlyphGeometry(unsigned short code, GlyphGeom& geom) {
    const GlyphInfo* const info = ObtainGlyphInfo(code);
    geom = info == nullptr ? GlyphGeom{} : info->geom;
}

void GfxFontCache::DrawGlyph(unsigned short code, unsigned int x, unsigned int y,
                             unsigned int color, GfxSurface* target, int angle) {
    const GlyphInfo* const info = ObtainGlyphInfo(code);
    if (info == nullptr || target == nullptr) return;
    const GfxSurface& band = *bands[info->band];
    const int left = info->geom.left;
    const int top = info->geom.top;
    if (angle == 0) {
        target->RectFillBlend(Offset(x, left), Offset(y, -top), info->width, info->height, color,
                              info->bandX, info->bandY, &band);
    } else if (angle == 90) {
        ForEachFullInk(band, *info, [=](int column, int row) {
            target->SetPixelRGBBlend(Offset(x, row - top), Offset(y, -left - column), color);
        });
    } else if (angle == 270) {
        ForEachFullInk(band, *info, [=](int column, int row) {
            target->SetPixelRGBBlend(Offset(x, top - row), Offset(y, left + column), color);
        });
    }
}
