// Every operation with a hook that fails at every call it makes: run again afterwards, it leaves
// the pictures of a run without a failure.
#include <gfx/font_cache.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <vector>

#include "support/hook_ledger.h"
#include "support/probe_surface.h"

namespace test {
namespace {

/// Three surfaces with pictures, an open face, and what else operations take.
struct Scene {
    SurfacePtr words = MakeSurface(32, 40, 30);
    SurfacePtr pixels = MakeSurface(16, 40, 30);
    SurfacePtr bytes = MakeSurface(8, 40, 30);
    std::unique_ptr<GfxFontCache> fonts{new GfxFontCache};
    std::array<unsigned char, 512> memory{};
    GfxFontCache::GlyphGeom geom{};

    Scene() {
        for (const SurfacePtr& surface : {std::cref(words), std::cref(pixels), std::cref(bytes)}) {
            for (int i = 0; i < 1200; ++i)
                surface->SetPixelRGB(i % 40, i / 40, static_cast<unsigned>(i) * 0x01234567U);
        }
        EXPECT_TRUE(fonts->OpenFace(GFX_TEST_FACE, 14, true));
    }

    std::vector<unsigned> Look() const {
        std::vector<unsigned> seen(memory.begin(), memory.end());
        for (const SurfacePtr& surface : {std::cref(words), std::cref(pixels), std::cref(bytes)}) {
            seen.insert(seen.end(), {surface->DX(), surface->DY(), surface->Pitch()});
            for (unsigned y = 0; y < surface->DY(); ++y) {
                for (unsigned x = 0; x < surface->DX(); ++x)
                    seen.push_back(surface->RetPixelRGB(static_cast<int>(x), static_cast<int>(y)));
            }
        }
        for (const short value : {geom.left, geom.right, geom.top, geom.bottom, geom.advance})
            seen.push_back(static_cast<unsigned>(value));
        return seen;
    }
};

constexpr unsigned short kDashes[] = {3, 2};

const struct {
    const char* name;
    unsigned leastFailures;  // calls of a hook that there are to fail
    void (*run)(Scene&);
} kOperations[] = {
    {"New and Delete", 4,
     [](Scene&) {
         GfxSurface* made = GfxSurface::New(16);
         try {
             made->Initialise(9, 9);
         } catch (const HookFailure&) {
             GfxSurface::Delete(made);
             throw;
         }
         GfxSurface::Delete(made);
     }},
    {"Initialise", 6, [](Scene& s) { s.words->Initialise(17, 11); }},
    {"Initialise over memory", 4,
     [](Scene& s) { s.pixels->Initialise(9, 9, s.memory.data(), 20, false); }},
    {"SetNewSize", 6, [](Scene& s) { s.bytes->SetNewSize(60, 20); }},
    {"OptimiseSize", 12,
     [](Scene& s) {
         s.words->Initialise(40, 30);  // a failure leaves no size to go on from
         s.words->SetNewSize(3, 3);
         s.words->OptimiseSize();
     }},
    {"Clear", 0, [](Scene& s) { s.words->Clear(); }},
    {"SetPixelRGB", 0, [](Scene& s) { s.pixels->SetPixelRGB(3, 3, 5); }},
    {"SetPixelLineBGR24", 0,
     [](Scene& s) { s.words->SetPixelLineBGR24(1, 1, 20, s.memory.data()); }},
    {"SetPixelLineMono", 0,
     [](Scene& s) { s.words->SetPixelLineMono(1, 1, 20, 7, s.memory.data()); }},
    {"RectFill", 0, [](Scene& s) { s.words->RectFill(1, 1, 9, 9, 77); }},
    {"RectFillBlend", 0,
     [](Scene& s) { s.words->RectFillBlend(1, 1, 9, 9, 0x40AABBCC, 0, 0, s.bytes.get()); }},
    {"RectCopy", 0, [](Scene& s) { s.pixels->RectCopy(0, 0, 40, 30, 5, 5, s.words.get(), true); }},
    {"RectBlend", 0, [](Scene& s) { s.bytes->RectBlend(0, 0, 40, 30, 5, 5, s.words.get(), true); }},
    {"RectBlendAlpha", 0,
     [](Scene& s) { s.pixels->RectBlendAlpha(0, 0, 40, 30, 5, 5, -0.5, s.words.get(), true); }},
    {"RectExtract", 0,
     [](Scene& s) { s.words->RectExtract(0, 0, 9, 9, 0, 0, s.bytes.get(), GfxSurface::PlaneRed); }},
    {"RectInsert", 0,
     [](Scene& s) { s.words->RectInsert(0, 0, 9, 9, 0, 0, s.bytes.get(), GfxSurface::PlaneBlue); }},
    {"RectExtractMono", 0,
     [](Scene& s) { s.words->RectExtractMono(0, 0, 30, 9, 0, 0, s.memory.data(), 8); }},
    {"RectExtractMonoAlpha", 0,
     [](Scene& s) { s.words->RectExtractMonoAlpha(0, 0, 30, 9, 0, 0, s.memory.data(), 8); }},
    {"DrawLine", 1, [](Scene& s) { s.words->DrawLine(0, 0, 30, 17, 0x40FFFFFF); }},
    {"DrawLine, dashed", 1,
     [](Scene& s) { s.pixels->DrawLine(0, 3, 30, 17, 0x40FFFFFF, kDashes, 2); }},
    {"DrawAALine", 1, [](Scene& s) { s.words->DrawAALine(0, 0, 17, 29, 0x40FFFFFF); }},
    {"DrawAALine, level", 1, [](Scene& s) { s.bytes->DrawAALine(0, 4, 17, 4, 0x40FFFFFF); }},
    {"QuickBltTo565", 0, [](Scene& s) { s.words->QuickBltTo565(0, 0, 9, 9, s.memory.data(), 18); }},
    {"QuickBltTo555", 0,
     [](Scene& s) { s.pixels->QuickBltTo555(0, 0, 9, 9, s.memory.data(), 18); }},
    {"OpenFace", 2, [](Scene& s) { EXPECT_TRUE(s.fonts->OpenFace(GFX_TEST_FACE, 11, false)); }},
    {"GetGlyphGeometry", 3, [](Scene& s) { s.fonts->GetGlyphGeometry(0x41, s.geom); }},
    {"AccessGlyph", 3,
     [](Scene& s) {
         GfxSurface* band = nullptr;
         unsigned short x = 0;
         unsigned short y = 0;
         s.fonts->AccessGlyph(0x142, band, x, y, s.geom);
     }},
    {"DrawGlyph", 3,
     [](Scene& s) { s.fonts->DrawGlyph(0x57, 9, 20, 0x20FF00FF, s.pixels.get(), 0); }},
    {"DrawGlyph, turned", 3,
     [](Scene& s) { s.fonts->DrawGlyph(0x57, 20, 20, 0x20FF00FF, s.words.get(), 90); }},
};

TEST(FailingOperations, Run_again_leave_the_pictures_of_a_run_without_a_failure) {
    for (const auto& operation : kOperations) {
        LedgerCheck check;
        std::vector<unsigned> expected;
        {
            Scene scene;
            operation.run(scene);
            expected = scene.Look();
        }
        unsigned failures = 0;
        for (bool isDone = false; !isDone;) {
            Scene scene;
            HookLedger::ThrowAt(failures + 1);
            try {
                operation.run(scene);
                isDone = true;
            } catch (const HookFailure&) {
                ++failures;
                operation.run(scene);
            }
            HookLedger::ThrowAt(0);
            const std::vector<unsigned> seen = scene.Look();
            ASSERT_EQ(expected.size(), seen.size()) << operation.name << ", call " << failures;
            const auto at = std::mismatch(seen.begin(), seen.end(), expected.begin()).first;
            ASSERT_EQ(seen.end(), at) << operation.name << ", call " << failures
                                      << " of a hook failed: value " << at - seen.begin();
        }
        EXPECT_GE(failures, operation.leastFailures) << operation.name;
    }
}

}  // namespace
}  // namespace test
