// The row kernels for x86-64 processors with AVX2.
#include "surface/rows/lanes_avx2.h"
#include "surface/rows/row_walk.h"

namespace gfx {
namespace {
using Wide = Lanes256;
using Narrow = Lanes128;
using WideCopy = Wide;

/// The first few pixels of a wide block cost several moves each way: short rows that are no whole
/// blocks do with half as many in narrow ones.
inline bool IsNarrow(unsigned w, unsigned narrowPixels, Load) {
    return w <= narrowPixels || (w < 4 * narrowPixels && w % (2 * narrowPixels) != 0);
}
}  // namespace
}  // namespace gfx

#include "surface/rows/row_kernels.inl"

namespace gfx {

constinit const RowKernels kRowKernelsAvx2 = MakeRowKernels("avx2");

}  // namespace gfx
