// Compares what the libraries draw: a peer that draws nothing is fast.
#ifndef GFX_BENCH_CHECK_H
#define GFX_BENCH_CHECK_H

#include <string>
#include <vector>

#include "library.h"

namespace bench {

/// Draws each row whose name matches `filter` once with every library and compares mean colours
/// with the first library that draws. Prints them. @return how many are too far off.
int CheckSums(Scene& scene, const std::vector<Library>& libraries, const std::string& filter);

}  // namespace bench

#endif  // GFX_BENCH_CHECK_H
