// The row kernels for any processor of the target architecture.
#include "surface/rows/lanes_baseline.h"
#include "surface/rows/make_kernels.h"

namespace gfx {
namespace {

struct BaselineVectors {
    using Wide = BaselineLanes;
    using Narrow = BaselineLanes;
};

}  // namespace

constinit const RowKernels kRowKernelsBaseline = MakeRowKernels<BaselineVectors>("baseline");

}  // namespace gfx
