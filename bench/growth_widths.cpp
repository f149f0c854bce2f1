// What one more pixel of width costs: every width from 1 to 64 in fills, blends, masks and copies,
// so that a threshold between two ways of drawing shows as a step, wherever it lies.
#include <gfx/gfx.h>

#include <cstdint>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "growth.h"

namespace bench {

namespace {

using Surface = std::shared_ptr<GfxSurface>;
using Draw = void (*)(GfxSurface& to, int x, int y, unsigned width, unsigned height,
                      GfxSurface& from);

constexpr int kSide = 272;  // 1,088 bytes a row in 32 bits: with source and mask inside L2
constexpr int kRectangles = 64;
constexpr unsigned kHeight = 16;
constexpr unsigned kWidest = 64;
constexpr double kSeconds = 0.002;  // a repetition, hundreds of passes

Surface Filled(unsigned bits) {
    Surface surface(GfxSurface::New(bits), [](GfxSurface* owned) { GfxSurface::Delete(owned); });
    surface->Initialise(kSide, kSide);
    std::mt19937 random(bits);
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x)
            surface->SetPixelRGB(x, y, static_cast<unsigned>(random()));
    }
    return surface;
}

std::vector<Point> Corners() {
    std::mt19937 random(3);
    std::vector<Point> corners;
    for (int i = 0; i < kRectangles; ++i) {
        corners.push_back({static_cast<int>(random() % (kSide - kWidest)),
                           static_cast<int>(random() % (kSide - kHeight))});
    }
    return corners;
}

/// The sum of the pixels at all corners, which every pass changes.
std::uint64_t SumAt(const std::vector<Point>& corners, const GfxSurface& surface) {
    std::uint64_t sum = 0;
    for (Point corner : corners)
        sum += surface.RetPixelRGB(corner.x, corner.y);
    return sum;
}

/// Rectangles of one width at random corners, counted in rows of pixels.
void RegisterWidth(const std::string& column, unsigned width, unsigned bits, unsigned sourceBits,
                   Draw draw) {
    const auto prepare = [=] {
        const Surface to = Filled(bits), from = Filled(sourceBits);
        const Work pass = [=, corners = Corners()] {
            for (Point corner : corners)
                draw(*to, corner.x, corner.y, width, kHeight, *from);
        };
        const std::uint64_t before = SumAt(Corners(), *to);
        pass();
        if (SumAt(Corners(), *to) == before) throw std::logic_error(column + " draws nothing");
        return pass;
    };
    RegisterPlace("widths " + column, width, kRectangles * kHeight, prepare, false, kSeconds);
}

void Fill(GfxSurface& to, int x, int y, unsigned width, unsigned height, GfxSurface&) {
    to.RectFill(x, y, width, height, kColor);
}

void Blend(GfxSurface& to, int x, int y, unsigned width, unsigned height, GfxSurface&) {
    to.RectFillBlend(x, y, width, height, kHalfColor);
}

void Mask(GfxSurface& to, int x, int y, unsigned width, unsigned height, GfxSurface& from) {
    to.RectFillBlend(x, y, width, height, kColor, x / 2, y / 2, &from);
}

void Copy(GfxSurface& to, int x, int y, unsigned width, unsigned height, GfxSurface& from) {
    to.RectCopy(x, y, width, height, x / 2, y / 2, &from, false);
}

}  // namespace

void RegisterWidths() {
    struct Series {
        const char* name;
        Draw draw;
        bool masked;
    };
    const Series all[] = {{"fill", Fill, false},
                          {"blend", Blend, false},
                          {"mask", Mask, true},
                          {"copy", Copy, false}};
    for (const Series& series : all) {
        for (Format format : {Format::k32, Format::k565, Format::k8}) {
            const unsigned bits = static_cast<unsigned>(BytesPerPixel(format)) * 8;
            for (unsigned width = 1; width <= kWidest; ++width) {
                RegisterWidth(std::string(series.name) + "-" + FormatName(format), width, bits,
                              series.masked ? 8 : bits, series.draw);
            }
        }
    }
}

}  // namespace bench
