// The row kernels for any processor of the target architecture.
#include "surface/rows/lanes_baseline.h"

namespace gfx {
namespace {
using Wide = BaselineLanes;
using Narrow = BaselineLanes;
}  // namespace
}  // namespace gfx

#include "surface/rows/row_kernels.inl"

namespace gfx {

constinit const RowKernels kRowKernelsBaseline = MakeRowKernels("baseline");

}  // namespace gfx
