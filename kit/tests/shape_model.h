// What the tests of shapes share: coverage read back from a surface, and plain models of coverage
// that know polygons only as areas.
#pragma once

#include <gfx/kit/shapes.h>

#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "support/probe_surface.h"

namespace test {

using gfx::kit::Canvas;
using gfx::kit::Color;
using gfx::kit::Fixed;
using gfx::kit::Point;

struct Place {
    double x, y;
};

inline Color Word(std::uint32_t word) { return Color::FromWord(word); }

inline Fixed Units(std::int64_t units) { return Fixed::FromUnits(units); }

inline double Pixels(Fixed v) { return v.Units() / 256.0; }
inline Place PlaceOf(Point p) { return {Pixels(p.x), Pixels(p.y)}; }

inline std::vector<Place> PlacesOf(const std::vector<Point>& points) {
    std::vector<Place> places;
    for (const Point p : points)
        places.push_back(PlaceOf(p));
    return places;
}

/// The transparency that a shape gives each pixel. White on black and black on white together tell
/// every mask byte from every other.
template <class Draw>
std::vector<std::uint8_t> CoverageMask(unsigned w, unsigned h, Draw draw) {
    const SurfacePtr dark = MakeSurface(8, w, h);
    const SurfacePtr light = MakeSurface(8, w, h);
    light->RectFill(0, 0, w, h, 0x00FFFFFF);
    {
        Canvas onDark(*dark);
        draw(onDark, Word(0x00FFFFFF));
        Canvas onLight(*light);
        draw(onLight, Word(0x00000000));
    }
    // For each pair of pixels the byte that the blend rule turns into it.
    std::vector<int> byteOf(65536, -1);
    for (int m = 0; m < 256; ++m) {
        const int a = m + (m > 127);
        byteOf[static_cast<std::size_t>((255 * (256 - a) >> 8) * 256 + (255 * a >> 8))] = m;
    }
    std::vector<std::uint8_t> mask;
    for (unsigned y = 0; y < h; ++y) {
        for (unsigned x = 0; x < w; ++x) {
            const auto* onDark = static_cast<const std::uint8_t*>(dark->Line(static_cast<int>(y)));
            const auto* onLight =
                static_cast<const std::uint8_t*>(light->Line(static_cast<int>(y)));
            const int m = byteOf[onDark[x] * 256U + onLight[x]];
            if (m < 0) throw "a pixel that no mask byte gives";
            mask.push_back(static_cast<std::uint8_t>(m));
        }
    }
    return mask;
}

/// One side of a polygon cut off: what lies where inside(p) is not negative stays.
template <class Inside>
std::vector<Place> CutOff(const std::vector<Place>& polygon, Inside inside) {
    std::vector<Place> kept;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Place a = polygon[i];
        const Place b = polygon[(i + 1) % polygon.size()];
        const double da = inside(a);
        const double db = inside(b);
        if (da >= 0) kept.push_back(a);
        if ((da >= 0) != (db >= 0)) {
            const double t = da / (da - db);
            kept.push_back({a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t});
        }
    }
    return kept;
}

/// The area of a polygon inside pixel (x, y), each part counted as often as the outline winds
/// around it.
inline double WoundArea(const std::vector<Place>& polygon, int x, int y) {
    std::vector<Place> p = CutOff(polygon, [=](Place q) { return q.x - x; });
    p = CutOff(p, [=](Place q) { return x + 1 - q.x; });
    p = CutOff(p, [=](Place q) { return q.y - y; });
    p = CutOff(p, [=](Place q) { return y + 1 - q.y; });
    double twice = 0;
    for (std::size_t i = 0; i < p.size(); ++i) {
        const Place a = p[i];
        const Place b = p[(i + 1) % p.size()];
        twice += a.x * b.y - a.y * b.x;
    }
    return twice / 2;
}

/// The share of a pixel that lies inside, by `side` x `side` samples.
template <class Inside>
double SampledArea(int x, int y, int side, Inside inside) {
    int hits = 0;
    for (int j = 0; j < side; ++j) {
        for (int i = 0; i < side; ++i)
            hits += inside(Place{x + (i + 0.5) / side, y + (j + 0.5) / side});
    }
    return static_cast<double>(hits) / (side * side);
}

/// Distance from a segment.
inline double DistanceFrom(Place p, Place a, Place b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double squared = dx * dx + dy * dy;
    double t = squared == 0 ? 0 : ((p.x - a.x) * dx + (p.y - a.y) * dy) / squared;
    t = t < 0 ? 0 : t > 1 ? 1 : t;
    return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy);
}

}  // namespace test
