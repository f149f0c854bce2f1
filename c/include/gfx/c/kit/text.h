/** @file
 * The kit's text in C. What each function does is written in gfx/kit/text.h. Values that an
 * enumeration has no name for give GFX_NO_SUCH_VALUE.
 *
 * A text is UTF-8, given by its first byte and its length in bytes, or by GFX_WHOLE_TEXT where it
 * ends with a zero byte. */
#ifndef GFX_C_KIT_TEXT_H
#define GFX_C_KIT_TEXT_H

#include <gfx/c/font_cache.h>

#include <stddef.h>  // NOLINT(modernize-deprecated-headers): for C

#ifdef __cplusplus
extern "C" {
#endif

/** The length of a text that ends with a zero byte. */
#define GFX_WHOLE_TEXT SIZE_MAX

/** gfx::kit::AlignX. */
enum { GFX_ALIGN_LEFT, GFX_ALIGN_CENTER, GFX_ALIGN_RIGHT };
typedef unsigned int gfx_align_x;
/** gfx::kit::AlignY. */
enum { GFX_ALIGN_TOP, GFX_ALIGN_BASELINE, GFX_ALIGN_MIDDLE, GFX_ALIGN_BOTTOM };
typedef unsigned int gfx_align_y;
/** gfx::kit::Turn. */
enum { GFX_TURN_NONE, GFX_TURN_UP, GFX_TURN_DOWN };
typedef unsigned int gfx_turn;

/** A gfx::kit::Font, in memory from the hooks. */
typedef struct gfx_font gfx_font;

/** What a line of text takes, in pixels. */
typedef struct gfx_line_metrics {
    int ascent;  /**< above the baseline */
    int descent; /**< below it, usually positive */
    int gap;     /**< between two lines */
} gfx_line_metrics;

/** Makes a font of one face, which has to live as long. */
GFX_C_API gfx_status gfx_font_new(gfx_font_cache* face, gfx_font** font) GFX_C_NOEXCEPT;
/** Destroys *font and sets it to NULL. */
GFX_C_API gfx_status gfx_font_delete(gfx_font** font) GFX_C_NOEXCEPT;
/** GFX_TOO_MANY_FACES where AddFace is false. */
GFX_C_API gfx_status gfx_font_add_face(gfx_font* font, gfx_font_cache* face) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_font_set_replacement(gfx_font* font, uint32_t code) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_font_set_tracking(gfx_font* font, int pixels) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_font_set_line_metrics(gfx_font* font,
                                               gfx_line_metrics metrics) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_font_line_metrics(const gfx_font* font,
                                           gfx_line_metrics* metrics) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_font_has(const gfx_font* font, uint32_t code, bool* has) GFX_C_NOEXCEPT;

GFX_C_API gfx_status gfx_measure_string(const gfx_font* font, const char* text, size_t length,
                                        int* width) GFX_C_NOEXCEPT;
/** @param width  receives the text's width, or is NULL. */
GFX_C_API gfx_status gfx_draw_string(gfx_surface* target, const gfx_font* font, int x, int y,
                                     const char* text, size_t length, uint32_t color,
                                     gfx_align_x align, gfx_turn turn, int* width) GFX_C_NOEXCEPT;

/** gfx::kit::TextLine. */
typedef struct gfx_text_line {
    size_t length; /**< its bytes, without spaces at its end */
    size_t next;   /**< where the next line begins; the text's length at the end */
    int width;     /**< its width in pixels */
} gfx_text_line;
GFX_C_API gfx_status gfx_next_line(const gfx_font* font, const char* text, size_t length,
                                   int max_width, gfx_text_line* line) GFX_C_NOEXCEPT;

/** gfx::kit::TextFit. */
typedef struct gfx_text_fit {
    size_t length;     /**< bytes to draw, before the ellipsis */
    int width;         /**< their width with the ellipsis */
    bool has_ellipsis; /**< whether an ellipsis follows */
} gfx_text_fit;
GFX_C_API gfx_status gfx_fit_string(const gfx_font* font, const char* text, size_t length,
                                    int max_width, gfx_text_fit* fit) GFX_C_NOEXCEPT;

/** gfx::kit::TextBox. */
typedef struct gfx_text_box {
    int x; /**< left column */
    int y; /**< top row */
    int w; /**< width in pixels */
    int h; /**< height in pixels */
} gfx_text_box;

/** gfx::kit::TextStyle; all zero is opaque black from the upper left corner on. */
typedef struct gfx_text_style {
    uint32_t color;      /**< the engine's colour word */
    gfx_align_x align_x; /**< of each line */
    gfx_align_y align_y; /**< of all lines together */
    gfx_turn turn;       /**< which way lines run */
    bool wrap;           /**< break lines at the box's width */
    bool ellipsis;       /**< cut what does not fit */
} gfx_text_style;

/** @param lines  receives the number of lines drawn, or is NULL. */
GFX_C_API gfx_status gfx_draw_string_in_box(gfx_surface* target, const gfx_font* font,
                                            gfx_text_box box, const char* text, size_t length,
                                            gfx_text_style style, int* lines) GFX_C_NOEXCEPT;

#ifdef __cplusplus
}
#endif

#endif /* GFX_C_KIT_TEXT_H */
