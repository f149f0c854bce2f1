// The row kernels for any processor of the target architecture.
#if defined(__x86_64__)
#include "surface/rows/lanes_sse2.h"
#else
#include "surface/rows/lanes_portable.h"
#endif

namespace gfx {
namespace {
#if defined(__x86_64__)
using Wide = Lanes128;
#else
using Wide = PortableLanes;
#endif
using Narrow = Wide;
}  // namespace
}  // namespace gfx

#include "surface/rows/row_kernels.inl"

namespace gfx {

constinit const RowKernels kRowKernelsBaseline = MakeRowKernels("baseline");

}  // namespace gfx
