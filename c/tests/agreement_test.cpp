// Every function in C does what its operation does: with memory, without, and not on NULL.
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>
#include <utility>

#include "world.h"

namespace {

using test::Pair;
using test::World;

class Agreement : public testing::Test {
protected:
    Agreement() { EXPECT_EQ(gfx_set_memory_hooks(&hooks_), GFX_OK); }
    ~Agreement() override {
        EXPECT_EQ(blocks_.live.size(), 0U) << "blocks are left";
        EXPECT_EQ(blocks_.faults, 0) << "blocks came back that were not live";
    }

    test::Blocks blocks_;
    gfx_memory_hooks hooks_ = {&blocks_, test::Blocks::Allocate, test::Blocks::Release};
};

TEST_F(Agreement, HasAPairForEachFunctionThatTakesAnObject) {
    std::set<std::string> exported;
    std::ifstream names(GFX_C_EXPORTED_NAMES);
    for (std::string name; std::getline(names, name);)
        exported.insert(name);
    for (const char* other :
         {"gfx_c_version", "gfx_set_memory_hooks", "gfx_status_text", "gfx_use_runtime_memory",
          "gfx_fixed_from_pixels", "gfx_angle_from_degrees", "gfx_on_circle"}) {
        EXPECT_EQ(exported.erase(other), 1U) << other;
    }
    std::set<std::string> paired;
    for (const Pair& pair : test::AllPairs())
        paired.insert(pair.name);
    EXPECT_EQ(paired, exported);
}

TEST_F(Agreement, FunctionsLeaveWhatTheirOperationsLeave) {
    for (const Pair& pair : test::AllPairs()) {
        World inC, inCpp;
        EXPECT_EQ(inC.State(), inCpp.State()) << "two worlds begin alike";
        EXPECT_EQ(pair.inC(inC), GFX_OK) << pair.name;
        pair.inCpp(inCpp);
        EXPECT_EQ(inC.State(), inCpp.State()) << pair.name;
    }
}

TEST_F(Agreement, NullHandlesAreRefusedAndChangeNothing) {
    for (const Pair& pair : test::AllPairs()) {
        World world, untouched;
        const auto canvas = std::exchange(world.cCanvas, nullptr);
        const auto font = std::exchange(world.cTextFont, nullptr);
        const auto damage = std::exchange(world.cDamage, nullptr);
        world.cSurface = nullptr;
        world.cFont = nullptr;
        EXPECT_EQ(pair.inC(world), GFX_NULL_ARGUMENT) << pair.name;
        world.cCanvas = canvas, world.cTextFont = font, world.cDamage = damage;
        EXPECT_EQ(world.State(), untouched.State()) << pair.name;
    }
}

// Each allocation of each function fails once; the same one fails under the C++ operation.
TEST_F(Agreement, FailedAllocationsLeaveWhatThrowingHooksLeave) {
    int failures = 0;
    for (const Pair& pair : test::AllPairs()) {
        const std::string name = pair.name;
        // These two make an object anew behind what they show, for the world to be whole again.
        if (name == "gfx_surface_delete" || name == "gfx_font_cache_delete") continue;
        for (long k = 0;; ++k) {
            ASSERT_LT(k, 200) << name << " never runs out of allocations";
            World inC, inCpp;
            blocks_.untilNull = k;
            const gfx_status status = pair.inC(inC);
            const bool failed = blocks_.untilNull < 0;
            blocks_.untilNull = k;
            bool threw = false;
            try {
                pair.inCpp(inCpp);
            } catch (...) {
                threw = true;
            }
            blocks_.untilNull = -1;
            failures += failed;
            EXPECT_EQ(status, threw ? GFX_NO_MEMORY : GFX_OK) << name << ", allocation " << k;
            EXPECT_EQ(inC.State(), inCpp.State()) << name << ", allocation " << k;
            EXPECT_NE(pair.inC(inC), GFX_NO_MEMORY) << name << ": works again";
            if (!failed) break;
        }
    }
    EXPECT_GT(failures, 20) << "the operations took less memory than they need";
}

}  // namespace
