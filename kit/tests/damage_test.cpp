// The damage list against a bitmap of what was damaged.
#include <gfx/kit/damage.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <vector>

#include "random_numbers.h"

namespace {

using gfx::kit::DamageList;
using gfx::kit::DamageRect;

struct Screen {
    unsigned width, height, alignX, alignY;
};

class KitDamage : public testing::TestWithParam<Screen> {};

TEST_P(KitDamage, What_was_damaged_is_covered_once_by_aligned_rectangles_of_the_screen) {
    const Screen screen = GetParam();
    test::RandomNumbers random(screen.width * 31 + screen.alignX);
    for (int round = 0; round < 400; ++round) {
        DamageList list(screen.width, screen.height, screen.alignX, screen.alignY);
        std::vector<bool> damaged(screen.width * screen.height);
        const unsigned most = 1 + random() % 60;
        for (unsigned i = 0; i < most; ++i) {
            const bool isHuge = random() % 40 == 0;
            const int x = isHuge ? INT_MIN : static_cast<int>(random() % (screen.width + 20)) - 10;
            const int y = static_cast<int>(random() % (screen.height + 20)) - 10;
            const unsigned w = isHuge ? UINT_MAX : random() % 9;
            const unsigned h = random() % 200 == 0 ? UINT_MAX : random() % 9;
            list.Add(x, y, w, h);
            for (std::int64_t row = std::max(y, 0);
                 row < std::min<std::int64_t>(std::int64_t{y} + h, screen.height); ++row) {
                for (std::int64_t column = std::max(x, 0);
                     column < std::min<std::int64_t>(std::int64_t{x} + w, screen.width); ++column)
                    damaged[static_cast<std::size_t>(row * screen.width + column)] = true;
            }
        }
        ASSERT_LE(list.Count(), DamageList::kCapacity);
        std::vector<int> covered(screen.width * screen.height);
        list.Flush([&](const DamageRect& rect) {
            ASSERT_TRUE(rect.w > 0 && rect.h > 0);
            ASSERT_TRUE(rect.x + rect.w <= screen.width && rect.y + rect.h <= screen.height);
            EXPECT_EQ(rect.x % screen.alignX, 0U);
            EXPECT_EQ(rect.y % screen.alignY, 0U);
            EXPECT_TRUE(rect.w % screen.alignX == 0 || rect.x + rect.w == screen.width);
            EXPECT_TRUE(rect.h % screen.alignY == 0 || rect.y + rect.h == screen.height);
            for (unsigned y = rect.y; y < rect.y + rect.h; ++y) {
                for (unsigned x = rect.x; x < rect.x + rect.w; ++x)
                    ++covered[y * screen.width + x];
            }
        });
        EXPECT_TRUE(list.IsEmpty());
        for (std::size_t i = 0; i < covered.size(); ++i) {
            ASSERT_LE(covered[i], 1) << "round " << round << ": pixel " << i << " twice";
            ASSERT_TRUE(!damaged[i] || covered[i] == 1) << "round " << round << ": pixel " << i;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Screens, KitDamage,
                         testing::Values(Screen{64, 48, 1, 1}, Screen{61, 47, 2, 2},
                                         Screen{128, 30, 8, 1}, Screen{33, 100, 1, 8}));

std::uint64_t AreaOf(const DamageList& list) {
    std::uint64_t area = 0;
    for (int i = 0; i < list.Count(); ++i)
        area += std::uint64_t{list[i].w} * list[i].h;
    return area;
}

TEST(KitDamageList, Rectangles_apart_stay_apart_and_neighbours_become_one) {
    DamageList list(100, 100);
    list.Add(0, 0, 10, 10);
    list.Add(50, 50, 10, 10);
    EXPECT_EQ(list.Count(), 2);
    list.Add(10, 0, 5, 10);
    EXPECT_EQ(list.Count(), 2);
    list.Add(0, 10, 15, 40);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(AreaOf(list), 15U * 50 + 100);
    list.Add(0, 0, 100, 100);
    ASSERT_EQ(list.Count(), 1);
    EXPECT_EQ(list[0], (DamageRect{0, 0, 100, 100}));
}

TEST(KitDamageList, A_cross_of_thin_lines_is_not_the_whole_screen) {
    DamageList list(1920, 1080);
    list.Add(960, 0, 1, 1080);
    list.Add(0, 540, 1920, 1);
    EXPECT_EQ(AreaOf(list), 1920U + 1080 - 1);
}

TEST(KitDamageList, A_display_that_fails_keeps_those_behind_the_one_it_failed_at) {
    DamageList list(100, 100);
    for (int i = 0; i < 5; ++i)
        list.Add(i * 20, i * 20, 3, 3);
    EXPECT_THROW(list.Flush([](const DamageRect&) { throw 1; }), int);
    EXPECT_EQ(list.Count(), 4);
}

}  // namespace
