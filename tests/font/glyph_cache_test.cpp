// The glyph table, the packing of images into bands, and the images themselves.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <string>

#include "font/probe_cache.h"
#include "font/test_face.h"
#include "support/hook_ledger.h"
#include "support/probe_surface.h"

namespace test {
namespace {

TEST(FontCache, Codes_that_share_a_slot_are_chained_in_order_of_first_use) {
    LedgerCheck check;
    ProbeCache cache;
    ASSERT_TRUE(cache.OpenFace(GFX_TEST_FACE, 12, true));
    Access(cache, 0x141);
    Access(cache, 0x341);
    Access(cache, 0x241);
    const GfxFontCache::GlyphInfo& head = cache.glyphs[0x41];
    EXPECT_EQ(0xFFFF, head.code) << "a head serves only its own code";
    EXPECT_EQ(nullptr, cache.FindGlyphInfo(0x41));
    const std::size_t blocks = HookLedger::LiveBlocks();
    Access(cache, 0x41);
    EXPECT_EQ(blocks, HookLedger::LiveBlocks()) << "a head takes no record";
    unsigned short expected[] = {0x41, 0x141, 0x341, 0x241};
    const GfxFontCache::GlyphInfo* info = &head;
    for (const unsigned short code : expected) {
        ASSERT_NE(nullptr, info);
        EXPECT_EQ(code, info->code);
        EXPECT_EQ(info, cache.FindGlyphInfo(code));
        info = info->next;
    }
    EXPECT_EQ(nullptr, info);
}

TEST(FontCache, Codes_of_1024_and_more_are_never_cached) {
    LedgerCheck check;
    ProbeCache cache;
    ProbeSurface target(32);
    target.Initialise(40, 40);
    ASSERT_TRUE(cache.OpenFace(GFX_TEST_FACE, 12, true));
    const std::size_t calls = HookLedger::Calls();
    for (const auto code :
         std::initializer_list<unsigned short>{1024, 1025, 0x8000, 0xFFFE, 0xFFFF}) {
        const Delivered result = Access(cache, code);
        EXPECT_EQ(nullptr, result.band) << code;
        EXPECT_EQ(0, result.x | result.y) << code;
        EXPECT_EQ((std::array<int, 8>{}), Fields(result.geom)) << code;
        cache.DrawGlyph(code, 20, 20, 0xFFFFFF, &target, 0);
        EXPECT_EQ(nullptr, cache.FindGlyphInfo(code)) << code;
        EXPECT_EQ(nullptr, cache.NewGlyphInfo(code)) << code;
    }
    EXPECT_EQ(calls, HookLedger::Calls());
    EXPECT_TRUE(target.IsEmpty());
    Access(cache, 1023);
    Access(cache, 255);
    EXPECT_EQ(255, cache.glyphs[0xFF].code);
    EXPECT_EQ(1023, cache.glyphs[0xFF].next->code);
}

TEST(FontCache, Images_fill_a_band_exactly_and_wider_ones_start_their_own) {
    LedgerCheck check;
    struct Step {
        unsigned short width, x, band;
    };
    const std::vector<std::vector<Step>> cases = {
        {{20, 0, 1}, {20, 20, 1}, {24, 40, 1}, {0, 64, 1}, {1, 0, 2}},
        {{64, 0, 1}, {64, 0, 2}, {0, 64, 2}, {1, 0, 3}},
        {{65, 0, 2}, {0, 0, 3}, {5, 0, 3}, {40000, 0, 4}, {40000, 0, 5}, {1, 0, 6}},
        {{30, 0, 1}, {35, 0, 2}, {29, 35, 2}},
    };
    for (const auto& steps : cases) {
        ProbeCache cache;
        cache.bandWidth = 64;
        cache.bandHeight = 8;
        for (const Step& step : steps) {
            unsigned short x = 99;
            unsigned short band = 99;
            cache.NewGlyphInBand(step.width, x, band);
            EXPECT_EQ(step.x, x) << "case " << &steps - cases.data() << " width " << step.width;
            EXPECT_EQ(step.band, band) << "case " << &steps - cases.data();
            EXPECT_EQ(64u, cache.bands[band]->DX());
            EXPECT_EQ(8u, cache.bands[band]->DY());
        }
    }
}

TEST(FontCache, The_band_array_grows_by_ten_slots_and_keeps_its_bands) {
    LedgerCheck check;
    ProbeCache cache;
    cache.bandWidth = 16;
    cache.bandHeight = 2;
    std::vector<GfxSurface*> made = {nullptr};
    for (unsigned k = 1; k <= 30; ++k) {
        cache.NewBand();
        made.push_back(cache.bands[k]);
        EXPECT_EQ(k, cache.currentBand);
        EXPECT_EQ((k / 10 + 1) * 10, cache.bandCount) << "band " << k;
        EXPECT_TRUE(std::equal(made.begin(), made.end(), cache.bands)) << "band " << k;
    }
}

/// The text that `action` throws, or an empty one.
std::string RefusalOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const char* condition) {
        return condition;
    }
    return {};
}

