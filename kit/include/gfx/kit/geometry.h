/// @file
/// Where shapes lie: coordinates in 1/256 pixel, points, rectangles and angles. Values only.
#ifndef GFX_KIT_GEOMETRY_H
#define GFX_KIT_GEOMETRY_H

#include <gfx/kit/export.h>

#include <cstdint>
#include <type_traits>

namespace gfx::kit {

/// A length or coordinate in 1/256 pixel, from -32,768 to 32,768 pixels (both exclusive).
///
/// Whole pixels and fractions convert by themselves: `Fixed x = 3;` or `Fixed x = 2.5;`. A value
/// beyond the range becomes the nearest limit, so every Fixed is one that shapes can draw.
/// Pixel (x, y) is the square from (x, y) to (x + 1, y + 1): its centre is at x + 0.5, y + 0.5.
class Fixed {
public:
    static constexpr std::int32_t kOne = 256;              ///< units in a pixel
    static constexpr std::int32_t kLimit = (1 << 23) - 1;  ///< largest value in units

    /// 0.
    constexpr Fixed() = default;

    /// A whole number of pixels.
    template <class Int, std::enable_if_t<std::is_integral<Int>::value, int> = 0>
    constexpr Fixed(Int pixels) : units_(Whole(pixels)) {}

    /// The nearest 1/256 pixel, halves away from 0; NaN becomes 0.
    constexpr Fixed(double pixels) : units_(Nearest(pixels * kOne)) {}

    /// A count of 1/256 pixels.
    static constexpr Fixed FromUnits(std::int64_t units) {
        Fixed made;
        made.units_ = units > kLimit    ? kLimit
                      : units < -kLimit ? -kLimit
                                        : static_cast<std::int32_t>(units);
        return made;
    }

    constexpr std::int32_t Units() const { return units_; }  ///< the value in 1/256 pixel

    /// @name Arithmetic
    /// Sums and differences beyond the range become the nearest limit.
    /// @{

    /// Their sum.
    friend constexpr Fixed operator+(Fixed a, Fixed b) { return FromUnits(a.units_ + b.units_); }
    /// Their difference.
    friend constexpr Fixed operator-(Fixed a, Fixed b) { return FromUnits(a.units_ - b.units_); }
    /// The opposite.
    friend constexpr Fixed operator-(Fixed a) { return FromUnits(-a.units_); }
    /// The same length.
    friend constexpr bool operator==(Fixed a, Fixed b) { return a.units_ == b.units_; }
    /// Another length.
    friend constexpr bool operator!=(Fixed a, Fixed b) { return a.units_ != b.units_; }
    /// Less.
    friend constexpr bool operator<(Fixed a, Fixed b) { return a.units_ < b.units_; }
    /// @}

private:
    template <class Int>
    static constexpr std::int32_t Whole(Int pixels) {
        if constexpr (std::is_signed<Int>::value) {
            const std::int64_t p = pixels;
            return p > 32767 ? kLimit : p < -32767 ? -kLimit : static_cast<std::int32_t>(p) * kOne;
        } else {
            const std::uint64_t p = pixels;
            return p > 32767 ? kLimit : static_cast<std::int32_t>(p) * kOne;
        }
    }

    // Scaling by 256 and both differences are exact, so the result needs no rounding rule of the
    // processor's.
    static constexpr std::int32_t Nearest(double units) {
        if (!(units < kLimit)) return units >= kLimit ? kLimit : 0;
        if (units <= -kLimit) return -kLimit;
        const auto whole = static_cast<std::int32_t>(units);
        const double rest = units - whole;
        return rest >= 0.5 ? whole + 1 : rest <= -0.5 ? whole - 1 : whole;
    }

    std::int32_t units_ = 0;
};

/// A position; y grows downwards.
struct Point {
    Fixed x;  ///< to the right
    Fixed y;  ///< downwards
};

/// A rectangle in 1/256 pixel. One whose width or height is not positive holds nothing.
struct FixedRect {
    Fixed x;  ///< left edge
    Fixed y;  ///< top edge
    Fixed w;  ///< width
    Fixed h;  ///< height
};

/// An angle in 1/2^24 turn: 0 points upwards, growing values turn clockwise.
class Angle {
public:
    static constexpr std::int32_t kTurn = 1 << 24;  ///< units in a whole turn

    /// Upwards.
    constexpr Angle() = default;

    /// Whole degrees, any number of turns; rounded to the nearest unit, at most 127 turns.
    static constexpr Angle Degrees(int degrees) {
        const std::int64_t d = degrees > 45720 ? 45720 : degrees < -45720 ? -45720 : degrees;
        const std::int64_t twice = d * kTurn * 2;
        return FromUnits(static_cast<std::int32_t>((twice + (d < 0 ? -360 : 360)) / 720));
    }

    /// Degrees with a fraction, as above; NaN is 0.
    GFX_KIT_API static Angle Degrees(double degrees);

    /// A count of 1/2^24 turns.
    static constexpr Angle FromUnits(std::int32_t units) {
        Angle made;
        made.units_ = units;
        return made;
    }

    constexpr std::int32_t Units() const { return units_; }  ///< the value in 1/2^24 turn

private:
    std::int32_t units_ = 0;
};

/// The point at a distance from `center` in the direction of `angle`, to the nearest 1/256 pixel:
/// (x + radius sin(angle), y - radius cos(angle)).
GFX_KIT_API Point OnCircle(Point center, Fixed radius, Angle angle);

}  // namespace gfx::kit

#endif  // GFX_KIT_GEOMETRY_H
