// The row kernels in portable vectors, for comparison on every machine.
#include "surface/rows/lanes_portable.h"
#include "surface/rows/row_walk.h"

namespace gfx {
namespace {
using Wide = PortableLanes;
using Narrow = PortableLanes;

inline bool IsNarrow(unsigned, unsigned, Load) { return false; }
}  // namespace
}  // namespace gfx

#include "surface/rows/row_kernels.inl"

extern const gfx::RowKernels kRowKernelsPortable;
constinit const gfx::RowKernels kRowKernelsPortable = gfx::MakeRowKernels("portable");
