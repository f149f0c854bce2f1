/** @file
 * GfxFontCache in C. What each function does, and the range of each argument, is written in
 * gfx/font_cache.h; the comments here tell what is different. */
#ifndef GFX_C_FONT_CACHE_H
#define GFX_C_FONT_CACHE_H

#include <gfx/c/surface.h>

#ifdef __cplusplus
extern "C" {
#endif

/** A GfxFontCache. */
typedef struct gfx_font_cache gfx_font_cache;

/** GfxFontCache::GlyphGeom: whole pixels from the pen position on the baseline, y upwards. */
typedef struct gfx_glyph_geom {
    short left;      /**< left edge of the glyph's box */
    short right;     /**< right edge of the box, exclusive */
    short bottom;    /**< bottom edge of the box */
    short top;       /**< top edge of the box, exclusive */
    short bearing_x; /**< horizontal bearing X */
    short bearing_y; /**< horizontal bearing Y */
    short advance;   /**< how far the pen moves on after the glyph */
    short reserved;  /**< always 0 */
} gfx_glyph_geom;

/** Where the image of a glyph lies. */
typedef struct gfx_glyph_image {
    const gfx_surface* band; /**< the cache's own surface of depth 8, or NULL without a glyph */
    unsigned short x;        /**< left column of the image in the band */
    unsigned short y;        /**< top row of the image in the band */
} gfx_glyph_image;

/** Makes a closed cache; GFX_NO_HOOKS before hooks are set. */
GFX_C_API gfx_status gfx_font_cache_new(gfx_font_cache** font) GFX_C_NOEXCEPT;
/** Destroys *font and sets it to NULL; GFX_NULL_ARGUMENT if it is NULL already. */
GFX_C_API gfx_status gfx_font_cache_delete(gfx_font_cache** font) GFX_C_NOEXCEPT;

/** GFX_NO_FACE where OpenFace is false; a NULL path gives that as well. */
GFX_C_API gfx_status gfx_font_cache_open_face(gfx_font_cache* font, const char* path, int em_size,
                                              bool smooth) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_font_cache_close_face(gfx_font_cache* font) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_font_cache_has_glyph(const gfx_font_cache* font, unsigned int code,
                                              bool* has_glyph) GFX_C_NOEXCEPT;

GFX_C_API gfx_status gfx_font_cache_typo_ascender(const gfx_font_cache* font,
                                                  short* ascender) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_font_cache_typo_descender(const gfx_font_cache* font,
                                                   short* descender) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_font_cache_typo_line_gap(const gfx_font_cache* font,
                                                  short* line_gap) GFX_C_NOEXCEPT;

/** GFX_OK also without a glyph: `image` is all zero then, and so is `geom`. */
GFX_C_API gfx_status gfx_font_cache_access_glyph(gfx_font_cache* font, unsigned short code,
                                                 gfx_glyph_image* image,
                                                 gfx_glyph_geom* geom) GFX_C_NOEXCEPT;
/** @param x,y  pen position in pixels of the target, negative left of it or above it. */
GFX_C_API gfx_status gfx_font_cache_draw_glyph(gfx_font_cache* font, unsigned short code, int x,
                                               int y, uint32_t color, gfx_surface* target,
                                               int angle) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_font_cache_get_glyph_geometry(gfx_font_cache* font, unsigned short code,
                                                       gfx_glyph_geom* geom) GFX_C_NOEXCEPT;

#ifdef __cplusplus
}
#endif

#endif /* GFX_C_FONT_CACHE_H */
