// Rows that share memory: a surface that shows each row twice, and display memory that is the
// surface's own. Each pixel must come out as the plain order of writes gives it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

#include "support/guarded_memory.h"
#include "support/hook_ledger.h"
#include "support/probe_surface.h"
#include "surface/line_model.h"

namespace test {
namespace {

/// Every `repeats` rows are the same memory; it begins `distance` bytes behind that of the rows
/// before, 0 standing for the pitch.
class RowsAt : public ProbeSurface {
public:
    RowsAt(unsigned bits, unsigned repeats, unsigned distance)
        : ProbeSurface(bits), repeats_(repeats), distance_(distance) {}

protected:
    void AllocLinesForSurface() override {
        ProbeSurface::AllocLinesForSurface();
        const std::size_t distance = distance_ == 0 ? Pitch() : distance_;
        for (unsigned y = 0; y < DY(); ++y)
            lines[y] = surface + y / repeats_ * distance;
    }

private:
    unsigned repeats_, distance_;
};

constexpr unsigned kWidth = 12;
constexpr unsigned kHeight = 11;

class SharedRows : public testing::TestWithParam<unsigned> {};

TEST_P(SharedRows, A_tile_copy_leaves_what_the_later_of_two_rows_shows) {
    const LedgerCheck ledger;
    const SurfacePtr source = MakeSurface(GetParam(), 3, 3);
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 3; ++x) {
            source->SetPixelRGB(
                x, y,
                0x00204060U * static_cast<unsigned>(1 + y) + 0x11U * static_cast<unsigned>(x));
        }
    }
    RowsAt target(GetParam(), 2, 0);
    target.Initialise(kWidth, kHeight);
    target.RectCopy(0, 0, kWidth, kHeight, 1, 2, source.get(), true);
    for (int y = 0; y < static_cast<int>(kHeight); ++y) {
        const int shown = y % 2 == 0 && y + 1 < static_cast<int>(kHeight) ? y + 1 : y;
        for (int x = 0; x < static_cast<int>(kWidth); ++x) {
            ASSERT_EQ(source->RetPixelRGB((x + 1) % 3, (shown + 2) % 3), target.RetPixelRGB(x, y))
                << "at (" << x << ", " << y << ")";
        }
    }
}

/// Rows begin the pitch apart, less than they are long, in memory that reaches
/// into the target's: where its pitch says that it ends, its last row goes on.
class CrampedSurface : public ProbeSurface {
public:
    CrampedSurface(unsigned bits, std::uint8_t* first) : ProbeSurface(bits), first_(first) {}

protected:
    void AllocLinesForSurface() override {
        surface = first_;
        ProbeSurface::AllocLinesForSurface();
    }

private:
    std::uint8_t* first_;
};

TEST_P(SharedRows, A_tile_copy_from_rows_that_reach_into_the_target_gives_exact_pixels) {
    constexpr unsigned kTile = 6, kRows = 3, kPitch = 8;
    const unsigned unit = GetParam() / 8;
    for (unsigned targetAt = 0; targetAt <= kRows * kPitch + kTile * unit; targetAt += unit) {
        std::vector<std::uint8_t> memory(1024), expected;
        for (std::size_t i = 0; i < memory.size(); ++i)
            memory[i] = static_cast<std::uint8_t>(i * 37 + i / 7);
        expected = memory;
        CrampedSurface source(GetParam(), memory.data());
        ProbeSurface target(GetParam());
        source.Initialise(kTile, kRows, nullptr, kPitch, false);
        target.Initialise(kWidth, kHeight, memory.data() + targetAt, kWidth * unit, false);
        target.RectCopy(0, 0, kWidth, kHeight, 2, 1, &source, true);
        for (unsigned y = 0; y < kHeight; ++y) {
            // Each row is read whole before it is written.
            std::vector<std::uint8_t> row;
            for (unsigned x = 0; x < kWidth * unit; ++x) {
                const unsigned column = (2 + x / unit) % kTile;
                row.push_back(expected[(1 + y) % kRows * kPitch + column * unit + x % unit]);
            }
            std::copy(row.begin(), row.end(),
                      expected.begin() + static_cast<int>(targetAt + y * kWidth * unit));
        }
        ASSERT_EQ(expected, memory) << "target " << targetAt << " bytes behind the source";
    }
}

