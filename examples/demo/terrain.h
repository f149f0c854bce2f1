// A mountain range as a field of heights, made of noise: the subject of the demo's camera.
#pragma once

#include <vector>

namespace demo {

/// Smooth noise of 0 to 1 with its slope, and sums of it at growing frequencies.
struct NoiseSample {
    double value;
    double slopeX;
    double slopeZ;
};
NoiseSample Noise(double x, double z);
double LayeredNoise(double x, double z, int octaves);

class Terrain {
public:
    static constexpr double kSize = 12;  ///< the field covers 0 to kSize in x and in z

    Terrain();

    /// Height over a place, interpolated; constant beyond the borders of the field.
    double Height(double x, double z) const;
    double HighestPoint() const { return highest_; }

private:
    static constexpr int kCells = 1024;

    std::vector<float> heights_;
    double highest_ = 0;
};

}  // namespace demo
