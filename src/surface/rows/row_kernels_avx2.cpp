// The row kernels for x86-64 processors with AVX2.
#include "surface/rows/lanes_avx2.h"
#include "surface/rows/make_kernels.h"

namespace gfx {
namespace {

struct Avx2Vectors {
    using Wide = Lanes256;
    using Narrow = Lanes256;
};

}  // namespace

constinit const RowKernels kRowKernelsAvx2 = MakeRowKernels<Avx2Vectors>("avx2");

}  // namespace gfx
