// Drawing: every pixel of the target against a model made from what AccessGlyph delivers.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <initializer_list>
#include <vector>

#include "font/probe_cache.h"
#include "font/test_face.h"
#include "support/hook_ledger.h"
#include "support/probe_surface.h"

namespace test {
namespace {

constexpr int kWidth = 90;
constexpr int kHeight = 80;
constexpr unsigned kPaper = 0x40E0A060;

struct Pen {
    int x, y;
};

unsigned Blend(unsigned old, unsigned color, unsigned alpha) {
    const unsigned weight = alpha + (alpha > 127 ? 1 : 0);
    unsigned result = old & 0xFF000000;
    for (const unsigned shift : {0u, 8u, 16u}) {
        const unsigned channel =
            (old >> shift & 0xFF) * weight + (color >> shift & 0xFF) * (256 - weight);
        result |= (channel >> 8) << shift;
    }
    return result;
}

/// The alpha of the pixel that lies (right, down) from the pen once the turn is undone.
unsigned ModelAlpha(const Delivered& glyph, long right, long down, unsigned colorAlpha,
                    bool isTurned) {
    const long column = right - glyph.geom.left;
    const long row = down + glyph.geom.top;
    if (!glyph.Holds(column, row)) return 255;
    const unsigned mask = glyph.Pixel(column, row);
    if (isTurned) return mask == 0 ? colorAlpha : 255;
    return 255 - static_cast<unsigned>(std::lround((255 - colorAlpha) * (255 - mask) / 255.0));
}

void ExpectDrawnByModel(ProbeCache& cache, unsigned short code, Pen pen, int angle) {
    const unsigned color = pen.x % 2 == 0 ? 0x01C08020 : 0x60C08020;
    ProbeSurface target(32);
    target.Initialise(kWidth, kHeight);
    target.RectFill(0, 0, kWidth, kHeight, kPaper);
    target.SetClipRect(3, 2, kWidth - 8, kHeight - 9);
    cache.DrawGlyph(code, static_cast<unsigned>(pen.x), static_cast<unsigned>(pen.y), color,
                    &target, angle);
    target.ResetClipRect();
    const Delivered glyph = Access(cache, code);
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const long dx = long{x} - pen.x;
            const long dy = long{y} - pen.y;
            const long right = angle == 0 ? dx : angle == 90 ? -dy : dy;
            const long down = angle == 0 ? dy : angle == 90 ? dx : -dx;
            const bool isInside = x >= 3 && x < kWidth - 5 && y >= 2 && y < kHeight - 7;
            const unsigned alpha =
                isInside ? ModelAlpha(glyph, right, down, color >> 24, angle != 0) : 255;
            ASSERT_EQ(Blend(kPaper, color, alpha), target.RetPixelRGB(x, y))
                << "size " << cache.size << " smooth " << cache.antialias << " code " << code
                << " angle " << angle << " pen " << pen.x << ", " << pen.y << " pixel " << x << ", "
                << y;
        }
    }
}

TEST(DrawGlyph, Every_direction_draws_what_the_band_holds_inside_the_clip) {
    LedgerCheck check;
    constexpr Pen kPens[] = {{30, 40},  {-3, 20},      {80, 10},      {20, 79},
                             {500, 40}, {INT_MIN, 40}, {40, INT_MAX}, {INT_MAX, INT_MIN}};
    bool isCutBelow = false;
    for (const int size : {11, 40, 70}) {
        for (const bool smooth : {false, true}) {
            ProbeCache cache;
            ASSERT_TRUE(cache.OpenFace(GFX_TEST_FACE, size, smooth));
            for (const auto code :
                 std::initializer_list<unsigned short>{0x20, 0x57, 0x6A, 0x134, 0x3A9}) {
                for (const Pen& pen : kPens) {
                    for (const int angle : {0, 90, 270}) {
                        ExpectDrawnByModel(cache, code, pen, angle);
                    }
                }
                isCutBelow = isCutBelow || Access(cache, code).Height() > size;
            }
        }
    }
    EXPECT_TRUE(isCutBelow) << "no image was taller than its band";
}

TEST(DrawGlyph, Named_pixels_of_a_glyph_land_where_the_geometry_puts_them) {
    LedgerCheck check;
    ProbeCache cache;
    ASSERT_TRUE(cache.OpenFace(GFX_TEST_FACE, 12, true));
    GfxFontCache::GlyphInfo& info = *cache.NewGlyphInfo(0x41);
    cache.NewGlyphInBand(2, info.bandX, info.band);
    info.width = info.height = 2;
    info.geom = {1, 3, 8, 10, 0, 0, 0, 0};  // full ink, but for an edge at the bottom right
    static_cast<unsigned char*>(cache.bands[info.band]->Line(1))[1] = 0x3F;
    struct Case {
        int angle;
        std::vector<Pen> pixels;
    };
    const Case cases[] = {{0, {{101, 40}, {102, 40}, {101, 41}, {102, 41}}},
                          {90, {{90, 49}, {90, 48}, {91, 49}}},
                          {270, {{110, 51}, {110, 52}, {109, 51}}},
                          {180, {}},
                          {-90, {}}};
    for (const Case& c : cases) {
        const SurfacePtr target = MakeSurface(32, 200, 100);
        cache.DrawGlyph(0x41, 100, 50, 0xFF8040, target.get(), c.angle);
        std::size_t drawn = 0;
        for (int i = 0; i < 200 * 100; ++i)
            drawn += target->RetPixelRGB(i % 200, i / 200) != 0;
        EXPECT_EQ(c.pixels.size(), drawn) << c.angle;
        for (const Pen& p : c.pixels) {
            EXPECT_NE(0u, target->RetPixelRGB(p.x, p.y)) << c.angle << ": " << p.x << ", " << p.y;
        }
    }
}

TEST(DrawGlyph, A_glyph_is_cached_even_when_nothing_is_drawn) {
    LedgerCheck check;
    ProbeCache cache;
    ProbeSurface target(16);
    target.Initialise(50, 50);
    cache.DrawGlyph(0x41, 20, 30, 0xFF, &target, 0);
    EXPECT_TRUE(target.IsEmpty()) << "a closed cache draws nothing";
    ASSERT_TRUE(cache.OpenFace(GFX_TEST_FACE, 20, true));
    cache.DrawGlyph(0x41, 20, 30, 0xFF, nullptr, 0);
    cache.DrawGlyph(0x42, 20, 30, 0xFF, &target, 180);
    EXPECT_TRUE(target.IsEmpty());
    EXPECT_NE(nullptr, cache.FindGlyphInfo(0x41));
    EXPECT_NE(nullptr, cache.FindGlyphInfo(0x42));
}

}  // namespace
}  // namespace test
