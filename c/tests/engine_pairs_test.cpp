// Each function in C beside the operation in C++, with arguments that tell each place from the
// next.
#include "world.h"

namespace test {
namespace {

constexpr unsigned short kPattern[] = {3, 2};
constexpr unsigned char kBits[] = {0x5A, 0xC3, 0x17};
unsigned char hostMemory[64 * 12];

GfxSurface::ColorPlane Green() { return GfxSurface::PlaneGreen; }

gfx_status Recorded(World& w, gfx_status status, std::uint32_t value) {
    if (status == GFX_OK) w.Record(value);
    return status;
}

void RecordGeom(World& w, const gfx_glyph_geom& g) {
    w.Record(g.left, g.right, g.bottom, g.top, g.bearing_x, g.bearing_y, g.advance, g.reserved);
}
void RecordGeom(World& w, const GfxFontCache::GlyphGeom& g) {
    w.Record(g.left, g.right, g.bottom, g.top, g.bearingX, g.bearingY, g.advance, g.reserved);
}

}  // namespace

// A property by its name in both languages.
#define PROPERTY(prefix, handle, object, type, nameInC, nameInCpp)           \
    {                                                                        \
#prefix #nameInC,                                                          \
            [](World& w) {                                                         \
                type value{};                                                      \
                const gfx_status status = prefix##nameInC(w.handle, &value);       \
                return Recorded(w, status, static_cast<std::uint32_t>(value));     \
            },                                                                     \
            [](World& w) { w.Record(w.object->nameInCpp()); } \
    }
#define OF_SURFACE(type, nameInC, nameInCpp) \
    PROPERTY(gfx_surface_, cSurface, surface, type, nameInC, nameInCpp)
#define OF_FONT(nameInC, nameInCpp) \
    PROPERTY(gfx_font_cache_, cFont, font, short, nameInC, nameInCpp)

// An operation with the same arguments in both; `src...` stand for objects.
#define IN_BOTH(nameInC, nameInCpp, argumentsInC, argumentsInCpp)                             \
    {                                                                                         \
        "gfx_surface_" #nameInC, [](World& w) { return gfx_surface_##nameInC argumentsInC; }, \
            [](World& w) { w.surface->nameInCpp argumentsInCpp; }                             \
    }
#define S w.cSurface
#define PLAIN(nameInC, nameInCpp, ...) \
    IN_BOTH(nameInC, nameInCpp, (w.cSurface, __VA_ARGS__), (__VA_ARGS__))

const std::vector<Pair> kEnginePairs = {
    {"gfx_surface_new",
     [](World& w) {
         gfx_surface* made = nullptr;
         const gfx_status status = gfx_surface_new(16, S == nullptr ? nullptr : &made);
         if (status != GFX_OK) return status;
         unsigned depth = 0;
         gfx_surface_depth(made, &depth);
         w.Record(depth);
         return gfx_surface_delete(&made);
     },
     [](World& w) {
         GfxSurface* made = GfxSurface::New(16);
         w.Record(made->Depth());
         GfxSurface::Delete(made);
     }},
    {"gfx_surface_delete",
     [](World& w) {
         const gfx_status status = gfx_surface_delete(&S);
         if (status == GFX_OK) w.surface = w.source;
         if (status == GFX_OK) w.source = GfxSurface::New(0);
         return status;
     },
     [](World& w) {
         GfxSurface::Delete(w.surface);
         w.surface = w.source;
         w.source = GfxSurface::New(0);
     }},
    PLAIN(initialise, Initialise, 31, 9),
    PLAIN(initialise_over, Initialise, 11, 12, hostMemory, 64, true),
    PLAIN(set_new_size, SetNewSize, 71, 33),
    {"gfx_surface_optimise_size",
     [](World& w) {
         gfx_surface_set_new_size(S, 9, 8);
         return gfx_surface_optimise_size(S);
     },
     [](World& w) {
         w.surface->SetNewSize(9, 8);
         w.surface->OptimiseSize();
     }},
    PLAIN(set_clip_rect, SetClipRect, 3, 5, 7, 11),
    {"gfx_surface_get_clip_rect",
     [](World& w) {
         gfx_rect r{};
         const gfx_status status = gfx_surface_get_clip_rect(S, &r);
         if (status == GFX_OK) w.Record(r.x, r.y, r.w, r.h);
         return status;
     },
     [](World& w) {
         int x, y;
         unsigned dx, dy;
         w.surface->GetClipRect(x, y, dx, dy);
         w.Record(x, y, dx, dy);
     }},
    IN_BOTH(reset_clip_rect, ResetClipRect, (S), ()),
    IN_BOTH(clear, Clear, (S), ()),
    OF_SURFACE(unsigned, dx, DX),
    OF_SURFACE(unsigned, dy, DY),
    OF_SURFACE(unsigned, depth, Depth),
    OF_SURFACE(unsigned, alpha, Alpha),
    OF_SURFACE(unsigned, pitch, Pitch),
    OF_SURFACE(bool, is_empty, IsEmpty),
    {"gfx_surface_line",
     [](World& w) {
         void* row = nullptr;
         const gfx_status status = gfx_surface_line(S, 7, &row);
         return Recorded(w, status, status == GFX_OK ? *static_cast<std::uint32_t*>(row) : 0);
     },
     [](World& w) { w.Record(*static_cast<std::uint32_t*>(w.surface->Line(7))); }},
    PLAIN(set_empty, SetEmpty, true),
    PLAIN(set_alpha, SetAlpha, 77),
    {"gfx_surface_set_transparent",
     [](World& w) {
         const auto key = w.source->RetPixelRGB(2, 2);
         const gfx_status status = gfx_surface_set_transparent(S, key);
         if (status == GFX_OK) w.surface->RectCopy(4, 4, 9, 9, 0, 0, w.source, false);
         return status;
     },
     [](World& w) {
         w.surface->SetTransparent(w.source->RetPixelRGB(2, 2));
         w.surface->RectCopy(4, 4, 9, 9, 0, 0, w.source, false);
     }},
    {"gfx_surface_set_opaque",
     [](World& w) {
         if (S == nullptr) return gfx_surface_set_opaque(S);
         w.surface->SetTransparent(w.source->RetPixelRGB(2, 2));
         const gfx_status status = gfx_surface_set_opaque(S);
         w.surface->RectCopy(4, 4, 9, 9, 0, 0, w.source, false);
         return status;
     },
     [](World& w) { w.surface->RectCopy(4, 4, 9, 9, 0, 0, w.source, false); }},
    PLAIN(set_pixel_rgb, SetPixelRGB, 5, 9, 0x80123456),
    PLAIN(set_pixel_rgb_blend, SetPixelRGBBlend, 5, 9, 0x80123456),
    {"gfx_surface_ret_pixel_rgb",
     [](World& w) {
         std::uint32_t color = 0;
         const gfx_status status = gfx_surface_ret_pixel_rgb(S, 5, 9, &color);
         return Recorded(w, status, color);
     },
     [](World& w) { w.Record(w.surface->RetPixelRGB(5, 9)); }},
    {"gfx_surface_ret_pixel_merge_rgb",
     [](World& w) {
         std::uint32_t color = 0;
         const gfx_status status = gfx_surface_ret_pixel_merge_rgb(S, 5, 9, 0.25, 0.75, &color);
         return Recorded(w, status, color);
     },
     [](World& w) { w.Record(w.surface->RetPixelMergeRGB(5, 9, 0.25, 0.75)); }},
    PLAIN(set_pixel_line_bgr24, SetPixelLineBGR24, 4, 6, 8, w.buffer.data()),
    PLAIN(set_pixel_line_mono, SetPixelLineMono, 4, 6, 20, 0x10203040, kBits),
    PLAIN(rect_fill, RectFill, 3, 4, 9, 7, 0x40112233),
    PLAIN(rect_fill_blend, RectFillBlend, 3, 4, 9, 7, 0x40112233),
    IN_BOTH(rect_fill_blend_mask, RectFillBlend, (S, 3, 4, 9, 7, 0x40112233, 2, 1, w.cMask),
            (3, 4, 9, 7, 0x40112233, 2, 1, w.mask)),
    IN_BOTH(rect_copy, RectCopy, (S, 3, 4, 33, 7, 2, 1, w.cSource, true),
            (3, 4, 33, 7, 2, 1, w.source, true)),
    IN_BOTH(rect_blend, RectBlend, (S, 3, 4, 33, 7, 2, 1, w.cSource, false),
            (3, 4, 33, 7, 2, 1, w.source, false)),
    IN_BOTH(rect_blend_alpha, RectBlendAlpha, (S, 3, 4, 33, 7, 2, 1, 0.375, w.cSource, true),
            (3, 4, 33, 7, 2, 1, 0.375, w.source, true)),
    IN_BOTH(rect_extract, RectExtract, (S, 3, 4, 9, 7, 2, 1, w.cMask, GFX_PLANE_GREEN),
            (3, 4, 9, 7, 2, 1, w.mask, Green())),
    IN_BOTH(rect_insert, RectInsert, (S, 3, 4, 9, 7, 2, 1, w.cMask, GFX_PLANE_GREEN),
            (3, 4, 9, 7, 2, 1, w.mask, Green())),
    PLAIN(rect_extract_mono, RectExtractMono, 3, 4, 20, 7, 2, 1, w.buffer.data(), 6),
    PLAIN(rect_extract_mono_alpha, RectExtractMonoAlpha, 3, 4, 20, 7, 2, 1, w.buffer.data(), 6),
    PLAIN(draw_line, DrawLine, 3, 4, 30, 17, 0x40112233),
    PLAIN(draw_line_dashed, DrawLine, 3, 4, 30, 17, 0x40112233, kPattern, 2),
    PLAIN(draw_aa_line, DrawAALine, 3, 4, 30, 17, 0x40112233),
    PLAIN(draw_aa_line_dashed, DrawAALine, 3, 4, 30, 17, 0x40112233, kPattern, 2),
    PLAIN(quick_blt_to565, QuickBltTo565, 3, 4, 9, 7, w.buffer.data(), 22),
    PLAIN(quick_blt_to555, QuickBltTo555, 3, 4, 9, 7, w.buffer.data(), 22),
    PLAIN(quick_blt_to24, QuickBltTo24, 3, 4, 9, 7, w.buffer.data(), 32),
    PLAIN(quick_blt_to32, QuickBltTo32, 3, 4, 9, 7, w.buffer.data(), 40),
    {"gfx_font_cache_new",
     [](World& w) {
         gfx_font_cache* made = nullptr;
         const gfx_status status = gfx_font_cache_new(S == nullptr ? nullptr : &made);
         return status == GFX_OK ? gfx_font_cache_delete(&made) : status;
     },
     [](World&) { delete new GfxFontCache; }},
    {"gfx_font_cache_delete",
     [](World& w) {
         const gfx_status status = gfx_font_cache_delete(&w.cFont);
         if (status == GFX_OK) w.font = nullptr;
         if (status == GFX_OK) w.font = new GfxFontCache;
         return status;
     },
     [](World& w) {
         delete w.font;
         w.font = nullptr;
         w.font = new GfxFontCache;
     }},
    {"gfx_font_cache_open_face",
     [](World& w) { return gfx_font_cache_open_face(w.cFont, GFX_TEST_FACE, 21, false); },
     [](World& w) { w.font->OpenFace(GFX_TEST_FACE, 21, false); }},
    {"gfx_font_cache_close_face", [](World& w) { return gfx_font_cache_close_face(w.cFont); },
     [](World& w) { w.font->CloseFace(); }},
    {"gfx_font_cache_has_glyph",
     [](World& w) {
         bool has = false;
         const gfx_status status = gfx_font_cache_has_glyph(w.cFont, 'g', &has);
         return Recorded(w, status, has);
     },
     [](World& w) { w.Record(w.font->HasGlyph('g')); }},
    OF_FONT(typo_ascender, TypoAscender),
    OF_FONT(typo_descender, TypoDescender),
    OF_FONT(typo_line_gap, TypoLineGap),
    {"gfx_font_cache_access_glyph",
     [](World& w) {
         gfx_glyph_image image{};
         gfx_glyph_geom geom{};
         gfx_font_cache_get_glyph_geometry(w.cFont, 'f', &geom);
         const gfx_status status = gfx_font_cache_access_glyph(w.cFont, 'g', &image, &geom);
         if (status != GFX_OK) return status;
         std::uint32_t ink = 0;
         gfx_surface_ret_pixel_rgb(image.band, image.x + 3, image.y + 3, &ink);
         w.Record(image.x, image.y, ink);
         RecordGeom(w, geom);
         return status;
     },
     [](World& w) {
         GfxSurface* band = nullptr;
         unsigned short x, y;
         GfxFontCache::GlyphGeom geom;
         try {
             w.font->GetGlyphGeometry('f', geom);
         } catch (...) {
         }
         w.font->AccessGlyph('g', band, x, y, geom);
         w.Record(x, y, band->RetPixelRGB(x + 3, y + 3));
         RecordGeom(w, geom);
     }},
    {"gfx_font_cache_draw_glyph",
     [](World& w) { return gfx_font_cache_draw_glyph(w.cFont, 'g', -1, 17, 0x40AA5511, S, 0); },
     [](World& w) { w.font->DrawGlyph('g', ~0U, 17, 0x40AA5511, w.surface, 0); }},
    {"gfx_font_cache_get_glyph_geometry",
     [](World& w) {
         gfx_glyph_geom geom{};
         const gfx_status status = gfx_font_cache_get_glyph_geometry(w.cFont, 'g', &geom);
         if (status == GFX_OK) RecordGeom(w, geom);
         return status;
     },
     [](World& w) {
         GfxFontCache::GlyphGeom geom;
         w.font->GetGlyphGeometry('g', geom);
         RecordGeom(w, geom);
     }},
};

}  // namespace test
