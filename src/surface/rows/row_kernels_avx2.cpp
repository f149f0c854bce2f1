// The row kernels for x86-64 processors with AVX2.
#include "surface/rows/lanes_avx2.h"
#include "surface/rows/row_walk.h"

namespace gfx {
namespace {
using Wide = Lanes256;
using Narrow = Lanes256;

/// Few pixels cost no more in a wide register's lower part than in a narrow register.
inline bool IsNarrow(unsigned, unsigned, Load) { return false; }
}  // namespace
}  // namespace gfx

#include "surface/rows/row_kernels.inl"

namespace gfx {

constinit const RowKernels kRowKernelsAvx2 = MakeRowKernels("avx2");

}  // namespace gfx
