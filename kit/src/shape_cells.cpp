// Coverage: what a piece of an edge inside one row adds to the cells, and their sums along rows.
#include <algorithm>
#include <bit>
#include <cstring>

#include "shape_raster.h"

namespace gfx::kit {
namespace {

constexpr std::uint32_t kFull = 1U << 17;  // a whole pixel: 256 rows of twice 256

/// Transparency of a pixel by the sum of its signed areas.
template <bool kFold>
std::uint8_t Transparency(std::uint32_t sum) {
    std::uint32_t covered;
    if constexpr (kFold) {
        covered = sum & (2 * kFull - 1);
        if (covered > kFull) covered = 2 * kFull - covered;
    } else {
        covered = std::min((sum >> 31) != 0 ? 0 - sum : sum, kFull);
    }
    return static_cast<std::uint8_t>(255 - ((255 * covered + (kFull >> 1)) >> 17));
}

/// Writes one transparency into the columns from begin to end, exclusive, and notes its kind.
inline void PutRun(std::uint8_t* mask, std::uint8_t* kinds, int begin, int end, std::uint8_t m) {
    const auto kind = static_cast<std::uint8_t>(m == 255 ? kHasEmpty
                                                : m == 0 ? kHasFull
                                                         : kHasPartial);
    if (end - begin == 1) {
        mask[begin] = m;
        kinds[begin / kBlockColumns] |= kind;
    } else if (end > begin) {
        std::memset(mask + begin, m, static_cast<std::size_t>(end - begin));
        const int last = (end - 1) / kBlockColumns;
        for (int block = begin / kBlockColumns; block <= last; ++block)
            kinds[block] |= kind;
    }
}

}  // namespace

/// To the right of an edge all of its height is covered, in its own column as much of it as lies to
/// its right. `area` is twice what lies to its left.
inline void Raster::AddToCell(int row, int column, std::int32_t full, std::int32_t area) {
    std::uint32_t* const cells = cells_.Data() + static_cast<std::size_t>(row) * cellPitch_;
    std::uint64_t* const bits = touched_.Data() + static_cast<std::size_t>(row) * bitPitch_;
    const auto c = static_cast<unsigned>(column);
    cells[c] += static_cast<std::uint32_t>(full - area);
    cells[c + 1] += static_cast<std::uint32_t>(area);
    bits[c / 64] |= std::uint64_t{1} << (c & 63);
    bits[(c + 1) / 64] |= std::uint64_t{1} << ((c + 1) & 63);
}

/// A piece of an edge inside one row, from x0 to x1 and `height` high.
void Raster::AddPiece(int row, std::int32_t x0, std::int32_t x1, std::int32_t height,
                      std::int32_t sign) {
    const int width = Width();
    const std::int32_t column = x0 >> 8;
    const std::int32_t signedHeight = sign * height;
    if (column == x1 >> 8 && column >= 0) {
        if (column >= width) return;
        AddToCell(row, column, 512 * signedHeight, signedHeight * ((x0 & 255) + (x1 & 255)));
    } else if (x0 <= 0 && x1 <= 0) {
        AddToCell(row, 0, 512 * signedHeight, 0);
    } else if (x0 <= x1) {
        AddWidePiece(row, x0, x1, height, sign);
    } else {
        AddWidePiece(row, x1, x0, height, sign);
    }
}

/// A piece through several columns, x0 < x1. Up to x it is floor(((x - x0) height + dx / 2) / dx)
/// high; whether it rises or falls makes no difference to the areas.
void Raster::AddWidePiece(int row, std::int32_t x0, std::int32_t x1, std::int32_t height,
                          std::int32_t sign) {
    const int width = Width();
    const std::int32_t dx = x1 - x0;
    const auto heightUpTo = [=](std::int32_t x) {
        return static_cast<std::int32_t>((std::int64_t{x - x0} * height + dx / 2) / dx);
    };
    std::int32_t x = x0;
    std::int32_t done = 0;
    if (x0 < 0) {
        done = heightUpTo(0);
        x = 0;
        AddToCell(row, 0, 512 * sign * done, 0);
    }
    int column = x >> 8;
    if (column >= width) return;
    std::int32_t border = (column + 1) * 256;
    std::int32_t up = 0, rest = 0, step = 0, stepRest = 0;
    if (dx > 0 && border < x1) {
        const std::int32_t way = (border - x) * height;  // at most 2^16
        const std::int64_t start = x0 < 0 ? std::int64_t{border - x0} * height : way;
        up = static_cast<std::int32_t>((start + dx / 2) / dx);
        rest = static_cast<std::int32_t>((start + dx / 2) % dx);
        if (border + 256 < x1) {
            step = 256 * height / dx;
            stepRest = 256 * height % dx;
        }
    }
    while (border < x1) {
        const std::int32_t h = sign * (up - done);
        AddToCell(row, column, 512 * h, h * ((x & 255) + 256));
        done = up;
        x = border;
        border += 256;
        if (++column >= width) return;
        up += step;
        rest += stepRest;
        if (rest >= dx) {
            rest -= dx;
            ++up;
        }
    }
    const std::int32_t h = sign * (height - done);
    AddToCell(row, column, 512 * h, h * ((x & 255) + x1 - (border - 256)));
}

template <bool kFold>
void Raster::SumRow(int row, std::uint8_t* mask, std::uint8_t* kinds) {
    std::uint32_t* const cells = cells_.Data() + static_cast<std::size_t>(row) * cellPitch_;
    std::uint64_t* const bits = touched_.Data() + static_cast<std::size_t>(row) * bitPitch_;
    std::uint32_t sum = 0;
    int done = 0;
    std::uint8_t m = 255;
    for (std::size_t word = 0; word < bitPitch_; ++word) {
        std::uint64_t left = bits[word];
        bits[word] = 0;
        for (; left != 0; left &= left - 1) {
            const int column = static_cast<int>(word) * 64 + std::countr_zero(left);
            PutRun(mask, kinds, done, column, m);
            sum += cells[column];
            cells[column] = 0;
            m = Transparency<kFold>(sum);
            done = column;
        }
    }
    PutRun(mask, kinds, done, Width(), m);
}

/// Follows the band's edges through it and hands on those that reach further.
void Raster::DrawEdges(int top, int bottom) {
    for (std::uint32_t at = heads_[static_cast<std::size_t>(nextBand_)]; at != 0;) {
        Edge& edge = edges_[at - 1];
        const std::uint32_t next = edge.next;
        DrawEdge(edge, top, bottom);
        if (edge.y < edge.y1 && bottom < bounds_.bottom) {
            std::uint32_t& later = heads_[static_cast<std::size_t>(nextBand_) + 1];
            edge.next = later;
            later = at;
        }
        at = next;
    }
}

/// Draws upright edges into the band's first row alone and moves them below the band.
void Raster::AddFirstRow(int bottom) {
    for (std::uint32_t at = heads_[static_cast<std::size_t>(nextBand_)]; at != 0;) {
        Edge& edge = edges_[at - 1];
        AddPiece(0, edge.x, edge.x, Fixed::kOne, edge.sign);
        edge.y = bottom * Fixed::kOne;
        at = edge.next;
    }
}

/// Whether only upright edges run through the band, each from its top to its bottom.
bool Raster::HasEqualRows(int top, int bottom) const {
    for (std::uint32_t at = heads_[static_cast<std::size_t>(nextBand_)]; at != 0;) {
        const Edge& edge = edges_[at - 1];
        if (edge.x != edge.x1 || edge.y > top * Fixed::kOne || edge.y1 < bottom * Fixed::kOne)
            return false;
        at = edge.next;
    }
    return true;
}

bool Raster::NextBand(FillRule rule, std::uint8_t* mask, int pitch, Band& band) {
    const int top = bounds_.top + nextBand_ * kBandRows;
    if (top >= bounds_.bottom) return false;
    const int rows = std::min(kBandRows, bounds_.bottom - top);
    const bool isRepeated = HasEqualRows(top, top + rows);
    if (isRepeated) AddFirstRow(top + rows);
    DrawEdges(top, top + rows);
    std::fill_n(kinds_.Data(), (Width() + kBlockColumns - 1) / kBlockColumns, std::uint8_t{0});
    for (int row = 0; row < (isRepeated ? 1 : rows); ++row) {
        std::uint8_t* const line = mask + static_cast<std::ptrdiff_t>(row) * pitch;
        if (rule == FillRule::kEvenOdd) {
            SumRow<true>(row, line, kinds_.Data());
        } else {
            SumRow<false>(row, line, kinds_.Data());
        }
    }
    for (int row = 1; isRepeated && row < rows; ++row)
        std::memcpy(mask + static_cast<std::ptrdiff_t>(row) * pitch, mask,
                    static_cast<std::size_t>(Width()));
    band = {bounds_.left, top, Width(), rows, kinds_.Data(), mask, pitch};
    ++nextBand_;
    return true;
}

}  // namespace gfx::kit
