// Where a line is at each of its steps: read from the dots buffer, or in closed form in fixed point
// where that gives the dots of the recurrence in line_recurrence.h.
//
// Let s = d / n be a line's slope, |d| <= n <= 9999, and i its step. The recurrence holds position
// p + f = m0 + e + i s, e the offset (0.5 plain, 0 anti-aliased), and wraps f at 0.9999 going up
// and at 0 going down. So in exact arithmetic
//     p = m0 + floor(i s + e + 0.0001) rising,   p = m0 + floor(i s + e) falling.
//
// Errors. In the recurrence each of at most 9999 additions rounds by at most 2^-53, and the slope's
// own rounding adds as much again: below 3e-12. In fixed point with 48 fraction bits S = floor(2^48
// s) loses at most i 2^-48 < 3.6e-11, and a bias of 100,000 * 2^-48 = 3.6e-10 keeps the sum above
// the true value, by less than 4e-10. So both decide as exact arithmetic does wherever i s is
// farther than that from every threshold.
//
// - Rising, plain and anti-aliased: a tie needs i d / n = k + 4999 / 10000 or k + 9999 / 10000, so
//   10000 divides n, which is too large. Otherwise the distance is at least 1 / (10000 n) > 1e-8.
//   Anti-aliased, no fraction reaches 1 - 1 / 10000, so the 0.0001 changes nothing: it is left out,
//   and a position just below a whole pixel, where the recurrence wraps, is just above it here.
// - Falling, plain: ties where i d / n is an odd multiple of 1/2, that is where n / gcd(n, |d|) is
//   even. If that quotient is a power of two, the recurrence is exact and so is the fixed point.
//   Otherwise its rounding decides: such lines are left to it. Other distances exceed 1 / (2 n).
// - Falling, anti-aliased: ties where i d / n is whole. The recurrence may then hold (p - 1, 255)
//   where the closed form gives (p, 0). Both give pixel p the full share and their other pixel,
//   p - 1 or p + 1, none: only the clip test can tell them apart (IsTouchCertain in aa_line.cpp).
// - The fraction byte trunc(f * 255.99): a tie needs f = 100 k / 25599, in lowest terms j / m. So
//   m divides 25599 = 3 * 7 * 23 * 53 and 100 divides j < m: m is one of 159, 161, 371, 483, 1113,
//   1219, 3657, 8533. All are multiples of 159, 161, 371 or 1219: lines whose n is such a multiple
//   are left to the recurrence. Other distances are at least 1 / (25599 n) > 3.9e-9.
#ifndef GFX_SURFACE_LINES_LINE_STEPS_H
#define GFX_SURFACE_LINES_LINE_STEPS_H

#include <gfx/surface.h>

#include <cstdint>

#include "surface/lines/line_walk.h"

namespace gfx {

inline constexpr int kStepBits = 48;

/// Steps in closed form.
class FixedSteps {
public:
    /// Whether the closed form gives a plain line's dots.
    static bool ServesPlain(const LineWalk& walk) {
        const int zeros = __builtin_ctz(walk.steps);
        constexpr unsigned kManyZeros = 1U << 31;  // of an extent of 0, which meets no tie
        const bool meetsTies = zeros > __builtin_ctz(walk.extent | kManyZeros);
        if (walk.isRising || !meetsTies) return true;
        return walk.extent % (walk.steps >> zeros) == 0;
    }

    /// Whether it gives an anti-aliased line's dots, or on falling lines such that draw the same.
    static bool ServesAntiAliased(const LineWalk& walk) {
        const unsigned n = walk.steps;
        return n % 159 != 0 && n % 161 != 0 && n % 371 != 0 && n % 1219 != 0;
    }

    static FixedSteps Plain(const LineWalk& walk) {
        constexpr std::int64_t kHalf = std::int64_t{1} << (kStepBits - 1);
        return {walk, kHalf + (walk.isRising ? kRisingAdvance : 0)};
    }
    static FixedSteps AntiAliased(const LineWalk& walk) { return {walk, 0}; }

    void MoveTo(unsigned i) { position_ = start_ + std::int64_t{i} * slope_; }
    void Advance() { position_ += slope_; }

    std::int32_t Minor() const {
        const std::int64_t whole = position_ >> kStepBits;
        return static_cast<std::int32_t>(minorStart_ + static_cast<std::uint32_t>(whole));
    }

