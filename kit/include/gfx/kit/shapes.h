/// @file
/// Canvas: anti-aliased shapes drawn on a surface.
#ifndef GFX_KIT_SHAPES_H
#define GFX_KIT_SHAPES_H

#include <gfx/kit/export.h>
#include <gfx/kit/geometry.h>
#include <gfx/kit/paint.h>
#include <gfx/surface.h>

namespace gfx::kit {

/// Which points a polygon that crosses itself holds.
enum class FillRule {
    kNonZero,  ///< those around which its outline winds
    kEvenOdd   ///< those around which it winds an odd number of times
};

/// How a line ends.
enum class Cap {
    kButt,   ///< at its last point
    kRound,  ///< with half a disc around it
    kSquare  ///< half its width behind it
};

/// How two segments of a line meet on the outer side of the turn.
enum class Join {
    kMiter,  ///< in a point, where that is no longer than the limit; else as kBevel
    kRound,  ///< in an arc around the shared point
    kBevel   ///< cut off straight
};

/// How a line is drawn.
struct Stroke {
    Fixed width = 1;           ///< whole width; 0 or less draws nothing
    Cap cap = Cap::kButt;      ///< both ends of a line, and dots: a line all in one point
    Join join = Join::kMiter;  ///< all corners
    Fixed miterLimit = 4;      ///< longest miter, measured from inner to outer corner, in widths
};

/// Draws anti-aliased shapes on one surface and keeps the scratch memory that takes, from the
/// hooks, so that drawing goes on without allocations once the largest shape was drawn.
///
/// Pixels are exact: the same on every processor, and independent of the clip rectangle. An outline
/// is a polygon with corners in 1/256 pixel; curves become polygons inside them that are nowhere
/// further than 3/256 pixel off, before their corners are rounded. Where an edge crosses a pixel's
/// border is rounded to the nearest 1/256 pixel; the area between the crossings is summed in
/// integers. A pixel's coverage is that sum c in 1/2^17 pixel, with its sign dropped and limited to
/// 1 (kNonZero), or folded back at 1 (kEvenOdd); its mask byte is 255 - ((255 c + 2^16) >> 17).
/// Windings are counted modulo 2^15.
///
/// The colour is blended through that byte as GfxSurface::RectFillBlend does with a mask: on every
/// depth, inside the clip rectangle, 32-bit pixels keeping their alpha byte. A gradient's pixel has
/// the colour of its centre.
///
/// Every drawing call clears the surface's `empty` flag if something was drawn, and throws what a
/// hook throws while scratch memory grows: then nothing was drawn and the canvas can be used on.
/// One canvas serves one call at a time; separate canvases on separate surfaces are independent.
class GFX_KIT_API Canvas {
public:
    /// A canvas on `target`, which must live as long. Takes no memory.
    explicit Canvas(GfxSurface& target) : target_(&target) {}

    /// A canvas owns its scratch memory, so it cannot be copied.
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    /// Returns the scratch memory. May throw only what fn_free throws; everything is returned then.
    ~Canvas() noexcept(false);

    /// The surface drawn on.
    GfxSurface& Target() const { return *target_; }

    /// Draws on another surface from now on; the scratch memory stays.
    void SetTarget(GfxSurface& target) { target_ = &target; }

    /// Fills a rectangle; edges between pixels are anti-aliased.
    void FillRect(FixedRect rect, const Paint& paint);

    /// Fills a rectangle with round corners. @param radius  limited to 0 .. half the shorter side.
    void FillRoundRect(FixedRect rect, Fixed radius, const Paint& paint);

    /// Draws the outline of such a rectangle inside of its edge, `width` wide; where the width
    /// reaches the middle, the whole rectangle is filled. A width of 0 or less draws nothing.
    void OutlineRoundRect(FixedRect rect, Fixed radius, Fixed width, const Paint& paint);

    /// Fills a circle. A radius of 0 or less draws nothing.
    void FillCircle(Point center, Fixed radius, const Paint& paint);

    /// Draws a circle's line: a ring from radius - width / 2 (at least 0) to radius + width / 2.
    /// A radius below 0 or a width of 0 or less draws nothing.
    void DrawCircle(Point center, Fixed radius, Fixed width, const Paint& paint);

    /// Draws a piece of such a ring.
    /// @param start  where it begins. @param sweep  how far it goes on, clockwise, or the other way
    ///               where negative; a whole turn or more is the whole ring.
    /// @param cap    how both ends look; a sweep of 0 draws the caps alone.
    void DrawArc(Point center, Fixed radius, Fixed width, Angle start, Angle sweep, Cap cap,
                 const Paint& paint);

    /// Fills a polygon, which closes itself. Null or fewer than three points draw nothing.
    /// @param points  `count` corners.
    void FillPolygon(const Point* points, int count, FillRule rule, const Paint& paint);

    /// Draws a straight line; the same as DrawPolyline with two points.
    void DrawLine(Point from, Point to, const Stroke& stroke, const Paint& paint);

    /// Draws a line through points, as one shape: where it crosses itself nothing is blended twice.
    /// @param points  `count` points; points that equal the one before are left out, a single one
    ///                is a dot (round: a disc, square: a square along the axes, butt: nothing).
    /// @param closed  true: the last point is joined to the first and there are no caps; fewer than
    ///                three different points are not closed.
    void DrawPolyline(const Point* points, int count, bool closed, const Stroke& stroke,
                      const Paint& paint);

private:
    struct Scratch;

    Scratch& Begin();
    void Finish(FillRule rule, const Paint& paint);

    GfxSurface* target_;
    Scratch* scratch_ = nullptr;
};

}  // namespace gfx::kit

#endif  // GFX_KIT_SHAPES_H
