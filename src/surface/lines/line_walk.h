// What both line drawers share: the axis, the order of the endpoints and the length limit.
#ifndef GFX_SURFACE_LINES_LINE_WALK_H
#define GFX_SURFACE_LINES_LINE_WALK_H

#include <climits>
#include <cstdint>

#include "surface/limits.h"

namespace gfx {

/// A line seen along its longer axis, from the end with the smaller coordinate there. Ties, the
/// single point included, go along x.
struct LineWalk {
    bool isAlongX;
    int majorStart;
    int minorStart;
    unsigned steps;   // pixels along the major axis, less one
    unsigned extent;  // how far the minor coordinate moves over all steps, at most `steps`
    bool isRising;

    /// The signed way along the minor axis. Only for lines within the limit: others may not fit.
    int Rise() const { return isRising ? static_cast<int>(extent) : -static_cast<int>(extent); }
};

/// |b - a| for any two coordinates.
inline unsigned Extent(int a, int b) {
    const auto low = static_cast<unsigned>(a < b ? a : b);
    const auto high = static_cast<unsigned>(a < b ? b : a);
    return high - low;
}

/// A row of pixels.
struct RowSpan {
    int x;
    unsigned length;
};

/// A level line as the row of pixels that it is. Most lines that a host draws are level or upright:
/// it is looked for before anything else. Length 0: the line is not level, or one of the rare ones,
/// a single pixel, a line too long or at the end of the coordinates, that the general way serves.
inline RowSpan LevelRow(int x0, int y0, int x1, int y1, unsigned limit) {
    const unsigned steps = Extent(x0, x1);
    const int left = x0 < x1 ? x0 : x1;
    const int right = x0 < x1 ? x1 : x0;
    const bool isLevel = y0 == y1 && steps != 0 && steps < limit && right != INT_MAX;
    return {left, isLevel ? steps + 1 : 0};
}

/// Which way a line runs is seldom foreseen by the processor: so all but the axis is selected, not
/// branched on.
inline LineWalk WalkOf(int x0, int y0, int x1, int y1) {
    const unsigned width = Extent(x0, x1);
    const unsigned height = Extent(y0, y1);
    const bool isAlongX = width >= height;
    const int major0 = isAlongX ? x0 : y0;
    const int major1 = isAlongX ? x1 : y1;
    const int minor0 = isAlongX ? y0 : x0;
    const int minor1 = isAlongX ? y1 : x1;
    const bool isForward = major0 <= major1;
    const int first = isForward ? minor0 : minor1;
    const int last = isForward ? minor1 : minor0;
    return {isAlongX,
            isForward ? major0 : major1,
            first,
            isAlongX ? width : height,
            isAlongX ? height : width,
            last >= first};
}

/// Refuses lines that the dots buffer cannot hold.
inline void CheckLength(const LineWalk& walk, unsigned limit) {
    if (walk.steps >= limit) throw walk.isAlongX ? kLineLimitX : kLineLimitY;
}

}  // namespace gfx

#endif  // GFX_SURFACE_LINES_LINE_WALK_H
