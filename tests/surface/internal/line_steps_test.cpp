// The closed form of line steps against the recurrence that defines them.
#include "surface/lines/line_steps.h"
#include "surface/lines/line_recurrence.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "surface/line_model.h"
#include "surface/lines/line_walk.h"

namespace test {
namespace {

using gfx::FixedSteps;
using gfx::LineWalk;

/// Where two anti-aliased dots put their near and far shares: (p, 0) and (p - 1, 255) both give all
/// of it to pixel p.
bool DrawTheSame(const LineWalk& walk, const ModelDot& a, const ModelDot& b) {
    if (a.minor == b.minor && a.fraction == b.fraction) return true;
    if (walk.isRising) return false;
    const auto isWhole = [](const ModelDot& low, const ModelDot& high) {
        return low.minor == high.minor - 1 && low.fraction == 255 && high.fraction == 0;
    };
    return isWhole(a, b) || isWhole(b, a);
}

std::string Name(const LineWalk& walk, unsigned i) {
    return "n " + std::to_string(walk.steps) + ", d " + std::to_string(walk.Rise()) + ", step " +
           std::to_string(i);
}

void ComparePlain(const LineWalk& walk) {
    if (!FixedSteps::ServesPlain(walk)) return;
    FixedSteps steps = FixedSteps::Plain(walk);
    LineRecurrence dots(walk.minorStart, 0.5, walk.steps, walk.Rise());
    steps.MoveTo(0);
    for (unsigned i = 0; i <= walk.steps; ++i, steps.Advance()) {
        const ModelDot dot = dots.Next();
        if (dot.minor != steps.Minor()) {
            FAIL() << Name(walk, i) << ": expected " << dot.minor << ", got " << steps.Minor();
        }
    }
}

void CompareAntiAliased(const LineWalk& walk) {
    if (!FixedSteps::ServesAntiAliased(walk)) return;
    FixedSteps steps = FixedSteps::AntiAliased(walk);
    LineRecurrence dots(walk.minorStart, 0.0, walk.steps, walk.Rise());
    steps.MoveTo(0);
    for (unsigned i = 0; i <= walk.steps; ++i, steps.Advance()) {
        const ModelDot dot = dots.Next();
        const ModelDot got{steps.Minor(), steps.Fraction()};
        if (!DrawTheSame(walk, dot, got)) {
            FAIL() << Name(walk, i) << ": expected (" << dot.minor << ", " << dot.fraction
                   << "), got (" << got.minor << ", " << got.fraction << ")";
        }
    }
}

LineWalk Walk(unsigned n, int d) {
    return {true, 0, 0, n, static_cast<unsigned>(std::abs(d)), d >= 0};
}

constexpr unsigned kExhaustive = 700;

TEST(LineSteps, Give_the_plain_dots_of_every_slope_up_to_700_steps) {
    for (unsigned n = 1; n <= kExhaustive; ++n) {
        for (int d = -static_cast<int>(n); d <= static_cast<int>(n); ++d) {
            ComparePlain(Walk(n, d));
            if (HasFatalFailure()) return;
        }
    }
}

TEST(LineSteps, Draw_the_anti_aliased_dots_of_every_slope_up_to_700_steps) {
    for (unsigned n = 1; n <= kExhaustive; ++n) {
        for (int d = -static_cast<int>(n); d <= static_cast<int>(n); ++d) {
            CompareAntiAliased(Walk(n, d));
            if (HasFatalFailure()) return;
        }
    }
}

TEST(LineSteps, Hold_for_random_slopes_up_to_the_longest_line) {
    std::mt19937 random(5081);
    for (int round = 0; round < 12000; ++round) {
        const unsigned longest[] = {9999, 9998, 9996, 8192, 5000};
        const unsigned n =
            round % 8 < 5 ? longest[round % 8] : 700 + static_cast<unsigned>(random() % 9300);
        const int d = static_cast<int>(random() % (2 * n + 1)) - static_cast<int>(n);
        ComparePlain(Walk(n, d));
        CompareAntiAliased(Walk(n, d));
        if (HasFatalFailure()) return;
    }
}

TEST(LineSteps, Leave_to_the_recurrence_only_lines_with_inexact_ties) {
    // A falling line with n / gcd(n, |d|) even and no power of two meets halves that rounding
    // decides.
    EXPECT_FALSE(FixedSteps::ServesPlain(Walk(6, -1)));
    EXPECT_FALSE(FixedSteps::ServesPlain(Walk(10, -3)));
    EXPECT_TRUE(FixedSteps::ServesPlain(Walk(10, 3)));
    EXPECT_TRUE(FixedSteps::ServesPlain(Walk(12, -3)));
    EXPECT_TRUE(FixedSteps::ServesPlain(Walk(7, -3)));
    unsigned left = 0;
    for (unsigned n = 1; n < 10000; ++n)
        left += FixedSteps::ServesAntiAliased(Walk(n, 1)) ? 0 : 1;
    EXPECT_LT(left, 170U);
}

TEST(LineSteps, Find_the_stretch_whose_minor_coordinate_lies_inside) {
    std::mt19937 random(77);
    for (int round = 0; round < 20000; ++round) {
        const unsigned n = 1 + static_cast<unsigned>(random() % 200);
        const int d = static_cast<int>(random() % (2 * n + 1)) - static_cast<int>(n);
        const LineWalk walk = Walk(n, d);
        FixedSteps steps = FixedSteps::Plain(walk);
        const std::int64_t lo = static_cast<int>(random() % 400) - 200;
        const gfx::Interval minor{lo, lo + static_cast<int>(random() % 100)};
        const gfx::StepRange range{static_cast<unsigned>(random() % (n + 1)),
                                   static_cast<unsigned>(random() % (n + 2))};
        const gfx::StepRange inside = StepsInside(walk, steps, range, minor);
        for (unsigned i = range.first; i < range.last; ++i) {
            steps.MoveTo(i);
            ASSERT_EQ(minor.Holds(steps.Minor()), i >= inside.first && i < inside.last)
                << Name(walk, i) << " in [" << minor.lo << ", " << minor.hi << ")";
        }
    }
}

TEST(RecurringSteps, Are_moved_by_as_many_steps_one_by_one) {
    for (const int rise : {-97, -3, 0, 55, 100}) {
        gfx::RecurringSteps one(20, 0.5, rise, 100);
        for (unsigned i = 0; i <= 100; ++i) {
            gfx::RecurringSteps other(20, 0.5, rise, 100);
            other.MoveTo(i);
            ASSERT_EQ(one.Minor(), other.Minor()) << rise << " at step " << i;
            one.Advance();
        }
    }
}

}  // namespace
}  // namespace test
