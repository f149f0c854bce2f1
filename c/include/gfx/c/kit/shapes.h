/** @file
 * The kit's Canvas and Gradient in C: anti-aliased shapes. What each function draws is written in
 * gfx/kit/shapes.h, gfx/kit/paint.h and gfx/kit/geometry.h. Values that an enumeration has no name
 * for give GFX_NO_SUCH_VALUE. Colours are the engine's words: the top byte counts transparency. */
#ifndef GFX_C_KIT_SHAPES_H
#define GFX_C_KIT_SHAPES_H

#include <gfx/c/surface.h>

#ifdef __cplusplus
extern "C" {
#endif

/** A gfx::kit::Fixed: 1/256 pixel. Larger values than that has become its nearest limit. */
typedef int32_t gfx_fixed;
/** A gfx::kit::Angle: 1/2^24 turn, 0 upwards, growing clockwise. */
typedef int32_t gfx_angle;

/** Fixed(double): the nearest 1/256 pixel, limited. */
GFX_C_API gfx_fixed gfx_fixed_from_pixels(double pixels) GFX_C_NOEXCEPT;
/** Angle::Degrees. */
GFX_C_API gfx_angle gfx_angle_from_degrees(double degrees) GFX_C_NOEXCEPT;

/** A position; y grows downwards. */
typedef struct gfx_point {
    gfx_fixed x; /**< to the right */
    gfx_fixed y; /**< downwards */
} gfx_point;

/** A rectangle in 1/256 pixel. */
typedef struct gfx_fixed_rect {
    gfx_fixed x; /**< left edge */
    gfx_fixed y; /**< top edge */
    gfx_fixed w; /**< width */
    gfx_fixed h; /**< height */
} gfx_fixed_rect;

/** OnCircle: the point at a distance from `center` in the direction of `angle`. */
GFX_C_API gfx_point gfx_on_circle(gfx_point center, gfx_fixed radius,
                                  gfx_angle angle) GFX_C_NOEXCEPT;

/* Any number may be passed for these, so they are numbers. */

/** gfx::kit::FillRule. */
enum { GFX_FILL_NON_ZERO, GFX_FILL_EVEN_ODD };
typedef unsigned int gfx_fill_rule;
/** gfx::kit::Cap. */
enum { GFX_CAP_BUTT, GFX_CAP_ROUND, GFX_CAP_SQUARE };
typedef unsigned int gfx_cap;
/** gfx::kit::Join. */
enum { GFX_JOIN_MITER, GFX_JOIN_ROUND, GFX_JOIN_BEVEL };
typedef unsigned int gfx_join;

/** gfx::kit::Stroke. Nothing is filled in by itself. */
typedef struct gfx_stroke {
    gfx_fixed width;       /**< whole width; 0 or less draws nothing */
    gfx_cap cap;           /**< both ends of a line, and dots */
    gfx_join join;         /**< all corners */
    gfx_fixed miter_limit; /**< longest miter in widths, times 256; C++ has 4 * 256 at first */
} gfx_stroke;

/** A gfx::kit::ColorStop. */
typedef struct gfx_color_stop {
    int at;         /**< 0 is the start, 255 the end; limited to that range */
    uint32_t color; /**< the engine's colour word */
} gfx_color_stop;

/** A gfx::kit::Gradient, in memory from the hooks. */
typedef struct gfx_gradient gfx_gradient;

/** What to fill with: the gradient, which has to live until the call returns, or where that is NULL
 * the colour. */
typedef struct gfx_paint {
    const gfx_gradient* gradient; /**< NULL for one colour */
    uint32_t color;               /**< the engine's colour word */
} gfx_paint;

/** Gradient::Linear through stops. @param stops  `count` stops; NULL for none, then nothing is
 * drawn. */
GFX_C_API gfx_status gfx_gradient_new_linear(gfx_point from, gfx_point to,
                                             const gfx_color_stop* stops, int count,
                                             gfx_gradient** gradient) GFX_C_NOEXCEPT;
/** Gradient::Radial through stops, as above. */
GFX_C_API gfx_status gfx_gradient_new_radial(gfx_point center, gfx_fixed radius,
                                             const gfx_color_stop* stops, int count,
                                             gfx_gradient** gradient) GFX_C_NOEXCEPT;
/** Destroys *gradient and sets it to NULL. */
GFX_C_API gfx_status gfx_gradient_delete(gfx_gradient** gradient) GFX_C_NOEXCEPT;

/** A gfx::kit::Canvas, in memory from the hooks. */
typedef struct gfx_canvas gfx_canvas;

/** Makes a canvas on `target`, which has to live as long. */
GFX_C_API gfx_status gfx_canvas_new(gfx_surface* target, gfx_canvas** canvas) GFX_C_NOEXCEPT;
/** Destroys *canvas and sets it to NULL. */
GFX_C_API gfx_status gfx_canvas_delete(gfx_canvas** canvas) GFX_C_NOEXCEPT;
/** Draws on another surface from now on. */
GFX_C_API gfx_status gfx_canvas_set_target(gfx_canvas* canvas, gfx_surface* target) GFX_C_NOEXCEPT;

GFX_C_API gfx_status gfx_canvas_fill_rect(gfx_canvas* canvas, gfx_fixed_rect rect,
                                          gfx_paint paint) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_canvas_fill_round_rect(gfx_canvas* canvas, gfx_fixed_rect rect,
                                                gfx_fixed radius, gfx_paint paint) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_canvas_outline_round_rect(gfx_canvas* canvas, gfx_fixed_rect rect,
                                                   gfx_fixed radius, gfx_fixed width,
                                                   gfx_paint paint) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_canvas_fill_circle(gfx_canvas* canvas, gfx_point center, gfx_fixed radius,
                                            gfx_paint paint) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_canvas_draw_circle(gfx_canvas* canvas, gfx_point center, gfx_fixed radius,
                                            gfx_fixed width, gfx_paint paint) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_canvas_draw_arc(gfx_canvas* canvas, gfx_point center, gfx_fixed radius,
                                         gfx_fixed width, gfx_angle start, gfx_angle sweep,
                                         gfx_cap cap, gfx_paint paint) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_canvas_fill_polygon(gfx_canvas* canvas, const gfx_point* points, int count,
                                             gfx_fill_rule rule, gfx_paint paint) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_canvas_draw_line(gfx_canvas* canvas, gfx_point from, gfx_point to,
                                          gfx_stroke stroke, gfx_paint paint) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_canvas_draw_polyline(gfx_canvas* canvas, const gfx_point* points,
                                              int count, bool closed, gfx_stroke stroke,
                                              gfx_paint paint) GFX_C_NOEXCEPT;

#ifdef __cplusplus
}
#endif

#endif /* GFX_C_KIT_SHAPES_H */
