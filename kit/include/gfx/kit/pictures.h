/// @file
/// Pictures drawn larger, smaller, turned, mirrored, through a palette, or dithered.
///
/// Sources and targets may have any depth that the engine draws (2 to 32); pixels go through colour
/// words, so what the engine does to colours on their way holds here too. Targets are clipped to
/// their clip rectangle. All of it is integer arithmetic: the same pixels on every processor. A
/// source that shares memory with its target may be read after it was drawn on.
///
/// What is drawn nowhere: a source rectangle that does not lie inside the source, or is empty.
/// Each function takes memory for a few rows from the hooks while it runs, and throws what a hook
/// throws; part of the picture may be drawn then.
#ifndef GFX_KIT_PICTURES_H
#define GFX_KIT_PICTURES_H

#include <gfx/kit/color.h>
#include <gfx/kit/export.h>
#include <gfx/surface.h>

namespace gfx::kit {

/// A rectangle of whole pixels.
struct PictureRect {
    int x;  ///< left column
    int y;  ///< top row
    int w;  ///< width in pixels; nothing is drawn unless it is positive
    int h;  ///< height in pixels; the same
};

/// How pixels are written: as RectCopy does, the target's colour key included, or as RectBlend
/// does, by each pixel's alpha.
enum class Writing {
    kCopy,  ///< as RectCopy
    kBlend  ///< as RectBlend
};

/// How a picture is scaled. Column i of a target w wide stands for source columns i s / w to
/// (i + 1) s / w of a source s wide, and rows likewise.
enum class Scaling {
    /// The source pixel at the middle of that stretch.
    kNearest,
    /// Between the four source pixels around that middle: weights of 1/256 by position, cut down;
    /// first along rows, then between them, each rounded to nearest with halves up. Beyond the
    /// outermost pixels' middles their colours go on.
    kBilinear,
    /// The exact mean of that stretch, rounded to nearest with halves up. For sources of up to
    /// 2^24 pixels each way; larger ones draw nothing.
    kArea
};

/// Draws a rectangle of a source, scaled into one of the target. Alpha is treated as the colours
/// are: where a picture's invisible pixels have colours, these enter at its rims.
GFX_KIT_API void DrawScaled(GfxSurface& target, PictureRect to, const GfxSurface& source,
                            PictureRect from, Scaling scaling, Writing writing = Writing::kCopy);

/// Quarter turns are clockwise; kMirrored swaps left and right before it is turned.
enum class Orientation {
    kUpright,               ///< as it is
    kQuarter,               ///< the top goes to the right
    kHalf,                  ///< upside down
    kThreeQuarters,         ///< the top goes to the left
    kMirrored,              ///< left and right swapped
    kMirroredQuarter,       ///< that, and the top to the right
    kMirroredHalf,          ///< top and bottom swapped
    kMirroredThreeQuarters  ///< mirrored, and the top to the left
};

/// Draws a rectangle of a source turned or mirrored, its upper left corner at (x, y).
GFX_KIT_API void DrawOriented(GfxSurface& target, int x, int y, const GfxSurface& source,
                              PictureRect from, Orientation orientation,
                              Writing writing = Writing::kCopy);

/// The colours of an 8-bit picture.
struct Palette {
    Color colors[256];     ///< by the pixel's byte
    int transparent = -1;  ///< a byte whose pixels are not drawn; -1 for none
};

/// Draws a rectangle of a source of depth 8 with the colours of a palette. Other depths draw
/// nothing.
GFX_KIT_API void DrawIndexed(GfxSurface& target, int x, int y, const GfxSurface& source,
                             PictureRect from, const Palette& palette,
                             Writing writing = Writing::kCopy);

/// Draws a rectangle of a source with ordered dithering, for targets of 5-6-5 pixels: before a
/// channel is cut to n bits, the threshold of an 8 x 8 Bayer matrix, 0 to 63, times 2^(8 - n) / 64
/// is added, and the sum limited to 255. The matrix lies on the target's columns and rows, so that
/// parts drawn one by one fit together.
GFX_KIT_API void DrawDithered(GfxSurface& target, int x, int y, const GfxSurface& source,
                              PictureRect from);

}  // namespace gfx::kit

#endif  // GFX_KIT_PICTURES_H
