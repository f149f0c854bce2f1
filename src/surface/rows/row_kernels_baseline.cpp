// The row kernels for any processor of the target architecture.
#include "surface/rows/lanes_baseline.h"
#include "surface/rows/make_kernels.h"

namespace gfx {
constinit const RowKernels kRowKernelsBaseline = MakeRowKernels<BaselineLanes>("baseline");

}  // namespace gfx
