// A random shape of any kind, and pictures to draw it on and to compare.
#pragma once

#include <gfx/kit/shapes.h>

#include <array>
#include <cstring>

#include "shape_model.h"

namespace test {

using namespace gfx::kit;

using Random = std::mt19937;

inline int Between(Random& random, int low, int high) {
    return std::uniform_int_distribution(low, high)(random);
}

/// A shape of any kind with coordinates in the given range, the same for the same seed.
inline void DrawAnyShape(Canvas& canvas, unsigned seed, int low, int high, const Paint& paint) {
    Random random(seed);
    std::array<Fixed, 12> v;
    for (Fixed& value : v)
        value = Units(Between(random, low, high));
    const Fixed w = Units(Between(random, -64, high / 8));
    const std::array<Point, 5> points{
        {{v[0], v[1]}, {v[2], v[3]}, {v[4], v[5]}, {v[6], v[7]}, {v[8], v[9]}}};
    const int kind = Between(random, 0, 8);
    const Cap cap = static_cast<Cap>(Between(random, 0, 2));
    const Join join = static_cast<Join>(Between(random, 0, 2));
    const Angle start = Angle::FromUnits(static_cast<int>(random()));
    const Angle sweep = Angle::FromUnits(static_cast<int>(random()) >> Between(random, 0, 9));
    const Stroke stroke{w, cap, join, 4};
    const FixedRect rect{v[0], v[1], v[2], v[3]};
    switch (kind) {
        case 0:
            return canvas.FillRect(rect, paint);
        case 1:
            return canvas.FillRoundRect(rect, v[4], paint);
        case 2:
            return canvas.OutlineRoundRect(rect, v[4], w, paint);
        case 3:
            return canvas.FillCircle(points[0], v[4], paint);
        case 4:
            return canvas.DrawCircle(points[0], v[4], w, paint);
        case 5:
            return canvas.DrawArc(points[0], v[4], w, start, sweep, cap, paint);
        case 6:
            return canvas.FillPolygon(points.data(), 5, FillRule::kEvenOdd, paint);
        case 7:
            return canvas.DrawLine(points[0], points[1], stroke, paint);
        default:
            return canvas.DrawPolyline(points.data(), 5, seed % 2 == 0, stroke, paint);
    }
}

inline void FillWithNoise(GfxSurface& surface, unsigned seed) {
    Random random(seed);
    for (unsigned y = 0; y < surface.DY(); ++y) {
        auto* row = static_cast<std::uint8_t*>(surface.Line(static_cast<int>(y)));
        for (unsigned i = 0; i < surface.Pitch(); ++i)
            row[i] = static_cast<std::uint8_t>(random());
    }
}

inline bool SamePixels(const GfxSurface& a, const GfxSurface& b) {
    const std::size_t bytes = a.DX() * (a.Depth() == 8 ? 1U : a.Depth() == 16 ? 2U : 4U);
    for (unsigned y = 0; y < a.DY(); ++y) {
        if (std::memcmp(a.Line(static_cast<int>(y)), b.Line(static_cast<int>(y)), bytes) != 0)
            return false;
    }
    return true;
}

}  // namespace test
