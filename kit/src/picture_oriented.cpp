// Turned and mirrored pictures.
#include "picture_rows.h"

namespace gfx::kit {
namespace {

/// Target rows that are made at once where rows become columns: as many words as a cache line
/// holds.
constexpr unsigned kRowsAtOnce = 16;

/// How an orientation reads the source: whether target rows are source columns, and which of the
/// source's directions run backwards along the target's rows and columns.
struct Way {
    bool areSwapped, isRowBackwards, isColumnBackwards;
};

Way WayOf(Orientation orientation) {
    switch (orientation) {
        case Orientation::kQuarter:
            return {true, true, false};
        case Orientation::kHalf:
            return {false, true, true};
        case Orientation::kThreeQuarters:
            return {true, false, true};
        case Orientation::kMirrored:
            return {false, true, false};
        case Orientation::kMirroredQuarter:
            return {true, true, true};
        case Orientation::kMirroredHalf:
            return {false, false, true};
        case Orientation::kMirroredThreeQuarters:
            return {true, false, false};
        case Orientation::kUpright:
            break;
    }
    return {false, false, false};
}

struct Job {
    GfxSurface& target;
    PictureRect to;
    const GfxSurface& source;
    PictureRect from;
    Writing writing;
    VisiblePart visible;
    Way way;
};

/// Position i of `size` in the source's own direction.
int Place(std::int64_t i, int size, bool isBackwards) {
    return static_cast<int>(isBackwards ? size - 1 - i : i);
}

void DrawRows(const Job& job) {
    const PictureRange columns = job.visible.columns;
    const unsigned n = columns.Size();
    WordRow row(n);
    if (!row.IsMade()) return;
    const std::int64_t start = job.way.isRowBackwards ? job.from.w - columns.last : columns.first;
    for (std::int64_t j = job.visible.rows.first; j < job.visible.rows.last; ++j) {
        const int y = Place(j, job.from.h, job.way.isColumnBackwards);
        row.Read(job.source, job.from.x + static_cast<int>(start), job.from.y + y, n);
        if (job.way.isRowBackwards) std::reverse(row.Words(), row.Words() + n);
        row.Write(job.target, job.to.x + columns.first, job.to.y + j, job.writing);
    }
}

void DrawColumns(const Job& job) {
    const PictureRange columns = job.visible.columns;
    const unsigned n = columns.Size();
    WordRow piece(kRowsAtOnce);
    Surface rows(n, kRowsAtOnce, 32);
    if (!piece.IsMade() || !rows) return;
    std::uint32_t* made[kRowsAtOnce];
    for (unsigned k = 0; k < kRowsAtOnce; ++k)
        made[k] = static_cast<std::uint32_t*>(rows->Line(static_cast<int>(k)));
    const std::uint32_t* const words = piece.Words();
    for (std::int64_t j = job.visible.rows.first; j < job.visible.rows.last; j += kRowsAtOnce) {
        const unsigned count =
            static_cast<unsigned>(std::min<std::int64_t>(kRowsAtOnce, job.visible.rows.last - j));
        // Source columns of these rows, from the lowest on.
        const bool isBackwards = job.way.isColumnBackwards;
        const int x = Place(isBackwards ? j + count - 1 : j, job.from.w, isBackwards);
        for (unsigned i = 0; i < n; ++i) {
            const int y = Place(columns.first + i, job.from.h, job.way.isRowBackwards);
            piece.Read(job.source, job.from.x + x, job.from.y + y, count);
            for (unsigned k = 0; k < count; ++k)
                made[isBackwards ? count - 1 - k : k][i] = words[k];
        }
        const int left = static_cast<int>(job.to.x + columns.first);
        const int top = static_cast<int>(job.to.y + j);
        if (job.writing == Writing::kBlend) {
            job.target.RectBlend(left, top, n, count, 0, 0, rows.Get(), false);
        } else {
            job.target.RectCopy(left, top, n, count, 0, 0, rows.Get(), false);
        }
    }
}

}  // namespace

void DrawOriented(GfxSurface& target, int x, int y, const GfxSurface& source, PictureRect from,
                  Orientation orientation, Writing writing) {
    if (!LiesInside(source, from)) return;
    const Way way = WayOf(orientation);
    const PictureRect to =
        way.areSwapped ? PictureRect{x, y, from.h, from.w} : PictureRect{x, y, from.w, from.h};
    const Job job{target, to, source, from, writing, VisiblePart(target, to), way};
    if (job.visible.IsEmpty()) return;
    way.areSwapped ? DrawColumns(job) : DrawRows(job);
}

}  // namespace gfx::kit