/// Rows shown twice, and rows that begin less than a pixel, a pixel or little more behind another.
TEST_P(SharedRows, An_anti_aliased_line_blends_near_and_far_pixel_one_after_the_other) {
    const LedgerCheck ledger;
    constexpr unsigned kColor = 0x00F0A010;
    constexpr int kRise = 7;
    for (unsigned distance = 0; distance <= 6; ++distance) {
        RowsAt drawn(GetParam(), distance == 0 ? 2 : 1, distance);
        RowsAt plotted(GetParam(), distance == 0 ? 2 : 1, distance);
        for (RowsAt* surface : {&drawn, &plotted}) {
            surface->Initialise(kWidth, kHeight);
            surface->RectFill(0, 0, kWidth, kHeight, 0x00305070);
        }
        drawn.DrawAALine(0, 1, kWidth - 1, 1 + kRise, kColor);
        LineRecurrence dots(1, 0.0, kWidth - 1, kRise);
        for (int x = 0; x < static_cast<int>(kWidth); ++x) {
            const ModelDot dot = dots.Next();
            const int near = static_cast<int>(dot.minor);
            plotted.SetPixelRGBBlend(x, near, dot.fraction << 24 | kColor);
            plotted.SetPixelRGBBlend(x, near + 1, (255 - dot.fraction) << 24 | kColor);
        }
        for (int y = 0; y < static_cast<int>(kHeight); ++y) {
            for (int x = 0; x < static_cast<int>(kWidth); ++x) {
                ASSERT_EQ(plotted.RetPixelRGB(x, y), drawn.RetPixelRGB(x, y))
                    << "at (" << x << ", " << y << "), rows " << distance << " bytes apart";
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Depths, SharedRows, testing::Values(8U, 16U, 32U));

TEST(DisplayBlit, Converts_a_32_bit_surface_in_its_own_memory) {
    const LedgerCheck ledger;
    const SurfacePtr surface = MakeSurface(32, 37, 2);
    std::vector<unsigned> colors;
    for (int i = 0; i < 74; ++i) {
        colors.push_back(static_cast<unsigned>(i) * 0x01C35A11U);
        surface->SetPixelRGB(i % 37, i / 37, colors.back());
    }
    surface->QuickBltTo565(0, 0, 37, 2, surface->Line(0), surface->Pitch());
    for (int i = 0; i < 74; ++i) {
        const auto* row = static_cast<const std::uint8_t*>(surface->Line(i / 37));
        std::uint16_t pixel;
        std::memcpy(&pixel, row + 2 * (i % 37), sizeof pixel);
        const unsigned c = colors[static_cast<std::size_t>(i)];
        EXPECT_EQ((c >> 8 & 0xF800) | (c >> 5 & 0x07E0) | (c >> 3 & 0x001F), pixel)
            << "pixel " << i;
    }
}

TEST(DisplayBlit, Whole_pictures_are_converted_as_their_rows_are) {
    for (const unsigned depth : {16U, 32U}) {
        for (unsigned width = 1; width < 40; ++width) {
            const SurfacePtr surface = MakeSurface(depth, width, 5);
            std::vector<std::uint8_t> pixels(std::size_t{width} * 5 * depth / 8);
            for (std::size_t i = 0; i < pixels.size(); ++i)
                pixels[i] = static_cast<std::uint8_t>(i * 73 + i / 251);
            surface->Initialise(width, 5, pixels.data(), width * depth / 8, false);
            std::vector<std::uint8_t> together[2];
            std::vector<std::uint8_t> rowByRow[2];
            for (const int layout : {0, 1}) {
                const auto blit =
                    layout == 0 ? &GfxSurface::QuickBltTo565 : &GfxSurface::QuickBltTo555;
                together[layout].resize(std::size_t{width} * 10 + 2, 0xA5);
                rowByRow[layout] = together[layout];
                (surface.get()->*blit)(0, 0, width, 5, together[layout].data(), 2 * width);
                for (unsigned y = 0; y < 5; ++y) {
                    (surface.get()->*blit)(0, y, width, 1,
                                           rowByRow[layout].data() + std::size_t{2} * width * y, 0);
                }
                EXPECT_EQ(rowByRow[layout], together[layout]) << depth << " bits, width " << width;
            }
        }
    }
}

/// A surface whose row table ends where memory does.
class GuardedTable : public ProbeSurface {
public:
    explicit GuardedTable(unsigned bits) : ProbeSurface(bits), pages_(3) { pages_.Open(1, 1); }
    ~GuardedTable() noexcept(false) override { GiveBackTable(); }

protected:
    void AllocLinesForSurface() override {
        ProbeSurface::AllocLinesForSurface();
        own_ = lines;
        lines = reinterpret_cast<std::uint8_t**>(pages_.At(2)) - DY();
        std::copy(own_, own_ + DY(), lines);
    }
    void FreeSurfaceAndLines() override {
        GiveBackTable();
        ProbeSurface::FreeSurfaceAndLines();
    }

private:
    void GiveBackTable() {
        if (own_ != nullptr) lines = own_;
        own_ = nullptr;
    }

    Pages pages_;
    std::uint8_t** own_ = nullptr;
};

TEST(RowTable, Is_read_for_the_rows_of_a_rectangle_and_no_further) {
    const LedgerCheck ledger;
    for (const unsigned depth : {8U, 16U, 32U}) {
        GuardedTable target(depth);
        GuardedTable source(depth);
        GuardedTable words(32);
        for (GuardedTable* surface : {&target, &source, &words})
            surface->Initialise(16, 4);
        std::uint16_t display[16 * 4];
        for (unsigned h = 1; h <= 4; ++h) {
            const int y = 4 - static_cast<int>(h);
            target.RectFill(0, y, 16, h, 0x00FFFFFF);
            target.RectFillBlend(0, y, 16, h, 0x80FFFFFF);
            target.RectFillBlend(0, y, 16, h, 0x80FFFFFF, 0, y, &source);
            target.RectCopy(0, y, 16, h, 0, y, &source, false);
            target.RectCopy(0, y, 16, h, 0, y, &words, false);
            target.RectBlend(0, y, 16, h, 0, y, &words, false);
            words.RectCopy(0, y, 16, h, 0, y, &target, false);
            target.QuickBltTo565(0, static_cast<unsigned>(y), 16, h, display, 32);
            target.QuickBltTo555(0, static_cast<unsigned>(y), 16, h, display, 32);
        }
        EXPECT_EQ(words.RetPixelRGB(15, 3) & 0xFFFFFF, target.RetPixelRGB(15, 3) & 0xFFFFFF);
    }
}

}  // namespace
}  // namespace test
