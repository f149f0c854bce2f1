// The row kernels for any processor of the target architecture.
#include "surface/rows/lanes_baseline.h"
#include "surface/rows/row_walk.h"

namespace gfx {
namespace {
using Wide = BaselineLanes;
using Narrow = BaselineLanes;

inline bool IsNarrow(unsigned, unsigned, Load) { return false; }
}  // namespace
}  // namespace gfx

#include "surface/rows/row_kernels.inl"

namespace gfx {

constinit const RowKernels kRowKernelsBaseline = MakeRowKernels("baseline");

}  // namespace gfx
