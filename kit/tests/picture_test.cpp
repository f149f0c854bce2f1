// Pictures against plain models that look at one target pixel at a time.
#include <gfx/kit/owning.h>
#include <gfx/kit/pictures.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <functional>

#include "random_numbers.h"
#include "support/hook_ledger.h"

namespace {

using namespace gfx::kit;

/// The colour word that a target pixel receives, by its place in the target's rectangle.
using Model = std::function<std::uint32_t(int i, int j)>;

constexpr unsigned kDepths[] = {8, 16, 32};

struct World {
    test::RandomNumbers random;
    Surface source, target, expected;

    explicit World(unsigned seed)
        : random(seed),
          source(1 + random() % 24, 1 + random() % 24, kDepths[random() % 3]),
          target(40, 40, kDepths[random() % 3]),
          expected(40, 40, target->Depth()) {
        for (unsigned y = 0; y < source->DY(); ++y) {
            for (unsigned x = 0; x < source->DX(); ++x)
                source->SetPixelRGB(static_cast<int>(x), static_cast<int>(y), random());
        }
        const std::uint32_t background = random();
        const int x = static_cast<int>(random() % 20);
        const int y = static_cast<int>(random() % 20);
        for (Surface* surface : {&target, &expected}) {
            (*surface)->RectFill(0, 0, 40, 40, background);
            (*surface)->SetClipRect(x, y, 30, 25);
        }
    }

    PictureRect Part() {
        const int w = static_cast<int>(source->DX());
        const int h = static_cast<int>(source->DY());
        const int x = static_cast<int>(random()) & 0x7FFFFFFF;
        const int y = static_cast<int>(random()) & 0x7FFFFFFF;
        const PictureRect part{x % w, y % h, 0, 0};
        return {part.x, part.y, 1 + static_cast<int>(random() % static_cast<unsigned>(w - part.x)),
                1 + static_cast<int>(random() % static_cast<unsigned>(h - part.y))};
    }

    std::uint32_t Read(int x, int y) const { return source->RetPixelRGB(x, y); }

    /// Draws what the model says into the expected picture, and compares.
    void Compare(PictureRect to, const Model& model, Writing writing, const char* what) {
        const Surface pixel(1, 1, 32);
        for (int j = 0; j < 40; ++j) {
            for (int i = 0; i < 40; ++i) {
                if (i < to.x || j < to.y || i - to.x >= to.w || j - to.y >= to.h) continue;
                pixel->SetPixelRGB(0, 0, model(i - to.x, j - to.y));
                if (writing == Writing::kCopy) {
                    expected->RectCopy(i, j, 1, 1, 0, 0, pixel.Get(), false);
                } else {
                    expected->RectBlend(i, j, 1, 1, 0, 0, pixel.Get(), false);
                }
            }
        }
        for (Surface* surface : {&target, &expected})
            (*surface)->ResetClipRect();
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 40; ++x)
                ASSERT_EQ(target->RetPixelRGB(x, y), expected->RetPixelRGB(x, y))
                    << what << " at " << x << ", " << y;
        }
    }
};

std::uint32_t ByBytes(const std::function<double(unsigned shift)>& value) {
    std::uint32_t word = 0;
    for (unsigned shift = 0; shift < 32; shift += 8)
        word |= static_cast<std::uint32_t>(value(shift)) << shift;
    return word;
}

int Limited(std::int64_t value, int limit) {
    return static_cast<int>(std::clamp<std::int64_t>(value, 0, limit));
}

/// The mean of a stretch of the source, by counting 1/to.w x 1/to.h parts of pixels.
std::uint32_t MeanOf(const World& world, PictureRect from, PictureRect to, int i, int j) {
    return ByBytes([&](unsigned shift) {
        std::int64_t sum = 0;
        for (int v = j * from.h; v < (j + 1) * from.h; ++v) {
            for (int u = i * from.w; u < (i + 1) * from.w; ++u)
                sum += world.Read(from.x + u / to.w, from.y + v / to.h) >> shift & 0xFF;
        }
        const std::int64_t all = std::int64_t{from.w} * from.h;
        return static_cast<double>((2 * sum + all) / (2 * all));
    });
}

std::uint32_t BetweenOf(const World& world, PictureRect from, PictureRect to, int i, int j) {
    const auto place = [](int k, int size, int all) {
        const double middle = (2.0 * k + 1) * size / (2.0 * all) - 0.5;
        return Limited(static_cast<std::int64_t>(std::floor(middle * 256)), (size - 1) * 256);
    };
    const int u = place(i, from.w, to.w);
    const int v = place(j, from.h, to.h);
    return ByBytes([&](unsigned shift) {
        const auto read = [&](int x, int y) {
            return static_cast<int>(
                world.Read(from.x + Limited(x, from.w - 1), from.y + Limited(y, from.h - 1)) >>
                    shift &
                0xFF);
        };
        const auto along = [&](int y) {
            return (read(u / 256, y) * (256 - u % 256) + read(u / 256 + 1, y) * (u % 256) + 128) /
                   256;
        };
        return (along(v / 256) * (256 - v % 256) + along(v / 256 + 1) * (v % 256) + 128) / 256;
    });
}

