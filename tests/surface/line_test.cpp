// Lines: the dots of every slope, written-out examples, limits, dashes, and lines as wholes against
// the model in all octants.
#include <gtest/gtest.h>

#include <array>
#include <cfenv>
#include <climits>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "support/hook_ledger.h"
#include "support/probe_surface.h"
#include "surface/model.h"

namespace test {
namespace {

constexpr Word kInk = 0x00FFFFFF;

using Draw = void (GfxSurface::*)(int, int, int, int, Word, const unsigned short*, int);

void CheckDots(ProbeSurface& s, unsigned start, unsigned steps, int rise, double offset) {
    const std::vector<ModelDot> expected =
        ModelDots(static_cast<std::int32_t>(start), steps, rise, offset);
    for (const bool alongX : {true, false}) {
        if (alongX)
            s.ComputeLineDotsDX(77, start, steps, rise, offset);
        else
            s.ComputeLineDotsDY(start, 77, rise, steps, offset);
        for (unsigned i = 0; i <= steps; ++i) {
            ASSERT_TRUE(s.dots[i].minor == expected[i].minor &&
                        s.dots[i].fraction == expected[i].fraction)
                << "steps " << steps << ", rise " << rise << ", offset " << offset << ", dot " << i
                << ": expected " << expected[i].minor << " + " << expected[i].fraction << ", got "
                << s.dots[i].minor << " + " << int{s.dots[i].fraction};
        }
    }
}

TEST(LineDots, All_slopes_of_short_lines_follow_the_recurrence) {
    ProbeSurface s(8);
    for (int steps = 1; steps <= 90; ++steps) {
        for (int rise = -steps; rise <= steps; ++rise) {
            for (const double offset : {0.0, 0.5})
                CheckDots(s, 10, static_cast<unsigned>(steps), rise, offset);
        }
    }
}

TEST(LineDots, Long_lines_and_other_offsets_follow_the_recurrence) {
    ProbeSurface s(8);
    std::mt19937 random(11);
    static constexpr double kOffsets[] = {0.0, 0.5,  1.25, -0.25, -1.0, 7.999,
                                          1.0, -3.5, 0.25, 1e6,   -1e6, 0.99999};
    for (int i = 0; i < 1500; ++i) {
        const int steps = 1 + static_cast<int>(random() % 9999);
        const int rise = static_cast<int>(random() % static_cast<unsigned>(2 * steps + 1)) - steps;
        CheckDots(s, static_cast<Word>(random() % 2000) - 1000, static_cast<unsigned>(steps), rise,
                  kOffsets[i < 600 ? static_cast<unsigned>(i) % 2 : random() % 12]);
    }
    CheckDots(s, 5, 9999, -9999, 0.5);
    CheckDots(s, 5, 9999, 4999, 0.0);
    CheckDots(s, 5, 30, 7, std::nan(""));
}

TEST(LineDots, Offsets_start_at_the_stated_pixel_and_fraction) {
    ProbeSurface s(8);
    static constexpr struct {
        double offset;
        int minor, fraction;
    } kCases[] = {{1.25, 1, 63}, {-0.25, -1, 191}, {-1.0, -2, 255}, {0.5, 0, 127}, {0.0, 0, 0}};
    for (const auto& c : kCases) {
        s.ComputeLineDotsDX(0, 20, 4, 0, c.offset);
        EXPECT_EQ(20 + c.minor, s.dots[0].minor) << "offset " << c.offset;
        EXPECT_EQ(c.fraction, s.dots[0].fraction) << "offset " << c.offset;
    }
}

TEST(LineDots, No_steps_write_one_record_and_divide_nothing_by_0) {
    ProbeSurface s(8);
    s.ComputeLineDotsDX(0, 0, 1, 0, 0.0);
    std::feclearexcept(FE_ALL_EXCEPT);
    s.ComputeLineDotsDX(0, 20, 0, 0, 1.25);
    EXPECT_TRUE(s.dots[0].minor == 21 && s.dots[0].fraction == 63);
    s.ComputeLineDotsDY(20, 0, 0, 0, 0.5);
    EXPECT_TRUE(s.dots[0].minor == 20 && s.dots[0].fraction == 127);
    EXPECT_EQ(0, std::fetestexcept(FE_INVALID | FE_DIVBYZERO));
}

TEST(LineDots, Boundless_offsets_write_only_the_records_of_the_line) {
    ProbeSurface s(8);
    s.ComputeLineDotsDX(0, 0, 1, 0, 0.0);
    for (const double offset : {1e10, -1e10, 1e300, -1e300, std::numeric_limits<double>::infinity(),
                                -std::numeric_limits<double>::infinity()}) {
        s.dots[6].minor = 4711;
        s.ComputeLineDotsDX(0, 9, 5, 3, offset);
        s.ComputeLineDotsDY(9, 0, -3, 5, offset);
        EXPECT_EQ(4711, s.dots[6].minor) << "offset " << offset;
    }
}

TEST(Lines, The_examples_plot_these_rows) {
    static constexpr struct {
        int dx, dy;
        std::array<int, 11> rows;
    } kCases[] = {{8, 4, {0, 1, 1, 2, 2, 3, 3, 4, 4}},
                  {8, -4, {0, 0, -1, -1, -2, -2, -3, -3, -4}},
                  {10, 3, {0, 0, 1, 1, 1, 2, 2, 2, 2, 3, 3}},
                  {10, -3, {0, 0, -1, -1, -1, -1, -2, -2, -2, -3, -3}},
                  {7, 1, {0, 0, 0, 0, 1, 1, 1, 1}},
                  {5, 5, {0, 1, 2, 3, 4, 5}},
                  {5, -5, {0, -1, -2, -3, -4, -5}}};
    for (const auto& c : kCases) {
        const SurfacePtr across = MakeSurface(8, 11, 20), down = MakeSurface(8, 20, 11);
        across->DrawLine(0, 9, c.dx, 9 + c.dy, kInk);
        down->DrawLine(9, 0, 9 + c.dy, c.dx, kInk);
        for (int x = 0; x < 11; ++x) {
            for (int y = 0; y < 20; ++y) {
                const bool drawn = x <= c.dx && y == 9 + c.rows[static_cast<std::size_t>(x)];
                EXPECT_EQ(drawn ? kInk : 0, across->RetPixelRGB(x, y)) << c.dx << ", " << c.dy;
                // With equal extents both lines run along x: the same pixels all the same.
                EXPECT_EQ(drawn ? kInk : 0, down->RetPixelRGB(y, x)) << c.dx << ", " << c.dy;
            }
        }
    }
}

TEST(Lines, Dashes_draw_these_runs) {
    static constexpr struct {
        std::array<unsigned short, 3> pattern;
        int count;
        const char* drawn;
    } kCases[] = {{{3, 2}, 2, "###..###..###..#"},     {{2, 1, 1}, 3, "##.#..#.##.#..#."},
                  {{0, 5}, 2, "################"},     {{2, 0, 3}, 3, "#####.....#####."},
                  {{2, 5, 9}, -1, "##..##..##..##.."}, {{1, 1, 1}, 0, "################"},
                  {{4}, 1, "####....####...."},        {{65535, 1}, 2, "################"}};
    for (const auto& c : kCases) {
        for (const bool isAntiAliased : {false, true}) {
            const SurfacePtr s = MakeSurface(8, 16, 2);
            isAntiAliased ? s->DrawAALine(0, 0, 15, 0, kInk, c.pattern.data(), c.count)
                          : s->DrawLine(0, 0, 15, 0, kInk, c.pattern.data(), c.count);
            std::string drawn;
            for (int x = 0; x < 16; ++x)
                drawn += s->RetPixelRGB(x, 0) == kInk ? '#' : '.';
            EXPECT_EQ(c.drawn, drawn) << c.pattern[0] << " " << c.pattern[1] << " " << c.pattern[2];
        }
    }
}

TEST(Lines, Lines_that_are_too_long_throw_before_anything_is_drawn) {
    static constexpr struct {
        int x0, y0, x1, y1;
        const char* failure;
    } kCases[] = {{0, 0, 9999, 9999, ""},
                  {0, 0, -9999, 5, ""},
                  {0, 0, 10000, 10000, "dx < MAX_LINE_LENGTH"},
                  {0, 0, 5, 10000, "dy < MAX_LINE_LENGTH"},
                  {10000, 0, 0, 5, "dx < MAX_LINE_LENGTH"},
                  {0, 0, 9999, -10000, "dy < MAX_LINE_LENGTH"},
                  {INT_MIN, 0, INT_MAX, 0, "dx < MAX_LINE_LENGTH"},
                  {0, INT_MAX, 1, INT_MIN, "dy < MAX_LINE_LENGTH"},
                  {-1, 0, INT_MAX, 0, "dx < MAX_LINE_LENGTH"}};
    static constexpr unsigned short kPattern[] = {20000, 1};
    for (const auto& c : kCases) {
        for (int kind = 0; kind < 4; ++kind) {
            const SurfacePtr s = MakeSurface(8, 20, 20);
            const std::size_t calls = HookLedger::Calls();
            std::string failure;
            const auto* pattern = kind % 2 == 0 ? nullptr : kPattern;
            try {
                kind < 2 ? s->DrawLine(c.x0, c.y0, c.x1, c.y1, kInk, pattern, 2)
                         : s->DrawAALine(c.x0, c.y0, c.x1, c.y1, kInk, pattern, 2);
            } catch (const char* text) {
                failure = text;
            }
            EXPECT_EQ(c.failure, failure) << "kind " << kind << " to " << c.x1 << ", " << c.y1;
            EXPECT_EQ(!failure.empty(), s->IsEmpty()) << "kind " << kind;
            EXPECT_EQ(failure.empty() ? 1u : 0u, HookLedger::Calls() - calls) << "dots buffer";
        }
    }
}

TEST(Lines, A_single_point_needs_no_dots_buffer_and_keeps_the_colour_word) {
    for (const Word color : {0x00123456u, 0x80123456u, 0xFF123456u}) {
        ProbeSurface s(32);
        s.Initialise(6, 6);
        s.RectFill(0, 0, 6, 6, 0x33ABCDEF);
        s.SetPixelRGBBlend(1, 1, color);
        static constexpr unsigned short kPattern[] = {1};
        s.DrawLine(2, 2, 2, 2, color, kPattern, 1);
        s.DrawAALine(3, 3, 3, 3, color);
        for (const int at : {2, 3})
            EXPECT_EQ(s.RetPixelRGB(1, 1), s.RetPixelRGB(at, at)) << "colour " << color;
        EXPECT_EQ(nullptr, s.dots);
    }
}

TEST(Lines, Anti_aliased_examples_share_the_colour_between_two_pixels) {
    static constexpr struct {
        Point to;
        Word color;
        Point pixel;
        Word alpha;  // with which the pixel is blended
    } kCases[] = {
        {{3, 1}, 0, {0, 0}, 0},     {{3, 1}, 0, {0, 1}, 255},   {{3, 1}, 0, {1, 0}, 85},
        {{3, 1}, 0, {1, 1}, 170},   {{3, 1}, 0, {2, 0}, 170},   {{3, 1}, 0, {2, 1}, 85},
        {{3, 1}, 0, {3, 1}, 0},     {{3, 1}, 0, {3, 2}, 255},   {{4, -3}, 0, {1, -1}, 63},
        {{4, -3}, 0, {1, 0}, 192},  {{4, -3}, 0, {4, -3}, 0},   {{3, 1}, 128, {0, 0}, 129},
        {{3, 1}, 128, {1, 0}, 171}, {{3, 1}, 128, {1, 1}, 213}, {{3, 1}, 200, {0, 0}, 201},
        {{3, 1}, 255, {1, 1}, 255}, {{3, 1}, 255, {1, 0}, 255}, {{3, 1}, 100, {1, 0}, 152}};
    for (const auto& c : kCases) {
        const SurfacePtr s = MakeSurface(32, 10, 20);
        s->RectFill(0, 0, 10, 20, 0x00102030);
        s->DrawAALine(2, 9, 2 + c.to.x, 9 + c.to.y, c.color << 24 | 0xFFEEDD);
        const Word expected = BlendStored(4, 0x00102030, c.alpha << 24 | 0xFFEEDD);
        EXPECT_EQ(expected, s->RetPixelRGB(2 + c.pixel.x, 9 + c.pixel.y))
            << "to " << c.to.x << ", " << c.to.y << ", alpha " << c.color << ", pixel " << c.pixel.x
            << ", " << c.pixel.y;
    }
}

TEST(Lines, A_line_and_its_reverse_give_the_same_pixels_in_all_octants) {
    std::mt19937 random(17);
    const auto any = [&](int low, int high) {
        return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
    };
    for (int i = 0; i < 1500; ++i) {
        const SurfacePtr there = MakeSurface(32, 60, 60), back = MakeSurface(32, 60, 60);
        const Point a{any(-30, 90), any(-30, 90)}, b{any(-30, 90), any(-30, 90)};
        const unsigned short pattern[] = {static_cast<unsigned short>(any(1, 7)),
                                          static_cast<unsigned short>(any(0, 5))};
        const int count = any(0, 2);
        const auto color = static_cast<Word>(random());
        const auto draw = i % 2 == 0 ? static_cast<Draw>(&GfxSurface::DrawLine)
                                     : static_cast<Draw>(&GfxSurface::DrawAALine);
        (there.get()->*draw)(a.x, a.y, b.x, b.y, color, pattern, count);
        (back.get()->*draw)(b.x, b.y, a.x, a.y, color, pattern, count);
        ASSERT_EQ(0, std::memcmp(there->Line(0), back->Line(0), 60 * there->Pitch()))
            << "line " << i << ": " << a.x << ", " << a.y << " to " << b.x << ", " << b.y;
    }
}

TEST(Lines, Straight_anti_aliased_lines_count_as_drawn_where_only_their_far_pixels_are_visible) {
    static constexpr struct {
        int dx, dy;
        Rect clip;
        bool isDrawn;
    } kCases[] = {{6, 0, {0, 6, 20, 1}, true},  {6, 0, {0, 5, 20, 1}, true},
                  {6, 0, {0, 4, 20, 1}, false}, {6, 0, {0, 7, 20, 1}, false},
                  {0, 6, {6, 0, 1, 20}, true},  {0, 6, {5, 0, 1, 20}, true},
                  {0, 6, {4, 0, 1, 20}, false}, {0, 6, {7, 0, 1, 20}, false}};
    for (const auto& c : kCases) {
        const SurfacePtr s = MakeSurface(32, 20, 20);
        s->SetClipRect(c.clip.x, c.clip.y, c.clip.w, c.clip.h);
        s->SetEmpty(true);
        s->DrawAALine(5, 5, 5 + c.dx, 5 + c.dy, 0x00FFEEDD);
        EXPECT_EQ(c.isDrawn, !s->IsEmpty()) << "clip at " << c.clip.x << ", " << c.clip.y;
    }
}

/// Blended lines take another way down rows 4 KiB apart.
TEST(Lines, The_distance_of_rows_makes_no_difference) {
    constexpr int kSide = 90, kCrowded = 4096, kLoose = 1000;
    std::mt19937 random(23);
    const auto any = [&] { return static_cast<int>(random() % 130) - 20; };
    for (const unsigned depth : {8U, 16U, 32U}) {
        std::vector<unsigned char> memory(kSide * kCrowded), other(kSide * kLoose);
        const SurfacePtr crowded(GfxSurface::New(depth)), loose(GfxSurface::New(depth));
        crowded->Initialise(kSide, kSide, memory.data(), kCrowded, false);
        loose->Initialise(kSide, kSide, other.data(), kLoose, false);
        for (int i = 0; i < 400; ++i) {
            const Point a{any(), any()}, b{any(), any()};
            const auto color = static_cast<Word>(random());
            for (const auto& s : {crowded.get(), loose.get()}) {
                s->DrawLine(a.x, a.y, b.x, b.y, color);
                s->DrawAALine(b.x, a.y, a.x, b.y, color);
            }
        }
        for (int y = 0; y < kSide; ++y) {
            ASSERT_EQ(0, std::memcmp(crowded->Line(y), loose->Line(y), kSide * depth / 8))
                << "depth " << depth << ", row " << y;
        }
    }
}

TEST(AALine, A_level_or_upright_line_draws_on_what_either_of_its_pixels_reaches) {
    const SurfacePtr surface = MakeSurface(32, 20, 20);
    surface->DrawLine(0, 0, 3, 1, 0);  // with a dots buffer lines may go another way
    surface->SetClipRect(5, 6, 9, 7);
    for (int at = 0; at < 20; ++at) {
        for (int from = 0; from < 20; from += 3) {
            for (int to = 0; to < 20; to += 2) {
                if (from == to) continue;
                for (const bool isLevel : {true, false}) {
                    for (const bool isDashed : {false, true}) {
                        surface->SetEmpty(true);
                        const int x0 = isLevel ? from : at;
                        const int y0 = isLevel ? at : from;
                        const int x1 = isLevel ? to : at;
                        const int y1 = isLevel ? at : to;
                        isDashed ? surface->DrawAALine(x0, y0, x1, y1, 0x00FFFFFF, nullptr, 0)
                                 : surface->DrawAALine(x0, y0, x1, y1, 0x00FFFFFF);
                        const int low = isLevel ? 5 : 6;
                        const int high = isLevel ? 14 : 13;
                        const bool isAlong = std::max(from, to) >= low && std::min(from, to) < high;
                        // The line's own pixel, or the one behind it.
                        const bool isAcross =
                            isLevel ? at + 1 >= 6 && at < 13 : at + 1 >= 5 && at < 14;
                        EXPECT_EQ(!(isAlong && isAcross), surface->IsEmpty())
                            << x0 << ", " << y0 << " to " << x1 << ", " << y1
                            << (isDashed ? ", as a pattern" : "");
                    }
                }
            }
        }
    }
}

}  // namespace
}  // namespace test
