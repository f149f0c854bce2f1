// Copying rows that may overlap, which needs no pixel rule: bytes are bytes.
// Unnamed namespace: see pixel_format.h.
#ifndef GFX_SURFACE_ROWS_COPY_BYTES_H
#define GFX_SURFACE_ROWS_COPY_BYTES_H

#include <cstdint>
#include <cstring>

#include "surface/rows/lanes.h"

namespace gfx {
namespace {

/// Copies n bytes that may overlap in any way. Up to four vectors are loaded before the first is
/// stored; longer rows repay the call of memmove.
template <class L>
inline void CopyBytes(std::uint8_t* to, const std::uint8_t* from, std::size_t n) {
    if (n <= L::kBytes) {
        if (n == 0) return;
        return UseOneBlock<L, L::kBytes>(static_cast<unsigned>(n), [&](auto count) {
            L::StoreBytes(to, L::LoadBytes(from, count), count);
        });
    }
    if (n > 4 * L::kBytes) {
        std::memmove(to, from, n);
        return;
    }
    const auto first = L::LoadBytes(from, All{});
    const auto last = L::LoadBytes(from + n - L::kBytes, All{});
    if (n > 2 * L::kBytes) {
        const auto second = L::LoadBytes(from + L::kBytes, All{});
        const auto third = L::LoadBytes(from + n - 2 * L::kBytes, All{});
        L::StoreBytes(to + L::kBytes, second, All{});
        L::StoreBytes(to + n - 2 * L::kBytes, third, All{});
    }
    L::StoreBytes(to, first, All{});
    L::StoreBytes(to + n - L::kBytes, last, All{});
}

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_COPY_BYTES_H
