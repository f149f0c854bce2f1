// Wide lines against the plain union of their segments, joins and caps, sampled.
#include <gtest/gtest.h>

#include <algorithm>

#include "shape_model.h"

namespace test {
namespace {

using namespace gfx::kit;

constexpr int kSide = 48;

/// Whether p lies in a convex polygon given in either direction.
bool IsInside(const std::vector<Place>& polygon, Place p) {
    bool left = false, right = false;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Place a = polygon[i], b = polygon[(i + 1) % polygon.size()];
        const double side = (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x);
        left = left || side < 0;
        right = right || side > 0;
    }
    return !(left && right);
}

/// A line as a list of convex pieces and discs.
struct LineModel {
    std::vector<std::vector<Place>> pieces;
    std::vector<Place> discs;
    double half;

    bool Holds(Place p) const {
        const auto inPiece = [&](const auto& piece) { return IsInside(piece, p); };
        const auto inDisc = [&](Place c) { return std::hypot(p.x - c.x, p.y - c.y) < half; };
        return std::any_of(pieces.begin(), pieces.end(), inPiece) ||
               std::any_of(discs.begin(), discs.end(), inDisc);
    }

    /// The segment a - b, longer by `before` and `behind`.
    void AddSegment(Place a, Place b, double before, double behind) {
        const double length = std::hypot(b.x - a.x, b.y - a.y);
        const double ux = (b.x - a.x) / length, uy = (b.y - a.y) / length;
        const double nx = -uy * half, ny = ux * half;
        const Place s{a.x - ux * before, a.y - uy * before};
        const Place e{b.x + ux * behind, b.y + uy * behind};
        pieces.push_back({{s.x + nx, s.y + ny},
                          {e.x + nx, e.y + ny},
                          {e.x - nx, e.y - ny},
                          {s.x - nx, s.y - ny}});
    }

