// The shapes that more than one picture uses.
#include "shapes.h"

namespace demo {
namespace {

Point CenterOf(Box box) { return {box.x + box.w / 2.0, box.y + box.h / 2.0}; }
Point HalfOf(Box box) { return {box.w / 2.0, box.h / 2.0}; }

Box BoxAround(Point center, double reach) {
    const int left = static_cast<int>(std::floor(center.x - reach)) - 1;
    const int top = static_cast<int>(std::floor(center.y - reach)) - 1;
    const int size = static_cast<int>(std::ceil(2 * reach)) + 3;
    return {left, top, size, size};
}

// Falls from 1 to 0 with a soft start and a soft end.
double Falloff(double t) {
    const double u = std::clamp(1 - t, 0.0, 1.0);
    return u * u * (3 - 2 * u);
}

}  // namespace

void FillRounded(GfxSurface& target, Box box, double radius, Color color) {
    FillShape(target, box, color,
              [&](Point p) { return RoundedBoxDistance(p, CenterOf(box), HalfOf(box), radius); });
}

void OutlineRounded(GfxSurface& target, Box box, double radius, Color color) {
    FillShape(target, box, color, [&](Point p) {
        return std::abs(RoundedBoxDistance(p, CenterOf(box), HalfOf(box), radius) + 0.5) - 0.5;
    });
}

void GlowRounded(GfxSurface& target, Box box, double radius, int reach, Color color) {
    const Box outer = box.Inset(-reach);
    const Point origin{static_cast<double>(outer.x), static_cast<double>(outer.y)};
    const Surface mask =
        MakeMask(static_cast<unsigned>(outer.w), static_cast<unsigned>(outer.h), [&](Point p) {
            return Falloff(RoundedBoxDistance(p + origin, CenterOf(box), HalfOf(box), radius) /
                           reach);
        });
    FillMask(target, outer.x, outer.y, mask, color);
}

void FillDisc(GfxSurface& target, Point center, double radius, Color color) {
    FillShape(target, BoxAround(center, radius), color,
              [&](Point p) { return Length(p - center) - radius; });
}

void FillRing(GfxSurface& target, Point center, double radius, double halfWidth, Color color) {
    FillShape(target, BoxAround(center, radius + halfWidth), color,
              [&](Point p) { return std::abs(Length(p - center) - radius) - halfWidth; });
}

void GlowDisc(GfxSurface& target, Point center, double radius, Color color) {
    const Box box = BoxAround(center, radius);
    const Point origin{static_cast<double>(box.x), static_cast<double>(box.y)};
    const Surface mask =
        MakeMask(static_cast<unsigned>(box.w), static_cast<unsigned>(box.h),
                 [&](Point p) { return Falloff(Length(p + origin - center) / radius); });
    FillMask(target, box.x, box.y, mask, color);
}

void FillArc(GfxSurface& target, Point center, double radius, double halfWidth, double start,
             double sweep, Color color) {
    FillShape(target, BoxAround(center, radius + halfWidth), color,
              [&](Point p) { return ArcDistance(p - center, radius, halfWidth, start, sweep); });
}

void FillCapsule(GfxSurface& target, Point from, Point to, double radius, Color color) {
    const Point middle{(from.x + to.x) / 2, (from.y + to.y) / 2};
    FillShape(target, BoxAround(middle, Length(to - from) / 2 + radius), color,
              [&](Point p) { return CapsuleDistance(p, from, to, radius); });
}

}  // namespace demo
