#include "check.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <regex>

namespace bench {

namespace {

/// Mean level of 0..255 over the colour channels of all pixels.
double MeanLevel(const Image& image) {
    std::uint64_t sum = 0;
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) {
            const std::uint8_t* const at = image.At(x, y);
            if (image.format == Format::k8) {
                sum += 3u * *at;
            } else if (image.format == Format::k32) {
                sum += static_cast<std::uint64_t>(at[0]) + at[1] + at[2];
            } else {
                std::uint16_t pixel = 0;
                std::memcpy(&pixel, at, 2);
                const unsigned red = pixel >> 11, green = pixel >> 5 & 63, blue = pixel & 31;
                sum += (red << 3 | red >> 2) + (green << 2 | green >> 4) + (blue << 3 | blue >> 2);
            }
        }
    }
    return static_cast<double>(sum) / 3.0 / image.width / image.height;
}

/// The mean after one pass, or of what the pass read.
double MeasureOnce(Scene& scene, const Row& row, const Library& library, const Work& work) {
    scene.ResetTarget(row);
    library.select();
    scene.sink = 0;
    work();
    if (row.operation == Operation::kPixelGet) {
        return static_cast<double>(scene.sink) / kPoints / 65536.0;
    }
    return MeanLevel(scene.Target(row));
}

/// How far a mean may lie off, in levels. Peers round differently, most of all in 5-6-5, and weigh
/// grey differently; exact coverage of a stroke is more ink than two pixels a step.
double Tolerance(const Row& row) {
    if (row.operation == Operation::kLine) return 3.0;
    if (row.target == Format::k32) return 1.5;
    return row.target == Format::k565 ? 7.0 : 16.0;
}

/// Rows that touch few pixels hide a missing drawing inside the tolerance, so the change they make
/// is compared as well; strokes of
/// exact width and other grey weights stay well inside a factor of two and a half.
bool ChangesAlike(double background, double expected, double mean) {
    const double ours = expected - background, theirs = mean - background;
    if (std::fabs(ours) < 1e-9) return std::fabs(theirs) < 1e-9;
    return theirs / ours > 0.4 && theirs / ours < 2.5;
}

}  // namespace

int CheckSums(Scene& scene, const std::vector<Library>& libraries, const std::string& filter) {
    const std::regex wanted(filter.empty() ? "." : filter);
    int failures = 0;
    for (const Row& row : AllRows()) {
        if (!std::regex_search(row.name, wanted)) continue;
        scene.ResetTarget(row);
        const bool reads = row.operation == Operation::kPixelGet;
        const double background = reads ? 0 : MeanLevel(scene.Target(row));
        double expected = -1;
        std::printf("%-34s", row.name.c_str());
        for (const Library& library : libraries) {
            if (IsLimit(library)) continue;
            const Work work = library.make(row);
            if (!work) continue;
            const double mean = MeasureOnce(scene, row, library, work);
            if (expected < 0) {
                expected = mean;
                std::printf(" before %.3f", background);
            }
            const bool same = std::fabs(mean - expected) <= Tolerance(row) &&
                              ChangesAlike(background, expected, mean);
            std::printf("  %s %.3f%s", library.name.c_str(), mean, same ? "" : " DIFFERS");
            failures += same ? 0 : 1;
        }
        std::printf("\n");
    }
    std::printf("%d means differ\n", failures);
    return failures;
}

}  // namespace bench
