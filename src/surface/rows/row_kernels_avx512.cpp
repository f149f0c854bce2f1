// The row kernels for x86-64 processors with AVX-512 F, BW and VL.
#include "surface/rows/lanes_avx512.h"
#include "surface/rows/row_walk.h"

namespace gfx {
namespace {
using Wide = Lanes512;
using Narrow = MaskedLanes256;

/// 512-bit moves under a mask, or across two cache lines, cost short rows more than the width
/// gives. The more instructions a pixel takes, the fewer rows that is so for: all up to two narrow
/// blocks; those of one, or of just two, which have no mask (squares of 16 pixels in 32 bits take
/// 5 to 20 % less); those of one alone.
inline bool IsNarrow(unsigned w, unsigned narrowPixels, Load load) {
    if (load == Load::Light) return w <= 2 * narrowPixels;
    return w <= narrowPixels || (load == Load::Medium && w == 2 * narrowPixels);
}
}  // namespace
}  // namespace gfx

#include "surface/rows/row_kernels.inl"

namespace gfx {

constinit const RowKernels kRowKernelsAvx512 = MakeRowKernels("avx512");

}  // namespace gfx
