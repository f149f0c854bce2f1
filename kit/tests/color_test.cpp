// Colours against what the engine makes of their words.
#include <gfx/kit/color.h>
#include <gfx/surface.h>
#include <gtest/gtest.h>

namespace {

using gfx::kit::Color;

constexpr unsigned kLevels[] = {0, 1, 2, 63, 64, 127, 128, 129, 254, 255};

template <class Visit>
void ForEachColor(Visit visit) {
    for (const unsigned red : kLevels)
        for (const unsigned green : kLevels)
            for (const unsigned blue : kLevels)
                for (const unsigned opacity : kLevels)
                    visit(Color::Rgba(red, green, blue, opacity));
}

TEST(KitColor, Every_way_to_make_a_colour_and_to_read_it_agrees) {
    ForEachColor([](Color color) {
        const auto usual =
            color.Opacity() << 24 | color.Red() << 16 | color.Green() << 8 | color.Blue();
        EXPECT_EQ(color.Argb(), usual);
        EXPECT_EQ(Color::FromArgb(usual), color);
        EXPECT_EQ(Color::FromWord(color.Word()), color);
        EXPECT_EQ(Color::FromRgb(usual), Color::Rgb(color.Red(), color.Green(), color.Blue()));
        EXPECT_EQ(color.WithOpacity(color.Opacity() ^ 1).WithOpacity(color.Opacity()), color);
    });
}

TEST(KitColor, Opacity_hides_and_transparency_shows_what_lies_below) {
    GfxSurface* surface = GfxSurface::New(32);
    surface->Initialise(1, 1);
    constexpr std::uint32_t kBelow = 0x00102030;
    const auto drawn = [&](Color color) {
        surface->SetPixelRGB(0, 0, kBelow);
        surface->SetPixelRGBBlend(0, 0, color.Word());
        return surface->RetPixelRGB(0, 0);
    };
    ForEachColor([&](Color color) {
        if (color.Opacity() == 255) {
            EXPECT_EQ(drawn(color), color.Word());
        } else if (color.Opacity() == 0) {
            EXPECT_EQ(drawn(color), kBelow);
        }
    });
    GfxSurface::Delete(surface);
}

TEST(KitColor, A_mix_lies_between_and_is_the_same_from_either_end) {
    const Color from = Color::Rgba(0, 255, 17, 3);
    const Color to = Color::Rgba(255, 0, 17, 250);
    EXPECT_EQ(Mix(from, to, 0), from);
    EXPECT_EQ(Mix(from, to, 256), to);
    EXPECT_EQ(Mix(from, to, 1000), to);
    for (unsigned share = 0; share < 256; ++share) {
        const Color less = Mix(from, to, share);
        const Color more = Mix(from, to, share + 1);
        EXPECT_LE(less.Red(), more.Red());
        EXPECT_GE(less.Green(), more.Green());
        EXPECT_EQ(less.Blue(), 17U);
        EXPECT_LE(less.Opacity(), more.Opacity());
        const Color back = Mix(to, from, 256 - share);
        EXPECT_EQ(less, back) << share;
    }
}

TEST(KitColor, Fading_scales_the_opacity_alone) {
    ForEachColor([](Color color) {
        EXPECT_EQ(color.Faded(255), color);
        EXPECT_EQ(color.Faded(1000), color);
        EXPECT_EQ(color.Faded(0), color.WithOpacity(0));
        for (const unsigned share : kLevels) {
            const double exact = color.Opacity() * share / 255.0;
            EXPECT_NEAR(color.Faded(share).Opacity(), exact, 0.5);
        }
    });
}

}  // namespace
