// The row kernels in portable vectors, for comparison on every machine.
#include "surface/rows/lanes_portable.h"
#include "surface/rows/make_kernels.h"

extern const gfx::RowKernels kRowKernelsPortable;
constinit const gfx::RowKernels kRowKernelsPortable =
    gfx::MakeRowKernels<gfx::PortableLanes>("portable");
