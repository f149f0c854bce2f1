// One step of random drawing; see random_operations.cpp.
#pragma once

#include "surface/random_world.h"

namespace test {

/// Runs one operation, chosen by the world's choices, on the library and on the model.
void DrawAtRandom(World& world);

/// The same of the operations alone that read or write runs in memory of the host's.
void MoveRunsAtRandom(World& world);

}  // namespace test
