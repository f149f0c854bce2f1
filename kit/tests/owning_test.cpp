// Owners: what they return, and when.
#include <gfx/kit/owning.h>
#include <gtest/gtest.h>

#include "random_numbers.h"
#include "support/hook_ledger.h"

namespace {

using gfx::kit::ClipScope;
using gfx::kit::Surface;
using test::HookLedger;
using test::LedgerCheck;

TEST(KitOwning, Every_surface_is_returned_once_wherever_it_was_moved) {
    LedgerCheck check;
    test::RandomNumbers random(7);
    Surface owners[4];
    GfxSurface* released[4] = {};
    for (int step = 0; step < 2000; ++step) {
        Surface& one = owners[random() % 4];
        Surface& other = owners[random() % 4];
        switch (random() % 6) {
            case 0:
                one = Surface(random() % 20, random() % 20, random() % 33);
                break;
            case 1:
                one = std::move(other);
                break;
            case 2:
                one.Swap(other);
                break;
            case 3:
                other = Surface(std::move(one));
                break;
            case 4:
                EXPECT_EQ(one.Get() != nullptr, static_cast<bool>(one));
                break;
            default: {
                GfxSurface*& kept = released[random() % 4];
                GfxSurface::Delete(kept);
                kept = one.Release();
                EXPECT_FALSE(one);
            }
        }
    }
    for (GfxSurface*& surface : released)
        GfxSurface::Delete(surface);
}

TEST(KitOwning, A_surface_that_cannot_be_made_leaves_nothing) {
    LedgerCheck check;
    for (std::size_t failing = 1;; ++failing) {
        HookLedger::ThrowAt(failing);
        try {
            Surface surface(9, 5, 32);
            surface = Surface(3, 3, 8);
        } catch (const test::HookFailure&) {
            continue;
        }
        HookLedger::ThrowAt(0);
        EXPECT_GT(failing, 6U);
        return;
    }
}

TEST(KitOwning, A_surface_over_memory_of_the_hosts_draws_there) {
    std::uint16_t pixels[3][5] = {};
    const Surface surface = Surface::Over(pixels, 4, 3, 16, sizeof pixels[0]);
    surface->RectFill(0, 0, 4, 3, 0xFFFFFF);
    for (const auto& row : pixels) {
        for (int x = 0; x < 4; ++x)
            EXPECT_EQ(row[x], 0xFFFF);
        EXPECT_EQ(row[4], 0);
    }
}

TEST(KitOwning, Nested_clip_scopes_draw_what_all_of_them_hold_and_restore) {
    test::RandomNumbers random(11);
    const auto number = [&] {
        static constexpr int kEdges[] = {-2147483647 - 1, 2147483647, -1, 0};
        return random() % 8 == 0 ? kEdges[random() % 4] : static_cast<int>(random() % 30) - 5;
    };
    const Surface surface(20, 20, 8);
    for (int round = 0; round < 3000; ++round) {
        int at[8];
        for (int& value : at)
            value = number();
        surface->Clear();
        {
            const ClipScope outer(*surface, at[0], at[1], static_cast<unsigned>(at[2]),
                                  static_cast<unsigned>(at[3]));
            const ClipScope inner(*surface, at[4], at[5], static_cast<unsigned>(at[6]),
                                  static_cast<unsigned>(at[7]));
            surface->RectFill(0, 0, 20, 20, 0xFFFFFF);
        }
        const auto holds = [&](int k, int x, int y) {
            return x >= at[k] && y >= at[k + 1] &&
                   x < std::int64_t{at[k]} + static_cast<unsigned>(at[k + 2]) &&
                   y < std::int64_t{at[k + 1]} + static_cast<unsigned>(at[k + 3]);
        };
        for (int y = 0; y < 20; ++y) {
            for (int x = 0; x < 20; ++x) {
                const bool isDrawn = holds(0, x, y) && holds(4, x, y);
                ASSERT_EQ(static_cast<std::uint8_t*>(surface->Line(y))[x], isDrawn ? 255 : 0)
                    << "round " << round << " at " << x << ", " << y;
            }
        }
        surface->RectFill(19, 19, 1, 1, 0xFFFFFF);
        ASSERT_EQ(static_cast<std::uint8_t*>(surface->Line(19))[19], 255) << "not restored";
    }
}

TEST(KitOwning, Memory_of_the_runtime_serves_surfaces) {
    auto* const take = GfxMemory::fn_alloc;
    auto* const give = GfxMemory::fn_free;
    void* const context = GfxMemory::arg;
    gfx::kit::UseRuntimeMemory();
    {
        const Surface surface(16, 16, 32);
        surface->RectFill(0, 0, 16, 16, 0x123456);
        EXPECT_EQ(surface->RetPixelRGB(15, 15), 0x123456U);
    }
    GfxMemory::fn_alloc = take;
    GfxMemory::fn_free = give;
    GfxMemory::arg = context;
}

}  // namespace
