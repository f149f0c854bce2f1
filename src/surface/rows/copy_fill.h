// Filling and copying rows, which need no pixel rule: bytes are bytes. Vectors at a row's end
// overlap those before it instead of being cut, since pixels are only overwritten here.
// Unnamed namespace: see pixel_format.h.
#ifndef GFX_SURFACE_ROWS_COPY_FILL_H
#define GFX_SURFACE_ROWS_COPY_FILL_H

#include <cstdint>
#include <cstring>

#include "surface/rows/lanes.h"

namespace gfx {
namespace {

/// Stores a pattern that repeats with each pixel along n bytes.
template <class L>
inline void FillBytes(std::uint8_t* p, std::size_t n, typename L::U8 pattern) {
    if (n < L::kBytes) return L::StoreBytes(p, pattern, Some{static_cast<unsigned>(n)});
    for (std::size_t i = 0; i + L::kBytes < n; i += L::kBytes) {
        L::StoreBytes(p + i, pattern, All{});
    }
    L::StoreBytes(p + n - L::kBytes, pattern, All{});
}

/// Copies n bytes that may overlap in any way. Up to four vectors are loaded before the first is
/// stored; longer rows repay the call of memmove.
template <class L>
inline void CopyBytes(std::uint8_t* to, const std::uint8_t* from, std::size_t n) {
    if (n < L::kBytes) {
        const Some some{static_cast<unsigned>(n)};
        return L::StoreBytes(to, L::LoadBytes(from, some), some);
    }
    if (n > 4 * L::kBytes) {
        std::memmove(to, from, n);
        return;
    }
    const auto first = L::LoadBytes(from, All{});
    if (n == L::kBytes) return L::StoreBytes(to, first, All{});
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

#endif  // GFX_SURFACE_ROWS_COPY_FILL_H
