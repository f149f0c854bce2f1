// Display blits with arguments of any value, against the rule of a pixel, between fences.
#include <gfx/kit/display.h>
#include <gfx/kit/owning.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "random_numbers.h"

namespace {

using gfx::kit::CopyToDisplay;
using gfx::kit::DisplayFormat;
using gfx::kit::DisplayMemory;
using gfx::kit::Surface;

std::uint16_t PlainPixel(std::uint32_t color, DisplayFormat format) {
    const bool is565 = format == DisplayFormat::k565 || format == DisplayFormat::k565HighFirst;
    const std::uint32_t red = color >> 19 & 31;
    const std::uint32_t green = color >> 10 & 63;
    const std::uint32_t blue = color >> 3 & 31;
    const std::uint32_t pixel =
        is565 ? red << 11 | green << 5 | blue : red << 10 | green >> 1 << 5 | blue;
    const bool isSwapped =
        format == DisplayFormat::k565HighFirst || format == DisplayFormat::k555HighFirst;
    return static_cast<std::uint16_t>(isSwapped ? (pixel & 0xFF) << 8 | pixel >> 8 : pixel);
}

TEST(KitDisplay, Rectangles_that_fit_are_copied_and_others_leave_the_memory_alone) {
    test::RandomNumbers random(3);
    constexpr unsigned kDepths[] = {1, 8, 16, 32};
    int copied = 0;
    for (int round = 0; round < 20000; ++round) {
        const unsigned depth = kDepths[random() % 4];
        const unsigned width = 1 + random() % 9;
        const unsigned height = 1 + random() % 9;
        const Surface surface(width, height, depth);
        for (unsigned y = 0; y < height; ++y) {
            for (unsigned x = 0; x < width; ++x)
                surface->SetPixelRGB(static_cast<int>(x), static_cast<int>(y), random() & 0xFFFFFF);
        }
        const auto number = [&](unsigned limit) {
            return random() % 30 == 0 ? 0xFFFFFFFFU - random() % 3 : random() % (limit + 2);
        };
        const unsigned x = number(width);
        const unsigned y = number(height);
        const unsigned w = number(width);
        const unsigned h = number(height);
        const std::size_t pitch = random() % 50 == 0 ? ~std::size_t{0} : random() % 24;
        std::vector<std::uint8_t> memory(1 + random() % 200, 0xA5);
        const std::size_t size = memory.size() - 1;
        const auto format = static_cast<DisplayFormat>(random() % 4);

        const bool fits =
            depth > 8 && w > 0 && h > 0 && x < width && y < height && w <= width - x &&
            h <= height - y && size >= 2 * w &&
            (h == 1 || (pitch >= 2 * w && (h - 1) * pitch + 2 * w <= size && pitch < 1000));
        std::vector<std::uint8_t> expected = memory;
        for (unsigned j = 0; fits && j < h; ++j) {
            for (unsigned i = 0; i < w; ++i) {
                const std::uint32_t color =
                    surface->RetPixelRGB(static_cast<int>(x + i), static_cast<int>(y + j));
                const std::uint16_t pixel = PlainPixel(color, format);
                expected[j * pitch + 2 * i] = static_cast<std::uint8_t>(pixel);
                expected[j * pitch + 2 * i + 1] = static_cast<std::uint8_t>(pixel >> 8);
            }
        }
        const DisplayMemory display{memory.data(), size, pitch};
        ASSERT_EQ(CopyToDisplay(*surface, x, y, w, h, display, format), fits) << "round " << round;
        ASSERT_EQ(memory, expected) << "round " << round;
        copied += fits ? 1 : 0;
    }
    EXPECT_GT(copied, 400);
}

TEST(KitDisplay, Nothing_is_copied_to_or_from_nowhere) {
    const Surface surface(2, 2, 16);
    EXPECT_FALSE(CopyToDisplay(*surface, 0, 0, 1, 1, {nullptr, 100, 100}, DisplayFormat::k565));
    const Surface nothing = Surface::Over(nullptr, 2, 2, 16, 4);
    std::uint16_t pixel = 7;
    EXPECT_FALSE(CopyToDisplay(*nothing, 0, 0, 1, 1, {&pixel, 2, 2}, DisplayFormat::k565));
    EXPECT_EQ(pixel, 7);
    gfx::kit::SwapBytes(nullptr, 5);
}

}  // namespace
