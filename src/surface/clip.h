// The two clipping rules of rectangle operations, and how a second surface's position follows.
// Nothing else in the library decides what of a rectangle is drawn.
#ifndef GFX_SURFACE_CLIP_H
#define GFX_SURFACE_CLIP_H

#include <climits>
#include <cstdint>

namespace gfx {

/// A rectangle being clipped, and the position that belongs to its top-left pixel in a second
/// surface or buffer. That position is held in 64 bits, so it can follow any shift of x and y.
struct ClippedRect {
    int x, y;
    unsigned w, h;
    std::int64_t srcX = 0, srcY = 0;

    bool IsEmpty() const { return w == 0 || h == 0; }
};

struct ClipBounds {
    int x0, y0, x1, y1;

    bool HoldsColumn(int x) const { return x >= x0 && x < x1; }
    bool HoldsRow(int y) const { return y >= y0 && y < y1; }
};

/// The coordinate behind one. Behind the last comes the first, which no clip rectangle holds.
inline int NextTo(int coordinate) {
    return static_cast<int>(static_cast<unsigned>(coordinate) + 1);
}

/// Intersects one extent with [lo, hi). A sum beyond 2^31 - 1 draws nothing.
/// Differences are formed in unsigned arithmetic, where they cannot overflow: each is of a larger
/// and a smaller value. @return whether anything is left.
inline bool ClipSpanToBounds(int& position, unsigned& extent, std::int64_t& source, int lo,
                             int hi) {
    if (position >= hi) return false;
    if (extent > static_cast<unsigned>(INT_MAX) - static_cast<unsigned>(position)) return false;
    if (position < lo) {
        const unsigned cut = static_cast<unsigned>(lo) - static_cast<unsigned>(position);
        if (extent <= cut || lo >= hi) return false;
        extent -= cut;
        source += cut;
        position = lo;
    }
    const unsigned room = static_cast<unsigned>(hi) - static_cast<unsigned>(position);
    if (extent > room) extent = room;
    return extent != 0;
}

/// Clips against the clip rectangle of the surface that is drawn on. @return whether anything of
/// the rectangle is left; it lies inside the bounds then.
inline bool ClipRectToBounds(ClippedRect& rect, const ClipBounds& bounds) {
    return ClipSpanToBounds(rect.x, rect.w, rect.srcX, bounds.x0, bounds.x1) &&
           ClipSpanToBounds(rect.y, rect.h, rect.srcY, bounds.y0, bounds.y1);
}

/// Limits one extent, at `source` of a second surface, to that surface's size.
inline void ClipSpanToSize(unsigned& extent, std::int64_t source, unsigned size) {
    if (source >= std::int64_t{size}) {
        extent = 0;
    } else if (source + extent > std::int64_t{size}) {
        extent = static_cast<unsigned>(std::int64_t{size} - source);
    }
}

/// Limits the extent to the size of a second surface. It only shrinks w and h: a position left of
/// or above that surface stays. @return whether anything is left.
inline bool ClipToSurfaceSize(ClippedRect& rect, unsigned width, unsigned height) {
    ClipSpanToSize(rect.w, rect.srcX, width);
    ClipSpanToSize(rect.h, rect.srcY, height);
    return !rect.IsEmpty();
}

/// Cuts away one extent's part before position 0 of the second surface.
inline void CutSpanBeforeOrigin(int& position, unsigned& extent, std::int64_t& source) {
    if (source >= 0) return;
    const std::int64_t before = -source;
    if (before >= std::int64_t{extent}) {
        extent = 0;
        return;
    }
    position += static_cast<int>(before);
    extent -= static_cast<unsigned>(before);
    source = 0;
}

/// Cuts away what lies left of or above the second surface; pixel pairs stay aligned.
/// @return whether anything is left.
inline bool CutBeforeOrigin(ClippedRect& rect) {
    CutSpanBeforeOrigin(rect.x, rect.w, rect.srcX);
    CutSpanBeforeOrigin(rect.y, rect.h, rect.srcY);
    return !rect.IsEmpty();
}

/// The non-negative remainder: where a repeating pattern of `size` (> 0) is at `position`.
inline unsigned WrapPosition(std::int64_t position, unsigned size) {
    const std::int64_t rest = position % std::int64_t{size};
    return static_cast<unsigned>(rest < 0 ? rest + std::int64_t{size} : rest);
}

}  // namespace gfx

#endif  // GFX_SURFACE_CLIP_H
