// Text: properties of lines and boxes over random strings, and pixels against single glyphs.
#include <gfx/kit/text.h>
#include <gfx/kit/utf8.h>
#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "support/hook_ledger.h"
#include "text_fixture.h"

namespace test {
namespace {

using namespace gfx::kit;

bool SamePixels(const GfxSurface& a, const GfxSurface& b) {
    for (unsigned y = 0; y < a.DY(); ++y) {
        for (unsigned x = 0; x < a.DX(); ++x) {
            const int px = static_cast<int>(x), py = static_cast<int>(y);
            if (a.RetPixelRGB(px, py) != b.RetPixelRGB(px, py)) return false;
        }
    }
    return true;
}

TEST_F(Text, StringsAreTheirGlyphsSetByTheirAdvances) {
    const SurfacePtr drawn = MakeSurface(16, 200, 40);
    const SurfacePtr expected = MakeSurface(16, 200, 40);
    const std::u32string codes = U"Az \u00E9\u2192?x\u03A9?";
    const std::string text =
        "Az\t\xC3\xA9\xE2\x86\x92\xE2\x82\xACx\xCE\xA9\xFF";  // one missing, one malformed
    const Font font = MakeFont(2);
    for (const AlignX align : {AlignX::kLeft, AlignX::kCenter, AlignX::kRight}) {
        drawn->RectFill(0, 0, 200, 40, 0x123456);
        expected->RectFill(0, 0, 200, 40, 0x123456);
        const int width = DrawString(*drawn, font, 100, 20, text, Color::FromWord(kWord), align);
        int x = align == AlignX::kLeft    ? 100
                : align == AlignX::kRight ? 100 - width
                                          : 100 - width / 2;
        const int start = x;
        for (const char32_t code : codes) {
            if (code == image.code) {
                expected->RectFillBlend(x + 1, 20 - 6, 9, 6, kWord, 1, 2, arrow.get());
                x += image.advance + 2;
                continue;
            }
            GfxFontCache::GlyphGeom geom;
            face.GetGlyphGeometry(static_cast<unsigned short>(code), geom);
            face.DrawGlyph(static_cast<unsigned short>(code), static_cast<unsigned>(x), 20, kWord,
                           expected.get(), 0);
            x += geom.advance + 2;
        }
        EXPECT_EQ(width, x - 2 - start);
        EXPECT_EQ(width, MeasureString(font, text));
        EXPECT_TRUE(SamePixels(*drawn, *expected));
    }
}

TEST_F(Text, TheFirstFaceThatHasACharacterDrawsIt) {
    GfxFontCache closed;  // has no glyph at all
    Font font(closed);
    ASSERT_TRUE(font.AddFace(face));
    EXPECT_FALSE(Font(closed).Has(U'A'));
    EXPECT_TRUE(font.Has(U'A'));
    EXPECT_FALSE(font.Has(0x2192));
    font.SetImages(&image, 1);
    EXPECT_TRUE(font.Has(0x2192));
    EXPECT_EQ(MeasureString(font, "A"), MeasureString(Font(face), "A"));
    font.SetReplacement(0x2192);
    EXPECT_EQ(MeasureString(font, "\xFF\xE2\x82\xAC"), 2 * image.advance);
    font.SetReplacement(0);
    EXPECT_EQ(MeasureString(font, "\xFF\xE2\x82\xAC"), 0);
    for (int i = 2; i < Font::kMaxFaces; ++i)
        EXPECT_TRUE(font.AddFace(face));
    EXPECT_FALSE(font.AddFace(face));
}

TEST_F(Text, TurnedBoxesAreUprightBoxesTurned) {
    for (unsigned seed = 1; seed <= 120; ++seed) {
        std::mt19937 random(seed);
        const Font font = MakeFont(static_cast<int>(random() % 2));
        const int pieces = 5 + static_cast<int>(random() % 30);
        const std::string text = RandomText(random, pieces);
        const auto small = [&](unsigned n) { return static_cast<int>(random() % n); };
        TextStyle style{Color::FromWord(kWord)};
        style.alignX = static_cast<AlignX>(small(3));
        style.alignY = static_cast<AlignY>(small(4));
        style.wrap = small(2) == 0;
        style.ellipsis = small(2) == 0;
        const int w = 90, h = 60;
        const TextBox box{small(20), small(20), small(70), small(40)};
        const SurfacePtr upright = MakeSurface(32, w, h);
        const int lines = DrawStringInBox(*upright, font, box, text, style);
        for (const Turn turn : {Turn::kUp, Turn::kDown}) {
            style.turn = turn;
            const TextBox turned = turn == Turn::kUp
                                       ? TextBox{box.y, w - box.x - box.w, box.h, box.w}
                                       : TextBox{h - box.y - box.h, box.x, box.h, box.w};
            const SurfacePtr drawn = MakeSurface(32, h, w);
            ASSERT_EQ(DrawStringInBox(*drawn, font, turned, text, style), lines);
            for (int i = 0; i < w * h; ++i) {
                const int x = i % w, y = i / w;
                const unsigned got = turn == Turn::kUp ? drawn->RetPixelRGB(y, w - 1 - x)
                                                       : drawn->RetPixelRGB(h - 1 - y, x);
                ASSERT_EQ(got, upright->RetPixelRGB(x, y))
                    << "seed " << seed << ", pixel " << x << ", " << y;
            }
        }
        style.turn = Turn::kNone;
    }
}

TEST_F(Text, TurnedTextOfFullInkIsWhatTheCacheDrawsTurned) {
    GfxFontCache stencil;
    ASSERT_TRUE(stencil.OpenFace(GFX_TEST_FACE, 17, false));
    const Font font(stencil);
    for (const Turn turn : {Turn::kUp, Turn::kDown}) {
        const SurfacePtr drawn = MakeSurface(32, 60, 60);
        const SurfacePtr expected = MakeSurface(32, 60, 60);
        DrawString(*drawn, font, 30, 30, "j", Color::FromWord(kWord), AlignX::kLeft, turn);
        stencil.DrawGlyph('j', 30, 30, kWord, expected.get(), turn == Turn::kUp ? 90 : 270);
        EXPECT_TRUE(SamePixels(*drawn, *expected));
    }
}

TEST_F(Text, BoxesPlaceLinesByTheirMetrics) {
    Font font = MakeFont(0);
    font.SetLineMetrics(10, 3, 2);
    const TextBox box{5, 7, 100, 61};
    const std::string lines[] = {"one", "second", "3"};
    const int tops[] = {7, 7 - 10, 7 + (61 - 43) / 2, 7 + 61 - 43};  // by AlignY
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 3; ++x) {
            const SurfacePtr drawn = MakeSurface(32, 120, 90);
            const SurfacePtr expected = MakeSurface(32, 120, 90);
            TextStyle style{Color::FromWord(kWord)};
            style.alignX = static_cast<AlignX>(x);
            style.alignY = static_cast<AlignY>(y);
            EXPECT_EQ(DrawStringInBox(*drawn, font, box, "one\nsecond\r\n3", style), 3);
            for (int i = 0; i < 3; ++i) {
                const int spare = 100 - MeasureString(font, lines[i]);
                const int left = x == 0 ? 0 : x == 1 ? spare / 2 : spare;
                DrawString(*expected, font, 5 + left, tops[y] + 10 + i * 15, lines[i], style.color);
            }
            EXPECT_TRUE(SamePixels(*drawn, *expected)) << "aligned " << x << ", " << y;
        }
    }
}

