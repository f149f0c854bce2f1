// What all pictures are drawn by: rows of colour words read from a source and written to a target
// by the engine itself, and the part of the target that is visible.
#ifndef GFX_KIT_SRC_PICTURE_ROWS_H
#define GFX_KIT_SRC_PICTURE_ROWS_H

#include <gfx/kit/owning.h>
#include <gfx/kit/pictures.h>

#include <algorithm>
#include <cstdint>

namespace gfx::kit {

/// Positions from `first` to `last`, the latter not included, counted from a rectangle's edge.
struct PictureRange {
    std::int64_t first, last;

    unsigned Size() const { return static_cast<unsigned>(last - first); }
};

/// What of a target's rectangle is visible.
struct VisiblePart {
    PictureRange columns{}, rows{};

    VisiblePart(const GfxSurface& target, const PictureRect& to) {
        int x = 0;
        int y = 0;
        unsigned w = 0;
        unsigned h = 0;
        target.GetClipRect(x, y, w, h);
        columns = Common(to.x, to.w, x, w);
        rows = Common(to.y, to.h, y, h);
    }

    bool IsEmpty() const { return columns.last <= columns.first || rows.last <= rows.first; }

private:
    static PictureRange Common(std::int64_t start, std::int64_t size, std::int64_t clip,
                               unsigned clipSize) {
        return {std::max<std::int64_t>(clip - start, 0), std::min(clip + clipSize - start, size)};
    }
};

/// Whether a source has those pixels. Depths 0 and 1 and surfaces without memory have none that are
/// drawn.
inline bool LiesInside(const GfxSurface& source, const PictureRect& from) {
    return source.Depth() >= 2 && from.x >= 0 && from.y >= 0 && from.w > 0 && from.h > 0 &&
           std::int64_t{from.x} + from.w <= std::int64_t{source.DX()} &&
           std::int64_t{from.y} + from.h <= std::int64_t{source.DY()} &&
           source.Line(from.y) != nullptr;
}

/// A row of colour words that the engine reads pixels into and writes pixels from.
class WordRow {
public:
    explicit WordRow(unsigned width) : surface_(width, 1, 32), width_(width) {}

    /// Whether its memory is there; it is not where the hook delivered null for the surface.
    bool IsMade() const { return static_cast<bool>(surface_); }

    std::uint32_t* Words() const { return static_cast<std::uint32_t*>(surface_->Line(0)); }

    /// Reads pixels of a source, from (x, y) on.
    void Read(const GfxSurface& source, int x, int y, unsigned n) {
        surface_->RectCopy(0, 0, n, 1, x, y, &source, false);
    }

    /// Writes words from `first` on to the target's row y, from column x on.
    void Write(GfxSurface& target, std::int64_t x, std::int64_t y, Writing writing, unsigned first,
               unsigned n) const {
        const int column = static_cast<int>(x);
        const int row = static_cast<int>(y);
        const int word = static_cast<int>(first);
        if (writing == Writing::kBlend) {
            target.RectBlend(column, row, n, 1, word, 0, surface_.Get(), false);
        } else {
            target.RectCopy(column, row, n, 1, word, 0, surface_.Get(), false);
        }
    }
    void Write(GfxSurface& target, std::int64_t x, std::int64_t y, Writing writing) const {
        Write(target, x, y, writing, 0, width_);
    }

private:
    Surface surface_;
    unsigned width_;
};

}  // namespace gfx::kit

#endif  // GFX_KIT_SRC_PICTURE_ROWS_H