    /// trunc(f * 255.99) of the 32 highest bits of f: 4294799524 is 255.99 * 2^24, rounded up. Of
    /// anti-aliased lines alone.
    std::uint32_t Fraction() const {
        const auto f = static_cast<std::uint32_t>(position_ >> (kStepBits - 32));
        return static_cast<std::uint32_t>(std::uint64_t{f} * 4294799524U >> 56);
    }

private:
    static constexpr std::int64_t kBias = 100000;
    static constexpr std::int64_t kRisingAdvance = (std::int64_t{1} << kStepBits) / 10000;

    FixedSteps(const LineWalk& walk, std::int64_t offset)
        : minorStart_(static_cast<std::uint32_t>(walk.minorStart)),
          slope_(FloorSlope(walk)),
          start_(offset + kBias),
          position_(start_) {}

    /// floor(2^48 d / n). Of a falling line -ceil(r / n) = ~((r - 1) / n) with r = 2^48 |d|; `sign`
    /// is -1 there, so that neither direction needs a branch.
    static std::int64_t FloorSlope(const LineWalk& walk) {
        const std::uint64_t sign = walk.isRising ? 0 : ~std::uint64_t{0};
        const std::uint64_t rise = std::uint64_t{walk.extent} << kStepBits;
        return static_cast<std::int64_t>((rise + sign) / walk.steps ^ sign);
    }

    std::uint32_t minorStart_;
    std::int64_t slope_;  // 1/2^48 pixel, as the others
    std::int64_t start_;
    std::int64_t position_;
};

/// Steps from the dots buffer.
class BufferedSteps {
public:
    explicit BufferedSteps(const GfxSurface::LineDot* dots) : dots_(dots), dot_(dots) {}

    void MoveTo(unsigned i) { dot_ = dots_ + i; }
    void Advance() { ++dot_; }
    std::int32_t Minor() const { return dot_->minor; }
    std::uint32_t Fraction() const { return dot_->fraction; }

private:
    const GfxSurface::LineDot* dots_;
    const GfxSurface::LineDot* dot_;
};

/// Steps first .. last - 1 of a line.
struct StepRange {
    unsigned first, last;
    bool IsEmpty() const { return first >= last; }
};

/// All steps of a line.
inline StepRange WholeLine(const LineWalk& walk) { return {0, walk.steps + 1}; }

/// An interval of coordinates, [lo, hi).
struct Interval {
    std::int64_t lo, hi;
    bool Holds(std::int64_t value) const { return value >= lo && value < hi; }
};

/// The steps of a range whose minor coordinate lies in the interval: one stretch, since the
/// coordinate only rises or only falls. Found by halving.
template <class Steps>
StepRange StepsInside(const LineWalk& walk, Steps steps, StepRange range, Interval minor) {
    if (range.IsEmpty()) return range;
    const auto isInsideAt = [&](unsigned i) {
        steps.MoveTo(i);
        return minor.Holds(steps.Minor());
    };
    if (isInsideAt(range.first) && isInsideAt(range.last - 1)) return range;
    const auto firstWhere = [&](auto isReached) {
        unsigned low = range.first;
        unsigned high = range.last;
        while (low < high) {
            const unsigned middle = low + (high - low) / 2;
            steps.MoveTo(middle);
            isReached(steps.Minor()) ? high = middle : low = middle + 1;
        }
        return low;
    };
    if (walk.isRising) {
        return {firstWhere([=](std::int32_t m) { return m >= minor.lo; }),
                firstWhere([=](std::int32_t m) { return m >= minor.hi; })};
    }
    return {firstWhere([=](std::int32_t m) { return m < minor.hi; }),
            firstWhere([=](std::int32_t m) { return m < minor.lo; })};
}

/// The steps whose major coordinate lies in the interval.
inline StepRange StepsAlong(const LineWalk& walk, Interval major) {
    const std::int64_t first = major.lo - walk.majorStart;
    const std::int64_t last = major.hi - walk.majorStart;
    const std::int64_t count = std::int64_t{walk.steps} + 1;
    if (first >= count || last <= 0) return {0, 0};
    return {static_cast<unsigned>(first < 0 ? 0 : first),
            static_cast<unsigned>(last < count ? last : count)};
}

}  // namespace gfx

#endif  // GFX_SURFACE_LINES_LINE_STEPS_H
