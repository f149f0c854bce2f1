// Memory that the host lays out: a derived class that supplies everything itself, and surfaces that
// share one block.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "support/fenced_memory.h"
#include "support/hook_ledger.h"
#include "support/probe_surface.h"

namespace test {
namespace {

// Supplies everything itself: rows in blocks of their own, in no order.
class HandMadeSurface : public ProbeSurface {
public:
    using ProbeSurface::ProbeSurface;
    ~HandMadeSurface() noexcept(false) override { HandMadeSurface::FreeSurfaceAndLines(); }
    std::string called;
    std::vector<FencedMemory> rows;

protected:
    void AllocSurface() override {
        called += "surface ";
        for (unsigned y = 0; y < DY(); ++y)
            rows.emplace_back(Pitch(), 1u, 3u, (y * 5) % 8);
        surface = rows.front().Data();
        SetEmpty(true);
    }
    void AllocLinesForSurface() override {
        called += "lines ";
        for (unsigned y = 0; y < DY(); ++y)
            table_.push_back(rows[(y * 7 + 3) % rows.size()].Data());
        words_.resize(DX());
        lines = table_.data();
        rgbLine = words_.data();
    }
    void AllocDotsBuffer() override {
        called += "dots ";
        records_.resize(MAX_LINE_LENGTH);
        dots = records_.data();
    }
    void FreeSurfaceAndLines() override {
        called += "free ";
        surface = nullptr;
        lines = nullptr;
        rgbLine = nullptr;
        dots = nullptr;
    }

private:
    std::vector<std::uint8_t*> table_;
    std::vector<std::uint32_t> words_;
    std::vector<LineDot> records_;
};

TEST(HostMemory, A_derived_class_supplies_its_own_memory) {
    for (const unsigned bits : {8u, 16u, 32u}) {
        LedgerCheck ledger;
        const SurfacePtr plain = MakeSurface(bits, 37, 20);
        HookLedger::StartTrace();
        HandMadeSurface s(bits);
        s.Initialise(37, 20);
        const auto draw = [](GfxSurface& on) {
            on.RectFill(0, 0, 37, 20, 0x00123456);
            on.RectFillBlend(3, 3, 20, 9, 0x60FF8040);
            on.RectCopy(2, 5, 30, 12, 0, 2, nullptr, false);
            on.DrawAALine(0, 0, 36, 19, 0x20FFFFFF);
            on.DrawLine(36, 0, 0, 19, 0x00FF0000);
        };
        draw(s);
        EXPECT_EQ(0u, HookLedger::TakeTrace().size()) << "the hooks were called all the same";
        EXPECT_EQ("free surface lines dots ", s.called);
        draw(*plain);
        for (int i = 0; i < 37 * 20; ++i)
            ASSERT_EQ(plain->RetPixelRGB(i % 37, i / 37), s.RetPixelRGB(i % 37, i / 37)) << i;
        for (const FencedMemory& row : s.rows)
            EXPECT_TRUE(row.IsFenceWhole()) << "depth " << bits;
    }
}

/// With one surface's rows as noise, and nothing else of them known.
void FillWithNoise(HandMadeSurface& s) {
    for (FencedMemory& row : s.rows)
        std::fill_n(row.Data(), row.Size() - 3, std::uint8_t{0xAB});
}

TEST(HostMemory, Clear_of_rows_that_lie_apart_zeroes_them_and_nothing_else) {
    for (const unsigned width : {1u, 40u}) {
        for (const unsigned kind : {0u, 1u, 2u, 3u, 4u, 5u, 6u, 7u}) {
            const unsigned bits = std::array{8u, 16u, 32u, 1u}[kind % 4];
            const bool hasSurface = kind < 4;
            HandMadeSurface s(bits);
            s.Initialise(width, 24);
            FillWithNoise(s);
            if (!hasSurface) s.surface = nullptr;
            s.SetEmpty(false);
            s.Clear();
            EXPECT_TRUE(s.IsEmpty());
            const unsigned rowBytes = bits == 1 ? (width + 7) / 8 : width * s.bytesPerPixel;
            for (int y = 0; y < 24; ++y) {
                const auto* row = static_cast<const std::uint8_t*>(s.Line(y));
                EXPECT_EQ(rowBytes, std::count(row, row + rowBytes, 0))
                    << "depth " << bits << ", width " << width << ", row " << y
                    << ", first row known: " << hasSurface;
            }
            for (const FencedMemory& row : s.rows)
                EXPECT_TRUE(row.IsFenceWhole()) << "depth " << bits;
        }
    }
}

TEST(HostMemory, Clear_of_a_few_bytes_zeroes_them) {
    for (unsigned size = 1; size < 5; ++size) {
        std::uint8_t pixels[6] = {1, 2, 3, 4, 5, 6};
        ProbeSurface s(8);
        s.Initialise(1, size, pixels, 1, false);
        s.Clear();
        for (unsigned i = 0; i < 6; ++i)
            EXPECT_EQ(i < size ? 0 : i + 1, pixels[i]) << size << " bytes";
    }
}

TEST(HostMemory, Clear_of_a_smaller_size_zeroes_its_rows_wherever_they_lie) {
    OrderedSurface s(32, RowOrder::kBottomUp);
    s.Initialise(20, 10);
    s.RectFill(0, 0, 20, 10, 7);
    s.SetNewSize(20, 3);
    s.Clear();
    s.SetNewSize(20, 10);
    for (int y = 0; y < 10; ++y)
        EXPECT_EQ(y < 3 ? 0u : 7u, s.RetPixelRGB(19, y)) << "row " << y;
}

TEST(HostMemory, Surfaces_over_one_memory_never_leave_it) {
    FencedMemory memory(128, 40, 0, 3);
    for (const unsigned bits : {8u, 16u, 32u}) {
        ProbeSurface a(bits), b(32);
        const unsigned w = 128 / a.bytesPerPixel;
        a.Initialise(w, 40, memory.Data(), memory.Pitch(), false);
        b.Initialise(30, 38, memory.Data() + 5, memory.Pitch(), false);
        for (int shift = -9; shift <= 9; ++shift) {
            a.RectCopy(shift, 0, w, 40, 0, shift, &b, shift > 0);
            b.RectBlend(0, shift, 60, 60, 2, 0, &a, shift < 0);
            b.RectFillBlend(shift, 1, 30, 40, 0x20FFFFFF, -1, 0, &a);
        }
        EXPECT_TRUE(memory.IsFenceWhole()) << "depth " << bits;
    }
}

}  // namespace
}  // namespace test
