/** @file
 * GfxSurface in C. What each function does, and the range of each argument, is written in
 * gfx/surface.h; the comments here tell what is different. */
#ifndef GFX_C_SURFACE_H
#define GFX_C_SURFACE_H

#include <gfx/c/status.h>

#include <stdbool.h>  // NOLINT(modernize-deprecated-headers): for C
#include <stdint.h>   // NOLINT(modernize-deprecated-headers): for C

#ifdef __cplusplus
extern "C" {
#endif

/** A GfxSurface. */
typedef struct gfx_surface gfx_surface;

/** A rectangle in pixels, as SetClipRect takes it. */
typedef struct gfx_rect {
    int x;          /**< left column */
    int y;          /**< top row */
    unsigned int w; /**< columns */
    unsigned int h; /**< rows */
} gfx_rect;

/** GfxSurface::ColorPlane. */
enum {
    GFX_PLANE_ALPHA = 0, /**< bits 24 to 31 */
    GFX_PLANE_RED = 1,   /**< bits 16 to 23 */
    GFX_PLANE_GREEN = 2, /**< bits 8 to 15 */
    GFX_PLANE_BLUE = 3   /**< bits 0 to 7 */
};

/** @name Making and destroying
 * @{ */

/** Makes a surface without memory; GFX_NO_HOOKS before hooks are set. */
GFX_C_API gfx_status gfx_surface_new(unsigned int bits_per_pixel,
                                     gfx_surface** surface) GFX_C_NOEXCEPT;
/** Destroys *surface and sets it to NULL; GFX_NULL_ARGUMENT if it is NULL already. */
GFX_C_API gfx_status gfx_surface_delete(gfx_surface** surface) GFX_C_NOEXCEPT;
/** @} */

/** @name Memory and size
 * @{ */

/** Initialise with memory of its own. */
GFX_C_API gfx_status gfx_surface_initialise(gfx_surface* surface, unsigned int w,
                                            unsigned int h) GFX_C_NOEXCEPT;
/** Initialise over memory of the host. */
GFX_C_API gfx_status gfx_surface_initialise_over(gfx_surface* surface, unsigned int w,
                                                 unsigned int h, void* buffer,
                                                 unsigned int row_bytes,
                                                 bool is_empty) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_set_new_size(gfx_surface* surface, unsigned int w,
                                              unsigned int h) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_optimise_size(gfx_surface* surface) GFX_C_NOEXCEPT;
/** @} */

/** @name Clipping and clearing
 * @{ */
GFX_C_API gfx_status gfx_surface_set_clip_rect(gfx_surface* surface, int x, int y, unsigned int w,
                                               unsigned int h) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_get_clip_rect(const gfx_surface* surface,
                                               gfx_rect* clip) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_reset_clip_rect(gfx_surface* surface) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_clear(gfx_surface* surface) GFX_C_NOEXCEPT;
/** @} */

/** @name Properties
 * @{ */
GFX_C_API gfx_status gfx_surface_dx(const gfx_surface* surface, unsigned int* dx) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_dy(const gfx_surface* surface, unsigned int* dy) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_depth(const gfx_surface* surface,
                                       unsigned int* depth) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_alpha(const gfx_surface* surface,
                                       unsigned int* alpha) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_pitch(const gfx_surface* surface,
                                       unsigned int* pitch) GFX_C_NOEXCEPT;
/** The first byte of row y, which is trusted as there; NULL without memory. */
GFX_C_API gfx_status gfx_surface_line(const gfx_surface* surface, int y, void** row) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_is_empty(const gfx_surface* surface,
                                          bool* is_empty) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_set_empty(gfx_surface* surface, bool is_empty) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_set_alpha(gfx_surface* surface,
                                           unsigned int new_alpha) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_set_transparent(gfx_surface* surface,
                                                 uint32_t color) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_set_opaque(gfx_surface* surface) GFX_C_NOEXCEPT;
/** @} */

/** @name Single pixels and runs of pixels
 * @{ */
GFX_C_API gfx_status gfx_surface_set_pixel_rgb(gfx_surface* surface, int x, int y,
                                               uint32_t color) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_set_pixel_rgb_blend(gfx_surface* surface, int x, int y,
                                                     uint32_t color) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_ret_pixel_rgb(const gfx_surface* surface, int x, int y,
                                               uint32_t* color) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_ret_pixel_merge_rgb(const gfx_surface* surface, int x, int y,
                                                     double fx, double fy,
                                                     uint32_t* color) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_set_pixel_line_bgr24(gfx_surface* surface, int x, int y,
                                                      unsigned int n,
                                                      const unsigned char* bgr) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_set_pixel_line_mono(gfx_surface* surface, int x, int y,
                                                     unsigned int n, uint32_t color,
                                                     const unsigned char* bits) GFX_C_NOEXCEPT;
/** @} */

/** @name Rectangles of one colour
 * @{ */
GFX_C_API gfx_status gfx_surface_rect_fill(gfx_surface* surface, int x, int y, unsigned int w,
                                           unsigned int h, uint32_t color) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_rect_fill_blend(gfx_surface* surface, int x, int y, unsigned int w,
                                                 unsigned int h, uint32_t color) GFX_C_NOEXCEPT;
/** RectFillBlend through a mask. */
GFX_C_API gfx_status gfx_surface_rect_fill_blend_mask(gfx_surface* surface, int x, int y,
                                                      unsigned int w, unsigned int h,
                                                      uint32_t color, int src_x, int src_y,
                                                      const gfx_surface* mask) GFX_C_NOEXCEPT;
/** @} */

/** @name Rectangles of another surface
 * @{ */
GFX_C_API gfx_status gfx_surface_rect_copy(gfx_surface* surface, int x, int y, unsigned int w,
                                           unsigned int h, int src_x, int src_y,
                                           const gfx_surface* src, bool tile) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_rect_blend(gfx_surface* surface, int x, int y, unsigned int w,
                                            unsigned int h, int src_x, int src_y,
                                            const gfx_surface* src, bool tile) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_rect_blend_alpha(gfx_surface* surface, int x, int y,
                                                  unsigned int w, unsigned int h, int src_x,
                                                  int src_y, double transparency,
                                                  const gfx_surface* src, bool tile) GFX_C_NOEXCEPT;
/** @} */

/** @name Colour planes and bits
 * @{ */

/** @param which  GFX_PLANE_ALPHA to GFX_PLANE_BLUE; other values as in C++. */
GFX_C_API gfx_status gfx_surface_rect_extract(gfx_surface* surface, int x, int y, unsigned int w,
                                              unsigned int h, int plane_x, int plane_y,
                                              gfx_surface* plane,
                                              unsigned int which) GFX_C_NOEXCEPT;
/** @param which  as gfx_surface_rect_extract. */
GFX_C_API gfx_status gfx_surface_rect_insert(gfx_surface* surface, int x, int y, unsigned int w,
                                             unsigned int h, int plane_x, int plane_y,
                                             const gfx_surface* plane,
                                             unsigned int which) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_rect_extract_mono(gfx_surface* surface, int x, int y,
                                                   unsigned int w, unsigned int h, int buf_x,
                                                   int buf_y, unsigned char* buffer,
                                                   unsigned int buf_pitch) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_rect_extract_mono_alpha(gfx_surface* surface, int x, int y,
                                                         unsigned int w, unsigned int h, int buf_x,
                                                         int buf_y, unsigned char* buffer,
                                                         unsigned int buf_pitch) GFX_C_NOEXCEPT;
/** @} */

/** @name Lines
 * @{ */
GFX_C_API gfx_status gfx_surface_draw_line(gfx_surface* surface, int x0, int y0, int x1, int y1,
                                           uint32_t color) GFX_C_NOEXCEPT;
/** DrawLine with a pattern. */
GFX_C_API gfx_status gfx_surface_draw_line_dashed(gfx_surface* surface, int x0, int y0, int x1,
                                                  int y1, uint32_t color,
                                                  const unsigned short* pattern,
                                                  int count) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_draw_aa_line(gfx_surface* surface, int x0, int y0, int x1, int y1,
                                              uint32_t color) GFX_C_NOEXCEPT;
/** DrawAALine with a pattern. */
GFX_C_API gfx_status gfx_surface_draw_aa_line_dashed(gfx_surface* surface, int x0, int y0, int x1,
                                                     int y1, uint32_t color,
                                                     const unsigned short* pattern,
                                                     int count) GFX_C_NOEXCEPT;
/** @} */

/** @name Display memory
 * The four trust the rectangle and the size of `dest`; GFX_NULL_ARGUMENT if that is NULL.
 * @{ */
GFX_C_API gfx_status gfx_surface_quick_blt_to565(const gfx_surface* surface, unsigned int x,
                                                 unsigned int y, unsigned int w, unsigned int h,
                                                 void* dest,
                                                 unsigned int dest_pitch) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_quick_blt_to555(const gfx_surface* surface, unsigned int x,
                                                 unsigned int y, unsigned int w, unsigned int h,
                                                 void* dest,
                                                 unsigned int dest_pitch) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_quick_blt_to24(const gfx_surface* surface, unsigned int x,
                                                unsigned int y, unsigned int w, unsigned int h,
                                                void* dest, unsigned int dest_pitch) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_surface_quick_blt_to32(const gfx_surface* surface, unsigned int x,
                                                unsigned int y, unsigned int w, unsigned int h,
                                                void* dest, unsigned int dest_pitch) GFX_C_NOEXCEPT;
/** @} */

#ifdef __cplusplus
}
#endif

#endif /* GFX_C_SURFACE_H */
