// The rules of one pixel, over all their values: write, read, blend, transparency, masks; and
// fractional sampling.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>
#include <random>
#include <vector>

#include "support/probe_surface.h"
#include "surface/model.h"

namespace test {
namespace {

GfxSurface::MemoryPtr RowOf(std::vector<Word>& words) {
    GfxSurface::MemoryPtr row;
    row.ptr32 = words.data();
    return row;
}

GfxSurface::MemoryPtr RowOf(std::vector<std::uint8_t>& bytes) {
    GfxSurface::MemoryPtr row;
    row.ptr8 = bytes.data();
    return row;
}

// A row of stored pixels, one unit each.
struct StoredRow {
    StoredRow(unsigned bitsPerPixel, std::size_t n) : s(bitsPerPixel), bytes(n * s.bytesPerPixel) {
        s.Initialise(1, 1);
    }
    Word operator[](std::size_t i) const {
        Word unit = 0;
        std::memcpy(&unit, &bytes[i * s.bytesPerPixel], s.bytesPerPixel);
        return unit;
    }
    void Put(std::size_t i, Word unit) {
        std::memcpy(&bytes[i * s.bytesPerPixel], &unit, s.bytesPerPixel);
    }
    ProbeSurface s;
    std::vector<std::uint8_t> bytes;
};

TEST(PixelRules, Every_colour_is_written_by_the_write_rule) {
    std::vector<Word> colors(1 << 24);
    std::iota(colors.begin(), colors.end(), 0u);
    for (Word& color : colors)
        color |= color * 77 << 24;
    for (const unsigned bits : {8u, 16u, 32u}) {
        StoredRow row(bits, colors.size());
        row.s.ConvertFromRGB(RowOf(colors), RowOf(row.bytes), 0, 1 << 24);
        for (const Word color : colors) {
            const Word expected = bits == 8 ? GreyOf(color) : bits == 16 ? Pack565(color) : color;
            ASSERT_EQ(expected, row[color & 0xFFFFFF]) << "depth " << bits << ", colour " << color;
        }
    }
}

TEST(PixelRules, Every_stored_pixel_is_read_by_the_read_rule) {
    for (const unsigned bits : {2u, 8u, 9u, 15u, 16u}) {
        const unsigned n = bits <= 8 ? 256 : 65536;
        StoredRow row(bits, n);
        for (unsigned i = 0; i < n; ++i)
            row.Put(i, i);
        for (const Word alpha : {0u, 0x40u, 0xFFFFFF80u}) {
            std::vector<Word> colors(n);
            row.s.SetAlpha(alpha);
            row.s.ConvertToRGB(RowOf(row.bytes), RowOf(colors), 0, n);
            for (Word i = 0; i < n; ++i) {
                const Word expected =
                    n == 256 ? (alpha & 0xFF) << 24 | i * 0x010101 : Unpack565(i, alpha);
                ASSERT_EQ(expected, colors[i]) << "depth " << bits << ", pixel " << i;
            }
        }
    }
}

// All old values, all alphas; for 8 and 32 bits also all values of the colour's channel.
TEST(PixelRules, Every_blend_follows_the_blend_rule) {
    std::mt19937 random(1);
    for (const unsigned bits : {8u, 16u, 32u}) {
        const unsigned n = 65536;
        StoredRow row(bits, n);
        std::vector<Word> colors(n), old(n);
        for (Word alpha = 0; alpha < 256; ++alpha) {
            const Word rgb = static_cast<Word>(random()) & 0xFFFFFF;
            for (Word i = 0; i < n; ++i) {
                const Word channel = i >> 8, was = i & 0xFF;
                old[i] = bits == 8 ? was : bits == 16 ? i : was * 0x01000101 ^ 0x12AA55FF;
                colors[i] = alpha << 24 | (bits == 16 ? rgb : channel * 0x010101);
                row.Put(i, old[i]);
            }
            row.s.BlendWithRGB(RowOf(colors), RowOf(row.bytes), 0, n);
            for (Word i = 0; i < n; ++i) {
                ASSERT_EQ(BlendStored(row.s.bytesPerPixel, old[i], colors[i]), row[i])
                    << "depth " << bits << ", old " << old[i] << ", colour " << colors[i];
            }
        }
    }
}

TEST(PixelRules, The_examples_come_out) {
    static constexpr struct {
        unsigned bits;
        Word before, color, write, blend;
    } kCases[] = {{32, 0x00000000, 0x80FFFFFF, 0x80FFFFFF, 0x007E7E7E},
                  {32, 0x00000000, 0x7FFFFFFF, 0x7FFFFFFF, 0x00808080},
                  {32, 0xAA000000, 0x00112233, 0x00112233, 0x00112233},
                  {32, 0xAA123456, 0xFF000000, 0xFF000000, 0xAA123456},
                  {32, 0x00FFFFFF, 0x80000000, 0x80000000, 0x00808080},
                  {16, 0x0000, 0x80FFFFFF, 0xFFFF, 0x7BEF},
                  {16, 0x1234, 0x00FF8040, 0xFC08, 0xFC08},
                  {8, 0, 0x40FFFFFF, 255, 191},
                  {8, 9, 0x00FF0000, 76, 76},
                  {8, 9, 0x0000FF00, 152, 152},
                  {8, 9, 0x000000FF, 25, 25},
                  {8, 9, 0xFF808080, 128, 9}};
    for (const auto& c : kCases) {
        const SurfacePtr s = MakeSurface(c.bits, 2, 1);
        const auto stored = [&](int x) {
            Word unit = 0;
            std::memcpy(&unit, static_cast<char*>(s->Line(0)) + x * static_cast<int>(c.bits) / 8,
                        c.bits / 8);
            return unit;
        };
        std::memcpy(s->Line(0), &c.before, c.bits / 8);
        s->SetPixelRGBBlend(0, 0, c.color);
        s->SetPixelRGB(1, 0, c.color);
        EXPECT_EQ(c.blend, stored(0)) << "blend of " << c.color << " at depth " << c.bits;
        EXPECT_EQ(c.write, stored(1)) << "write of " << c.color << " at depth " << c.bits;
    }
}

TEST(PixelRules, Masks_and_colour_alphas_combine_for_all_pairs) {
    for (const unsigned maskBits : {8u, 32u}) {
        const SurfacePtr mask = MakeSurface(maskBits, 256, 1);
        for (int m = 0; m < 256; ++m)
            mask->SetPixelRGB(m, 0,
                              maskBits == 8 ? static_cast<Word>(m) * 0x010101
                                            : static_cast<Word>(m) << 24 | 0x00ABCDEF);
        const SurfacePtr s = MakeSurface(32, 256, 1);
        for (Word a = 0; a < 256; ++a) {
            s->RectFill(0, 0, 256, 1, 0x5A00FF80);
            s->RectFillBlend(0, 0, 256, 1, a << 24 | 0xFF0020, 0, 0, mask.get());
            for (Word m = 0; m < 256; ++m) {
                const Word word = MaskedAlpha(a, m) << 24 | 0xFF0020;
                ASSERT_EQ(BlendStored(4, 0x5A00FF80, word), s->RetPixelRGB(static_cast<int>(m), 0))
                    << "mask depth " << maskBits << ", m " << m << ", alpha " << a;
            }
            EXPECT_EQ(a, MaskedAlpha(a, 0));
            EXPECT_EQ(a, MaskedAlpha(0, a));
        }
    }
}

TEST(PixelRules, CombineRGBAlpha_scales_the_opaque_share_for_all_alphas) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    static const double kFactors[] = {
        0.0,        0.25,         0.5,         0.75,        1.0,         2.0,    1e300, kInfinity,
        -0.5,       -1.0,         -3.3,        -254.0,      -255.5,      -256.0, -1e9,  -1e300,
        -kInfinity, std::nan(""), 0.001953125, 0.001953124, 0.998046875, 1e-300};
    const ProbeSurface s(32);
    for (const double f : kFactors) {
        std::vector<Word> colors(256);
        for (Word a = 0; a < 256; ++a)
            colors[a] = a << 24 | 0x112233;
        s.CombineRGBAlpha(f, RowOf(colors), 256);
        for (Word a = 0; a < 256; ++a)
            ASSERT_EQ(ScaledAlpha(f, a) << 24 | 0x112233, colors[a])
                << "f " << f << ", alpha " << a;
    }
    static constexpr double kExamples[][3] = {{0.25, 0, 64},   {0.25, 0x40, 0x70}, {1, 7, 255},
                                              {-0.5, 0x40, 0}, {0.5, 0, 128},      {-1, 0, 0}};
    for (const auto& [f, before, after] : kExamples) {
        std::vector<Word> color{static_cast<Word>(before) << 24};
        s.CombineRGBAlpha(f, RowOf(color), 1);
        EXPECT_EQ(static_cast<Word>(after) << 24, color[0]) << "f " << f;
    }
}

TEST(PixelRules, RetPixelMergeRGB_truncates_the_example) {
    const SurfacePtr s = MakeSurface(8, 2, 2);
    const Word greys[] = {0, 100, 200, 50};
    for (int i = 0; i < 4; ++i)
        s->SetPixelRGB(i % 2, i / 2, greys[i] * 0x010101);
    EXPECT_EQ(0x00575757u, s->RetPixelMergeRGB(0, 0, 0.5, 0.5));
    EXPECT_EQ(0x00323232u, s->RetPixelMergeRGB(1, 1, 0.5, 0.5)) << "the last pixel alone";
    EXPECT_EQ(0x00646464u, s->RetPixelMergeRGB(-1, 0, 0.5, 0.5)) << "column 0 alone";
}

}  // namespace
}  // namespace test
