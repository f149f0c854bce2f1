// Coverage of polygons and curves against areas computed pixel by pixel.
#include <gtest/gtest.h>

#include <algorithm>

#include "shape_model.h"
#include "support/hook_ledger.h"

namespace test {
namespace {

using namespace gfx::kit;

constexpr int kSide = 40;

std::vector<Point> RandomPolygon(std::mt19937& random, int corners, int low, int high) {
    std::vector<Point> points;
    for (int i = 0; i < corners; ++i) {
        const int x = std::uniform_int_distribution(low, high)(random);
        const int y = std::uniform_int_distribution(low, high)(random);
        const bool whole = random() % 4 == 0;  // corners on pixel borders are cases of their own
        points.push_back({Units(whole ? x / 256 * 256 : x), Units(whole ? y / 256 * 256 : y)});
    }
    return points;
}

double Folded(double area) {
    const double rest = area - 2 * std::floor(area / 2);
    return rest > 1 ? 2 - rest : rest;
}

void ExpectNear(const std::vector<std::uint8_t>& mask, int index, double covered, double most,
                unsigned seed) {
    const int x = index % kSide;
    const int y = index / kSide;
    const double expected = 255 - 255 * covered;
    ASSERT_NEAR(mask[static_cast<std::size_t>(index)], expected, most)
        << "pixel " << x << ", " << y << ", seed " << seed;
}

TEST(ShapeCoverage, PolygonsCoverTheAreaThatTheyWindAround) {
    for (unsigned seed = 1; seed <= 150; ++seed) {
        std::mt19937 random(seed);
        const int corners = 3 + static_cast<int>(random() % 6);
        const bool large = random() % 2 == 0;
        const auto points = large ? RandomPolygon(random, corners, -300 * 256, 300 * 256)
                                  : RandomPolygon(random, corners, -5 * 256, (kSide + 5) * 256);
        const auto places = PlacesOf(points);
        for (const FillRule rule : {FillRule::kNonZero, FillRule::kEvenOdd}) {
            const auto mask = CoverageMask(kSide, kSide, [&](Canvas& canvas, Color color) {
                canvas.FillPolygon(points.data(), corners, rule, color);
            });
            for (int i = 0; i < kSide * kSide; ++i) {
                const double area = WoundArea(places, i % kSide, i / kSide);
                const double covered =
                    rule == FillRule::kEvenOdd ? Folded(area) : std::min(std::abs(area), 1.0);
                // Two crossings of each edge are off by 1/512 pixel at most, and half a level is
                // lost to rounding; all edges may run through one pixel.
                ExpectNear(mask, i, covered, 0.51 + 1.0 * corners, seed);
                if (HasFatalFailure()) return;
            }
        }
    }
}

TEST(ShapeCoverage, ATriangleIsNowhereMoreThanTwoLevelsOff) {
    for (unsigned seed = 1; seed <= 200; ++seed) {
        std::mt19937 random(seed);
        const auto points = RandomPolygon(random, 3, 0, kSide * 256);
        const auto places = PlacesOf(points);
        const auto mask = CoverageMask(kSide, kSide, [&](Canvas& canvas, Color color) {
            canvas.FillPolygon(points.data(), 3, FillRule::kNonZero, color);
        });
        for (int i = 0; i < kSide * kSide; ++i) {
            ExpectNear(mask, i, std::abs(WoundArea(places, i % kSide, i / kSide)), 2, seed);
            if (HasFatalFailure()) return;
        }
    }
}

TEST(ShapeCoverage, RectanglesAreExact) {
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        const auto coordinate = [&] { return static_cast<int>(random() % (kSide * 256)); };
        const int x0 = coordinate(), y0 = coordinate();
        const int w = coordinate(), h = coordinate();
        const auto mask = CoverageMask(kSide, kSide, [&](Canvas& canvas, Color color) {
            canvas.FillRect({Units(x0), Units(y0), Units(w), Units(h)}, color);
        });
        for (int i = 0; i < kSide * kSide; ++i) {
            const int left = i % kSide * 256, top = i / kSide * 256;
            const int across = std::min(left + 256, x0 + w) - std::max(left, x0);
            const int down = std::min(top + 256, y0 + h) - std::max(top, y0);
            const int area = std::max(across, 0) * std::max(down, 0);
            ASSERT_EQ(mask[static_cast<std::size_t>(i)], 255 - (255 * 2 * area + 65536) / 131072);
        }
    }
}

/// Compares a curve with samples; a level is 1/255 pixel.
template <class Draw, class Inside>
void CompareWithSamples(Draw draw, Inside inside, double most, unsigned seed) {
    const auto mask = CoverageMask(kSide, kSide, draw);
    for (int i = 0; i < kSide * kSide; ++i) {
        ExpectNear(mask, i, SampledArea(i % kSide, i / kSide, 24, inside), most, seed);
        if (testing::Test::HasFatalFailure()) return;
    }
}

TEST(ShapeCoverage, CirclesAndRingsFollowTheirRadius) {
    for (unsigned seed = 1; seed <= 30; ++seed) {
        std::mt19937 random(seed);
        const Point center{Units(1280 + random() % 7680), Units(1280 + random() % 7680)};
        const Fixed radius = Units(64 + random() % (seed % 3 == 0 ? 25600 : 3840));
        const Fixed width = Units(64 + random() % 2048);
        const Place c = PlaceOf(center);
        const double r = Pixels(radius), half = Pixels(width) / 2;
        CompareWithSamples(
            [&](Canvas& canvas, Color color) { canvas.FillCircle(center, radius, color); },
            [&](Place p) { return std::hypot(p.x - c.x, p.y - c.y) < r; }, 9, seed);
        CompareWithSamples(
            [&](Canvas& canvas, Color color) { canvas.DrawCircle(center, radius, width, color); },
            [&](Place p) { return std::abs(std::hypot(p.x - c.x, p.y - c.y) - r) < half; }, 12,
            seed);
        if (HasFatalFailure()) return;
    }
}

TEST(ShapeCoverage, RoundRectanglesAndTheirOutlinesHaveRoundCorners) {
    for (unsigned seed = 1; seed <= 30; ++seed) {
        std::mt19937 random(seed);
        const int x = static_cast<int>(random() % 2560), y = static_cast<int>(random() % 2560);
        const int w = 512 + static_cast<int>(random() % 7680);
        const int h = 512 + static_cast<int>(random() % 7680);
        const int radius = static_cast<int>(random() % 5120);
        const int width = 128 + static_cast<int>(random() % 1024);
        const double r = std::min({radius, w / 2, h / 2}) / 256.0;
        const auto distance = [&](Place p) {  // to the edge, negative inside
            const double ax = std::abs(p.x - (x + w / 2.0) / 256) - w / 512.0 + r;
            const double ay = std::abs(p.y - (y + h / 2.0) / 256) - h / 512.0 + r;
            return std::min(std::max(ax, ay), 0.0) +
                   std::hypot(std::max(ax, 0.0), std::max(ay, 0.0)) - r;
        };
        const FixedRect rect{Units(x), Units(y), Units(w), Units(h)};
        CompareWithSamples(
            [&](Canvas& canvas, Color color) { canvas.FillRoundRect(rect, Units(radius), color); },
            [&](Place p) { return distance(p) < 0; }, 12, seed);
        CompareWithSamples(
            [&](Canvas& canvas, Color color) {
                canvas.OutlineRoundRect(rect, Units(radius), Units(width), color);
            },
            [&](Place p) { return distance(p) < 0 && distance(p) > -width / 256.0; }, 14, seed);
        if (HasFatalFailure()) return;
    }
}

TEST(ShapeCoverage, ArcsEndWhereTheirAnglesSay) {
    for (unsigned seed = 1; seed <= 45; ++seed) {
        std::mt19937 random(seed);
        const Place c{20, 20};
        const int r = 8 + static_cast<int>(random() % 6), half = 1 + static_cast<int>(random() % 3);
        const int start = static_cast<int>(random() % 720) - 360;
        const int sweep = static_cast<int>(random() % 719) - 359;
        const Cap cap = seed % 3 == 0 ? Cap::kButt : Cap::kRound;
        const double turn = 3.14159265358979323846 / 180;
        const auto end = [&](int angle) {
            return Place{c.x + r * std::sin(angle * turn), c.y - r * std::cos(angle * turn)};
        };
        CompareWithSamples(
            [&](Canvas& canvas, Color color) {
                canvas.DrawArc({20, 20}, r, 2 * half, Angle::Degrees(start), Angle::Degrees(sweep),
                               cap, color);
            },
            [&](Place p) {
                const double angle = std::atan2(p.x - c.x, c.y - p.y) / turn;
                const double from = sweep < 0 ? start + sweep : start;
                const double along = angle - from - 360 * std::floor((angle - from) / 360);
                const double off = std::abs(std::hypot(p.x - c.x, p.y - c.y) - r);
                if (along < std::abs(sweep)) return off < half;
                if (cap == Cap::kButt) return false;
                const auto near = [&](Place e) { return std::hypot(p.x - e.x, p.y - e.y) < half; };
                return near(end(start)) || near(end(start + sweep));
            },
            // Where round caps meet, their pixels may hold parts of both.
            cap == Cap::kRound && std::abs(sweep) > 300 ? 60 : 14, seed);
        if (HasFatalFailure()) return;
    }
}

}  // namespace
}  // namespace test
