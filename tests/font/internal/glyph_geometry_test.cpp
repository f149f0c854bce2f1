// The rounding of what the engine measures, at values that a real face does not give.
#include "font/glyph_geometry.h"

#include <gtest/gtest.h>

#include "font/probe_cache.h"

namespace test {
namespace {

TEST(RoundToPixels, Boxes_grow_to_whole_pixels_and_metrics_are_truncated) {
    constexpr std::int64_t kEdge = 32767 * 64;
    struct Case {
        gfx::GlyphMetrics metrics;
        std::array<int, 8> expected;
    };
    const Case cases[] = {
        {{-70, -200, 500, 700, -70, 700, 576}, {-2, 8, -4, 11, 0, 11, 9, 0}},
        {{-64, -1, 64, 1, -100, 1, -63}, {-1, 1, -1, 1, 0, 1, 0, 0}},
        {{-65, 0, 65, 64, -127, 64, -128}, {-2, 2, 0, 1, -1, 1, -1, 0}},
        {{0, 0, 0, 0, 0, 0, 320}, {0, 0, 0, 0, 0, 0, 5, 0}},
        // One side at its limit, and one pixel beyond it.
        {{0, 0, kEdge, 64, 64, 64, 64}, {0, 32767, 0, 1, 1, 1, 1, 0}},
        {{-1, 0, kEdge, 64, 64, 64, 64}, {0, 0, 0, 0, 0, 0, 1, 0}},
        {{0, -kEdge, 64, 0, 64, 64, 64}, {0, 1, -32767, 0, 1, 1, 1, 0}},
        {{0, -kEdge, 64, 1, 64, 64, 64}, {0, 0, 0, 0, 0, 0, 1, 0}},
        // The render buffer at its limit of 64 MiB: 8192 rows of 8192 bytes.
        {{0, 0, 8161 * 64, 8192 * 64, 0, 0, 0}, {0, 8161, 0, 8192, 0, 0, 0, 0}},
        {{0, 0, 8193 * 64, 8192 * 64, 0, 0, 64}, {0, 0, 0, 0, 0, 0, 1, 0}},
        {{0, 0, 8192 * 64, 8193 * 64, 0, 0, 64}, {0, 0, 0, 0, 0, 0, 1, 0}},
        // A row of the buffer is longer than 8161 pixels by 31 bytes, and 8160 fill theirs.
        {{0, 0, 8160 * 64, 8224 * 64, 0, 0, 0}, {0, 8160, 0, 8224, 0, 0, 0, 0}},
        {{0, 0, 8160 * 64, 8225 * 64, 0, 0, 0}, {0, 0, 0, 0, 0, 0, 0, 0}},
        {{0, 0, 8161 * 64, 8193 * 64, 0, 0, 0}, {0, 0, 0, 0, 0, 0, 0, 0}},
        // Fields of more than 16 bits; the advance saturates.
        {{kEdge, 0, kEdge + 64, 64, 0, 0, 64}, {0, 0, 0, 0, 0, 0, 1, 0}},
        {{0, 0, 64, 64, kEdge + 64, 0, 64}, {0, 0, 0, 0, 0, 0, 1, 0}},
        {{0, 0, 64, 64, 0, -kEdge - 192, 64}, {0, 0, 0, 0, 0, 0, 1, 0}},
        {{0, 0, 64, 64, 0, 0, kEdge + 64}, {0, 0, 0, 0, 0, 0, 32767, 0}},
        {{0, 0, 64, 64, 0, 0, -3 * kEdge}, {0, 0, 0, 0, 0, 0, -32768, 0}},
        // A box turned inside out holds nothing.
        {{64, 0, 0, 64, 0, 0, 64}, {0, 0, 0, 0, 0, 0, 1, 0}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.expected, Fields(gfx::RoundToPixels(c.metrics))) << "case " << &c - cases;
    }
}

}  // namespace
}  // namespace test
