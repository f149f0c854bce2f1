// Walking the rows of rectangles in blocks. A row longer than a block ends in a whole one that may
// overlap the one before it; a shorter row is a block of few pixels; rows that follow each other
// without a gap are one. Unnamed namespace: see pixel_format.h.
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

/// Whether n bytes at a and m bytes at b share memory.
inline bool Overlap(const Byte* a, std::size_t n, const Byte* b, std::size_t m) {
    const auto first = reinterpret_cast<std::uintptr_t>(a);
    const auto second = reinterpret_cast<std::uintptr_t>(b);
    return first < second + m && second < first + n;
}

/// Whether a rectangle's second row begins where the first one ends.
template <class Format>
inline bool StartsWithoutGap(PixelRows rows, unsigned w, unsigned h) {
    return h > 1 && reinterpret_cast<std::uintptr_t>(rows.lines[1]) -
                            reinterpret_cast<std::uintptr_t>(rows.lines[0]) ==
                        BytesOf<Format>(w);
}

/// Whether each does so, and an unsigned int counts all their pixels. Apart from the test of two
/// rows, which is all that most rectangles take.
[[gnu::noinline]] inline bool IsWithoutGap(PixelRows rows, std::size_t rowBytes, unsigned w,
                                           unsigned h) {
    for (unsigned j = 1; j < h; ++j) {
        if (reinterpret_cast<std::uintptr_t>(rows.lines[j]) -
                reinterpret_cast<std::uintptr_t>(rows.lines[j - 1]) !=
            rowBytes) {
            return false;
        }
    }
    return std::uint64_t{w} * h <= 0xFFFFFFFFU;
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

    /// Makes one row of all where that does the same.
    void Join(unsigned& w, unsigned& h) const {
        if (!StartsWithoutGap<To>(to, w, h) || !IsWithoutGap(to, BytesOf<To>(w), w, h)) return;
        w *= h;
        h = 1;
    }
};

/// The rows of a rectangle and of the one that is read for it.
template <class To, class From>
struct RowPairs {
    PixelRows to, from;

    PlacePair<To, From> operator[](unsigned j) const {
        return {to.lines[j] + BytesOf<To>(to.x), from.lines[j] + BytesOf<From>(from.x)};
    }

    /// Makes one pair of rows of all where that does the same: where the two are apart, or none is
    /// read after it was written for another reason.
    void Join(unsigned& w, unsigned& h, bool areReadInTime = false) const {
        if (!StartsWithoutGap<To>(to, w, h) || !StartsWithoutGap<From>(from, w, h)) return;
        if (!IsWithoutGap(to, BytesOf<To>(w), w, h)) return;
        if (!IsWithoutGap(from, BytesOf<From>(w), w, h)) return;
        if (!areReadInTime && (*this)[0].SharesMemory(w * h)) return;
        w *= h;
        h = 1;
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
    const unsigned all = h;
    if (w == 0) return all;
    rows.Join(w, h);
    if constexpr (L::kTakesShortRows) {
        if (w <= Blocks::kPixels) {
            return UseOneBlock<Blocks::kPixels>(w, [&](auto count) {
                for (unsigned j = 0; j < h; ++j) {
                    const auto row = rows[j];
                    if (row.SharesMemory(w)) return j;
                    Blocks::Store(row.to, make(row, count), count);
                }
                return all;
            });
        }
    }
    for (unsigned j = 0; j < h; ++j) {
        const auto row = rows[j];
        if (row.SharesMemory(w)) return j;
        WalkRow<Blocks>(row, w, make);
    }
    return all;
}

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_ROW_WALK_H
