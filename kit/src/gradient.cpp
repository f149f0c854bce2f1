// Gradients: the 256 colours of one, and which of them each pixel has. Doubles are only added,
// multiplied, divided and rooted, each result rounded once, so they are the same everywhere.
#include <gfx/kit/paint.h>

#include <algorithm>
#include <cmath>

#include "shape_paint.h"

namespace gfx::kit {
namespace {

constexpr int kSteps = 256;
constexpr std::uint32_t kInvisible = 0xFF000000U;

/// The colour `k` of `n` steps on the way from one word to another, each channel to the nearest.
std::uint32_t Between(std::uint32_t from, std::uint32_t to, int k, int n) {
    std::uint32_t mixed = 0;
    const auto far = static_cast<std::uint32_t>(k);
    const auto all = static_cast<std::uint32_t>(n);
    for (unsigned shift = 0; shift < 32; shift += 8) {
        const std::uint32_t a = from >> shift & 255;
        const std::uint32_t b = to >> shift & 255;
        mixed |= (a * (all - far) + b * far + all / 2) / all << shift;
    }
    return mixed;
}

void FillSteps(std::uint32_t* words, const ColorStop* stops, int count) {
    if (stops == nullptr || count < 1) {
        std::fill_n(words, kSteps, kInvisible);
        return;
    }
    int done = 0;  // steps that have their colour
    int at = 0;    // place of the stop before, never less than one before that
    std::uint32_t last = stops[0].color.Word();
    for (int i = 0; i < count; ++i) {
        const int place = std::max(at, std::clamp(stops[i].at, 0, kSteps - 1));
        const std::uint32_t word = stops[i].color.Word();
        for (; done < place; ++done)
            words[done] = Between(last, word, done - at, place - at);
        words[place] = word;
        done = std::max(done, place);
        at = place;
        last = word;
    }
    std::fill(words + done, words + kSteps, last);
}

std::int64_t Square(std::int32_t v) { return std::int64_t{v} * v; }

/// Step i covers 1/256 of the way; positions along it are counted in 1/2^32 step. One addition a
/// pixel, from column 0 on whatever is drawn first, so that clipping changes nothing.
void LinearRow(const Gradient& gradient, int x, int y, int n, std::uint32_t* words) {
    const std::int32_t x0 = gradient.Start().x.Units();
    const std::int32_t y0 = gradient.Start().y.Units();
    const std::int64_t dx = gradient.End().x.Units() - x0;
    const std::int64_t dy = gradient.End().y.Units() - y0;
    const std::int64_t length = dx * dx + dy * dy;
    const std::uint32_t* const steps = gradient.Words();
    if (length < Square(Fixed::kOne)) {
        std::fill_n(words, n, steps[kSteps - 1]);
        return;
    }
    // Numerators stay below 2^53 and the scales are powers of two: only the divisions round.
    const double scale = 65536.0 * 65536.0 * kSteps;
    const std::int64_t along = (128 - x0) * dx + (y * std::int64_t{256} + 128 - y0) * dy;
    const auto first =
        static_cast<std::int64_t>(static_cast<double>(along) / static_cast<double>(length) * scale);
    const auto step = static_cast<std::int64_t>(static_cast<double>(dx * 256) /
                                                static_cast<double>(length) * scale);
    std::int64_t at = first + x * step;
    if (step == 0) {
        std::fill_n(words, n, steps[std::clamp<std::int64_t>(at >> 32, 0, kSteps - 1)]);
        return;
    }
    for (int i = 0; i < n; ++i, at += step)
        words[i] = steps[std::clamp(static_cast<std::int32_t>(at >> 32), 0, kSteps - 1)];
}

/// The square of a distance is exact; its root and the division by the radius round once each.
void RadialRow(const Gradient& gradient, int x, int y, int n, std::uint32_t* words) {
    const std::uint32_t* const steps = gradient.Words();
    if (gradient.Radius().Units() <= 0) {
        std::fill_n(words, n, steps[kSteps - 1]);
        return;
    }
    const double perStep = static_cast<double>(kSteps) / gradient.Radius().Units();
    const double dy = static_cast<double>(y) * 256 + 128 - gradient.Start().y.Units();
    const double left = static_cast<double>(x) * 256 + 128 - gradient.Start().x.Units();
    for (int i = 0; i < n; ++i) {
        const double dx = left + 256.0 * i;
        const double step = std::sqrt(dx * dx + dy * dy) * perStep;
        words[i] = steps[static_cast<int>(std::min(step, kSteps - 1.0))];
    }
}

}  // namespace

Gradient::Gradient(Kind kind, Point start, Point end, Fixed radius, const ColorStop* stops,
                   int count)
    : kind_(kind), start_(start), end_(end), radius_(radius), opaque_(true) {
    FillSteps(words_, stops, count);
    for (const std::uint32_t word : words_)
        opaque_ = opaque_ && word >> 24 == 0;
}

Gradient Gradient::Linear(Point from, Point to, const ColorStop* stops, int count) {
    return Gradient(Kind::kLinear, from, to, 0, stops, count);
}

Gradient Gradient::Linear(Point from, Point to, Color start, Color end) {
    const ColorStop stops[] = {{0, start}, {kSteps - 1, end}};
    return Linear(from, to, stops, 2);
}

Gradient Gradient::Radial(Point center, Fixed radius, const ColorStop* stops, int count) {
    return Gradient(Kind::kRadial, center, center, radius, stops, count);
}

Gradient Gradient::Radial(Point center, Fixed radius, Color start, Color end) {
    const ColorStop stops[] = {{0, start}, {kSteps - 1, end}};
    return Radial(center, radius, stops, 2);
}

void GradientRow(const Gradient& gradient, int x, int y, int n, std::uint32_t* words) {
    if (gradient.GetKind() == Gradient::Kind::kLinear) {
        LinearRow(gradient, x, y, n, words);
    } else {
        RadialRow(gradient, x, y, n, words);
    }
}

}  // namespace gfx::kit
