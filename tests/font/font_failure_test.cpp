// Hooks that throw: at every call of a whole life in turn, the cache stays valid, keeps no
// unfinished glyph and returns every block once.
#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "font/probe_cache.h"
#include "font/test_face.h"
#include "support/hook_ledger.h"
#include "support/probe_surface.h"

namespace test {
namespace {

/// Heads and chains; at this size enough of them to outgrow the first band array, some wider than
/// a band.
std::vector<unsigned short> Codes() {
    std::vector<unsigned short> codes = {0x20, 0x141, 0x241, 0x41, 0x57};
    for (unsigned short code = 0x61; code < 0x75; ++code)
        codes.push_back(code);
    return codes;
}
constexpr int kSize = 70;

/// The pixels of a delivered image, as far as the band holds them.
std::vector<unsigned char> ImageOf(const Delivered& glyph) {
    std::vector<unsigned char> pixels;
    for (int row = 0; row < glyph.Height(); ++row) {
        for (int column = 0; column < glyph.Width(); ++column) {
            if (glyph.Holds(column, row)) pixels.push_back(glyph.Pixel(column, row));
        }
    }
    return pixels;
}

/// Whether `action` ends without a throwing hook.
bool Succeeds(const std::function<void()>& action) {
    try {
        action();
        return true;
    } catch (const HookFailure&) {
        return false;
    }
}

void ExpectUntouched(ProbeCache& cache, unsigned short code) {
    EXPECT_EQ(nullptr, cache.FindGlyphInfo(code)) << code;
    const GfxFontCache::GlyphInfo& head = cache.glyphs[code & 0xFF];
    if (code >= 256 || head.code == code) return;
    EXPECT_EQ(0xFFFF, head.code);
    EXPECT_EQ(0, head.width | head.height | head.band | head.bandX);
    EXPECT_EQ((std::array<int, 8>{}), Fields(head.geom));
}

/// One life of a cache, whichever call of it fails. Every step that failed is tried again.
void Live(const std::vector<std::vector<unsigned char>>& images) {
    ProbeSurface target(32);
    target.Initialise(40, 40);
    auto* cache = new ProbeCache;
    const auto open = [&] { EXPECT_TRUE(cache->OpenFace(GFX_TEST_FACE, kSize, true)); };
    for (int i = 0; i < 2; ++i) {
        if (!Succeeds(open)) {
            EXPECT_EQ(nullptr, cache->faceData) << "a failed OpenFace leaves the cache closed";
            open();
        }
    }
    const std::vector<unsigned short> codes = Codes();
    for (std::size_t i = 0; i < codes.size(); ++i) {
        Delivered glyph;
        const auto draw = [&] {
            cache->DrawGlyph(codes[i], 5, 35, 0, &target, 0);
            glyph = Access(*cache, codes[i]);
        };
        if (!Succeeds(draw)) {
            ExpectUntouched(*cache, codes[i]);
            draw();
        }
        EXPECT_EQ(images[i], ImageOf(glyph)) << codes[i];
    }
    EXPECT_GT(cache->bandCount, 10u) << "the band array did not grow";
    Succeeds([&] { cache->CloseFace(); });
    EXPECT_EQ(nullptr, cache->faceData);
    if (!Succeeds(open)) open();
    delete cache;
}

TEST(FontFailure, A_hook_may_throw_at_any_call_of_a_caches_life) {
    LedgerCheck check;
    std::vector<std::vector<unsigned char>> images;
    {
        ProbeCache cache;
        ASSERT_TRUE(cache.OpenFace(GFX_TEST_FACE, kSize, true));
        for (const unsigned short code : Codes())
            images.push_back(ImageOf(Access(cache, code)));
    }
    const std::size_t calls = HookLedger::Calls();
    Live(images);
    const std::size_t count = HookLedger::Calls() - calls;
    const std::size_t blocks = HookLedger::LiveBlocks();
    for (std::size_t k = 1; k <= count; ++k) {
        HookLedger::ThrowAt(k);
        Succeeds([&] { Live(images); });
        EXPECT_FALSE(HookLedger::IsThrowPending()) << "call " << k << " was not reached";
        ASSERT_EQ(blocks, HookLedger::LiveBlocks()) << "after a failure at call " << k;
        ASSERT_EQ(0u, HookLedger::Faults()) << "after a failure at call " << k;
        if (HasFailure()) FAIL() << "failed at call " << k << " of " << count;
    }
}

}  // namespace
}  // namespace test
