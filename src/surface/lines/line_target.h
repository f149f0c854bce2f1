// What a line is drawn on: rows, format and clip rectangle, as values. Finds the visible stretch of
// a line and walks it; what is plotted at each step is the drawers' own.
#ifndef GFX_SURFACE_LINES_LINE_TARGET_H
#define GFX_SURFACE_LINES_LINE_TARGET_H

#include <algorithm>
#include <cstdint>

#include "surface/lines/line_steps.h"
#include "surface/lines/line_walk.h"
#include "surface/surface_view.h"

namespace gfx {

struct LineTarget {
    std::uint8_t* const* lines;
    PixelFormat format;
    ClipBounds clip;

    /// Rows 4 KiB apart lie in one set of a cache of 64 sets, which keeps few of them. Going down
    /// such rows, a processor that reads many of them ahead throws lines out before they are
    /// written to and fetches them twice; the longer chain of instructions of the plain rule holds
    /// it back.
    bool hasCrowdedRows;

    explicit LineTarget(const SurfaceView& view)
        : lines(view.Rows(0, 0).lines),
          format(view.Format()),
          clip(view.Clip()),
          hasCrowdedRows(view.surface.Pitch() % 4096 == 0) {}

    Interval Major(const LineWalk& walk) const { return walk.isAlongX ? Columns() : Rows(); }
    Interval Minor(const LineWalk& walk) const { return walk.isAlongX ? Rows() : Columns(); }

private:
    Interval Columns() const { return {clip.x0, clip.x1}; }
    Interval Rows() const { return {clip.y0, clip.y1}; }
};

/// A dash pattern along a line's steps, or a solid line: null, no entries, or a first run of 0. An
/// entry of 0 is a run of no steps, but turns the phase all the same; after the last entry the
/// pattern goes on at entry 0 without a restart of the phase.
struct DashPattern {
    const unsigned short* runs;
    int count;

    bool IsSolid() const { return runs == nullptr || count == 0 || runs[0] == 0; }

    /// Calls draw(range) for each drawn stretch of a range.
    template <class Draw>
    void ForEachRun(StepRange range, Draw draw) const {
        if (range.IsEmpty()) return;
        if (IsSolid()) return draw(range);
        unsigned begin = 0;
        bool isDrawn = true;
        for (int entry = 0; begin < range.last; isDrawn = !isDrawn) {
            const unsigned end = begin + runs[entry];
            const StepRange run{std::max(begin, range.first), std::min(end, range.last)};
            if (isDrawn && !run.IsEmpty()) draw(run);
            begin = end;
            entry = entry + 1 < count ? entry + 1 : 0;
        }
    }
};

/// Calls dot(major, minor, steps) for each step of a range, up to the first for which it returns
/// false. @return the range of those that are left.
template <class Steps, class Dot>
inline StepRange WalkStepsWhile(const LineWalk& walk, Steps steps, StepRange range, Dot dot) {
    steps.MoveTo(range.first);
    int major = walk.majorStart + static_cast<int>(range.first);
    unsigned left = range.last - range.first;
    for (; left > 0 && dot(major, steps.Minor(), steps); --left) {
        steps.Advance();
        ++major;
    }
    return {range.last - left, range.last};
}

/// Calls dot(major, minor, steps) for each step of a range.
template <class Steps, class Dot>
inline void WalkSteps(const LineWalk& walk, const Steps& steps, StepRange range, Dot dot) {
    WalkStepsWhile(walk, steps, range, [=](int major, int minor, const Steps& at) {
        dot(major, minor, at);
        return true;
    });
}

}  // namespace gfx

#endif  // GFX_SURFACE_LINES_LINE_TARGET_H