TEST_F(Text, AFailingHookLeavesEverythingUsable) {
    const Font font = MakeFont(0);
    MeasureString(font, "Turned");  // glyphs are in the cache; what is left are turned images
    const LedgerCheck check;
    const SurfacePtr surface = MakeSurface(16, 80, 80);
    const std::size_t before = HookLedger::Calls();
    DrawString(*surface, font, 40, 70, "Turned", Color::FromWord(kWord), AlignX::kLeft, Turn::kUp);
    const std::size_t calls = HookLedger::Calls() - before;
    EXPECT_GT(calls, 4U);
    for (std::size_t k = 1; k <= calls; ++k) {
        HookLedger::ThrowAt(k);
        EXPECT_THROW(DrawString(*surface, font, 40, 70, "Turned", Color::FromWord(kWord),
                                AlignX::kLeft, Turn::kUp),
                     HookFailure)
            << "call " << k;
        HookLedger::ThrowAt(0);
    }
}

TEST_F(Text, ExtremePlacesAndSizesAreSafe) {
    const int extremes[] = {-2147483647 - 1, -(1 << 30), -1, 0, 30, 1 << 30, 2147483647};
    const SurfacePtr surface = MakeSurface(8, 30, 30);
    std::mt19937 random(3);
    for (int i = 0; i < 4000; ++i) {
        const auto any = [&] { return extremes[random() % std::size(extremes)]; };
        Font font = MakeFont(any());
        font.SetLineMetrics(any(), any(), any());
        GlyphImage odd{0x2192, arrow.get(), any(), any(), any(), any(), any(), any(), any()};
        font.SetImages(&odd, 1);
        TextStyle style{Color::FromWord(kWord)};
        style.alignX = static_cast<AlignX>(random() % 3);
        style.alignY = static_cast<AlignY>(random() % 4);
        style.turn = static_cast<Turn>(random() % 3);
        style.wrap = random() % 2 == 0;
        style.ellipsis = random() % 2 == 0;
        const int x = any(), y = any(), w = any(), h = any();
        const std::string text = RandomText(random, 12);
        const int lines = DrawStringInBox(*surface, font, {x, y, w, h}, text, style);
        ASSERT_GE(lines, text.empty() ? 0 : 1);
        const int width =
            DrawString(*surface, font, x, y, text, style.color, style.alignX, style.turn);
        ASSERT_LE(std::abs(width), 1 << 30);
    }
}

}  // namespace
}  // namespace test
