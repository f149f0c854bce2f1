// What RectCopy, RectBlend and RectBlendAlpha share: which pixels of the source go where, in which
// order the rows run, and the way through the scratch row of colour words, which every pair of
// formats can take.
#ifndef GFX_SURFACE_RECT_TRANSFER_H
#define GFX_SURFACE_RECT_TRANSFER_H

#include "surface/opacity.h"
#include "surface/surface_view.h"

namespace gfx {

/// What happens to colour words on their way into the target: one kernel of its format, with or
/// without an argument (a key, a scale).
struct WriteStep {
    unsigned (*plain)(PixelRows to, PixelRows words, unsigned w, unsigned h) = nullptr;
    unsigned (*withValue)(PixelRows to, PixelRows words, unsigned w, unsigned h,
                          std::uint32_t value) = nullptr;
    std::uint32_t value = 0;
    bool hasValue = false;

    unsigned operator()(PixelRows to, PixelRows words, unsigned w, unsigned h) const {
        return hasValue ? withValue(to, words, w, h, value) : plain(to, words, w, h);
    }
};

/// A copy or blend between two surfaces on its way.
struct Transfer {
    SurfaceView to;
    SurfaceView from;
    ClippedRect rect;
    bool wraps = false;

    /// Clips to the target's clip rectangle, and to the source or into its tile.
    /// @return whether anything is left.
    bool Frame(bool tile);

    bool IsDrawable() const { return to.IsDrawable() && from.IsDrawable(); }

    /// A copy within one surface whose target lies below its source, over it: bottom up.
    bool RunsUpwards() const {
        return !wraps && &from.surface == &to.surface && rect.srcY < rect.y &&
               rect.y < rect.srcY + rect.h;
    }

    PixelRows Target(unsigned row = 0) const { return to.Rows(rect.x, std::int64_t{rect.y} + row); }

    /// Runs a kernel on all rows, as one where they are one run.
    /// @return the rows done, see FormatKernels.
    template <class PairKernel, class... Value>
    unsigned Directly(const PairKernel& kernel, Value... value) const {
        const RectRows target = to.RowsOf(rect.x, rect.y);
        const RectRows source = from.RowsOf(rect.srcX, rect.srcY);
        if (!AreOneRun(target, source, rect.w, rect.h)) {
            return kernel(target.rows, source.rows, rect.w, rect.h, value...);
        }
        kernel(target.rows, source.rows, rect.w * rect.h, 1, value...);
        return rect.h;
    }

    /// Copies within one format, whatever memory the two share.
    void Copy() const;

    /// Runs the step on rows of colour words: in place where the source holds such words, and
    /// otherwise, or where the two share memory, through the scratch row.
    void WriteWords(const WriteStep& step) const;

    /// The way that serves every pair: each row is read whole into the scratch row, then written.
    /// The first `done` rows are left out. The words' opacity is scaled before they are written.
    void ThroughScratchRow(const WriteStep& step, unsigned done = 0,
                           std::uint32_t opacityScale = kUnitOpacityScale) const;

    /// Copies within one format around the source's edges, by repeating what is drawn already;
    /// needs rows that are apart.
    void CopyTiles(const FormatKernels& kernels) const;

    /// Whether runs of one format come out as their rows do.
    bool CopiesAlike(const RectRows& target, const RectRows& source, bool isUpwards) const;

    /// Whether no row of the target shares memory with another or with a row of the source. Rows
    /// that lie in another order than their own count as not apart.
    bool AreRowsApart() const;
};

// Inline, because small rectangles feel a call.

inline void Transfer::Copy() const {
    const RectRows target = to.RowsOf(rect.x, rect.y);
    const RectRows source = from.RowsOf(rect.srcX, rect.srcY);
    const bool isUpwards = RunsUpwards();
    const auto copy = Kernels()[to.Format()].copy;
    if (!IsOneRun(target, rect.w, rect.h) || !IsOneRun(source, rect.w, rect.h) ||
        !CopiesAlike(target, source, isUpwards)) {
        return copy(target.rows, source.rows, rect.w, rect.h, isUpwards);
    }
    copy(target.rows, source.rows, rect.w * rect.h, 1, false);
}

// One run comes out as its rows do where it is apart from the other one, or where each byte is
// still read before it is written.
inline bool Transfer::CopiesAlike(const RectRows& target, const RectRows& source,
                                  bool isUpwards) const {
    return AreRunsApart(target, source, std::size_t{rect.w} * rect.h) ||
           (isUpwards ? target.Start() >= source.Start() : target.Start() <= source.Start());
}

inline bool Transfer::Frame(bool tile) {
    if (!ClipRectToBounds(rect, to.Clip())) return false;
    const unsigned width = from.surface.DX();
    const unsigned height = from.surface.DY();
    if (!tile) return CutBeforeOrigin(rect) && ClipToSurfaceSize(rect, width, height);
    if (width == 0 || height == 0) return false;
    rect.srcX = WrapPosition(rect.srcX, width);
    rect.srcY = WrapPosition(rect.srcY, height);
    wraps = rect.srcX + rect.w > width || rect.srcY + rect.h > height;
    return true;
}

}  // namespace gfx

#endif  // GFX_SURFACE_RECT_TRANSFER_H
