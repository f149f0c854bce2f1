// The cheapest loop over the same bytes, row by row: what the memory and one pass over it cost,
// whatever the arithmetic. Fills are memset, copies memcpy, conversions narrow or widen without
// rounding, blends read and write by xor, lines are unclipped integer steps, cold text is the font
// engine alone. Built for the processor at hand.
#include <cstdlib>
#include <cstring>

#include "limit.h"

namespace bench {

namespace {

/// Calls `draw(target row, source row, width)` for each row of each rectangle. Small sides are
/// constants, as they would be in the tightest loop for them.
template <typename To, typename From, int kSide, typename Draw>
Work ForRowsOfSide(const Image& to, const Image& from, const std::vector<Spot>& spots, Draw draw) {
    return [to, from, &spots, draw] {
        for (const Spot& spot : spots) {
            const int width = kSide != 0 ? kSide : spot.width;
            const int height = kSide != 0 ? kSide : spot.height;
            std::uint8_t* toRow = to.At(spot.x, spot.y);
            const std::uint8_t* fromRow = from.At(spot.sourceX, spot.sourceY);
            for (int y = 0; y < height; ++y, toRow += to.pitch, fromRow += from.pitch) {
                draw(reinterpret_cast<To*>(toRow), reinterpret_cast<const From*>(fromRow), width);
            }
        }
    };
}

template <typename To, typename From, typename Draw>
Work ForRows(const Image& to, const Image& from, const std::vector<Spot>& spots, Draw draw) {
    const int side = spots.front().width;
    if (side == 1) return ForRowsOfSide<To, From, 1>(to, from, spots, draw);
    if (side == 16) return ForRowsOfSide<To, From, 16>(to, from, spots, draw);
    return ForRowsOfSide<To, From, 0>(to, from, spots, draw);
}

Work MakeFill(Scene& scene, const Row& row) {
    const Image target = scene.Target(row);
    return ForFormat(row.target, [&](auto pixel) {
        using To = decltype(pixel);
        const auto& spots = scene.Spots(row);
        if (row.operation == Operation::kBlend) {
            return ForRows<To, To>(target, target, spots,
                                   [](To* to, const To*, int width) { XorColor(to, width); });
        }
        return ForRows<To, To>(target, target, spots, [](To* to, const To*, int width) {
            std::memset(to, 0x55, sizeof(To) * static_cast<unsigned>(width));
        });
    });
}

Work MakeMask(Scene& scene, const Row& row) {
    return ForFormat(row.target, [&](auto pixel) {
        using To = decltype(pixel);
        return ForRows<To, std::uint8_t>(scene.Target(row), scene.Mask(row, MaskForm::kCoverage),
                                         scene.Spots(row), XorRow());
    });
}

Work MakeCopy(Scene& scene, const Row& row) {
    return ForFormat(row.target, [&](auto pixel) {
        using To = decltype(pixel);
        return ForRows<To, To>(scene.Target(row), scene.Source(row, AlphaForm::kOpaque),
                               scene.Spots(row), [](To* to, const To* from, int width) {
                                   std::memcpy(to, from, sizeof(To) * static_cast<unsigned>(width));
                               });
    });
}

/// Conversions and `over`: both read one format and write another, `over` reads the target too.
Work MakeTransfer(Scene& scene, const Row& row) {
    const Image target = scene.Target(row);
    const Image source = scene.Source(row, AlphaForm::kStraight);
    const bool over = row.operation == Operation::kOver;
    return ForFormat(row.target, [&](auto toPixel) {
        return ForFormat(row.source, [&](auto fromPixel) {
            using To = decltype(toPixel);
            using From = decltype(fromPixel);
            const auto& spots = scene.Spots(row);
            return over ? ForRows<To, From>(target, source, spots, XorRow())
                        : ForRows<To, From>(target, source, spots, ConvertRow());
        });
    });
}

Work MakeTile(Scene& scene, const Row& row) {
    const Image to = scene.Target(row);
    const Image from = scene.Source(row, AlphaForm::kOpaque);
    return [to, from] {
        const auto bytes = static_cast<std::size_t>(from.pitch);
        for (int y = 0; y < to.height; ++y) {
            const std::uint8_t* const tile = from.At(0, y % from.height);
            std::uint8_t* const line = to.At(0, y);
            for (std::size_t x = 0; x < static_cast<std::size_t>(to.pitch); x += bytes) {
                std::memcpy(line + x, tile, bytes);
            }
        }
    };
}

/// Steps of whole pixels: `dot(pixel)` for each, `major` and `minor` in pixels of memory.
template <typename T, typename Dot>
void Walk(T* at, int steps, int rise, std::ptrdiff_t major, std::ptrdiff_t minor, Dot dot) {
    int error = steps / 2;
    for (int i = 0; i <= steps; ++i) {
        dot(at);
        at += major;
        error -= rise;
        if (error < 0) {
            error += steps;
            at += minor;
        }
    }
}

template <typename T, typename Dot>
Work WalkLines(const Image& to, const std::vector<Segment>& lines, Dot dot) {
    return [to, &lines, dot] {
        const std::ptrdiff_t pitch = to.pitch / static_cast<int>(sizeof(T));
        for (const Segment& line : lines) {
            const int dx = std::abs(line.x1 - line.x0), dy = std::abs(line.y1 - line.y0);
            const std::ptrdiff_t across = line.x1 < line.x0 ? -1 : 1;
            const std::ptrdiff_t down = line.y1 < line.y0 ? -pitch : pitch;
            T* const start = Pixels<T>(to, line.x0, line.y0);
            const auto step = [&](T* at, std::ptrdiff_t minor) { dot(at, minor); };
            if (dx >= dy) {
                Walk(start, dx, dy, across, down, [&](T* at) { step(at, down); });
            } else {
                Walk(start, dy, dx, down, across, [&](T* at) { step(at, across); });
            }
        }
    };
}

/// Horizontal lines are rows: stored at once, or xored when translucent.
template <typename T>
Work HorizontalLines(const Image& to, const std::vector<Segment>& lines, bool half) {
    return [to, &lines, half] {
        for (const Segment& line : lines) {
            T* const row = Pixels<T>(to, line.x0, line.y0);
            const int width = line.x1 - line.x0 + 1;
            if (half) {
                XorColor(row, width);
            } else {
                std::memset(row, 0x55, sizeof(T) * static_cast<unsigned>(width));
            }
        }
    };
}

/// Opaque aliased dots are stored, translucent ones xored; anti-aliased lines xor two neighbours.
/// Vertical anti-aliased lines meet their pixels exactly, so they count as aliased.
Work MakeLines(Scene& scene, const Row& row) {
    if (row.dash) return {};
    const Image to = scene.Target(row);
    const std::vector<Segment>& lines = scene.Segments(row);
    return ForFormat(row.target, [&](auto pixel) -> Work {
        using T = decltype(pixel);
        const auto turn = [](T* at) { *at = static_cast<T>(*at ^ 0x55); };
        if (row.slope == Slope::kHorizontal) return HorizontalLines<T>(to, lines, row.half);
        if (row.antialias && row.slope == Slope::kAny) {
            return WalkLines<T>(to, lines, [turn](T* at, std::ptrdiff_t minor) {
                turn(at);
                turn(at + minor);
            });
        }
        if (row.half) return WalkLines<T>(to, lines, [turn](T* at, std::ptrdiff_t) { turn(at); });
        return WalkLines<T>(to, lines, [](T* at, std::ptrdiff_t) { *at = static_cast<T>(kColor); });
    });
}

Work MakePixels(Scene& scene, const Row& row) {
    if (row.operation == Operation::kPixelBlend) return {};
    const Image to = scene.Target(row);
    const std::vector<Point>& points = scene.Points();
    const bool set = row.operation == Operation::kPixelSet;
    return ForFormat(row.target, [&](auto pixel) -> Work {
        using T = decltype(pixel);
        if (set) {
            return [to, &points] {
                for (Point point : points)
                    *Pixels<T>(to, point.x, point.y) = static_cast<T>(kColor);
            };
        }
        return [to, &points, &scene] {
            for (Point point : points)
                scene.sink += *Pixels<T>(to, point.x, point.y);
        };
    });
}

Work Make(Scene& scene, const Row& row) {
    switch (row.operation) {
        case Operation::kFill:
        case Operation::kBlend:
            return MakeFill(scene, row);
        case Operation::kMask:
            return MakeMask(scene, row);
        case Operation::kCopy:
        case Operation::kKey:
            return MakeCopy(scene, row);
        case Operation::kConvert:
        case Operation::kDisplay:
        case Operation::kOver:
            return MakeTransfer(scene, row);
        case Operation::kTile:
            return MakeTile(scene, row);
        case Operation::kLine:
            return MakeLines(scene, row);
        case Operation::kText:
        case Operation::kTextCold:
            return MakeTextLimit(scene, row);
        default:
            return MakePixels(scene, row);
    }
}

}  // namespace

Library MakeLimit(Scene& scene) {
    return {"limit", [&scene](const Row& row) { return Make(scene, row); }};
}

}  // namespace bench
