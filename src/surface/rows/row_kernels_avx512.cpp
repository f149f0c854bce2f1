// The row kernels for x86-64 processors with AVX-512 F, BW and VL.
#include "surface/rows/lanes_avx512.h"

namespace gfx {
namespace {
using Wide = Lanes512;
using Narrow = MaskedLanes256;
}  // namespace
}  // namespace gfx

#include "surface/rows/row_kernels.inl"

namespace gfx {

constinit const RowKernels kRowKernelsAvx512 = MakeRowKernels("avx512");

}  // namespace gfx