TEST(KitPictures, Scaled_pictures_are_those_of_the_plain_rules) {
    for (unsigned seed = 0; seed < 600; ++seed) {
        World world(seed);
        const PictureRect from = world.Part();
        const auto number = [&](unsigned n) { return static_cast<int>(world.random() % n); };
        const PictureRect to{number(50) - 10, number(50) - 10, 1 + number(40), 1 + number(40)};
        const auto scaling = static_cast<Scaling>(seed % 3);
        const auto writing = static_cast<Writing>(seed / 3 % 2);
        DrawScaled(*world.target, to, *world.source, from, scaling, writing);
        const Model model = [&](int i, int j) {
            if (scaling == Scaling::kArea) return MeanOf(world, from, to, i, j);
            if (scaling == Scaling::kBilinear) return BetweenOf(world, from, to, i, j);
            return world.Read(from.x + (2 * i + 1) * from.w / (2 * to.w),
                              from.y + (2 * j + 1) * from.h / (2 * to.h));
        };
        world.Compare(to, model, writing, "scaled");
        if (HasFatalFailure()) FAIL() << "seed " << seed;
    }
}

TEST(KitPictures, Four_quarter_turns_and_two_mirrors_are_the_picture_itself) {
    for (unsigned seed = 0; seed < 400; ++seed) {
        World world(1000 + seed);
        const PictureRect from = world.Part();
        const auto orientation = static_cast<Orientation>(seed % 8);
        const auto writing = static_cast<Writing>(seed / 8 % 2);
        const int x = static_cast<int>(world.random() % 50) - 10;
        const int y = static_cast<int>(world.random() % 50) - 10;
        DrawOriented(*world.target, x, y, *world.source, from, orientation, writing);
        const unsigned turns = seed % 4;
        const PictureRect to =
            turns % 2 == 1 ? PictureRect{x, y, from.h, from.w} : PictureRect{x, y, from.w, from.h};
        // Turned back, quarter by quarter, then mirrored.
        const Model model = [&](int i, int j) {
            int w = to.w;
            int h = to.h;
            for (unsigned k = 0; k < turns; ++k) {
                const int column = j;
                j = w - 1 - i;
                i = column;
                std::swap(w, h);
            }
            if (orientation >= Orientation::kMirrored) i = from.w - 1 - i;
            return world.Read(from.x + i, from.y + j);
        };
        world.Compare(to, model, writing, "turned");
        if (HasFatalFailure()) FAIL() << "seed " << seed;
    }
}

TEST(KitPictures, Bytes_are_drawn_in_the_colours_of_the_palette) {
    for (unsigned seed = 0; seed < 200; ++seed) {
        World world(2000 + seed);
        Palette palette;
        for (Color& color : palette.colors)
            color = Color::FromWord(world.random());
        const PictureRect from = world.Part();
        const auto byteAt = [&](int i, int j) {
            return static_cast<std::uint8_t*>(world.source->Line(from.y + j))[from.x + i];
        };
        if (seed % 2 == 0) palette.transparent = byteAt(0, 0);
        const auto writing = static_cast<Writing>(seed / 2 % 2);
        DrawIndexed(*world.target, 7, 9, *world.source, from, palette, writing);
        if (world.source->Depth() != 8) {
            world.Compare({}, {}, writing, "other depths");
            continue;
        }
        for (int j = 0; j < from.h; ++j) {
            for (int i = 0; i < from.w; ++i) {
                const int byte = byteAt(i, j);
                if (byte == palette.transparent) continue;
                const std::uint32_t word = palette.colors[byte].Word();
                const Surface pixel(1, 1, 32);
                pixel->SetPixelRGB(0, 0, word);
                if (writing == Writing::kCopy) {
                    world.expected->RectCopy(7 + i, 9 + j, 1, 1, 0, 0, pixel.Get(), false);
                } else {
                    world.expected->RectBlend(7 + i, 9 + j, 1, 1, 0, 0, pixel.Get(), false);
                }
            }
        }
        world.Compare({}, {}, writing, "indexed");
        if (HasFatalFailure()) FAIL() << "seed " << seed;
    }
}

TEST(KitPictures, Dithered_levels_have_the_mean_of_what_they_stand_for) {
    // Over a whole matrix, in 1/64 steps of 5 or 6 bits: every level but those near white.
    const Surface source(8, 8, 32);
    const Surface target(8, 8, 16);
    for (unsigned level = 0; level < 256; ++level) {
        source->RectFill(0, 0, 8, 8, level * 0x010101U);
        DrawDithered(*target, 0, 0, *source, {0, 0, 8, 8});
        unsigned red = 0;
        unsigned green = 0;
        for (int y = 0; y < 8; ++y) {
            for (int x = 0; x < 8; ++x) {
                const unsigned pixel = static_cast<std::uint16_t*>(target->Line(y))[x];
                red += pixel >> 11;
                green += pixel >> 5 & 63;
                EXPECT_EQ(pixel >> 11, pixel & 31);
            }
        }
        EXPECT_EQ(red, std::min(level * 64 / 8, 64 * 31U)) << level;
        EXPECT_EQ(green, std::min(level * 64 / 4, 64 * 63U)) << level;
    }
}

