// Noise on a grid of hashed corners; the range is three massifs, carved where they are steep.
#include "terrain.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace demo {
namespace {

double Corner(int x, int z) {
    std::uint32_t h =
        static_cast<std::uint32_t>(x) * 0x8DA6B343u ^ static_cast<std::uint32_t>(z) * 0xD8163841u;
    h = (h ^ h >> 15) * 0x2C1B3C6Du;
    h = (h ^ h >> 12) * 0x297A2D39u;
    return (h ^ h >> 15) / 4294967295.0;
}

double Massif(double x, double z, double atX, double atZ, double reach, double height) {
    const double d = std::hypot((x - atX) / 1.25, z - atZ) / reach;
    return height * std::pow(std::max(0.0, 1 - d), 1.35);
}

// Every further octave counts for less where the ground already slopes: ridges stay sharp and
// valleys smooth, as running water leaves them.
double Carved(double x, double z) {
    double sum = 0;
    double weight = 0.5;
    double slopeX = 0;
    double slopeZ = 0;
    for (int octave = 0; octave < 9; ++octave) {
        const NoiseSample n = Noise(x, z);
        slopeX += n.slopeX;
        slopeZ += n.slopeZ;
        sum += weight * n.value / (1 + slopeX * slopeX + slopeZ * slopeZ);
        weight *= 0.5;
        const double turned = 1.6 * x - 1.2 * z;
        z = 1.2 * x + 1.6 * z;
        x = turned;
    }
    return sum;
}

double Shape(double x, double z) {
    const double massifs = Massif(x, z, 6.6, 7.6, 3.4, 2.35) + Massif(x, z, 3.0, 8.6, 2.8, 1.35) +
                           Massif(x, z, 9.8, 8.9, 2.9, 1.5) + Massif(x, z, 2.2, 4.2, 1.5, 0.5);
    const double rough = Carved(x * 0.62 + 3.7, z * 0.62 + 9.1);
    return massifs * (0.35 + 1.15 * rough) + 0.55 * rough;
}

}  // namespace

NoiseSample Noise(double x, double z) {
    const double cellX = std::floor(x);
    const double cellZ = std::floor(z);
    const double u = x - cellX;
    const double v = z - cellZ;
    const double su = u * u * u * (u * (u * 6 - 15) + 10);
    const double sv = v * v * v * (v * (v * 6 - 15) + 10);
    const double du = 30 * u * u * (u * (u - 2) + 1);
    const double dv = 30 * v * v * (v * (v - 2) + 1);

    const int ix = static_cast<int>(cellX);
    const int iz = static_cast<int>(cellZ);
    const double a = Corner(ix, iz);
    const double b = Corner(ix + 1, iz) - a;
    const double c = Corner(ix, iz + 1) - a;
    const double d = Corner(ix + 1, iz + 1) - a - b - c;
    return {a + b * su + c * sv + d * su * sv, du * (b + d * sv), dv * (c + d * su)};
}

double LayeredNoise(double x, double z, int octaves) {
    double sum = 0;
    double weight = 0.5;
    for (int octave = 0; octave < octaves; ++octave) {
        sum += weight * Noise(x, z).value;
        weight *= 0.5;
        const double turned = 1.6 * x - 1.2 * z;
        z = 1.2 * x + 1.6 * z;
        x = turned;
    }
    return sum;
}

Terrain::Terrain() : heights_(std::size_t{kCells} * kCells) {
    for (int z = 0; z < kCells; ++z) {
        for (int x = 0; x < kCells; ++x) {
            const double height = Shape(x * kSize / kCells, z * kSize / kCells);
            heights_[static_cast<std::size_t>(z) * kCells + static_cast<std::size_t>(x)] =
                static_cast<float>(height);
            highest_ = std::max(highest_, height);
        }
    }
}

double Terrain::Height(double x, double z) const {
    const double cellX = std::clamp(x * kCells / kSize, 0.0, kCells - 1.001);
    const double cellZ = std::clamp(z * kCells / kSize, 0.0, kCells - 1.001);
    const int ix = static_cast<int>(cellX);
    const int iz = static_cast<int>(cellZ);
    const double u = cellX - ix;
    const double v = cellZ - iz;
    const float* near =
        &heights_[static_cast<std::size_t>(iz) * kCells + static_cast<std::size_t>(ix)];
    const float* far = near + kCells;
    return (near[0] * (1 - u) + near[1] * u) * (1 - v) + (far[0] * (1 - u) + far[1] * u) * v;
}

}  // namespace demo
