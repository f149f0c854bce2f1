// Every table of row kernels that this processor can run, and the portable one, which is built into
// the tests where the library itself does not use it.
#pragma once

#include <ostream>
#include <vector>

#include "surface/rows/row_dispatch.h"

extern const gfx::RowKernels kRowKernelsPortable;

namespace test {

inline std::vector<const gfx::RowKernels*> AllTables() {
    const gfx::RowKernels* tables[gfx::kMaxTables];
    const unsigned count = gfx::RunnableTables(tables);
    std::vector<const gfx::RowKernels*> all(tables, tables + count);
    all.push_back(&kRowKernelsPortable);
    return all;
}

}  // namespace test
