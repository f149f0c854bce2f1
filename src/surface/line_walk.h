// What both line drawers share: the axis, the order of the endpoints, the length limit and the
// phase of a dash pattern.
#ifndef GFX_SURFACE_LINE_WALK_H
#define GFX_SURFACE_LINE_WALK_H

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

inline LineWalk WalkOf(int x0, int y0, int x1, int y1) {
    const unsigned width = Extent(x0, x1);
    const unsigned height = Extent(y0, y1);
    if (width >= height) {
        return x0 <= x1 ? LineWalk{true, x0, y0, width, height, y1 >= y0}
                        : LineWalk{true, x1, y1, width, height, y0 >= y1};
    }
    return y0 <= y1 ? LineWalk{false, y0, x0, height, width, x1 >= x0}
                    : LineWalk{false, y1, x1, height, width, x0 >= x1};
}

/// Refuses lines that the dots buffer cannot hold.
inline void CheckLength(const LineWalk& walk, unsigned limit) {
    if (walk.steps >= limit) throw walk.isAlongX ? kLineLimitX : kLineLimitY;
}

/// The phase of a dash pattern along a line's dots. An entry of 0 is passed over but turns the
/// phase all the same, and so does the wrap from the last entry to entry 0.
class DashPhase {
public:
    /// A pattern that draws every dot: null, no entries, or a first run of 0.
    static bool IsSolid(const unsigned short* pattern, int count) {
        return pattern == nullptr || count == 0 || pattern[0] == 0;
    }

    DashPhase(const unsigned short* pattern, int count)
        : pattern_(pattern), count_(count), run_(pattern[0]) {}

    /// Whether the next dot is drawn. Entry 0 is not 0, so the loop ends.
    bool IsNextDrawn() {
        while (run_ == 0) {
            if (next_ >= count_) next_ = 0;
            run_ = pattern_[next_];
            ++next_;
            isOn_ = !isOn_;
        }
        --run_;
        return isOn_;
    }

private:
    const unsigned short* pattern_;
    int count_;
    int next_ = 1;
    unsigned short run_;
    bool isOn_ = true;
};

}  // namespace gfx

#endif  // GFX_SURFACE_LINE_WALK_H
