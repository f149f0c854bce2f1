// Walking the rows of rectangles in blocks. A row longer than a block ends in a whole one that may
// overlap the one before it; a shorter row is a block of few pixels. Unnamed namespace: see
// pixel_format.h.
#ifndef GFX_SURFACE_ROWS_ROW_WALK_H
#define GFX_SURFACE_ROWS_ROW_WALK_H

#include <cstdint>

#include "surface/rows/lanes.h"
#include "surface/rows/row_kernels.h"

namespace gfx {
namespace {

using Byte = std::uint8_t;
using Word = std::uint32_t;

template <class Format>
constexpr std::size_t BytesOf(std::size_t pixels) {
    return pixels * sizeof(typename Format::Unit);
}

inline std::uintptr_t AddressOf(const Byte* p) { return reinterpret_cast<std::uintptr_t>(p); }

/// Whether n bytes at a and m bytes at b share memory.
inline bool Overlap(const Byte* a, std::size_t n, const Byte* b, std::size_t m) {
    const std::uintptr_t first = AddressOf(a);
    const std::uintptr_t second = AddressOf(b);
    return first < second + m && second < first + n;
}

/// A place in a row of the target.
template <class To>
struct Place {
    Byte* to;

    Place operator+(std::size_t pixels) const { return {to + BytesOf<To>(pixels)}; }
    static bool SharesMemory(unsigned) { return false; }
};

/// The same with the place in the row that is read for it.
template <class To, class From>
struct PlacePair {
    Byte* to;
    const Byte* from;

    PlacePair operator+(std::size_t pixels) const {
        return {to + BytesOf<To>(pixels), from + BytesOf<From>(pixels)};
    }
    bool SharesMemory(unsigned w) const {
        return Overlap(to, BytesOf<To>(w), from, BytesOf<From>(w));
    }
};

/// The rows of a rectangle that is changed in place.
template <class To>
struct Rows {
    PixelRows to;

    Place<To> operator[](unsigned j) const { return {to.lines[j] + BytesOf<To>(to.x)}; }
};

/// The rows of a rectangle and of the one that is read for it.
template <class To, class From>
struct RowPairs {
    PixelRows to, from;

    PlacePair<To, From> operator[](unsigned j) const {
        return {to.lines[j] + BytesOf<To>(to.x), from.lines[j] + BytesOf<From>(from.x)};
    }
};

/// Covers a row, longer than a block, with blocks of make(place, count). The last one is made
/// before the one that it may overlap is stored, so that each pixel is made of what it was before.
template <class Blocks, class Row, class Make>
inline void WalkRow(const Row& row, unsigned w, Make make) {
    const std::size_t end = w - Blocks::kPixels;
    std::size_t i = 0;
    for (; i + Blocks::kPixels < end; i += Blocks::kPixels) {
        Blocks::Store((row + i).to, make(row + i, All{}), All{});
    }
    const auto block = make(row + i, All{});
    const auto last = make(row + end, All{});
    Blocks::Store((row + i).to, block, All{});
    Blocks::Store((row + end).to, last, All{});
}

/// Replaces each block of pixels by make(place, count), up to the first pair of rows that shares
/// memory. `Blocks` stores them. @return the rows done.
template <class L, class Blocks, class RowsOfAny, class Make>
inline unsigned WalkRows(const RowsOfAny& rows, unsigned w, unsigned h, Make make) {
    if (w == 0) return h;
    if constexpr (L::kTakesShortRows) {
        if (w <= Blocks::kPixels) {
            return UseOneBlock<L, Blocks::kPixels>(w, [&](auto count) {
                for (unsigned j = 0; j < h; ++j) {
                    const auto row = rows[j];
                    if (row.SharesMemory(w)) return j;
                    Blocks::Store(row.to, make(row, count), count);
                }
                return h;
            });
        }
    }
    for (unsigned j = 0; j < h; ++j) {
        const auto row = rows[j];
        if (row.SharesMemory(w)) return j;
        WalkRow<Blocks>(row, w, make);
    }
    return h;
}

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_ROW_WALK_H
