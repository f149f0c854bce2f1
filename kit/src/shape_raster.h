// Raster: turns the edges of polygons into rows of coverage, exactly and in integers.
//
// Each edge adds to the cells of the pixels it crosses, so that the running sum along a row is the
// signed area covered in each pixel, in 1/2^17 pixel. A bit for each touched cell makes the sum
// skip whatever lies between edges. It decides coverage alone and knows neither colour nor target.
#ifndef GFX_KIT_SRC_SHAPE_RASTER_H
#define GFX_KIT_SRC_SHAPE_RASTER_H

#include <gfx/kit/shapes.h>

#include <cstdint>

#include "block.h"

namespace gfx::kit {

/// A position in 1/256 pixel. Trusted to lie within kReach each way.
struct Corner {
    std::int32_t x;
    std::int32_t y;
};

inline constexpr std::int32_t kReach = 1 << 25;

/// Whole pixels: left and top inclusive, right and bottom exclusive.
struct PixelBounds {
    int left, top, right, bottom;
};

/// What a block of 16 columns holds in all rows of a band; a set of these.
enum BlockKind : std::uint8_t { kHasEmpty = 1, kHasFull = 2, kHasPartial = 4 };

inline constexpr int kBandRows = 16;
inline constexpr int kBlockColumns = 16;

/// Up to 16 rows of coverage.
struct Band {
    int x, y;                   // the first pixel
    int w, rows;                // size
    const std::uint8_t* kinds;  // BlockKind of each block, from x on
    const std::uint8_t* mask;   // 255 no ink, 0 full ink; row r begins at mask + r * pitch
    int pitch;
};

class Raster {
public:
    /// Forgets all edges; only what lies inside `clip` will be asked for.
    void Begin(PixelBounds clip);

    /// An edge of a polygon, as seen from its direction.
    void AddEdge(Corner from, Corner to);

    /// Makes room; false when nothing is inside the clip. All hooks are called before this returns.
    bool Prepare();

    /// How wide the bands are, after Prepare.
    int Width() const { return bounds_.right - bounds_.left; }

    /// Delivers the next band from the top, its mask in rows of `pitch` bytes; false at the end.
    bool NextBand(FillRule rule, std::uint8_t* mask, int pitch, Band& band);

private:
    struct Edge {
        std::int32_t x, y;    // where it is now
        std::int32_t x1, y1;  // its lower end
        std::int32_t height;  // of the whole edge
        std::int32_t sign;    // 1 downwards, -1 upwards
        std::uint32_t next;   // of the same band's list, plus 1
        std::int32_t nextX;   // where it crosses the next row border
        std::int32_t rest;    // of the division that gave nextX
        std::int32_t stepX;   // nextX from row to row
        std::int32_t stepRest;
    };

    void StartEdge(Edge& edge);
    void DrawEdge(Edge& edge, int bandTop, int bandBottom);
    void DrawEdges(int top, int bottom);
    void AddFirstRow(int bottom);
    bool HasEqualRows(int top, int bottom) const;
    void AddPiece(int row, std::int32_t x0, std::int32_t x1, std::int32_t height,
                  std::int32_t sign);
    void AddWidePiece(int row, std::int32_t x0, std::int32_t x1, std::int32_t height,
                      std::int32_t sign);
    void AddToCell(int row, int column, std::int32_t full, std::int32_t area);
    template <bool kFold>
    void SumRow(int row, std::uint8_t* mask, std::uint8_t* kinds);

    PixelBounds clip_ = {};
    PixelBounds bounds_ = {};                 // of the shape, inside the clip
    std::int32_t minX_, minY_, maxX_, maxY_;  // of all edges
    Block<Edge> edges_;
    Block<std::uint32_t> heads_;    // for each band, its first edge plus 1
    Block<std::uint32_t> cells_;    // kBandRows rows; all zero between bands
    Block<std::uint64_t> touched_;  // a bit for each cell; all zero between bands
    Block<std::uint8_t> kinds_;
    std::size_t cellPitch_ = 0;
    std::size_t bitPitch_ = 0;
    int nextBand_ = 0;
};

}  // namespace gfx::kit

#endif  // GFX_KIT_SRC_SHAPE_RASTER_H