    /// The wedge between a - b and b - c on the outer side.
    void AddJoin(Place a, Place b, Place c, const Stroke& stroke) {
        if (stroke.join == Join::kRound) return discs.push_back(b);
        const double in = std::atan2(b.y - a.y, b.x - a.x), out = std::atan2(c.y - b.y, c.x - b.x);
        const double turn = std::remainder(out - in, 2 * std::acos(-1.0));
        const double side = turn > 0 ? -1 : 1;  // the outer side's normals
        const auto normal = [&](double angle, double length) {
            return Place{b.x - std::sin(angle) * side * length,
                         b.y + std::cos(angle) * side * length};
        };
        std::vector<Place> wedge{b, normal(in, half)};
        const double miter = 1 / std::cos(turn / 2);
        if (stroke.join == Join::kMiter && miter <= Pixels(stroke.miterLimit))
            wedge.push_back(normal(in + turn / 2, half * miter));
        wedge.push_back(normal(out, half));
        pieces.push_back(wedge);
    }
};

LineModel ModelOf(const std::vector<Place>& p, bool closed, const Stroke& stroke) {
    LineModel model{{}, {}, Pixels(stroke.width) / 2};
    const std::size_t n = p.size();
    const std::size_t segments = closed ? n : n - 1;
    const double reach = stroke.cap == Cap::kSquare ? model.half : 0;
    for (std::size_t i = 0; i < segments; ++i) {
        const bool first = !closed && i == 0, last = !closed && i + 1 == segments;
        model.AddSegment(p[i], p[(i + 1) % n], first ? reach : 0, last ? reach : 0);
        if (!last) model.AddJoin(p[i], p[(i + 1) % n], p[(i + 2) % n], stroke);
    }
    if (!closed && stroke.cap == Cap::kRound)
        model.discs.insert(model.discs.end(), {p[0], p[n - 1]});
    return model;
}

/// Compares two pictures of a line; only pixels through which several edges run may differ by more.
void CompareWithModel(const std::vector<Point>& points, bool closed, const Stroke& stroke,
                      unsigned seed) {
    const LineModel model = ModelOf(PlacesOf(points), closed, stroke);
    const auto mask = CoverageMask(kSide, kSide, [&](Canvas& canvas, Color color) {
        canvas.DrawPolyline(points.data(), static_cast<int>(points.size()), closed, stroke, color);
    });
    int unlike = 0;
    for (int i = 0; i < kSide * kSide; ++i) {
        const double share =
            SampledArea(i % kSide, i / kSide, 12, [&](Place p) { return model.Holds(p); });
        const double off = std::abs(mask[static_cast<std::size_t>(i)] - (255 - 255 * share));
        unlike += off > 20;
        // Whole and empty pixels are no matter of rounding.
        ASSERT_FALSE((share == 0 || share == 1) && off > 24)
            << "pixel " << i % kSide << ", " << i / kSide << ", seed " << seed << ": "
            << int{mask[static_cast<std::size_t>(i)]} << " for a share of " << share;
    }
    // Areas of one pixel are summed, whether they overlap or not: that shows at inner corners,
    // where the line crosses itself and along the narrowest angles.
    ASSERT_LE(unlike, 12 * static_cast<int>(points.size())) << "seed " << seed;
}

TEST(ShapeStroke, LinesAreTheirSegmentsJoinsAndCaps) {
    for (unsigned seed = 1; seed <= 250; ++seed) {
        std::mt19937 random(seed);
        const int count = 2 + static_cast<int>(random() % 3);
        std::vector<Point> points;
        for (int i = 0; i < count; ++i) {
            const auto x = 2560 + random() % 7168, y = 2560 + random() % 7168;
            points.push_back(
                {Units(static_cast<std::int64_t>(x)), Units(static_cast<std::int64_t>(y))});
        }
        Stroke stroke;
        stroke.width = Units(512 + random() % 2500);
        stroke.cap = static_cast<Cap>(random() % 3);
        stroke.join = static_cast<Join>(random() % 3);
        stroke.miterLimit = Units(256 + random() % 1024);
        const bool closed = count > 2 && random() % 2 == 0;
        CompareWithModel(points, closed, stroke, seed);
        if (HasFatalFailure()) return;
    }
}

TEST(ShapeStroke, ALineDoesNotDependOnItsDirection) {
    for (unsigned seed = 1; seed <= 200; ++seed) {
        std::mt19937 random(seed);
        std::vector<Point> points;
        for (int i = 0; i < 2; ++i) {
            const auto x = random() % 12288, y = random() % 12288;
            points.push_back(
                {Units(static_cast<std::int64_t>(x)), Units(static_cast<std::int64_t>(y))});
        }
        Stroke stroke;
        stroke.width = Units(1 + random() % 2500);
        stroke.cap = static_cast<Cap>(random() % 3);
        const auto draw = [&](Point a, Point b) {
            return CoverageMask(kSide, kSide, [&](Canvas& canvas, Color color) {
                canvas.DrawLine(a, b, stroke, color);
            });
        };
        const auto there = draw(points[0], points[1]);
        const auto back = draw(points[1], points[0]);
        for (std::size_t i = 0; i < there.size(); ++i)
            ASSERT_NEAR(there[i], back[i], 3) << "seed " << seed << ", pixel " << i;
    }
}

TEST(ShapeStroke, RepeatedPointsAndReversalsAddNothing) {
    const auto draw = [](const std::vector<Point>& points, Stroke stroke, bool closed) {
        return CoverageMask(kSide, kSide, [&](Canvas& canvas, Color color) {
            canvas.DrawPolyline(points.data(), static_cast<int>(points.size()), closed, stroke,
                                color);
        });
    };
    const Point a{8, 9}, b{30.5, 20.25}, c{12, 33};
    for (const Cap cap : {Cap::kButt, Cap::kRound, Cap::kSquare}) {
        const Stroke stroke{5, cap, Join::kRound, 4};
        EXPECT_EQ(draw({a, a, b, b, b, c, c}, stroke, false), draw({a, b, c}, stroke, false));
        EXPECT_EQ(draw({a, b, c, a}, stroke, true), draw({a, b, c}, stroke, true));
        EXPECT_EQ(draw({a, b, a}, stroke, true), draw({a, b}, stroke, false));
    }
    // There and back with round ends is the line itself, but for a level or two of rounding.
    const Stroke round{5, Cap::kRound, Join::kRound, 4};
    const auto line = draw({a, b}, round, false);
    const auto thereAndBack = draw({a, b, a}, round, false);
    int unlike = 0;
    for (std::size_t i = 0; i < line.size(); ++i)
        unlike += (line[i] == 255) != (thereAndBack[i] == 255);
    EXPECT_EQ(unlike, 0);
    // Dots.
    EXPECT_EQ(draw({a}, round, false), CoverageMask(kSide, kSide, [&](Canvas& canvas, Color color) {
                  canvas.FillCircle(a, 2.5, color);
              }));
    EXPECT_EQ(draw({a, a}, {5, Cap::kSquare, Join::kMiter, 4}, true),
              CoverageMask(kSide, kSide, [&](Canvas& canvas, Color color) {
                  canvas.FillRect({5.5, 6.5, 5, 5}, color);
              }));
}

}  // namespace
}  // namespace test
