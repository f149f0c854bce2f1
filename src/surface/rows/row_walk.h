// Walking the rows of rectangles in blocks: whole ones, then the first few pixels of a last one.
// Unnamed namespace: see pixel_format.h.
#ifndef GFX_SURFACE_ROWS_ROW_WALK_H
#define GFX_SURFACE_ROWS_ROW_WALK_H

#include <cstdint>

#include "surface/rows/lanes.h"
#include "surface/rows/row_kernels.h"

namespace gfx {
namespace {

/// Whether n bytes at a and m bytes at b share memory.
inline bool Overlap(const std::uint8_t* a, std::size_t n, const std::uint8_t* b, std::size_t m) {
    const auto first = reinterpret_cast<std::uintptr_t>(a);
    const auto second = reinterpret_cast<std::uintptr_t>(b);
    return first < second + m && second < first + n;
}

template <class Format>
constexpr std::size_t BytesOf(std::size_t pixels) {
    return pixels * sizeof(typename Format::Unit);
}

template <class Format>
inline std::uint8_t* RowOf(PixelRows rows, unsigned j) {
    return rows.lines[j] + BytesOf<Format>(rows.x);
}

/// Calls step(i, All) for each whole block of a run of w, then step(i, Some) for what is left.
template <unsigned BlockPixels, class Step>
inline void WalkBlocks(unsigned w, Step step) {
    std::size_t i = 0;
    for (; i + BlockPixels <= w; i += BlockPixels)
        step(i, All{});
    if (i < w) step(i, Some{static_cast<unsigned>(w - i)});
}

/// Calls step(pixels, count) along each row of a rectangle.
template <class Format, unsigned BlockPixels, class Step>
inline void WalkRows(PixelRows to, unsigned w, unsigned h, Step step) {
    for (unsigned j = 0; j < h; ++j) {
        std::uint8_t* const row = RowOf<Format>(to, j);
        WalkBlocks<BlockPixels>(
            w, [&](std::size_t i, auto count) { step(row + BytesOf<Format>(i), count); });
    }
}

/// Calls step(target pixels, source pixels, count) along each pair of rows, up to the first pair
/// that shares memory. @return the rows done.
template <class To, class From, unsigned BlockPixels, class Step>
inline unsigned WalkRowPairs(PixelRows to, PixelRows from, unsigned w, unsigned h, Step step) {
    for (unsigned j = 0; j < h; ++j) {
        std::uint8_t* const row = RowOf<To>(to, j);
        const std::uint8_t* const source = RowOf<From>(from, j);
        if (Overlap(row, BytesOf<To>(w), source, BytesOf<From>(w))) return j;
        WalkBlocks<BlockPixels>(w, [&](std::size_t i, auto count) {
            step(row + BytesOf<To>(i), source + BytesOf<From>(i), count);
        });
    }
    return h;
}

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_ROW_WALK_H
