// Edges: collected, sorted into bands, followed from row to row.
#include "shape_raster.h"

#include <algorithm>
#include <limits>

namespace gfx::kit {
namespace {

struct Division {
    std::int32_t quotient;
    std::int32_t rest;
};

/// Rounds down; divisor > 0. Most operands fit 32 bits, where dividing is several times faster.
Division FloorDivide(std::int64_t value, std::int32_t divisor) {
    std::int64_t quotient, rest;
    if (value == static_cast<std::int32_t>(value)) {
        quotient = static_cast<std::int32_t>(value) / divisor;
        rest = static_cast<std::int32_t>(value) % divisor;
    } else {
        quotient = value / divisor;
        rest = value % divisor;
    }
    if (rest < 0) {
        --quotient;
        rest += divisor;
    }
    return {static_cast<std::int32_t>(quotient), static_cast<std::int32_t>(rest)};
}

constexpr int PixelOf(std::int32_t units) { return units >> 8; }
constexpr int PixelAbove(std::int32_t units) { return (units + 255) >> 8; }

}  // namespace

void Raster::Begin(PixelBounds clip) {
    // Nothing beyond the reach of corners is ever crossed; so limited, units fit 32 bits.
    const int far = kReach / Fixed::kOne + 1;
    clip_ = {std::max(clip.left, -far), std::max(clip.top, -far), std::min(clip.right, far),
             std::min(clip.bottom, far)};
    edges_.Clear();
    minX_ = minY_ = std::numeric_limits<std::int32_t>::max();
    maxX_ = maxY_ = std::numeric_limits<std::int32_t>::min();
}

void Raster::AddEdge(Corner from, Corner to) {
    if (from.y == to.y) return;
    const bool down = from.y < to.y;
    const Corner top = down ? from : to;
    const Corner low = down ? to : from;
    if (PixelAbove(low.y) <= clip_.top || PixelOf(top.y) >= clip_.bottom) return;
    minX_ = std::min({minX_, top.x, low.x});
    maxX_ = std::max({maxX_, top.x, low.x});
    minY_ = std::min(minY_, top.y);
    maxY_ = std::max(maxY_, low.y);
    if (PixelOf(std::min(top.x, low.x)) >= clip_.right) return;  // covers nothing inside
    edges_.Append({top.x, top.y, low.x, low.y, low.y - top.y, down ? 1 : -1, 0, 0, 0, 0, 0});
}

bool Raster::Prepare() {
    if (edges_.Count() == 0) return false;
    bounds_ = {std::max(clip_.left, PixelOf(minX_)), std::max(clip_.top, PixelOf(minY_)),
               std::min(clip_.right, PixelAbove(maxX_)), std::min(clip_.bottom, PixelAbove(maxY_))};
    if (bounds_.left >= bounds_.right || bounds_.top >= bounds_.bottom) return false;

    const auto width = static_cast<std::size_t>(Width());
    const auto height = static_cast<std::size_t>(bounds_.bottom - bounds_.top);
    const std::size_t bands = (height + kBandRows - 1) / kBandRows;
    cellPitch_ = width + 1;  // one more for what an edge in the last column adds behind it
    bitPitch_ = cellPitch_ / 64 + 1;
    cells_.ReserveZeroed(cellPitch_ * kBandRows);
    touched_.ReserveZeroed(bitPitch_ * kBandRows);
    kinds_.Reserve(width / kBlockColumns + 1);
    heads_.Reserve(bands);
    std::fill_n(heads_.Data(), bands, 0U);
    for (std::size_t i = 0; i < edges_.Count(); ++i) {
        Edge& edge = edges_[i];
        StartEdge(edge);
        const int band = (PixelOf(edge.y) - bounds_.top) / kBandRows;
        edge.next = heads_[static_cast<std::size_t>(band)];
        heads_[static_cast<std::size_t>(band)] = static_cast<std::uint32_t>(i) + 1;
    }
    nextBand_ = 0;
    return true;
}

/// Moves an edge to the first row inside and prepares its way down. At height y it is at
/// x + floor(((y - y0) dx + dy / 2) / dy), whichever way it is followed.
void Raster::StartEdge(Edge& edge) {
    const std::int32_t left = bounds_.left * Fixed::kOne;
    const std::int32_t dx = edge.x1 - edge.x;
    const std::int32_t dy = edge.y1 - edge.y;
    const std::int32_t x0 = edge.x - left;
    const std::int32_t y0 = edge.y;
    const auto crossing = [&](std::int32_t y) {
        const std::int64_t way = static_cast<std::int64_t>(y - y0) * dx + dy / 2;
        Division at = dx == 0 ? Division{0, dy / 2} : FloorDivide(way, dy);
        at.quotient += x0;
        return at;
    };
    edge.x = x0;
    edge.x1 -= left;
    const std::int32_t top = bounds_.top * Fixed::kOne;
    if (edge.y < top) {
        edge.y = top;
        edge.x = crossing(top).quotient;
    }
    const std::int32_t border = (PixelOf(edge.y) + 1) * Fixed::kOne;
    if (border >= edge.y1) return;
    const Division at = crossing(border);
    edge.nextX = at.quotient;
    edge.rest = at.rest;
    if (border + Fixed::kOne >= edge.y1) return;  // no second crossing, whose step could be too far
    const Division step = dx == 0 ? Division{0, 0} : FloorDivide(std::int64_t{dx} * 256, dy);
    edge.stepX = step.quotient;
    edge.stepRest = step.rest;
}

void Raster::DrawEdge(Edge& edge, int bandTop, int bandBottom) {
    int row = PixelOf(edge.y);
    while (row < bandBottom && edge.y < edge.y1) {
        const std::int32_t border = (row + 1) * Fixed::kOne;
        const bool last = border >= edge.y1;
        const std::int32_t y = last ? edge.y1 : border;
        const std::int32_t x = last ? edge.x1 : edge.nextX;
        AddPiece(row - bandTop, edge.x, x, y - edge.y, edge.sign);
        edge.x = x;
        edge.y = y;
        edge.nextX += edge.stepX;
        edge.rest += edge.stepRest;
        if (edge.rest >= edge.height) {
            edge.rest -= edge.height;
            ++edge.nextX;
        }
        ++row;
    }
}

}  // namespace gfx::kit
