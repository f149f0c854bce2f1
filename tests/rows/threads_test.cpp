// Several threads at once leave the bytes that one thread leaves: separate surfaces, strips of one
// buffer, sources and masks that all of them read, separate caches. Every round begins with the
// table of kernels that chooses another one, so that the first use happens at once as well.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "pinned/drawing.h"
#include "rows/kernel_tables.h"
#include "support/hook_ledger.h"
#include "support/probe_surface.h"

#if defined(GFX_TEST_FACE) && !defined(GFX_NO_FONTS)
#include <gfx/font_cache.h>
#endif

namespace test {
namespace {

constexpr unsigned kThreads = 4;
constexpr unsigned kRounds = 5;
using Picture = std::vector<std::uint8_t>;

/// Runs action(0) .. action(kThreads - 1): one after the other, or all at once.
template <class Action>
void RunAll(bool atOnce, Action action) {
    if (!atOnce) {
        for (unsigned i = 0; i < kThreads; ++i)
            action(i);
        return;
    }
    UseTable(kTableAtStart);
    std::atomic<unsigned> waiting = kThreads;
    std::vector<std::thread> threads;
    for (unsigned i = 0; i < kThreads; ++i) {
        threads.emplace_back([&, i] {
            for (--waiting; waiting > 0;)
                std::this_thread::yield();
            action(i);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

/// Compares what draw(true), threads at once, makes with what draw(false) makes.
template <class Draw>
void ExpectSame(Draw draw) {
    const LedgerCheck ledger;
    const auto alone = draw(false);
    for (unsigned round = 0; round < kRounds; ++round)
        ASSERT_EQ(alone, draw(true)) << "round " << round;
}

TEST(Threads, Separate_surfaces_know_nothing_of_each_other) {
    ExpectSame([](bool atOnce) {
        std::vector<std::uint64_t> sums(kThreads);
        RunAll(atOnce, [&](unsigned i) {
            pinned::Drawing drawing(i + 1);
            drawing.Run(1000);
            sums[i] = drawing.Checksum();
        });
        return sums;
    });
}

/// Everything that reads a source or a mask, on a strip of 25 rows; the strips of odd threads have
/// an odd first byte.
void DrawStrip(GfxSurface& strip, const GfxSurface& source, const GfxSurface& mask, unsigned i) {
    for (int step = 0; step < 30; ++step) {
        const int x = step % 7 - static_cast<int>(i);
        const auto color = static_cast<unsigned>(step) * 0x01F3A507U;
        strip.RectFillBlend(x, 0, 60, 25, color, x, step, &mask);
        strip.RectCopy(x, step % 5, 30, 20, 2, 3, &source, true);
        strip.RectBlend(0, x, 60, 20, x, 1, &source, false);
        strip.RectBlendAlpha(5, 5, 40, 9, 0, 0, 0.25, &source, true);
        strip.RectInsert(0, 0, 60, 25, x, x, &mask, GfxSurface::PlaneGreen);
        strip.DrawAALine(x, 0, 59, 24, color ^ source.RetPixelRGB(step, step));
    }
}

TEST(Threads, Strips_of_one_buffer_read_one_source_and_one_mask) {
    for (const unsigned depth : {8U, 16U, 32U}) {
        ExpectSame([=](bool atOnce) {
            const SurfacePtr source = MakeSurface(depth == 32 ? 16 : 32, 33, 31);
            const SurfacePtr mask = MakeSurface(8, 50, 40);
            pinned::Generator random(depth);
            for (int i = 0; i < 33 * 31; ++i) {
                source->SetPixelRGB(i % 33, i / 33, random.Word());
                mask->SetPixelRGB(i % 50, i / 50, random.Word());
            }
            constexpr unsigned kRowBytes = 61 * 4 + 1;
            Picture buffer(kThreads * 25 * kRowBytes);
            RunAll(atOnce, [&](unsigned i) {
                const SurfacePtr strip(GfxSurface::New(depth));
                strip->Initialise(61, 25, buffer.data() + i * 25 * kRowBytes, kRowBytes, true);
                DrawStrip(*strip, *source, *mask, i);
            });
            return buffer;
        });
    }
}

#if defined(GFX_TEST_FACE) && !defined(GFX_NO_FONTS)
TEST(Threads, Every_thread_may_have_a_font_cache_of_its_own) {
    ExpectSame([](bool atOnce) {
        std::vector<Picture> pictures(kThreads);
        RunAll(atOnce, [&](unsigned i) {
            pictures[i].resize(std::size_t{200} * 4 * 60);
            const SurfacePtr page(GfxSurface::New(32));
            page->Initialise(200, 60, pictures[i].data(), 200 * 4, true);
            GfxFontCache cache;
            EXPECT_TRUE(cache.OpenFace(GFX_TEST_FACE, 12 + static_cast<int>(i), i % 2 == 0));
            for (unsigned short code = 0x21; code < 0x61; ++code)
                cache.DrawGlyph(code, (code - 0x21U) * 3, 40, 0x00FF8040, page.get(), 0);
        });
        return pictures;
    });
}
#endif

}  // namespace
}  // namespace test
