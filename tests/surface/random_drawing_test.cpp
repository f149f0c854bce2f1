// Seeded random drawing on the library and on the model side by side: after every operation all
// memory and all fields of all surfaces are compared.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "support/hook_ledger.h"
#include "surface/random_operations.h"

namespace test {
namespace {

constexpr unsigned kSeeds = 125;
constexpr unsigned kSteps = 2000;

TEST(RandomDrawing, Leaves_every_byte_as_the_model_says) {
    std::set<unsigned> depthsSeen;
    unsigned memoriesShared = 0;
    for (unsigned seed = 1; seed <= kSeeds; ++seed) {
        LedgerCheck ledger;
        SeededChoices choices(seed);
        World world(choices);
        for (unsigned step = 0; step < kSteps; ++step) {
            world.ClearLog();
            DrawAtRandom(world);
            const std::string difference = world.Difference();
            ASSERT_EQ("", difference)
                << "seed " << seed << ", step " << step << ": " << world.Log();
        }
        depthsSeen.merge(world.depthsSeen);
        memoriesShared += world.memoriesShared;
    }
    EXPECT_EQ(33u, depthsSeen.size()) << "not every depth was drawn on";
    EXPECT_LT(kSeeds, memoriesShared) << "hardly any memory was shared";
}

}  // namespace
}  // namespace test
