// A face and an arrow of the host's own, and random strings of what text may hold.
#pragma once

#include <gfx/kit/text.h>
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>

#include "support/probe_surface.h"

namespace test {

using namespace gfx::kit;

inline constexpr std::uint32_t kWord = 0x30F0A050;

/// A face, and an arrow of the host's own.
class Text : public testing::Test {
protected:
    Text() : arrow(MakeSurface(8, 11, 9)), image{0x2192, arrow.get(), 1, 2, 9, 6, 1, 6, 11} {
        EXPECT_TRUE(face.OpenFace(GFX_TEST_FACE, 13, true));
        for (int y = 0; y < 9; ++y) {
            auto* const row = static_cast<std::uint8_t*>(arrow->Line(y));
            for (int x = 0; x < 11; ++x)
                row[x] = static_cast<std::uint8_t>(x * 21 + y);
        }
    }

    Font MakeFont(int tracking) {
        Font font(face);
        font.SetImages(&image, 1);
        font.SetTracking(tracking);
        return font;
    }

    std::unique_ptr<GfxFontCache> cache{new GfxFontCache};
    GfxFontCache& face = *cache;
    SurfacePtr arrow;
    GlyphImage image;
};

inline std::string RandomText(std::mt19937& random, int pieces) {
    static const char* const kPieces[] = {"a",         "W",
                                          "il",        " ",
                                          " ",         " ",
                                          "  ",        "-",
                                          "\xC3\xA9",  "\n",
                                          "\t",        "m.",
                                          "\xE2",      "\xE2\x86\x92",
                                          "e\xCC\x81", "\xE2\x82\xAC",
                                          "\xC2\xA0",  "\r\n",
                                          "\xCC\x81"};
    std::string text;
    for (int i = 0; i < pieces; ++i)
        text += kPieces[random() % std::size(kPieces)];
    return text;
}

}  // namespace test
