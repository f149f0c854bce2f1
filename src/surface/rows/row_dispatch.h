// Which table of row kernels this processor gets.
#ifndef GFX_SURFACE_ROWS_ROW_DISPATCH_H
#define GFX_SURFACE_ROWS_ROW_DISPATCH_H

#include <atomic>
#include <span>

#include "surface/rows/row_kernels.h"

namespace gfx {

/// A table, and whether this processor can run it.
struct KernelChoice {
    const RowKernels& kernels;
    bool (*isRunnable)();
};

/// All tables, each better than those before it; the first one runs everywhere.
std::span<const KernelChoice> KernelChoices();

/// The table in use; null until it is chosen. Tests and benchmarks, which link the library's
/// objects, store other tables here.
extern std::atomic<const RowKernels*> activeKernels;

/// Chooses and stores the table in use.
const RowKernels& ChooseKernels();

/// Nothing runs at load and no lock is taken: choosing twice at once is harmless, since both choose
/// the same.
inline const RowKernels& Kernels() {
    const RowKernels* const kernels = activeKernels.load(std::memory_order_relaxed);
    if (kernels == nullptr) [[unlikely]] {
        return ChooseKernels();
    }
    return *kernels;
}

}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_ROW_DISPATCH_H
