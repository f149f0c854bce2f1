// The row kernels for x86-64 processors with AVX2.
#include "surface/rows/lanes_avx2.h"
#include "surface/rows/make_kernels.h"

namespace gfx {
constinit const RowKernels kRowKernelsAvx2 = MakeRowKernels<Lanes256>("avx2");

}  // namespace gfx
