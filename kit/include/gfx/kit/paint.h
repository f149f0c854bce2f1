/// @file
/// What a shape is filled with: one colour, or a gradient along a line or around a point.
#ifndef GFX_KIT_PAINT_H
#define GFX_KIT_PAINT_H

#include <gfx/kit/color.h>
#include <gfx/kit/export.h>
#include <gfx/kit/geometry.h>

#include <cstdint>

namespace gfx::kit {

/// A colour at a place along a gradient.
struct ColorStop {
    int at;       ///< 0 is the start, 255 the end; limited to that range
    Color color;  ///< the colour there
};

/// A gradient of 256 steps: step i is drawn where the way t from start to end lies in
/// [i / 256, (i + 1) / 256). Before the start lies step 0, behind the end step 255.
///
/// Between two stops every channel, opacity included, runs evenly and is rounded to the nearest.
/// The object holds its 256 colours itself and takes no memory; copies are independent.
class GFX_KIT_API Gradient {
public:
    /// Along the line `from` - `to`; lines across it have one colour. Where both are less than a
    /// pixel apart, everything has the end's colour.
    static Gradient Linear(Point from, Point to, Color start, Color end);

    /// As above, through stops in ascending order of `at`; where two stand at one place, the later
    /// one counts from there on. Without stops (null or count < 1) nothing is drawn.
    static Gradient Linear(Point from, Point to, const ColorStop* stops, int count);

    /// From `center` outwards to the distance `radius`; a radius of 0 or less gives the end's
    /// colour everywhere.
    static Gradient Radial(Point center, Fixed radius, Color start, Color end);

    /// As above, through stops.
    static Gradient Radial(Point center, Fixed radius, const ColorStop* stops, int count);

    /// Which of the two kinds this is.
    enum class Kind {
        kLinear,  ///< along a line
        kRadial   ///< around a point
    };

    Kind GetKind() const { return kind_; }                 ///< the kind
    Point Start() const { return start_; }                 ///< `from`, or the centre
    Point End() const { return end_; }                     ///< `to`; of no use for a radial one
    Fixed Radius() const { return radius_; }               ///< of a radial one
    const std::uint32_t* Words() const { return words_; }  ///< the 256 steps, engine words
    bool IsOpaque() const { return opaque_; }              ///< whether all steps are opaque

private:
    Gradient(Kind kind, Point start, Point end, Fixed radius, const ColorStop* stops, int count);

    Kind kind_;
    Point start_;
    Point end_;
    Fixed radius_;
    bool opaque_;
    std::uint32_t words_[256];
};

/// What to fill with. Made from a colour or a gradient by itself; refers to the gradient, which
/// must live until the drawing call returns.
class Paint {
public:
    /// One colour.
    Paint(Color color) : word_(color.Word()) {}

    /// A gradient, which is referred to.
    Paint(const Gradient& gradient) : gradient_(&gradient) {}

    const Gradient* GetGradient() const { return gradient_; }  ///< null for a colour
    std::uint32_t Word() const { return word_; }               ///< the colour's engine word

private:
    const Gradient* gradient_ = nullptr;
    std::uint32_t word_ = 0;
};

}  // namespace gfx::kit

#endif  // GFX_KIT_PAINT_H
