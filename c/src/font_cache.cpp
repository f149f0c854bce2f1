// GfxFontCache in C: each function hands its arguments on.
#include <gfx/c/font_cache.h>
#include <gfx/font_cache.h>

#include "guard.h"

using gfx::c::Engine;
using gfx::c::On;

namespace {

gfx_glyph_geom InC(const GfxFontCache::GlyphGeom& g) {
    return {g.left, g.right, g.bottom, g.top, g.bearingX, g.bearingY, g.advance, g.reserved};
}

}  // namespace

gfx_status gfx_font_cache_new(gfx_font_cache** font) noexcept {
    // What it throws ends in MakeObject.
    return gfx::c::MakeObject(font, [] { return new GfxFontCache; });  // NOLINT(*-exception-at-new)
}

gfx_status gfx_font_cache_delete(gfx_font_cache** font) noexcept {
    return gfx::c::DestroyObject(font, [](GfxFontCache* f) { delete f; });
}

gfx_status gfx_font_cache_open_face(gfx_font_cache* font, const char* path, int emSize,
                                    bool smooth) noexcept {
    bool isOpen = false;
    const gfx_status status =
        On(font, [&](GfxFontCache& f) { isOpen = f.OpenFace(path, emSize, smooth); });
    return status == GFX_OK && !isOpen ? GFX_NO_FACE : status;
}

gfx_status gfx_font_cache_close_face(gfx_font_cache* font) noexcept {
    return On(font, [&](GfxFontCache& f) { f.CloseFace(); });
}

gfx_status gfx_font_cache_has_glyph(const gfx_font_cache* font, unsigned int code,
                                    bool* hasGlyph) noexcept {
    if (hasGlyph == nullptr) return GFX_NULL_ARGUMENT;
    return On(font, [&](const GfxFontCache& f) { *hasGlyph = f.HasGlyph(code); });
}

gfx_status gfx_font_cache_typo_ascender(const gfx_font_cache* font, short* ascender) noexcept {
    if (ascender == nullptr) return GFX_NULL_ARGUMENT;
    return On(font, [&](const GfxFontCache& f) { *ascender = f.TypoAscender(); });
}

gfx_status gfx_font_cache_typo_descender(const gfx_font_cache* font, short* descender) noexcept {
    if (descender == nullptr) return GFX_NULL_ARGUMENT;
    return On(font, [&](const GfxFontCache& f) { *descender = f.TypoDescender(); });
}

gfx_status gfx_font_cache_typo_line_gap(const gfx_font_cache* font, short* lineGap) noexcept {
    if (lineGap == nullptr) return GFX_NULL_ARGUMENT;
    return On(font, [&](const GfxFontCache& f) { *lineGap = f.TypoLineGap(); });
}

gfx_status gfx_font_cache_access_glyph(gfx_font_cache* font, unsigned short code,
                                       gfx_glyph_image* image, gfx_glyph_geom* geom) noexcept {
    if (image == nullptr || geom == nullptr) return GFX_NULL_ARGUMENT;
    return On(font, [&](GfxFontCache& f) {
        GfxSurface* band = nullptr;
        unsigned short x = 0;
        unsigned short y = 0;
        GfxFontCache::GlyphGeom g;
        f.AccessGlyph(code, band, x, y, g);
        *image = {reinterpret_cast<const gfx_surface*>(band), x, y};
        *geom = InC(g);
    });
}

gfx_status gfx_font_cache_draw_glyph(gfx_font_cache* font, unsigned short code, int x, int y,
                                     uint32_t color, gfx_surface* target, int angle) noexcept {
    return On(font, [&](GfxFontCache& f) {
        f.DrawGlyph(code, static_cast<unsigned int>(x), static_cast<unsigned int>(y), color,
                    Engine(target), angle);
    });
}

gfx_status gfx_font_cache_get_glyph_geometry(gfx_font_cache* font, unsigned short code,
                                             gfx_glyph_geom* geom) noexcept {
    if (geom == nullptr) return GFX_NULL_ARGUMENT;
    return On(font, [&](GfxFontCache& f) {
        GfxFontCache::GlyphGeom g;
        f.GetGlyphGeometry(code, g);
        *geom = InC(g);
    });
}
