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
/// pixels do not: stores across two cache lines take a third longer.
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
/// boundaries but for the first and the last: memmove, which does so for some lengths only, was
/// seen to take up to twice as long on rows that lie anywhere, and ten times at some distances.
template <class L>
inline void CopyApart(std::uint8_t* to, const std::uint8_t* from, std::size_t n) {
    L::StoreBytes(to, L::LoadBytes(from, All{}), All{});
    ForVectors<L>(ToBoundary<L>(to), n, [&](std::size_t i) {
        L::StoreBytes(to + i, L::LoadBytes(from + i, All{}), All{});
    });
    L::StoreBytes(to + n - L::kBytes, L::LoadBytes(from + n - L::kBytes, All{}), All{});
}

/// Copies n bytes that may overlap in any way. Up to four vectors are loaded before the first is
/// stored.
template <class L>
inline void CopyBytes(std::uint8_t* to, const std::uint8_t* from, std::size_t n) {
    if (n <= L::kBytes) {
        if (n == 0) return;
        return UseOneBlock<L, L::kBytes>(static_cast<unsigned>(n), [&](auto count) {
            L::StoreBytes(to, L::LoadBytes(from, count), count);
        });
    }
    if (n > 4 * L::kBytes) {
        // memmove may have wider vectors than the baseline.
        const bool isWide = L::kBytes > 16;
        if (isWide && !Overlap(to, n, from, n)) return CopyApart<L>(to, from, n);
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

#endif  // GFX_SURFACE_ROWS_LONG_ROWS_H
