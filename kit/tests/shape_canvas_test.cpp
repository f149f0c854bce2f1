// What holds for every shape: depths, clipping, colours, gradients, extremes, memory.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

#include "shape_model.h"
#include "support/fenced_memory.h"
#include "support/hook_ledger.h"

namespace test {
namespace {

using namespace gfx::kit;

using Random = std::mt19937;

int Between(Random& random, int low, int high) {
    return std::uniform_int_distribution(low, high)(random);
}

/// A shape of any kind with coordinates in the given range, the same for the same seed.
void DrawAnyShape(Canvas& canvas, unsigned seed, int low, int high, const Paint& paint) {
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

void FillWithNoise(GfxSurface& surface, unsigned seed) {
    Random random(seed);
    for (unsigned y = 0; y < surface.DY(); ++y) {
        auto* row = static_cast<std::uint8_t*>(surface.Line(static_cast<int>(y)));
        for (unsigned i = 0; i < surface.Pitch(); ++i)
            row[i] = static_cast<std::uint8_t>(random());
    }
}

bool SamePixels(const GfxSurface& a, const GfxSurface& b) {
    const std::size_t bytes = a.DX() * (a.Depth() == 8 ? 1U : a.Depth() == 16 ? 2U : 4U);
    for (unsigned y = 0; y < a.DY(); ++y) {
        if (std::memcmp(a.Line(static_cast<int>(y)), b.Line(static_cast<int>(y)), bytes) != 0)
            return false;
    }
    return true;
}

TEST(ShapeCanvas, AShapeOnEveryDepthIsAMaskedFillOfItsCoverage) {
    constexpr unsigned kWidth = 150, kHeight = 70;
    for (unsigned seed = 1; seed <= 300; ++seed) {
        const auto bytes = CoverageMask(kWidth, kHeight, [&](Canvas& canvas, Color color) {
            DrawAnyShape(canvas, seed, -2560, 40000, color);
        });
        const SurfacePtr mask = MakeSurface(8, kWidth, kHeight);
        for (unsigned y = 0; y < kHeight; ++y)
            std::memcpy(mask->Line(static_cast<int>(y)), &bytes[y * kWidth], kWidth);
        Random random(seed);
        const std::uint32_t word = random() >> (seed % 2 == 0 ? 8 : 0) & 0xFFFFFFFF;
        const int clipX = Between(random, -9, 99), clipY = Between(random, -9, 40);
        for (const unsigned depth : {8U, 16U, 32U}) {
            const SurfacePtr drawn = MakeSurface(depth, kWidth, kHeight);
            const SurfacePtr expected = MakeSurface(depth, kWidth, kHeight);
            FillWithNoise(*drawn, seed);
            FillWithNoise(*expected, seed);
            if (seed % 3 != 0) {
                drawn->SetClipRect(clipX, clipY, 60, 40);
                expected->SetClipRect(clipX, clipY, 60, 40);
            }
            Canvas canvas(*drawn);
            DrawAnyShape(canvas, seed, -2560, 40000, Word(word));
            expected->RectFillBlend(0, 0, kWidth, kHeight, word, 0, 0, mask.get());
            ASSERT_TRUE(SamePixels(*drawn, *expected)) << "seed " << seed << ", depth " << depth;
        }
    }
}

/// How far along a gradient a pixel's centre lies, in steps.
double ExactStep(const Gradient& gradient, int x, int y) {
    const double px = x * 256.0 + 128 - gradient.Start().x.Units();
    const double py = y * 256.0 + 128 - gradient.Start().y.Units();
    if (gradient.GetKind() == Gradient::Kind::kRadial) {
        const double radius = gradient.Radius().Units();
        return radius <= 0 ? 255 : 256 * std::hypot(px, py) / radius;
    }
    const double dx = gradient.End().x.Units() - gradient.Start().x.Units();
    const double dy = gradient.End().y.Units() - gradient.Start().y.Units();
    return std::hypot(dx, dy) < 256 ? 255 : 256 * (px * dx + py * dy) / (dx * dx + dy * dy);
}

std::uint32_t Masked(std::uint32_t word, std::uint8_t m) {
    const double share = (255 - (word >> 24)) * (255.0 - m) / 255;
    return (word & 0xFFFFFF) | (255 - static_cast<std::uint32_t>(std::lround(share))) << 24;
}

TEST(ShapeCanvas, AGradientShapeIsABlendOfTheColourAtEachPixelsCentre) {
    constexpr int kSide = 120;
    for (unsigned seed = 1; seed <= 150; ++seed) {
        Random random(seed);
        const auto at = [&] { return Units(Between(random, -8000, 40000)); };
        const Fixed ax = at(), ay = at(), bx = at(), by = at(), radius = at();
        const bool level = seed % 5 == 0;  // one colour in a row
        const auto color = [&] {
            return Word(static_cast<std::uint32_t>(random()) >> seed % 2 * 8);
        };
        const Color first = color(), last = color();
        const Gradient gradient =
            seed % 3 == 0 ? Gradient::Radial({ax, ay}, radius, first, last)
                          : Gradient::Linear({ax, ay}, {level ? ax : bx, by}, first, last);
        const auto bytes = CoverageMask(kSide, kSide, [&](Canvas& canvas, Color ink) {
            DrawAnyShape(canvas, seed, 0, 30000, ink);
        });
        for (const unsigned depth : {8U, 16U, 32U}) {
            const SurfacePtr drawn = MakeSurface(depth, kSide, kSide);
            const SurfacePtr expected = MakeSurface(depth, kSide, kSide);
            const SurfacePtr words = MakeSurface(32, kSide, kSide);
            FillWithNoise(*drawn, seed);
            FillWithNoise(*expected, seed);
            Canvas canvas(*drawn);
            DrawAnyShape(canvas, seed, 0, 30000, gradient);
            for (int i = 0; i < kSide * kSide; ++i) {
                const int x = i % kSide, y = i / kSide;
                const double step = std::clamp(ExactStep(gradient, x, y), 0.0, 255.5);
                // Between two steps by less than the rounding of the way there: either is right.
                const double off = std::abs(step - std::round(step));
                const std::uint32_t low = gradient.Words()[static_cast<int>(step)];
                const std::uint8_t m = bytes[static_cast<std::size_t>(i)];
                static_cast<std::uint32_t*>(words->Line(y))[x] = Masked(low, m);
                if (off < 1e-5 && step > 0 && step < 255.5) {
                    drawn->SetPixelRGB(x, y, 0);
                    expected->SetPixelRGB(x, y, 0);
                    static_cast<std::uint32_t*>(words->Line(y))[x] = 0xFF000000;
                }
            }
            expected->RectBlend(0, 0, kSide, kSide, 0, 0, words.get(), false);
            ASSERT_TRUE(SamePixels(*drawn, *expected)) << "seed " << seed << ", depth " << depth;
        }
    }
}

TEST(ShapeCanvas, GradientStepsRunEvenlyFromStopToStop) {
    for (unsigned seed = 1; seed <= 200; ++seed) {
        Random random(seed);
        std::array<ColorStop, 4> stops{};
        for (ColorStop& stop : stops)
            stop = {Between(random, -20, 280), Word(static_cast<std::uint32_t>(random()))};
        std::sort(stops.begin(), stops.end(),
                  [](const ColorStop& a, const ColorStop& b) { return a.at < b.at; });
        const Gradient gradient = Gradient::Linear({0, 0}, {9, 9}, stops.data(), 4);
        for (int i = 0; i < 256; ++i) {
            const auto place = [&](int k) {
                return std::clamp(stops[static_cast<std::size_t>(k)].at, 0, 255);
            };
            int k = -1;  // the last stop at or before i
            while (k < 3 && place(k + 1) <= i)
                ++k;
            for (unsigned shift = 0; shift < 32; shift += 8) {
                const auto channel = [&](int n) {
                    return stops[static_cast<std::size_t>(n)].color.Word() >> shift & 255U;
                };
                const double from = channel(std::max(k, 0)), to = channel(std::min(k + 1, 3));
                const bool between = k >= 0 && k < 3;
                const double t = between ? double(i - place(k)) / (place(k + 1) - place(k)) : 0;
                ASSERT_NEAR(gradient.Words()[i] >> shift & 255U, from + (to - from) * t, 0.5 + 1e-9)
                    << "seed " << seed << ", step " << i << ", shift " << shift;
            }
        }
    }
}

TEST(ShapeCanvas, NoArgumentWritesOutsideTheSurface) {
    for (unsigned seed = 1; seed <= 600; ++seed) {
        for (const unsigned depth : {0U, 1U, 8U, 16U, 32U}) {
            const unsigned rowBytes = 37 * (depth <= 8 ? 1 : depth / 8);
            FencedMemory memory(rowBytes, 29);
            const SurfacePtr surface(GfxSurface::New(depth));
            surface->Initialise(37, 29, memory.Data(), memory.Pitch(), true);
            Canvas canvas(*surface);
            Random random(seed);
            const int reach = 1 << Between(random, 8, 30);
            DrawAnyShape(canvas, seed, -reach, reach, Word(0x40FF8000));
            DrawAnyShape(canvas, seed, -reach, reach,
                         Gradient::Radial({0, 0}, 1 << 14, Word(0), Word(0x80FFFFFF)));
            ASSERT_TRUE(memory.IsFenceWhole()) << "seed " << seed << ", depth " << depth;
        }
    }
}

TEST(ShapeCanvas, OddArgumentsDrawNothing) {
    const SurfacePtr surface = MakeSurface(32, 20, 20);
    surface->SetEmpty(true);
    Canvas canvas(*surface);
    const Paint ink = Word(0x00FFFFFF);
    const Point points[] = {{1, 1}, {9, 1}, {9, 9}};
    canvas.FillPolygon(nullptr, 3, FillRule::kNonZero, ink);
    canvas.FillPolygon(points, 2, FillRule::kNonZero, ink);
    canvas.FillPolygon(points, std::numeric_limits<int>::min(), FillRule::kNonZero, ink);
    canvas.DrawPolyline(nullptr, 3, true, {}, ink);
    canvas.DrawPolyline(points, 0, true, {}, ink);
    canvas.DrawLine({5, 5}, {5, 5}, {}, ink);  // a dot without caps
    canvas.DrawLine({1, 5}, {9, 5}, {0, Cap::kRound, Join::kRound, 4}, ink);
    canvas.FillRect({5, 5, -3, 9}, ink);
    canvas.FillCircle({9, 9}, 0, ink);
    canvas.DrawCircle({9, 9}, -1, 4, ink);
    canvas.FillCircle({-50, 9}, 20, ink);
    canvas.FillRect({3, 3, 9, 9}, Gradient::Linear({0, 0}, {9, 9}, nullptr, 4));
    for (int i = 0; i < 400; ++i)
        ASSERT_EQ(surface->RetPixelRGB(i % 20, i / 20), 0U);
    canvas.FillRect({5, 5, 1, 1}, ink);
    EXPECT_EQ(surface->RetPixelRGB(5, 5), 0x00FFFFFFU);
    EXPECT_FALSE(surface->IsEmpty());
}

TEST(ShapeCanvas, AFailingHookLeavesThePictureAndTheCanvasUsable) {
    const LedgerCheck check;
    const Gradient gradient = Gradient::Linear({0, 0}, {90, 0}, Word(0), Word(0xFFFFFF));
    const auto points = [] {
        std::vector<Point> wave;
        for (int i = 0; i < 200; ++i)
            wave.push_back({i, 40 + i * 7 % 31});
        return wave;
    }();
    const auto draw = [&](Canvas& canvas) {
        canvas.DrawPolyline(points.data(), 200, false, {3, Cap::kRound, Join::kRound, 4}, gradient);
    };
    const SurfacePtr expected = MakeSurface(32, 200, 90);
    {
        Canvas canvas(*expected);
        draw(canvas);
    }
    int failures = 0;
    for (std::size_t k = 1;; ++k) {
        const SurfacePtr surface = MakeSurface(32, 200, 90);
        const SurfacePtr blank = MakeSurface(32, 200, 90);
        Canvas canvas(*surface);
        bool failed = false;
        HookLedger::ThrowAt(k);
        try {
            draw(canvas);
        } catch (const HookFailure&) {
            failed = true;
        }
        const bool pending = HookLedger::IsThrowPending();
        HookLedger::ThrowAt(0);
        if (failed) {
            ++failures;
            ASSERT_TRUE(SamePixels(*surface, *blank)) << "call " << k;
            draw(canvas);
        }
        ASSERT_TRUE(SamePixels(*surface, *expected)) << "call " << k;
        if (pending) break;
    }
    EXPECT_GT(failures, 8);
}

TEST(ShapeCanvas, ReturnsEverythingWhenTheHookFailsAtItsEnd) {
    const LedgerCheck check;
    int failures = 0;
    for (std::size_t k = 1; k < 30; ++k) {
        const SurfacePtr surface = MakeSurface(32, 99, 90);
        try {
            Canvas canvas(*surface);
            canvas.DrawLine({3, 4}, {90, 50}, {5, Cap::kButt, Join::kMiter, 4},
                            Gradient::Radial({0, 0}, 9, Word(0), Word(5)));
            HookLedger::ThrowAt(k);
        } catch (const HookFailure&) {
            ++failures;
        }
        HookLedger::ThrowAt(0);
    }
    EXPECT_GT(failures, 8);
}

TEST(ShapeCanvas, DrawsOnWithoutAllocations) {
    const SurfacePtr surface = MakeSurface(16, 300, 200);
    Canvas canvas(*surface);
    const Gradient gradient = Gradient::Linear({0, 0}, {90, 0}, Word(0), Word(0xFFFFFF));
    const auto drawAll = [&] {
        for (unsigned seed = 1; seed < 60; ++seed) {
            DrawAnyShape(canvas, seed, -9999, 99999, Word(7));
            DrawAnyShape(canvas, seed, -9999, 99999, gradient);
        }
    };
    drawAll();
    const std::size_t calls = HookLedger::Calls();
    drawAll();
    EXPECT_EQ(HookLedger::Calls(), calls);
}

}  // namespace
}  // namespace test
