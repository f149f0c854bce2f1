// Walking the rows of rectangles in blocks. A row longer than a block ends in a whole one that may
// overlap the one before it; a shorter row is a block of few pixels.
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

/// How many instructions a kernel spends on a pixel.
enum class Load { Light, Medium, Heavy };

/// Calls row(j, blocks) for each row, up to the first for which it returns false. blocks(make,
/// put, settle) covers the w pixels with blocks at i: put(i, make(i, count), count). The last one
/// is made before the one that it may overlap is put, so that each pixel is made of what it was
/// before. settle(i) may do any block but the last two in a way of its own; it then returns true.
/// @return the rows done.
template <class L, unsigned kPixels, class Row>
inline unsigned ForEachRow(unsigned w, unsigned h, Row row) {
    const auto forEachRow = [&](auto blocks) {
        for (unsigned j = 0; j < h; ++j) {
            if (!row(j, blocks)) return j;
        }
        return h;
    };
    if (w == 0) return h;
    if (w <= kPixels) {
        return UseOneBlock<L, kPixels>(w, [&](auto count) {
            return forEachRow(
                [count](auto make, auto put, auto) { put(0, make(0, count), count); });
        });
    }
    const std::size_t end = w - kPixels;
    return forEachRow([end](auto make, auto put, auto settle) {
        std::size_t i = 0;
        for (; i + kPixels < end; i += kPixels) {
            if (!settle(i)) put(i, make(i, All{}), All{});
        }
        const auto block = make(i, All{});
        const auto last = make(end, All{});
        put(i, block, All{});
        put(end, last, All{});
    });
}

/// Replaces each block of a rectangle's pixels by make(pixels, count). `Blocks` stores them.
template <class L, class Format, class Blocks, class Make>
inline void WalkRows(PixelRows to, unsigned w, unsigned h, Make make) {
    ForEachRow<L, Blocks::kPixels>(w, h, [&](unsigned j, auto blocks) {
        std::uint8_t* const row = RowOf<Format>(to, j);
        blocks([&](std::size_t i, auto count) { return make(row + BytesOf<Format>(i), count); },
               [&](std::size_t i, const auto& block, auto count) {
                   Blocks::Store(row + BytesOf<Format>(i), block, count);
               },
               [](std::size_t) { return false; });
        return true;
    });
}

inline bool SettleNone(std::uint8_t*, const std::uint8_t*) { return false; }

/// Replaces each block of pixels by make(target pixels, source pixels, count), but those that
/// settle(target pixels, source pixels) has done, up to the first pair of rows that shares memory.
/// @return the rows done.
template <class L, class To, class From, class Blocks, auto settle = SettleNone, class Make>
inline unsigned WalkRowPairs(PixelRows to, PixelRows from, unsigned w, unsigned h, Make make) {
    return ForEachRow<L, Blocks::kPixels>(w, h, [&](unsigned j, auto blocks) {
        std::uint8_t* const row = RowOf<To>(to, j);
        const std::uint8_t* const source = RowOf<From>(from, j);
        if (Overlap(row, BytesOf<To>(w), source, BytesOf<From>(w))) return false;
        blocks(
            [&](std::size_t i, auto count) {
                return make(row + BytesOf<To>(i), source + BytesOf<From>(i), count);
            },
            [&](std::size_t i, const auto& block, auto count) {
                Blocks::Store(row + BytesOf<To>(i), block, count);
            },
            [&](std::size_t i) { return settle(row + BytesOf<To>(i), source + BytesOf<From>(i)); });
        return true;
    });
}

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_ROW_WALK_H
