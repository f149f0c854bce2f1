// The row kernels for x86-64 processors with AVX-512 F, BW and VL.
#include "surface/rows/lanes_avx512.h"
#include "surface/rows/make_kernels.h"

namespace gfx {
constinit const RowKernels kRowKernelsAvx512 = MakeRowKernels<Lanes512, MaskedLanes256>("avx512");

}  // namespace gfx
