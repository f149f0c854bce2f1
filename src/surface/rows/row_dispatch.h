// Which table of row kernels this processor gets.
#ifndef GFX_SURFACE_ROWS_ROW_DISPATCH_H
#define GFX_SURFACE_ROWS_ROW_DISPATCH_H

#include <atomic>

#include "surface/rows/row_kernels.h"

namespace gfx {

/// The tables this processor can run, the best one last. @return how many.
inline constexpr unsigned kMaxTables = 3;
unsigned RunnableTables(const RowKernels* (&tables)[kMaxTables]);

/// The table in use. It starts as one whose kernels choose the table for this processor and pass
/// their call on to it: so there is nothing to test at each call, nothing runs at load, and no lock
/// is taken; choosing twice at once is harmless, since both choose the same. Tests and benchmarks,
/// which link the library's objects, store other tables here.
extern std::atomic<const RowKernels*> activeKernels;

inline const RowKernels& Kernels() { return *activeKernels.load(std::memory_order_relaxed); }

}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_ROW_DISPATCH_H
