// The row kernels for x86-64 processors with AVX-512 F, BW and VL.
#include "surface/rows/lanes_avx512.h"
#include "surface/rows/row_walk.h"

namespace gfx {
namespace {
using Wide = Lanes512;
using Narrow = MaskedLanes256;

/// 512-bit moves under a mask, or across two cache lines, cost short rows more than the width
/// gives; where each pixel takes many instructions that is so for rows of one narrow block alone.
inline bool IsNarrow(unsigned w, unsigned narrowPixels, Load load) {
    return w <= (load == Load::Heavy ? narrowPixels : 2 * narrowPixels);
}
}  // namespace
}  // namespace gfx

#include "surface/rows/row_kernels.inl"

namespace gfx {

constinit const RowKernels kRowKernelsAvx512 = MakeRowKernels("avx512");

}  // namespace gfx
