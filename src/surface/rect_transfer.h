// What RectCopy, RectBlend and RectBlendAlpha share: which pixels of the source go where, in which
// order the rows run, and the way through the scratch row of colour words, which every pair of
// formats can take.
#ifndef GFX_SURFACE_RECT_TRANSFER_H
#define GFX_SURFACE_RECT_TRANSFER_H

#include <gfx/surface.h>

#include "surface/clip.h"
#include "surface/opacity.h"
#include "surface/rows/row_dispatch.h"

namespace gfx {

/// What happens to colour words on their way into the target: one kernel of its format, with or
/// without an argument (a key, a scale).
class WriteStep {
public:
    using Plain = unsigned (*)(PixelRows to, PixelRows words, unsigned w, unsigned h);
    using Keyed = unsigned (*)(PixelRows to, PixelRows words, unsigned w, unsigned h,
                               std::uint32_t value);

    explicit WriteStep(Plain kernel) : plain_(kernel), isKeyed_(false) {}
    WriteStep(Keyed kernel, std::uint32_t value) : keyed_(kernel), value_(value), isKeyed_(true) {}

    unsigned operator()(PixelRows to, PixelRows words, unsigned w, unsigned h) const {
        return isKeyed_ ? keyed_(to, words, w, h, value_) : plain_(to, words, w, h);
    }

private:
    Plain plain_ = nullptr;
    Keyed keyed_ = nullptr;
    std::uint32_t value_ = 0;
    bool isKeyed_;
};

}  // namespace gfx

struct GfxSurface::Transfer {
    GfxSurface& to;
    const GfxSurface& from;
    gfx::ClippedRect rect;
    bool wraps = false;

    /// Clips to the target's clip rectangle, and to the source or into its tile.
    /// @return whether anything is left.
    bool Frame(bool tile);

    gfx::PixelFormat TargetFormat() const {
        return gfx::FormatOf(to.depth, to.pixelShift, to.lines);
    }
    gfx::PixelFormat SourceFormat() const {
        return gfx::FormatOf(from.depth, from.pixelShift, from.lines);
    }

    /// A copy within one surface whose target lies below its source, over it: bottom up.
    bool RunsUpwards() const {
        return !wraps && &from == &to && rect.srcY < rect.y && rect.y < rect.srcY + rect.h;
    }

    gfx::PixelRows Target(unsigned row = 0) const {
        return {to.lines + rect.y + row, static_cast<std::size_t>(rect.x)};
    }
    gfx::PixelRows Source() const {
        return {from.lines + rect.srcY, static_cast<std::size_t>(rect.srcX)};
    }

    /// Runs the step on rows of colour words: in place where the source holds such words, and
    /// otherwise, or where the two share memory, through the scratch row.
    void WriteWords(const gfx::WriteStep& step) const;

    /// The way that serves every pair: each row is read whole into the scratch row, then written.
    /// The first `done` rows are left out. The words' opaque share is scaled before they are
    /// written.
    void ThroughScratchRow(const gfx::WriteStep& step, unsigned done = 0,
                           std::uint32_t opacity = gfx::kUnitOpacity) const;

    /// Copies within one format around the source's edges, by repeating what is drawn already;
    /// needs surfaces that are apart.
    void CopyTiles(const gfx::FormatKernels& kernels) const;

    /// Whether no two rows of target and source share memory. Surfaces whose rows do not follow
    /// each other in their own pixel memory, as those of a derived one may, count as not apart.
    bool AreApart() const;
};

// Inline, because small rectangles feel a call.
inline bool GfxSurface::Transfer::Frame(bool tile) {
    if (!ClipRectToBounds(rect, {to.clipX0, to.clipY0, to.clipX1, to.clipY1})) return false;
    if (!tile) return CutBeforeOrigin(rect) && ClipToSurfaceSize(rect, from.dx, from.dy);
    if (from.dx == 0 || from.dy == 0) return false;
    rect.srcX = gfx::WrapPosition(rect.srcX, from.dx);
    rect.srcY = gfx::WrapPosition(rect.srcY, from.dy);
    wraps = rect.srcX + rect.w > from.dx || rect.srcY + rect.h > from.dy;
    return true;
}

#endif  // GFX_SURFACE_RECT_TRANSFER_H
