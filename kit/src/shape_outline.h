// Outlines: arcs and wide lines as polygons, handed to a Raster edge by edge. Directions are unit
// vectors in double precision, which are only added, multiplied, divided and rooted; corners are
// rounded to the nearest 1/256 pixel.
#ifndef GFX_KIT_SRC_SHAPE_OUTLINE_H
#define GFX_KIT_SRC_SHAPE_OUTLINE_H

#include <gfx/kit/shapes.h>

#include "shape_raster.h"

namespace gfx::kit {

/// A direction of length 1, or an offset in 1/256 pixel; y grows downwards.
struct Vector {
    double x;
    double y;
};

inline Vector operator+(Vector a, Vector b) { return {a.x + b.x, a.y + b.y}; }
inline Vector operator-(Vector a) { return {-a.x, -a.y}; }
inline Vector operator*(Vector v, double by) { return {v.x * by, v.y * by}; }
inline double Dot(Vector a, Vector b) { return a.x * b.x + a.y * b.y; }
inline double Cross(Vector a, Vector b) { return a.x * b.y - a.y * b.x; }

/// A quarter turn clockwise, as seen on the screen.
inline Vector TurnRight(Vector v) { return {-v.y, v.x}; }
inline Vector TurnLeft(Vector v) { return {v.y, -v.x}; }

/// Where an angle points, exactly for multiples of a quarter turn.
Vector DirectionOf(Angle angle);

inline Vector VectorOf(Point p) {
    return {static_cast<double>(p.x.Units()), static_cast<double>(p.y.Units())};
}

/// The nearest corner within reach.
Corner CornerAt(Vector position);

/// One closed polygon after the other.
class Outline {
public:
    explicit Outline(Raster& raster) : raster_(raster) {}

    /// The next corner of the polygon.
    void Add(Vector position);

    /// Corners of an arc of at most half a turn around `center`, from direction `from` to `to`, the
    /// first and last one included.
    void AddArc(Vector center, double radius, Vector from, Vector to, bool clockwise);

    /// The same for an arc of up to one turn that starts at an angle.
    void AddSweep(Vector center, double radius, Angle start, std::int32_t sweep);

    /// Closes the polygon; the next corner starts another one.
    void Close();

private:
    static constexpr int kDeepest = 12;  // the largest circle takes fewer

    /// How often an arc is halved, and what makes the sum of two neighbouring offsets as long as
    /// they are.
    struct Halving {
        int depth;
        double scales[kDeepest];
    };

    void AddQuarter(Vector center, double radius, Vector from, Vector to);
    void AddHalves(Vector center, const Halving& halving, Vector from, Vector to, int depth);

    Raster& raster_;
    Corner first_ = {};
    Corner last_ = {};
    bool open_ = false;
};

/// The way from one corner of a line to the next.
struct Segment {
    Vector direction;
    double length;
};

/// The outline of a line through `count` corners, of which none equals the one before (nor, when
/// closed, the last one the first). @param segments  scratch, `count` long.
void AddStroke(Outline& outline, const Corner* corners, std::size_t count, bool closed,
               const Stroke& stroke, Segment* segments);

}  // namespace gfx::kit

#endif  // GFX_KIT_SRC_SHAPE_OUTLINE_H