TEST(FontCache, Bands_are_refused_without_memory_and_beyond_16_bits) {
    LedgerCheck check;
    ProbeCache cache;
    cache.bandWidth = 16;
    cache.bandHeight = 2;
    HookLedger::DeliverNullOnce();
    EXPECT_EQ("band != nullptr", RefusalOf([&] { cache.NewBand(); }));
    EXPECT_EQ(0, cache.currentBand);
    constexpr std::uint32_t kSlots = 65540;
    GfxSurface* taken = GfxSurface::New(8);
    cache.bands = static_cast<GfxSurface**>(
        GfxMemory::fn_alloc(GfxMemory::arg, kSlots * sizeof(GfxSurface*)));
    cache.bandCount = kSlots;
    std::fill(cache.bands, cache.bands + kSlots, nullptr);
    std::fill(cache.bands + 1, cache.bands + 65535, taken);
    EXPECT_EQ("", RefusalOf([&] { cache.NewBand(); }));
    EXPECT_EQ(65535, cache.currentBand);
    cache.currentX = 9;
    EXPECT_EQ("band < 65536", RefusalOf([&] { cache.NewBand(); }));
    EXPECT_EQ(65535, cache.currentBand);
    EXPECT_EQ(9, cache.currentX);
    std::fill(cache.bands + 1, cache.bands + 65535, nullptr);
    GfxSurface::Delete(taken);
}

TEST(FontCache, An_image_that_fails_at_any_call_of_a_hook_takes_no_columns) {
    LedgerCheck check;
    ProbeCache cache;
    ASSERT_TRUE(cache.OpenFace(GFX_TEST_FACE, 12, true));
    Access(cache, 0x41);
    const int column = cache.currentX;
    std::size_t failures = 0;
    for (bool isMade = false; !isMade;) {
        HookLedger::ThrowAt(failures + 1);
        try {
            Access(cache, 0x42);
            isMade = true;
        } catch (const HookFailure&) {
            ++failures;
            ASSERT_EQ(column, cache.currentX) << "call of a hook " << failures;
        }
    }
    HookLedger::ThrowAt(0);
    EXPECT_GT(failures, 1u);
    EXPECT_GT(cache.currentX, column);
}

TEST(FontCache, Filling_a_record_sets_every_field_of_it) {
    ProbeCache cache;
    ASSERT_TRUE(cache.OpenFace(GFX_TEST_FACE, 12, true));
    GfxFontCache::GlyphInfo fresh;
    GfxFontCache::GlyphInfo used;
    fresh.code = used.code = 0x41;
    used.bandX = used.bandY = used.width = used.height = used.band = 77;
    cache.FillGlyphInfo(&fresh);
    cache.FillGlyphInfo(&used);
    EXPECT_EQ(fresh.bandX + fresh.width, used.bandX);
    EXPECT_EQ(0, used.bandY);
    EXPECT_EQ(fresh.width, used.width);
    EXPECT_EQ(fresh.height, used.height);
    EXPECT_EQ(fresh.band, used.band);
    EXPECT_EQ(Fields(fresh.geom), Fields(used.geom));
}

