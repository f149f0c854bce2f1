// Round shapes, which the library does not draw itself: each is a mask of depth 8 whose bytes are
// computed here from the distance to the shape's edge, and is then filled through.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "palette.h"
#include "surface.h"

namespace demo {

inline constexpr double kPi = 3.14159265358979323846;

struct Point {
    double x;
    double y;
};

inline Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
inline Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
inline double Length(Point p) { return std::hypot(p.x, p.y); }

/// The point at a distance from `center`; angle in degrees, 0 upwards, growing clockwise.
inline Point OnCircle(Point center, double radius, double degrees) {
    const double a = degrees * kPi / 180;
    return {center.x + radius * std::sin(a), center.y - radius * std::cos(a)};
}

/// Distance in pixels to the edge of a rectangle with round corners; negative inside.
inline double RoundedBoxDistance(Point p, Point center, Point half, double radius) {
    const double x = std::abs(p.x - center.x) - half.x + radius;
    const double y = std::abs(p.y - center.y) - half.y + radius;
    return std::min(std::max(x, y), 0.0) + std::hypot(std::max(x, 0.0), std::max(y, 0.0)) - radius;
}

/// Distance to the edge of a thick line with round ends.
inline double CapsuleDistance(Point p, Point a, Point b, double radius) {
    const Point ab = b - a;
    const double squared = ab.x * ab.x + ab.y * ab.y;
    const Point ap = p - a;
    const double t = squared == 0 ? 0 : std::clamp((ap.x * ab.x + ap.y * ab.y) / squared, 0.0, 1.0);
    return Length(ap - Point{ab.x * t, ab.y * t}) - radius;
}

/// Distance to the edge of an arc with round ends around the origin, `sweep` degrees from angle
/// `start` on.
inline double ArcDistance(Point p, double radius, double halfWidth, double start, double sweep) {
    double angle = std::atan2(p.x, -p.y) * 180 / kPi - start;
    angle -= 360 * std::floor(angle / 360);
    if (angle <= sweep) return std::abs(Length(p) - radius) - halfWidth;
    const Point first = OnCircle({0, 0}, radius, start);
    const Point last = OnCircle({0, 0}, radius, start + sweep);
    return std::min(Length(p - first), Length(p - last)) - halfWidth;
}

/// How much of a pixel a shape covers whose edge is `distance` away from the pixel's centre.
inline double Coverage(double distance) { return std::clamp(0.5 - distance, 0.0, 1.0); }

/// A mask of depth 8; `coverage` gives 0 to 1 for the centre of each pixel.
template <typename CoverageAt>
Surface MakeMask(unsigned width, unsigned height, CoverageAt coverage) {
    Surface mask(8, width, height);
    for (unsigned y = 0; y < height; ++y) {
        std::uint8_t* row = Bytes(*mask, static_cast<int>(y));
        for (unsigned x = 0; x < width; ++x) {
            const double c = std::clamp(coverage(Point{x + 0.5, y + 0.5}), 0.0, 1.0);
            row[x] = static_cast<std::uint8_t>(255.0 - 255.0 * c + 0.5);
        }
    }
    mask->SetEmpty(false);
    return mask;
}

/// A surface of depth 32; `color` gives the colour word for the centre of each pixel.
template <typename ColorAt>
Surface MakePicture(unsigned width, unsigned height, ColorAt color) {
    Surface picture(32, width, height);
    for (unsigned y = 0; y < height; ++y) {
        std::uint32_t* row = Words(*picture, static_cast<int>(y));
        for (unsigned x = 0; x < width; ++x)
            row[x] = color(Point{x + 0.5, y + 0.5});
    }
    picture->SetEmpty(false);
    return picture;
}

/// A rectangle of whole pixels.
struct Box {
    int x, y, w, h;
    int Right() const { return x + w; }
    int Bottom() const { return y + h; }
    Box Inset(int by) const { return {x + by, y + by, w - 2 * by, h - 2 * by}; }
};

/// Blends a colour through a whole mask at (x, y).
inline void FillMask(GfxSurface& target, int x, int y, const Surface& mask, Color color) {
    target.RectFillBlend(x, y, mask->DX(), mask->DY(), color, 0, 0, mask.Get());
}

/// Fills the shape given by its distance, in the target's own coordinates, inside `box`.
template <typename DistanceAt>
void FillShape(GfxSurface& target, Box box, Color color, DistanceAt distance) {
    const Point origin{static_cast<double>(box.x), static_cast<double>(box.y)};
    const Surface mask = MakeMask(static_cast<unsigned>(box.w), static_cast<unsigned>(box.h),
                                  [&](Point p) { return Coverage(distance(p + origin)); });
    FillMask(target, box.x, box.y, mask, color);
}

/// A rectangle with round corners.
void FillRounded(GfxSurface& target, Box box, double radius, Color color);

/// A line of one pixel along the inner edge of such a rectangle.
void OutlineRounded(GfxSurface& target, Box box, double radius, Color color);

/// A soft shadow or glow around such a rectangle, `reach` pixels wide.
void GlowRounded(GfxSurface& target, Box box, double radius, int reach, Color color);

/// A disc, and a ring of a width of `2 * halfWidth`.
void FillDisc(GfxSurface& target, Point center, double radius, Color color);
void FillRing(GfxSurface& target, Point center, double radius, double halfWidth, Color color);

/// A disc of light that fades out towards its rim.
void GlowDisc(GfxSurface& target, Point center, double radius, Color color);

/// An arc with round ends; angles in degrees as in OnCircle.
void FillArc(GfxSurface& target, Point center, double radius, double halfWidth, double start,
             double sweep, Color color);

/// A thick line with round ends.
void FillCapsule(GfxSurface& target, Point from, Point to, double radius, Color color);

}  // namespace demo
