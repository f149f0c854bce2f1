// The row kernels for x86-64 processors with AVX-512 F, BW and VL.
#include "surface/rows/lanes_avx512.h"
#include "surface/rows/make_kernels.h"

namespace gfx {
namespace {

struct Avx512Vectors {
    using Wide = Lanes512;
    using Narrow = Lanes256;
};

}  // namespace

constinit const RowKernels kRowKernelsAvx512 = MakeRowKernels<Avx512Vectors>("avx512");

}  // namespace gfx