TEST(FontCache, Geometry_and_images_match_the_engine) {
    LedgerCheck check;
    int cutColumns = 0;
    int cutRows = 0;
    for (const int size : {1, 7, 12, 19, 90}) {
        for (const bool smooth : {false, true}) {
            ProbeCache cache;
            Reference reference(GFX_TEST_FACE, size, smooth);
            ASSERT_TRUE(cache.OpenFace(GFX_TEST_FACE, size, smooth));
            for (unsigned short code = 0; code < 1024; ++code) {
                reference.Load(code);
                const Delivered glyph = Access(cache, code);
                ASSERT_EQ(Fields(reference.Geom()), Fields(glyph.geom)) << size << ' ' << code;
                for (int row = 0; row < glyph.Height(); ++row) {
                    if (!glyph.Holds(0, row)) ++cutRows;
                    for (int column = 0; column < glyph.Width(); ++column) {
                        if (!glyph.Holds(column, 0)) ++cutColumns;
                        if (!glyph.Holds(column, row)) continue;
                        ASSERT_EQ(reference.Transparency(column, row), glyph.Pixel(column, row))
                            << "size " << size << " smooth " << smooth << " code " << code
                            << " pixel " << column << ", " << row;
                    }
                }
            }
        }
    }
    EXPECT_GT(cutColumns, 0) << "no image was wider than its band";
    EXPECT_GT(cutRows, 0) << "no image was taller than its band";
}

TEST(FontCache, A_second_request_calls_no_engine) {
    LedgerCheck check;
    ProbeCache cache;
    ProbeSurface target(32);
    target.Initialise(40, 40);
    ASSERT_TRUE(cache.OpenFace(GFX_TEST_FACE, 20, true));
    for (const auto code : std::initializer_list<unsigned short>{0x20, 0x41, 0x3A9}) {
        const Delivered first = Access(cache, code);
        const std::size_t calls = HookLedger::Calls();  // every render takes a buffer
        const Delivered second = Access(cache, code);
        GfxFontCache::GlyphGeom geom;
        cache.GetGlyphGeometry(code, geom);
        cache.DrawGlyph(code, 5, 30, 0, &target, 0);
        cache.DrawGlyph(code, 5, 30, 0, &target, 90);
        EXPECT_EQ(calls, HookLedger::Calls()) << code;
        EXPECT_EQ(first.band, second.band) << code;
        EXPECT_EQ(first.x, second.x) << code;
        EXPECT_EQ(Fields(first.geom), Fields(second.geom)) << code;
        EXPECT_EQ(Fields(first.geom), Fields(geom)) << code;
    }
}

TEST(FontCache, Glyphs_outlive_their_face_but_are_not_delivered_while_closed) {
    LedgerCheck check;
    ProbeCache cache;
    ASSERT_TRUE(cache.OpenFace(GFX_TEST_FACE, 10, true));
    const Delivered small = Access(cache, 0x41);
    cache.CloseFace();
    cache.CloseFace();
    const Delivered closed = Access(cache, 0x41);
    EXPECT_EQ(nullptr, closed.band);
    EXPECT_EQ(0, closed.x | closed.y);
    EXPECT_EQ((std::array<int, 8>{}), Fields(closed.geom));
    ASSERT_TRUE(cache.OpenFace(GFX_TEST_FACE, 30, true));
    const Delivered again = Access(cache, 0x41);
    EXPECT_EQ(small.band, again.band);
    EXPECT_EQ(Fields(small.geom), Fields(again.geom));
    const Delivered large = Access(cache, 0x42);
    EXPECT_EQ(small.band, large.band) << "the current band is filled before a new one is made";
    EXPECT_EQ(small.x + small.Width(), large.x);
    EXPECT_EQ(10u, large.band->DY());
    EXPECT_GT(large.Height(), 10);
    for (unsigned short code = 0x61; code < 0x66; ++code)
        Access(cache, code);
    EXPECT_EQ(30u, Access(cache, 0x66).band->DY());
}

TEST(FontCache, An_unusable_record_is_left_alone) {
    ProbeCache cache;
    GfxFontCache::GlyphInfo info;
    info.code = 0x41;
    info.width = 77;
    cache.FillGlyphInfo(&info);  // closed
    ASSERT_TRUE(cache.OpenFace(GFX_TEST_FACE, 10, true));
    info.code = 0xFFFF;
    cache.FillGlyphInfo(&info);
    cache.FillGlyphInfo(nullptr);
    EXPECT_EQ(77, info.width);
    EXPECT_EQ(nullptr, cache.bands);
}

}  // namespace
}  // namespace test
