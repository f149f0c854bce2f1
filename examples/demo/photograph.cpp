// Follows a ray from the camera through every pixel (four for smooth edges) to the ground or the
// sky and lights what it meets: snow, rock and forest, a low sun, shadows, haze and clouds.
#include "photograph.h"

#include <gfx/surface.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "terrain.h"

namespace demo {
namespace {

struct Vec {
    double x, y, z;
};
Vec operator+(Vec a, Vec b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
Vec operator*(Vec a, double s) { return {a.x * s, a.y * s, a.z * s}; }
double Dot(Vec a, Vec b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
Vec Unit(Vec a) { return a * (1 / std::sqrt(Dot(a, a))); }
Vec Blend(Vec a, Vec b, double t) { return a * (1 - t) + b * t; }

double Smooth(double from, double to, double v) {
    const double t = std::clamp((v - from) / (to - from), 0.0, 1.0);
    return t * t * (3 - 2 * t);
}

const Vec kSun = Unit({-0.78, 0.46, -0.22});
const Vec kCamera{6.0, 0.98, 1.4};
constexpr double kFarthest = 13;

Vec SkyColor(Vec ray) {
    const double up = std::max(ray.y, 0.0);
    const Vec clear = Blend({0.62, 0.74, 0.86}, {0.07, 0.20, 0.46}, Smooth(0.0, 0.52, up));
    const double towardsSun = std::max(0.0, Dot(ray, Unit({-0.78, 0.30, 0.75})));
    const Vec warm = clear + Vec{1.0, 0.72, 0.42} * (0.30 * std::pow(towardsSun, 5));
    const double plane = 1 / (up + 0.16);
    const double n = LayeredNoise(ray.x * plane * 0.9 + 11.3, ray.z * plane * 2.1 + 4.2, 6);
    const double cloud = Smooth(0.50, 0.78, n) * Smooth(0.02, 0.16, up);
    return Blend(warm, Vec{1.0, 0.96, 0.92} * (0.90 + 0.12 * n), 0.85 * cloud);
}

class View {
public:
    Vec ColorAlong(Vec ray) const {
        const double distance = DistanceToGround(ray);
        if (distance > kFarthest) return SkyColor(ray);
        const Vec place = kCamera + ray * distance;
        return Hazed(LitGround(place), place, ray, distance);
    }

private:
    double DistanceToGround(Vec ray) const {
        double t = 0.2;
        while (t < kFarthest) {
            const Vec p = kCamera + ray * t;
            if (p.y > terrain_.HighestPoint() && ray.y >= 0) break;
            const double above = p.y - terrain_.Height(p.x, p.z);
            if (above < 0.0006 * t) return t;
            t += std::max(0.30 * above, 0.0012 * t);
        }
        return kFarthest + 1;
    }

    Vec NormalAt(Vec p, double reach) const {
        const double dx = terrain_.Height(p.x - reach, p.z) - terrain_.Height(p.x + reach, p.z);
        const double dz = terrain_.Height(p.x, p.z - reach) - terrain_.Height(p.x, p.z + reach);
        return Unit({dx, 2 * reach, dz});
    }

    // 1 in full sun, 0 in shadow, between them near a shadow's edge.
    double Sunlight(Vec p) const {
        double light = 1;
        for (double t = 0.02; t < 2.6 && light > 0; t *= 1.16) {
            const Vec q = p + kSun * t;
            light = std::min(light, 0.5 + 14 * (q.y - terrain_.Height(q.x, q.z)) / t);
        }
        return std::clamp(light, 0.0, 1.0);
    }

    Vec LitGround(Vec p) const {
        const Vec normal = NormalAt(p, 0.012);
        const double grain = LayeredNoise(p.x * 21, p.z * 21, 4);
        const Vec rock = Blend({0.20, 0.18, 0.17}, {0.36, 0.33, 0.31}, grain);
        const Vec forest = Blend({0.035, 0.075, 0.05}, {0.10, 0.15, 0.07}, grain);
        const Vec meadow{0.25, 0.27, 0.13};
        const double flat = normal.y;
        const double height = p.y + 0.35 * (grain - 0.5);
        Vec ground = Blend(forest, meadow, Smooth(0.40, 0.62, height) * Smooth(0.6, 0.9, flat));
        ground = Blend(ground, rock, Smooth(0.62, 0.86, height + 0.35 * (1 - flat)));
        const double snow =
            Smooth(0.84, 1.10, height) * Smooth(0.46, 0.66, flat + 0.16 * p.y - 0.14);
        ground = Blend(ground, {0.92, 0.94, 0.98}, snow);

        const double sun = std::max(0.0, Dot(normal, kSun)) * Sunlight(p + normal * 0.004);
        const Vec light =
            Vec{1.55, 1.30, 0.98} * sun + Vec{0.20, 0.29, 0.46} * (0.45 + 0.55 * flat);
        return {ground.x * light.x, ground.y * light.y, ground.z * light.z};
    }

    static Vec Hazed(Vec color, Vec place, Vec ray, double distance) {
        const Vec air = Blend({0.60, 0.70, 0.83}, {0.90, 0.80, 0.68},
                              std::pow(std::max(0.0, Dot(ray, Unit({-0.78, 0.1, 0.75}))), 4));
        const double thin = 1 - std::exp(-0.028 * distance);
        const double mist = (1 - std::exp(-0.11 * distance)) * Smooth(0.85, 0.10, place.y);
        return Blend(color, air, std::min(0.92, thin + 0.75 * mist));
    }

    Terrain terrain_;
};

unsigned char ToByte(double light) {
    const double exposed = 1 - std::exp(-1.75 * std::max(light, 0.0));  // rolls off like film
    return static_cast<unsigned char>(255 * std::pow(exposed, 1 / 1.05) + 0.5);
}

}  // namespace

Photograph::Photograph(unsigned width, unsigned height)
    : width_(width), height_(height), bgr_(std::size_t{3} * width * height) {
    const View view;
    const double zoom = 0.84 / width;  // half the width of the picture at distance 1, per pixel
    unsigned char* byte = bgr_.data();
    for (unsigned y = 0; y < height; ++y) {
        for (unsigned x = 0; x < width; ++x) {
            Vec sum{0, 0, 0};
            for (int part = 0; part < 4; ++part) {
                const double right = (x + 0.25 + 0.5 * (part & 1) - 0.5 * width) * zoom;
                const double up = (0.66 * height - y - 0.25 - 0.5 * (part >> 1)) * zoom;
                sum = sum + view.ColorAlong(Unit({right, up, 1}));
            }
            *byte++ = ToByte(sum.z / 4);
            *byte++ = ToByte(sum.y / 4);
            *byte++ = ToByte(sum.x / 4);
        }
    }
}

void Photograph::Show(GfxSurface& target, int x, int y) const {
    for (unsigned row = 0; row < height_; ++row) {
        target.SetPixelLineBGR24(x, y + static_cast<int>(row), width_,
                                 &bgr_[std::size_t{3} * row * width_]);
    }
}

}  // namespace demo
