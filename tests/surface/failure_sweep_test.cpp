// Hooks that throw: at every single call of a long scenario, and inside every Initialise. Whatever
// fails, the objects stay usable and no block is lost or returned twice.
#include <gtest/gtest.h>

#include <array>

#include "support/fenced_memory.h"
#include "support/hook_ledger.h"
#include "support/probe_surface.h"

namespace test {
namespace {

struct Scene {
    GfxSurface* small = nullptr;
    GfxSurface* large = nullptr;
    GfxSurface* plane = nullptr;
    FencedMemory host{80, 30};
    std::array<unsigned char, 64> bits{};

    void Draw() {
        large->RectFill(0, 0, 40, 40, 0x00336699);
        large->RectFillBlend(2, 2, 9, 9, 0x80FF0000, 0, 0, plane);
        large->RectCopy(1, 1, 20, 20, 3, 3, small, true);
        small->RectBlendAlpha(0, 0, 20, 20, 0, 0, 0.5, large, false);
        large->DrawLine(0, 0, 19, 7, 0x00FFFFFF);
        small->DrawAALine(0, 0, 7, 19, 0x00FFFFFF);
        large->RectExtract(0, 0, 9, 9, 0, 0, plane, GfxSurface::PlaneRed);
        small->RectInsert(0, 0, 9, 9, 0, 0, plane, GfxSurface::PlaneBlue);
        small->RectExtractMono(0, 0, 8, 8, 0, 0, bits.data(), 8);
    }
    void Run() {
        small = GfxSurface::New(16);
        small->Initialise(20, 20);
        large = GfxSurface::New(32);
        large->Initialise(20, 30, host.Data(), host.Pitch(), false);
        plane = GfxSurface::New(8);
        plane->Initialise(30, 30);
        Draw();
        large->SetNewSize(64, 64);
        large->SetNewSize(10, 20);
        large->OptimiseSize();
        Draw();
        small->Initialise(25, 25);
        Draw();
        GfxSurface::Delete(small);
        GfxSurface::Delete(large);
        GfxSurface::Delete(plane);
    }
    void Recover(GfxSurface*& s) {
        if (s == nullptr) return;
        s->RectFill(-5, -5, 200, 200, 0x00FFFFFF);
        s->DrawLine(0, 0, 3, 1, 0x00FFFFFF);
        s->Initialise(12, 12);
        s->DrawLine(0, 0, 11, 5, 0x00FFFFFF);
        s->RectCopy(0, 6, 12, 6, 0, 0, nullptr, false);
        EXPECT_EQ(0x00FFFFFFu, s->RetPixelRGB(11, 11)) << "depth " << s->Depth();
        GfxSurface::Delete(s);
    }
};

TEST(FailureSweep, A_hook_that_throws_at_any_call_leaves_everything_usable) {
    bool threw = true;
    std::size_t k = 0;
    while (threw && ++k < 500) {
        SCOPED_TRACE(testing::Message() << "call " << k << " throws");
        LedgerCheck ledger;
        Scene scene;
        threw = false;
        HookLedger::ThrowAt(k);
        try {
            scene.Run();
        } catch (const HookFailure&) {
            threw = true;
        }
        HookLedger::ThrowAt(0);
        scene.Recover(scene.small);
        scene.Recover(scene.large);
        scene.Recover(scene.plane);
        EXPECT_TRUE(scene.host.IsFenceWhole());
    }
    EXPECT_GT(k, 40u) << "the scenario is shorter than it looks";
    EXPECT_LT(k, 500u);
}

// Every call that lays a surface out anew.
const struct {
    const char* name;
    void (*act)(ProbeSurface&, FencedMemory&);
} kLayouts[] = {
    {"own memory", [](ProbeSurface& s, FencedMemory&) { s.Initialise(30, 20); }},
    {"host memory",
     [](ProbeSurface& s, FencedMemory& m) { s.Initialise(20, 30, m.Data(), m.Pitch(), false); }},
    {"new size", [](ProbeSurface& s, FencedMemory&) { s.SetNewSize(60, 20); }},
    {"smaller size", [](ProbeSurface& s, FencedMemory&) { s.SetNewSize(3, 3), s.OptimiseSize(); }}};

TEST(FailureSweep, A_failed_Initialise_leaves_a_surface_of_size_0_without_memory) {
    for (const auto& layout : kLayouts) {
        bool threw = true;
        for (std::size_t k = 1; threw && k < 20; ++k) {
            SCOPED_TRACE(testing::Message() << layout.name << ", call " << k << " throws");
            LedgerCheck ledger;
            FencedMemory memory(80, 30);
            ProbeSurface s(32);
            s.Initialise(40, 40);
            s.DrawLine(0, 0, 9, 3, 1);
            HookLedger::ThrowAt(k);
            EXPECT_NO_THROW({
                try {
                    layout.act(s, memory);
                    threw = false;
                } catch (const HookFailure&) {
                }
            });
            HookLedger::ThrowAt(0);
            if (!threw) {
                EXPECT_GT(k, 6u) << "four blocks go and at least two come";
                break;
            }
            EXPECT_TRUE(!s.surface && !s.lines && !s.rgbLine && !s.dots && !s.ownsSurface);
            EXPECT_EQ(0u, s.DX() + s.DY() + s.allocDX + s.allocDY);
            EXPECT_EQ(0, s.clipX0 | s.clipY0 | s.clipX1 | s.clipY1);
            s.RectFill(0, 0, 40, 40, 1);
            EXPECT_EQ(0u, s.RetPixelRGB(0, 0));
            EXPECT_TRUE(memory.IsFenceWhole());
        }
        EXPECT_FALSE(threw) << layout.name;
    }
}

TEST(FailureSweep, A_line_whose_buffer_cannot_be_had_leaves_the_surface_as_it_was) {
    LedgerCheck ledger;
    ProbeSurface s(32);
    s.Initialise(20, 20);
    HookLedger::ThrowAtAllocation(1);
    EXPECT_THROW(s.DrawLine(0, 0, 9, 9, 5), HookFailure);
    EXPECT_EQ(nullptr, s.dots);
    EXPECT_TRUE(s.IsEmpty());
    s.DrawAALine(0, 0, 9, 9, 5);
    EXPECT_EQ(5u, s.RetPixelRGB(9, 9));
    const std::size_t calls = HookLedger::Calls();
    s.DrawLine(3, 4, 9, 0, 7);
    EXPECT_EQ(calls, HookLedger::Calls()) << "the buffer is kept for later lines";
}

TEST(FailureSweep, New_of_a_refused_depth_shows_the_exception_of_a_hook_that_throws) {
    LedgerCheck ledger;
    HookLedger::ThrowAt(2);
    EXPECT_THROW(GfxSurface::New(33), HookFailure);
    EXPECT_FALSE(HookLedger::IsThrowPending()) << "the storage was not returned";
    EXPECT_THROW(GfxSurface::New(33), const char*);
    HookLedger::DeliverNullOnce();
    EXPECT_EQ(nullptr, GfxSurface::New(33));
}

TEST(FailureSweep, Null_for_a_request_of_0_bytes_is_no_failure) {
    LedgerCheck ledger;
    ProbeSurface s(32);
    HookLedger::DeliverNullOnce();
    s.Initialise(0, 5);
    s.RectFill(0, 0, 9, 9, 1);
    s.DrawLine(0, 0, 9, 3, 1);
    s.Initialise(5, 5);
    s.SetPixelRGB(4, 4, 9);
    EXPECT_EQ(9u, s.RetPixelRGB(4, 4));
}

}  // namespace
}  // namespace test
