// Gradients: their steps, and the colour that each pixel of a shape gets from them.
#include <gtest/gtest.h>

#include <algorithm>

#include "any_shape.h"

namespace test {
namespace {

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

TEST(ShapeGradient, AGradientShapeIsABlendOfTheColourAtEachPixelsCentre) {
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

TEST(ShapeGradient, GradientStepsRunEvenlyFromStopToStop) {
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

}  // namespace
}  // namespace test
