// What holds for every shape: depths, clipping, colours, gradients, extremes, memory.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

#include "any_shape.h"
#include "support/fenced_memory.h"
#include "support/hook_ledger.h"

namespace test {
namespace {

using namespace gfx::kit;

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
