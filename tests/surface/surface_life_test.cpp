// Life and memory of a surface: what it asks the hooks for and returns to them, its sizes and its
// clip rectangle.
#include <gfx/version.h>
#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <numeric>
#include <string>
#include <vector>

#include "support/fenced_memory.h"
#include "support/hook_ledger.h"
#include "support/probe_surface.h"
#include "surface/model.h"

namespace test {
namespace {

template <typename Action>
std::string FailureOf(Action action) {
    try {
        action();
    } catch (const char* text) {
        return text;
    }
    return "none";
}

std::vector<std::int64_t> Layout(const ProbeSurface& s) {
    return {s.DX(),   s.DY(),   s.allocDX, s.allocDY, s.Pitch(),
            s.clipX0, s.clipY0, s.clipX1,  s.clipY1,  s.ownsSurface};
}

TEST(SurfaceLife, Depths_above_32_throw_the_limit_and_leave_no_block) {
    for (const unsigned bits : {33u, 64u, UINT_MAX}) {
        LedgerCheck ledger;
        EXPECT_EQ("bpp < 33", FailureOf([&] { GfxSurface::New(bits); })) << "depth " << bits;
    }
}

TEST(SurfaceLife, Every_depth_starts_without_memory_and_gets_its_pixel_size) {
    for (unsigned bits = 0; bits <= 32; ++bits) {
        LedgerCheck ledger;
        ProbeSurface s(bits);
        const unsigned bytes = bits == 0 ? 0 : bits <= 8 ? 1 : bits <= 16 ? 2 : 4;
        EXPECT_EQ(bytes, s.bytesPerPixel) << "depth " << bits;
        EXPECT_EQ(bytes == 4 ? 2u : bytes == 2 ? 1u : 0u, s.pixelShift) << "depth " << bits;
        EXPECT_EQ(bits, s.Depth());
        EXPECT_EQ(std::vector<std::int64_t>(10), Layout(s)) << "depth " << bits;
        EXPECT_EQ(0u, s.Alpha() + s.transparentColor + s.transparent + s.IsEmpty());
        EXPECT_TRUE(!s.surface && !s.lines && !s.rgbLine && !s.dots) << "depth " << bits;
        s.Clear();
        EXPECT_TRUE(s.IsEmpty()) << "Clear without memory sets the flag";
    }
}

TEST(SurfaceLife, New_gives_null_when_the_hook_does_and_Delete_nulls_its_pointer) {
    LedgerCheck ledger;
    HookLedger::DeliverNullOnce();
    EXPECT_EQ(nullptr, GfxSurface::New(32));
    GfxSurface* s = nullptr;
    GfxSurface::Delete(s);
    s = GfxSurface::New(8);
    ASSERT_NE(nullptr, s);
    GfxSurface::Delete(s);
    EXPECT_EQ(nullptr, s);
}

TEST(SurfaceLife, Blocks_have_exactly_their_stated_sizes_and_go_back_in_order) {
    LedgerCheck ledger;
    ProbeSurface s(24);
    HookLedger::StartTrace();
    s.Initialise(10, 5);
    s.DrawLine(0, 0, 5, 3, 0);
    const void* const held[] = {s.lines, s.surface, s.rgbLine, s.dots};
    s.Initialise(0, 0);
    const std::vector<HookCall> calls = HookLedger::TakeTrace();
    const unsigned long sizes[] = {240, 5 * sizeof(void*), 40, 10000 * sizeof(GfxSurface::LineDot)};
    ASSERT_EQ(11u, calls.size());
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(sizes[i], calls[i].size) << "request " << i;
        EXPECT_EQ(held[i], calls[4 + i].block) << "return " << i;
        EXPECT_FALSE(calls[4 + i].isAlloc) << "return " << i;
    }
    for (std::size_t i = 8; i < 11; ++i)
        EXPECT_TRUE(calls[i].isAlloc && calls[i].size == 0) << "empty request " << i;
}

TEST(SurfaceLife, Host_memory_is_neither_requested_nor_returned) {
    LedgerCheck ledger;
    FencedMemory memory(14, 3, 1);
    HookLedger::StartTrace();
    {
        ProbeSurface s(16);
        s.Initialise(7, 3, memory.Data(), memory.Pitch(), true);
        EXPECT_TRUE(s.IsEmpty());
        for (int y = 0; y < 3; ++y)
            EXPECT_EQ(memory.Row(static_cast<std::size_t>(y)), s.Line(y)) << "row " << y;
    }
    const std::vector<HookCall> calls = HookLedger::TakeTrace();
    ASSERT_EQ(4u, calls.size()) << "row table and scratch row, there and back";
    EXPECT_EQ(3 * sizeof(void*), calls[0].size);
    EXPECT_EQ(7 * 4u, calls[1].size);
}

TEST(SurfaceLife, Initialise_rounds_rows_up_and_gives_zeroed_memory) {
    static constexpr unsigned kCases[][3] = {
        // depth, width, pitch
        {24, 10, 48}, {16, 7, 16}, {8, 1, 16},  {1, 100, 14}, {1, 17, 4},  {1, 16, 2}, {1, 1, 2},
        {8, 16, 16},  {8, 17, 32}, {16, 8, 16}, {9, 9, 32},   {32, 5, 32}, {0, 50, 0}, {17, 0, 0}};
    for (const auto& [bits, w, pitch] : kCases) {
        LedgerCheck ledger;
        ProbeSurface s(bits);
        s.Initialise(w, 3);
        EXPECT_EQ(pitch, s.Pitch()) << "depth " << bits << ", width " << w;
        EXPECT_EQ((std::vector<std::int64_t>{w, 3, w, 3, pitch, 0, 0, w, 3, 1}), Layout(s));
        EXPECT_EQ(0, std::accumulate(s.surface, s.surface + 3 * pitch, 0)) << "depth " << bits;
        EXPECT_TRUE(s.IsEmpty());
        for (int y = 0; y < 3; ++y)
            EXPECT_EQ(s.surface + static_cast<unsigned>(y) * pitch, s.Line(y)) << "row " << y;
    }
}

struct SizeCase {
    unsigned w, h, newW, newH;
    unsigned allocW, allocH, thenW, thenH;
    bool keepsContent;
};

void CheckSizes(const SizeCase& c, bool optimise) {
    LedgerCheck ledger;
    ProbeSurface s(8);
    s.Initialise(c.w, c.h);
    s.SetPixelRGB(1, 1, 0x00FFFFFF);
    const std::size_t before = HookLedger::Calls();
    s.SetNewSize(c.newW, c.newH);
    if (optimise) s.OptimiseSize();
    SCOPED_TRACE(testing::Message() << c.w << "x" << c.h << " to " << c.newW << "x" << c.newH);
    const unsigned pitch = (c.allocW + 15) / 16 * 16;
    EXPECT_EQ((std::vector<std::int64_t>{c.thenW, c.thenH, c.allocW, c.allocH, pitch, 0, 0,
                                         c.allocW, c.allocH, 1}),
              Layout(s));
    EXPECT_EQ(c.keepsContent, HookLedger::Calls() == before) << "hook calls";
    EXPECT_EQ(c.keepsContent ? 0x00FFFFFFu : 0u, s.RetPixelRGB(1, 1));
    EXPECT_EQ(!c.keepsContent, s.IsEmpty());
}

TEST(SurfaceLife, SetNewSize_reallocates_only_to_grow) {
    static constexpr SizeCase kCases[] = {
        {100, 100, 50, 50, 100, 100, 50, 50, true}, {100, 100, 100, 100, 100, 100, 100, 100, true},
        {64, 64, 100, 40, 112, 48, 100, 40, false}, {64, 64, 15, 65, 16, 80, 15, 65, false},
        {64, 64, 65, 16, 80, 32, 65, 16, false},    {64, 64, 0, 0, 64, 64, 0, 0, true}};
    for (const SizeCase& c : kCases)
        CheckSizes(c, false);
}

TEST(SurfaceLife, OptimiseSize_reallocates_only_when_both_rounded_sides_shrink) {
    static constexpr SizeCase kCases[] = {{256, 256, 20, 200, 32, 208, 32, 208, false},
                                          {112, 48, 50, 40, 112, 48, 50, 40, true},
                                          {256, 256, 128, 128, 256, 256, 128, 128, true},
                                          {256, 256, 127, 128, 128, 144, 128, 144, false},
                                          {256, 256, 200, 0, 208, 16, 208, 16, false},
                                          {33, 33, 15, 16, 16, 32, 16, 32, false},
                                          {32, 33, 15, 16, 16, 32, 16, 32, false},
                                          {32, 33, 16, 16, 32, 33, 16, 16, true}};
    for (const SizeCase& c : kCases)
        CheckSizes(c, true);
}

TEST(SurfaceLife, Refused_sizes_throw_before_anything_changes) {
    LedgerCheck ledger;
    FencedMemory memory(64, 2);
    const auto over = [&](unsigned w, unsigned h, unsigned pitch) {
        return [=, &memory](ProbeSurface& s) { s.Initialise(w, h, memory.Data(), pitch, false); };
    };
    const auto own = [](unsigned w, unsigned h) {
        return [=](ProbeSurface& s) { s.Initialise(w, h); };
    };
    const auto resize = [](unsigned w, unsigned h) {
        return [=](ProbeSurface& s) { s.SetNewSize(w, h); };
    };
    const struct {
        unsigned bits;
        std::function<void(ProbeSurface&)> act;
        const char* what;
        const char* refusal;
    } kCases[] = {{8, own(0x80000000, 0), "width", "dx <= INT_MAX"},
                  {8, own(0, 0x80000000), "height", "dy <= INT_MAX"},
                  {0, own(0xFFFFFFFF, 1), "width of depth 0", "dx <= INT_MAX"},
                  {32, own(0x40000000, 0), "row of 2^32 bytes", "row <= pitch"},
                  {32, own(0x3FFFFFFF, 0), "row of 2^32 - 4 bytes, rounded up", "row <= pitch"},
                  {16, own(0x7FFFFFFF, 0), "row of 2^32 - 2 bytes, rounded up", "row <= pitch"},
                  {8, over(0x80000000, 1, 0xFFFFFFFF), "host width", "dx <= INT_MAX"},
                  {8, over(1, 0x80000000, 64), "host height", "dy <= INT_MAX"},
                  {16, over(10, 2, 19), "16-bit row beyond its pitch", "row <= pitch"},
                  {32, over(16, 2, 63), "32-bit row beyond its pitch", "row <= pitch"},
                  {32, over(0x40000001, 2, 64), "row whose 32-bit size would fit", "row <= pitch"},
                  {1, over(17, 2, 2), "1-bit row beyond its pitch", "row <= pitch"},
                  {8, resize(0x7FFFFFF8, 1), "width after rounding", "dx <= INT_MAX"},
                  {8, resize(1, 0x7FFFFFF0), "height after rounding", "dy <= INT_MAX"},
                  {8, resize(0xFFFFFFFF, 1), "width whose rounding wraps", "dx <= INT_MAX"},
                  {32, resize(0x3FFFFFF0, 1), "row after rounding", "row <= pitch"}};
    for (const auto& c : kCases) {
        ProbeSurface s(c.bits);
        s.Initialise(9, 4);
        s.SetClipRect(1, 1, 3, 2);
        const std::vector<std::int64_t> before = Layout(s);
        const std::size_t calls = HookLedger::Calls();
        EXPECT_EQ(c.refusal, FailureOf([&] { c.act(s); })) << c.what;
        EXPECT_EQ(before, Layout(s)) << c.what;
        EXPECT_EQ(calls, HookLedger::Calls()) << c.what;
    }
}

TEST(SurfaceLife, Host_rows_may_end_exactly_at_the_pitch) {
    FencedMemory memory(64, 2);
    static constexpr unsigned kCases[][4] = {// depth, width, height, pitch
                                             {16, 10, 2, 20}, {32, 16, 2, 64}, {1, 17, 2, 3},
                                             {8, 64, 2, 64},  {8, 64, 0, 1},   {0, 9, 2, 0}};
    for (const auto& [bits, w, h, pitch] : kCases) {
        ProbeSurface s(bits);
        EXPECT_EQ("none", FailureOf([&, w = w, h = h, pitch = pitch] {
                      s.Initialise(w, h, memory.Data(), pitch, false);
                  }))
            << "depth " << bits << ", width " << w;
        EXPECT_EQ(pitch, s.Pitch());
    }
}

TEST(SurfaceLife, Without_host_memory_a_huge_surface_draws_nothing_and_reads_as_0) {
    LedgerCheck ledger;
    ProbeSurface s(32);
    s.Initialise(0x7FFFFFFF, 0x7FFFFFFF, nullptr, 0, true);
    EXPECT_EQ(INT_MAX, s.clipX1);
    EXPECT_EQ(nullptr, s.lines);
    EXPECT_EQ(nullptr, s.Line(0));
    s.RectFill(0, 0, 0x7FFFFFFF, 0x7FFFFFFF, 1);
    EXPECT_FALSE(s.IsEmpty());
    s.RectFillBlend(-5, -5, 0x7FFFFFFF, 0x7FFFFFFF, 0x80000001);
    s.RectBlend(0, 0, 0x7FFFFFFF, 0x7FFFFFFF, 0, 0, nullptr, true);
    s.SetPixelRGB(INT_MAX - 1, INT_MAX - 1, 7);
    s.DrawLine(0, 0, 20, 10, 7);
    EXPECT_EQ(0u, s.RetPixelRGB(INT_MAX - 1, INT_MAX - 1));
    EXPECT_EQ(0u, s.RetPixelMergeRGB(INT_MAX - 1, 5, 0.5, 0.5));
    s.Clear();
    EXPECT_TRUE(s.IsEmpty());
}

TEST(SurfaceLife, A_surface_without_memory_is_refused_no_size_that_fits_an_int) {
    LedgerCheck ledger;
    for (const unsigned w : {0x40000000u, 0x7FFFFFFFu}) {
        for (const unsigned pitch : {0u, 0xFFFFFFFFu}) {
            ProbeSurface s(32);
            const std::size_t calls = HookLedger::Calls();
            EXPECT_EQ("none", FailureOf([&] { s.Initialise(w, w, nullptr, pitch, true); }));
            EXPECT_EQ((std::vector<std::int64_t>{w, w, w, w, pitch, 0, 0, w, w, 0}), Layout(s));
            EXPECT_EQ(calls, HookLedger::Calls()) << "nothing is needed";
        }
    }
}

/// A class of a host's that takes its memory where the library does.
struct HostObject : GfxMemory {
    int values[5];
};

TEST(GfxMemory, Objects_and_arrays_of_them_come_from_the_hooks) {
    LedgerCheck ledger;
    HookLedger::StartTrace();
    HostObject* one = new HostObject;
    HostObject* many = new HostObject[7];
    delete one;
    delete[] many;
    delete static_cast<HostObject*>(nullptr);
    const std::vector<HookCall> calls = HookLedger::TakeTrace();
    ASSERT_EQ(4u, calls.size());
    EXPECT_EQ(sizeof(HostObject), calls[0].size);
    EXPECT_EQ(7 * sizeof(HostObject), calls[1].size);
    EXPECT_EQ(calls[0].block, calls[2].block);
    EXPECT_EQ(calls[1].block, calls[3].block);
}

TEST(Version, Of_the_library_is_that_of_the_headers) { EXPECT_EQ(GFX_VERSION, GfxVersion()); }

}  // namespace
}  // namespace test
