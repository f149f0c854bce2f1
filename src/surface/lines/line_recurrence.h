// The recurrence that defines a line's dots: where it is at each step along its longer axis.
//
// The position is carried from step to step in double precision, and its rounding decides each
// pixel. The build keeps compilers from fusing its multiplications and additions, and excess
// precision is refused here: with either, some lines get other dots.
#ifndef GFX_SURFACE_LINES_LINE_RECURRENCE_H
#define GFX_SURFACE_LINES_LINE_RECURRENCE_H

#include <cfloat>
#include <cstdint>

namespace gfx {

static_assert(FLT_EVAL_METHOD == 0, "line dots need double arithmetic without excess precision");

/// A position as whole pixel and fraction. The pixel wraps in 32 bits instead of overflowing.
class RecurringSteps {
public:
    /// @param fraction  where the line starts inside its first pixel, 0..1
    /// @param rise  how far it moves over all `steps`, at most `steps` either way
    RecurringSteps(std::uint32_t pixel, double fraction, int rise, unsigned steps)
        : pixel_(pixel),
          fraction_(fraction),
          slope_(steps == 0 ? 0.0 : static_cast<double>(rise) / static_cast<double>(steps)) {}

    /// From the first step, where these steps begin, to step i: they only go forwards.
    void MoveTo(unsigned i) {
        for (; i > 0; --i)
            Advance();
    }

    void Advance() {
        fraction_ += slope_;
        if (slope_ >= 0.0) {
            const bool wraps = fraction_ >= kUpperWrap;
            pixel_ += wraps ? 1U : 0U;
            fraction_ -= wraps ? 1.0 : 0.0;
        } else {
            const bool wraps = fraction_ < 0.0;
            pixel_ -= wraps ? 1U : 0U;
            fraction_ += wraps ? 1.0 : 0.0;
        }
    }

    std::int32_t Minor() const { return static_cast<std::int32_t>(pixel_); }

    /// The fraction as a byte. Slightly negative ones occur after the upward wrap and give 0.
    std::uint8_t Fraction() const {
        return static_cast<std::uint8_t>(static_cast<int>(fraction_ * 255.99));
    }

private:
    /// Where the upward wrap happens. Below 1.0, so that a rising line whose accumulated sum falls
    /// just short of a whole number still ends on its endpoint.
    static constexpr double kUpperWrap = 0.9999;

    std::uint32_t pixel_;
    double fraction_;
    double slope_;
};

}  // namespace gfx

#endif  // GFX_SURFACE_LINES_LINE_RECURRENCE_H
