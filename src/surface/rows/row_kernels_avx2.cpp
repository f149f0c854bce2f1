// The row kernels for x86-64 processors with AVX2.
#include "surface/rows/lanes_avx2.h"

namespace gfx {
namespace {
using Wide = Lanes256;
using Narrow = Lanes128;
}  // namespace
}  // namespace gfx

#include "surface/rows/row_kernels.inl"

namespace gfx {

constinit const RowKernels kRowKernelsAvx2 = MakeRowKernels("avx2");

}  // namespace gfx
