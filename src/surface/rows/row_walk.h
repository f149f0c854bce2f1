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

/// How much a kernel spends on a pixel.
enum class Load { Light, Heavy };

/// Calls row(blocks) for each row, up to the first for which it returns false; blocks(step) calls
/// step(i, All) for each whole block of w pixels, then step(i, Some) for what is left. Rows shorter
/// than a block have a loop of their own: their mask is made once then, not once a row.
/// @return the rows done.
template <unsigned kBlockPixels, class Row>
inline unsigned ForEachRow(unsigned w, unsigned h, Row row) {
    const Some rest{w % kBlockPixels};
    if (w < kBlockPixels) {
        for (unsigned j = 0; j < h; ++j) {
            if (!row(j, [rest](auto step) { step(0, rest); })) return j;
        }
        return h;
    }
    const std::size_t whole = w - rest.n;
    const auto blocks = [=](auto step) {
        for (std::size_t i = 0; i < whole; i += kBlockPixels)
            step(i, All{});
        if (rest.n != 0) step(whole, rest);
    };
    for (unsigned j = 0; j < h; ++j) {
        if (!row(j, blocks)) return j;
    }
    return h;
}

/// Calls step(pixels, count) along each row of a rectangle.
template <class Format, unsigned kBlockPixels, class Step>
inline void WalkRows(PixelRows to, unsigned w, unsigned h, Step step) {
    ForEachRow<kBlockPixels>(w, h, [&](unsigned j, auto blocks) {
        std::uint8_t* const row = RowOf<Format>(to, j);
        blocks([&](std::size_t i, auto count) { step(row + BytesOf<Format>(i), count); });
        return true;
    });
}

/// Calls step(target pixels, source pixels, count) along each pair of rows, up to the first pair
/// that shares memory. @return the rows done.
template <class To, class From, unsigned kBlockPixels, class Step>
inline unsigned WalkRowPairs(PixelRows to, PixelRows from, unsigned w, unsigned h, Step step) {
    return ForEachRow<kBlockPixels>(w, h, [&](unsigned j, auto blocks) {
        std::uint8_t* const row = RowOf<To>(to, j);
        const std::uint8_t* const source = RowOf<From>(from, j);
        if (Overlap(row, BytesOf<To>(w), source, BytesOf<From>(w))) return false;
        blocks([&](std::size_t i, auto count) {
            step(row + BytesOf<To>(i), source + BytesOf<From>(i), count);
        });
        return true;
    });
}

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_ROW_WALK_H
