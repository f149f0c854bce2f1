// Our own library through its public headers, as a host uses it. Built twice: against the shared
// library, and into our_tables together with the library's objects.
#include <gfx/gfx.h>

#include <cstdlib>
#include <memory>

#include "library.h"

namespace bench {

namespace {

using Surface = std::shared_ptr<GfxSurface>;

constexpr unsigned short kDashes[] = {kDashOn, kDashOff};

unsigned int Bits(Format format) {
    return format == Format::k32 ? 32 : format == Format::k565 ? 16 : 8;
}

Surface Over(const Image& image) {
    Surface surface(GfxSurface::New(Bits(image.format)),
                    [](GfxSurface* owned) { GfxSurface::Delete(owned); });
    surface->Initialise(static_cast<unsigned>(image.width), static_cast<unsigned>(image.height),
                        image.data, static_cast<unsigned>(image.pitch), false);
    return surface;
}

/// A pass that calls `draw(surface, x, y, w, h, sourceX, sourceY)` for each rectangle.
template <typename Draw>
Work ForSpots(Scene& scene, const Row& row, Draw draw) {
    return [surface = Over(scene.Target(row)), &spots = scene.Spots(row), draw] {
        for (const Spot& spot : spots) {
            draw(*surface, spot.x, spot.y, static_cast<unsigned>(spot.width),
                 static_cast<unsigned>(spot.height), spot.sourceX, spot.sourceY);
        }
    };
}

Work MakeFill(Scene& scene, const Row& row) {
    if (row.operation == Operation::kFill) {
        return ForSpots(scene, row,
                        [](GfxSurface& to, int x, int y, unsigned w, unsigned h, int, int) {
                            to.RectFill(x, y, w, h, kColor);
                        });
    }
    if (row.operation == Operation::kBlend) {
        return ForSpots(scene, row,
                        [](GfxSurface& to, int x, int y, unsigned w, unsigned h, int, int) {
                            to.RectFillBlend(x, y, w, h, kHalfColor);
                        });
    }
    const Surface mask = Over(scene.Mask(row, MaskForm::kTransparency));
    return ForSpots(
        scene, row,
        [mask](GfxSurface& to, int x, int y, unsigned w, unsigned h, int fromX, int fromY) {
            to.RectFillBlend(x, y, w, h, kColor, fromX, fromY, mask.get());
        });
}

Work MakeCopy(Scene& scene, const Row& row) {
    const Surface source = Over(scene.Source(row, AlphaForm::kOpaque));
    const bool tile = row.operation == Operation::kTile;
    const bool keyed = row.operation == Operation::kKey;
    source->SetAlpha(0xFF);  // so that 16-bit source pixels can equal the key
    return ForSpots(scene, row,
                    [source, tile, keyed](GfxSurface& to, int x, int y, unsigned w, unsigned h,
                                          int fromX, int fromY) {
                        if (keyed) to.SetTransparent(kKeyColor);
                        to.RectCopy(x, y, w, h, fromX, fromY, source.get(), tile);
                    });
}

Work MakeOver(Scene& scene, const Row& row) {
    const Surface source = Over(scene.Source(row, AlphaForm::kTransparency));
    if (row.opacity == 1.0) {
        return ForSpots(
            scene, row,
            [source](GfxSurface& to, int x, int y, unsigned w, unsigned h, int fromX, int fromY) {
                to.RectBlend(x, y, w, h, fromX, fromY, source.get(), false);
            });
    }
    const double transparency = 1.0 - row.opacity;
    return ForSpots(scene, row,
                    [source, transparency](GfxSurface& to, int x, int y, unsigned w, unsigned h,
                                           int fromX, int fromY) {
                        to.RectBlendAlpha(x, y, w, h, fromX, fromY, transparency, source.get(),
                                          false);
                    });
}

Work MakeLines(Scene& scene, const Row& row) {
    return [surface = Over(scene.Target(row)), &lines = scene.Segments(row),
            color = row.half ? kHalfColor : kColor, dashes = row.dash ? kDashes : nullptr,
            count = row.dash ? 2 : 0, antialias = row.antialias] {
        for (const Segment& line : lines) {
            const auto& [x0, y0, x1, y1] = line;
            if (antialias) {
                dashes != nullptr ? surface->DrawAALine(x0, y0, x1, y1, color, dashes, count)
                                  : surface->DrawAALine(x0, y0, x1, y1, color);
            } else {
                dashes != nullptr ? surface->DrawLine(x0, y0, x1, y1, color, dashes, count)
                                  : surface->DrawLine(x0, y0, x1, y1, color);
            }
        }
    };
}

void DrawText(GfxFontCache& cache, GfxSurface& surface, const std::vector<Glyph>& glyphs) {
    for (const Glyph& glyph : glyphs) {
        cache.DrawGlyph(static_cast<unsigned short>(glyph.code), static_cast<unsigned>(glyph.x),
                        static_cast<unsigned>(glyph.y), kColor, &surface, 0);
    }
}

Work MakeText(Scene& scene, const Row& row) {
    const Surface surface = Over(scene.Target(row));
    const std::vector<Glyph>& glyphs = scene.TextOf(row).glyphs;
    if (row.operation == Operation::kTextCold) {
        return [&scene, surface, &glyphs, size = row.fontSize] {
            GfxFontCache cache;
            cache.OpenFace(scene.FontPath(), size, true);
            DrawText(cache, *surface, glyphs);
        };
    }
    const auto cache = std::make_shared<GfxFontCache>();
    cache->OpenFace(scene.FontPath(), row.fontSize, true);
    return [cache, surface, &glyphs] { DrawText(*cache, *surface, glyphs); };
}

Work MakePixels(Scene& scene, const Row& row) {
    const Surface surface = Over(scene.Target(row));
    const std::vector<Point>& points = scene.Points();
    switch (row.operation) {
        case Operation::kPixelSet:
            return [surface, &points] {
                for (Point point : points)
                    surface->SetPixelRGB(point.x, point.y, kColor);
            };
        case Operation::kPixelBlend:
            return [surface, &points] {
                for (Point point : points)
                    surface->SetPixelRGBBlend(point.x, point.y, kHalfColor);
            };
        default:
            return [&scene, surface, &points] {
                for (Point point : points) {
                    scene.sink += surface->RetPixelRGB(point.x, point.y) & 0xFFFFFF;
                }
            };
    }
}

Work MakeDisplay(Scene& scene, const Row& row) {
    const Image display = scene.Target(row);
    const Spot& spot = scene.Spots(row).front();
    return [source = Over(scene.Source(row, AlphaForm::kOpaque)), display, &spot] {
        source->QuickBltTo565(static_cast<unsigned>(spot.sourceX),
                              static_cast<unsigned>(spot.sourceY),
                              static_cast<unsigned>(spot.width), static_cast<unsigned>(spot.height),
                              display.At(spot.x, spot.y), static_cast<unsigned>(display.pitch));
    };
}

Work Make(Scene& scene, const Row& row) {
    switch (row.operation) {
        case Operation::kFill:
        case Operation::kBlend:
        case Operation::kMask:
            return MakeFill(scene, row);
        case Operation::kCopy:
        case Operation::kConvert:
        case Operation::kTile:
        case Operation::kKey:
            return MakeCopy(scene, row);
        case Operation::kOver:
            return MakeOver(scene, row);
        case Operation::kLine:
            return MakeLines(scene, row);
        case Operation::kText:
        case Operation::kTextCold:
            return MakeText(scene, row);
        case Operation::kPixelSet:
        case Operation::kPixelBlend:
        case Operation::kPixelGet:
            return MakePixels(scene, row);
        case Operation::kDisplay:
            return MakeDisplay(scene, row);
        case Operation::kShape:
            return {};
    }
    return {};
}

}  // namespace

Library MakeOurs(Scene& scene, const std::string& name) {
    GfxMemory::fn_alloc = [](void*, unsigned long size) { return std::malloc(size); };
    GfxMemory::fn_free = [](void*, void* block) { std::free(block); };
    return {name, [&scene](const Row& row) { return Make(scene, row); }};
}

}  // namespace bench
