// Rectangles whose rows follow each other without a gap, as those of whole pictures do: kernels may
// take them as one long row. Found from the row table, so that it serves surfaces that lay out
// their rows themselves.
#ifndef GFX_SURFACE_ONE_RUN_H
#define GFX_SURFACE_ONE_RUN_H

#include "surface/rows/row_dispatch.h"

namespace gfx {

/// The rows of a rectangle in memory.
struct RectRows {
    PixelRows rows;
    std::size_t pixelBytes;

    std::uintptr_t Start() const { return Line(0) + rows.x * pixelBytes; }
    std::uintptr_t Line(unsigned y) const {
        return reinterpret_cast<std::uintptr_t>(rows.lines[y]);
    }
};

/// Whether more than one row of w pixels are one run, and an unsigned int counts its pixels. Two
/// rows are looked at before the others, which is all that most rectangles take.
inline bool IsOneRun(const RectRows& rect, unsigned w, unsigned h) {
    const std::size_t rowBytes = w * rect.pixelBytes;
    return h > 1 && rect.Line(1) - rect.Line(0) == rowBytes &&
           std::uint64_t{w} * h <= 0xFFFFFFFFU &&
           Kernels().areApartBy(rect.rows.lines, h, rowBytes);
}

/// Whether runs of n pixels share no memory, so that they may be taken in any order.
inline bool AreRunsApart(const RectRows& a, const RectRows& b, std::size_t n) {
    return a.Start() + n * a.pixelBytes <= b.Start() || b.Start() + n * b.pixelBytes <= a.Start();
}

/// Whether the rows of both are one run, and these are apart.
inline bool AreOneRun(const RectRows& to, const RectRows& from, unsigned w, unsigned h) {
    return IsOneRun(to, w, h) && IsOneRun(from, w, h) && AreRunsApart(to, from, std::size_t{w} * h);
}

}  // namespace gfx

#endif  // GFX_SURFACE_ONE_RUN_H