TEST(KitPictures, Dithered_parts_fit_together) {
    for (unsigned seed = 0; seed < 50; ++seed) {
        World world(3000 + seed);
        const auto w = static_cast<int>(world.source->DX());
        const auto h = static_cast<int>(world.source->DY());
        DrawDithered(*world.expected, 3, 5, *world.source, {0, 0, w, h});
        for (int y = 0; y < h; y += 3) {
            for (int x = 0; x < w; x += 5)
                DrawDithered(*world.target, 3 + x, 5 + y, *world.source,
                             {x, y, std::min(5, w - x), std::min(3, h - y)});
        }
        world.Compare({}, {}, Writing::kCopy, "parts");
    }
}

TEST(KitPictures, Arguments_of_any_value_stay_inside) {
    test::LedgerCheck check;
    test::RandomNumbers random(5);
    const Surface source(6, 5, 32);
    const Surface target(16, 16, 16);
    const auto number = [&]() -> int {
        static constexpr int kEdges[] = {INT_MIN, INT_MIN + 1, -1, 0, 1, INT_MAX - 1, INT_MAX};
        return random() % 3 == 0 ? kEdges[random() % 7] : static_cast<int>(random() % 20) - 4;
    };
    const Palette palette;
    for (int round = 0; round < 30000; ++round) {
        const PictureRect to{number(), number(), number(), number()};
        const PictureRect from{number() % 7, number() % 6, number(), number()};
        const auto writing = static_cast<Writing>(random() % 2);
        DrawScaled(*target, to, *source, from, static_cast<Scaling>(random() % 3), writing);
        DrawOriented(*target, to.x, to.y, *source, from, static_cast<Orientation>(random() % 8),
                     writing);
        DrawDithered(*target, to.x, to.y, *source, from);
        DrawIndexed(*target, to.x, to.y, *source, from, palette, writing);
    }
}

TEST(KitPictures, Sources_that_have_no_pixels_draw_nothing) {
    const Surface target(16, 16, 16);
    target->RectFill(0, 0, 16, 16, 0xFFFFFF);
    const Surface sources[] = {Surface(6, 5, 0), Surface(6, 5, 1),
                               Surface::Over(nullptr, 6, 5, 32, 24)};
    for (const Surface& source : sources) {
        for (const Scaling scaling : {Scaling::kNearest, Scaling::kBilinear, Scaling::kArea})
            DrawScaled(*target, {0, 0, 9, 9}, *source, {0, 0, 6, 5}, scaling);
        DrawOriented(*target, 0, 0, *source, {0, 0, 6, 5}, Orientation::kQuarter);
        DrawOriented(*target, 0, 0, *source, {0, 0, 6, 5}, Orientation::kHalf);
        DrawDithered(*target, 0, 0, *source, {0, 0, 6, 5});
        DrawIndexed(*target, 0, 0, *source, {0, 0, 6, 5}, Palette{});
    }
    for (int i = 0; i < 256; ++i)
        ASSERT_EQ(0xFFFFFFU, target->RetPixelRGB(i % 16, i / 16)) << i;
}

TEST(KitPictures, A_hook_may_throw_at_any_call) {
    using test::HookLedger;
    test::LedgerCheck check;
    const Surface source(6, 5, 8);
    const Surface target(16, 16, 16);
    const std::function<void()> draw[] = {
        [&] {
            DrawScaled(*target, {0, 0, 9, 9}, *source, {0, 0, 6, 5}, Scaling::kNearest);
        },
        [&] {
            DrawScaled(*target, {0, 0, 9, 9}, *source, {0, 0, 6, 5}, Scaling::kBilinear);
        },
        [&] {
            DrawScaled(*target, {0, 0, 3, 9}, *source, {0, 0, 6, 5}, Scaling::kArea);
        },
        [&] {
            DrawOriented(*target, 0, 0, *source, {0, 0, 6, 5}, Orientation::kQuarter);
        },
        [&] {
            DrawOriented(*target, 0, 0, *source, {0, 0, 6, 5}, Orientation::kHalf);
        },
        [&] {
            DrawDithered(*target, 0, 0, *source, {0, 0, 6, 5});
        },
        [&] {
            DrawIndexed(*target, 0, 0, *source, {0, 0, 6, 5}, Palette{});
        }};
    for (const auto& operation : draw) {
        std::size_t failing = 1;
        for (bool isDone = false; !isDone; ++failing) {
            HookLedger::ThrowAt(failing);
            try {
                operation();
                isDone = true;
            } catch (const test::HookFailure&) {
            }
            HookLedger::ThrowAt(0);
        }
        EXPECT_GT(failing, 4U);
    }
}

}  // namespace
