// Every table of row kernels that this processor can run, and the portable one, which is built into
// the tests where the library itself does not use it; choosing one of them for all drawing; and the
// plain rule of alpha scaling. Tests reach the tables through this file alone.
#pragma once

#include <algorithm>
#include <vector>

#include "surface/rows/row_dispatch.h"

extern const gfx::RowKernels kRowKernelsPortable;

namespace test {

inline std::vector<const gfx::RowKernels*> AllTables() {
    std::vector<const gfx::RowKernels*> all{&kRowKernelsPortable};
    for (const gfx::KernelChoice& choice : gfx::KernelChoices()) {
        if (choice.isRunnable()) all.push_back(&choice.kernels);
    }
    return all;
}

/// The table that the library starts with: it chooses another one when a kernel is called.
inline const gfx::RowKernels* const kTableAtStart = gfx::activeKernels.load();

/// Whatever is drawn from now on takes this table.
inline void UseTable(const gfx::RowKernels* table) { gfx::activeKernels.store(table); }

/// The rule of scaleAlpha, which pixel_format.h does not hold.
inline std::uint32_t PlainScale(std::uint32_t word, std::uint32_t k) {
    const std::uint32_t share = (255 - gfx::AlphaOf(word)) * k >> 8;
    return (255 - std::min<std::uint32_t>(share, 255)) << 24 | (word & 0x00FFFFFF);
}

}  // namespace test
