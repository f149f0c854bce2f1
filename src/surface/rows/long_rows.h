// Filling long rows, and copying rows that may overlap: no pixel rule is needed, bytes are bytes.
// Unnamed namespace: see pixel_format.h.
#ifndef GFX_SURFACE_ROWS_LONG_ROWS_H
#define GFX_SURFACE_ROWS_LONG_ROWS_H

#include <cstdint>
#include <cstring>

#include "surface/rows/lanes.h"
#include "surface/rows/row_walk.h"

namespace gfx {
namespace {

/// How far behind p the next boundary of a vector is, 1 to a whole vector.
template <class L>
inline std::size_t ToBoundary(const std::uint8_t* p) {
    return L::kBytes - reinterpret_cast<std::uintptr_t>(p) % L::kBytes;
}

/// Calls step(i) for a vector at each i from `first` on that ends before byte n. Four at a time, so
/// that where the loop lies in memory does not decide its pace.
template <class L, class Step>
inline void ForVectors(std::size_t first, std::size_t n, Step step) {
    std::size_t i = first;
    for (; i + 4 * L::kBytes < n; i += 4 * L::kBytes) {
        for (unsigned k = 0; k < 4; ++k)
            step(i + k * L::kBytes);
    }
    for (; i + L::kBytes < n; i += L::kBytes)
        step(i);
}

/// Stores a pattern of pixels of kUnit bytes along n bytes, more than a vector. Between the first
/// vector and the last, which lie where they must, all lie on boundaries, or next to them where the
/// pixels do not: stores across two cache lines take longer.
template <class L, std::size_t kUnit>
inline void FillLong(std::uint8_t* p, std::size_t n, typename L::Raw pattern) {
    L::template Store<kUnit>(p, pattern, All{});
    if (n > 2 * L::kBytes) {
        ForVectors<L>(ToBoundary<L>(p) / kUnit * kUnit, n,
                      [&](std::size_t i) { L::template Store<kUnit>(p + i, pattern, All{}); });
    }
    L::template Store<kUnit>(p + n - L::kBytes, pattern, All{});
}

/// Copies n bytes, more than a vector, to memory that is apart from theirs. Stores lie on
/// boundaries but for the first and the last; memmove does so for some lengths only.
template <class L>
inline void CopyApart(std::uint8_t* to, const std::uint8_t* from, std::size_t n) {
    L::StoreBytes(to, L::LoadBytes(from, All{}), All{});
    ForVectors<L>(ToBoundary<L>(to), n, [&](std::size_t i) {
        L::StoreBytes(to + i, L::LoadBytes(from + i, All{}), All{});
    });
    L::StoreBytes(to + n - L::kBytes, L::LoadBytes(from + n - L::kBytes, All{}), All{});
}

/// Calls use(copy) with the way to copy n bytes, which may overlap in any way: copy(to, from). It
/// is chosen once for many rows. Up to four vectors are loaded before the first is stored.
template <class L, class Use>
inline void WithCopy(std::size_t n, Use use) {
    if (n == 0) return;
    if (n <= L::kBytes) {
        return UseOneBlock<L, L::kBytes>(static_cast<unsigned>(n), [&](auto count) {
            use([count](Byte* to, const Byte* from) {
                L::StoreBytes(to, L::LoadBytes(from, count), count);
            });
        });
    }
    if (n <= 2 * L::kBytes) {
        return use([end = n - L::kBytes](Byte* to, const Byte* from) {
            const auto first = L::LoadBytes(from, All{});
            const auto last = L::LoadBytes(from + end, All{});
            L::StoreBytes(to, first, All{});
            L::StoreBytes(to + end, last, All{});
        });
    }
    if (n <= 4 * L::kBytes) {
        return use([end = n - L::kBytes](Byte* to, const Byte* from) {
            const auto first = L::LoadBytes(from, All{});
            const auto second = L::LoadBytes(from + L::kBytes, All{});
            const auto third = L::LoadBytes(from + end - L::kBytes, All{});
            const auto last = L::LoadBytes(from + end, All{});
            L::StoreBytes(to, first, All{});
            L::StoreBytes(to + L::kBytes, second, All{});
            L::StoreBytes(to + end - L::kBytes, third, All{});
            L::StoreBytes(to + end, last, All{});
        });
    }
    use([n](Byte* to, const Byte* from) {
        // memmove may have wider vectors than the baseline.
        const bool isWide = L::kBytes > 16;
        if (isWide && !Overlap(to, n, from, n)) return CopyApart<L>(to, from, n);
        std::memmove(to, from, n);
    });
}

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_LONG_ROWS_H
