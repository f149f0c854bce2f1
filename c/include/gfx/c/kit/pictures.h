/** @file
 * The kit's pictures in C. What each function draws is written in gfx/kit/pictures.h. Values that
 * an enumeration has no name for give GFX_NO_SUCH_VALUE. */
#ifndef GFX_C_KIT_PICTURES_H
#define GFX_C_KIT_PICTURES_H

#include <gfx/c/surface.h>

#ifdef __cplusplus
extern "C" {
#endif

/** gfx::kit::PictureRect. */
typedef struct gfx_picture_rect {
    int x; /**< left column */
    int y; /**< top row */
    int w; /**< width in pixels; nothing is drawn unless it is positive */
    int h; /**< height in pixels; the same */
} gfx_picture_rect;

/** gfx::kit::Writing. */
enum { GFX_WRITING_COPY, GFX_WRITING_BLEND };
typedef unsigned int gfx_writing;
/** gfx::kit::Scaling. */
enum { GFX_SCALING_NEAREST, GFX_SCALING_BILINEAR, GFX_SCALING_AREA };
typedef unsigned int gfx_scaling;
/** gfx::kit::Orientation; quarter turns are clockwise. */
enum {
    GFX_UPRIGHT,
    GFX_QUARTER,
    GFX_HALF,
    GFX_THREE_QUARTERS,
    GFX_MIRRORED,
    GFX_MIRRORED_QUARTER,
    GFX_MIRRORED_HALF,
    GFX_MIRRORED_THREE_QUARTERS
};
typedef unsigned int gfx_orientation;

GFX_C_API gfx_status gfx_draw_scaled(gfx_surface* target, gfx_picture_rect to,
                                     const gfx_surface* source, gfx_picture_rect from,
                                     gfx_scaling scaling, gfx_writing writing) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_draw_oriented(gfx_surface* target, int x, int y, const gfx_surface* source,
                                       gfx_picture_rect from, gfx_orientation orientation,
                                       gfx_writing writing) GFX_C_NOEXCEPT;
/** @param colors       256 colour words of the engine, by the pixel's byte.
 *  @param transparent  a byte whose pixels are not drawn; -1 for none. */
GFX_C_API gfx_status gfx_draw_indexed(gfx_surface* target, int x, int y, const gfx_surface* source,
                                      gfx_picture_rect from, const uint32_t* colors,
                                      int transparent, gfx_writing writing) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_draw_dithered(gfx_surface* target, int x, int y, const gfx_surface* source,
                                       gfx_picture_rect from) GFX_C_NOEXCEPT;

#ifdef __cplusplus
}
#endif

#endif /* GFX_C_KIT_PICTURES_H */
