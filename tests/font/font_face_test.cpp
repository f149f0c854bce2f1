// Opening and closing a face: paths, refusals, character maps and metrics.
#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "font/probe_cache.h"
#include "font/test_face.h"
#include "support/hook_ledger.h"

namespace test {
namespace {

constexpr char kBitmapFace[] =
    "STARTFONT 2.1\nFONT -a-b-medium-r-normal--8-80-75-75-c-80-iso10646-1\nSIZE 8 75 75\n"
    "FONTBOUNDINGBOX 8 8 0 0\nSTARTPROPERTIES 2\nFONT_ASCENT 8\nFONT_DESCENT 0\nENDPROPERTIES\n"
    "CHARS 1\nSTARTCHAR A\nENCODING 65\nSWIDTH 500 0\nDWIDTH 8 0\nBBX 8 1 0 0\nBITMAP\nFF\n"
    "ENDCHAR\nENDFONT\n";

TEST(FontFace, A_new_cache_is_closed_and_takes_no_memory) {
    LedgerCheck check;
    const std::size_t calls = HookLedger::Calls();
    ProbeCache cache;
    EXPECT_EQ(calls, HookLedger::Calls());
    EXPECT_EQ(nullptr, cache.faceData);
    EXPECT_EQ(nullptr, cache.bands);
    EXPECT_EQ(0, cache.TypoAscender() | cache.TypoDescender() | cache.TypoLineGap());
    EXPECT_EQ(0, cache.currentBand | cache.currentX | cache.bandWidth | cache.bandHeight);
    cache.CloseFace();
    EXPECT_EQ(calls, HookLedger::Calls());
}

TEST(FontFace, What_cannot_be_opened_gives_false_and_closes_the_face_before) {
    LedgerCheck check;
    const ScratchDirectory directory;
    std::ofstream(directory.File("text")) << "no font at all";
    std::ofstream(directory.File("bitmap")) << kBitmapFace;
    FaceFile half;
    half.Truncate(200);
    half.Save(directory.File("half"));
    FT_Library engine = nullptr;
    FT_Face bitmap = nullptr;
    FT_Init_FreeType(&engine);
    EXPECT_EQ(0, FT_New_Face(engine, directory.File("bitmap").c_str(), 0, &bitmap))
        << "the refusal of a face that is not scalable would not be tested";
    FT_Done_FreeType(engine);

    for (const char* name : {"text", "bitmap", "half", "missing", ""}) {
        ProbeCache cache;
        ASSERT_TRUE(cache.OpenFace(GFX_TEST_FACE, 12, true));
        EXPECT_FALSE(cache.OpenFace(directory.File(name).c_str(), 33, false)) << name;
        EXPECT_EQ(nullptr, cache.faceData) << name;
        EXPECT_EQ(33, cache.size) << name;
        EXPECT_FALSE(cache.antialias) << name;
    }
    ProbeCache cache;
    ASSERT_TRUE(cache.OpenFace(GFX_TEST_FACE, 12, true));
    EXPECT_FALSE(cache.OpenFace(nullptr, 12, true));
    EXPECT_EQ(nullptr, cache.faceData);
}

TEST(FontFace, Two_leading_slashes_turn_every_slash_into_a_backslash) {
    LedgerCheck check;
    const ScratchDirectory directory;
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::create_directory(directory.File("d"));
    FaceFile().Save(directory.File("\\\\d\\face"));
    FaceFile().Save(directory.File("d/plain"));
    std::filesystem::current_path(directory.File(""));
    ProbeCache cache;
    EXPECT_TRUE(cache.OpenFace("//d/face", 12, true));
    EXPECT_TRUE(cache.OpenFace("d/plain", 12, true)) << "the second character alone";
    EXPECT_TRUE(cache.OpenFace(directory.File("d//plain").c_str(), 12, true));
    EXPECT_FALSE(cache.OpenFace(("/" + directory.File("d/plain")).c_str(), 12, true));
    EXPECT_FALSE(cache.OpenFace("/d/face", 12, true));
    std::filesystem::current_path(before);
}

TEST(FontFace, The_first_map_with_either_pair_of_ids_is_used) {
    struct Case {
        std::vector<std::pair<int, int>> maps;  // map 2 of the face is the only one with 8 bits
        int used;
    };
    const Case cases[] = {
        {{{1, 0}, {0, 3}, {0, 0}, {3, 1}, {3, 10}}, 2}, {{{1, 0}, {3, 1}, {0, 0}, {3, 10}}, 1},
        {{{0, 3}, {0, 4}, {3, 1}, {0, 0}}, 2},          {{{0, 0}, {0, 4}, {3, 1}}, 0},
        {{{0, 3}, {0, 4}, {1, 0}, {3, 1}}, 3},          {{{3, 0}}, -1},
        {{{0, 3}, {0, 4}, {1, 0}, {3, 10}}, -1},        {{{1, 0}}, -1},
    };
    const ScratchDirectory directory;
    for (const Case& c : cases) {
        const std::string path = directory.File("maps");
        FaceFile file;
        file.SetCharMaps(c.maps);
        file.Save(path);
        ProbeCache cache;
        Reference reference(path, 40, false);
        reference.UseCharMap(c.used);
        ASSERT_TRUE(cache.OpenFace(path.c_str(), 40, false));
        int wrong = 0;
        for (unsigned short code = 0; code < 1024; ++code) {
            GfxFontCache::GlyphGeom geom;
            cache.GetGlyphGeometry(code, geom);
            reference.Load(code);
            if (Fields(geom) != Fields(reference.Geom())) ++wrong;
        }
        EXPECT_EQ(0, wrong) << "codes with another glyph, case " << &c - cases;
    }
}

TEST(FontFace, HasGlyph_tells_mapped_codes_from_those_drawn_as_the_missing_glyph) {
    LedgerCheck check;
    const ScratchDirectory directory;
    FaceFile file;
    file.SetCharMaps({{1, 0}});
    file.Save(directory.File("unmapped"));
    ProbeCache cache;
    EXPECT_FALSE(cache.HasGlyph('A')) << "no face was opened yet";
    for (const int map : {0, -1}) {
        const std::string path = map < 0 ? directory.File("unmapped") : GFX_TEST_FACE;
        Reference reference(path, 20, true);
        if (map < 0) reference.UseCharMap(map);
        ASSERT_TRUE(cache.OpenFace(path.c_str(), 20, true));
        unsigned mapped = 0;
        for (unsigned code = 0; code < 1024; ++code) {
            mapped += reference.GlyphIndex(code) != 0;
            ASSERT_EQ(reference.GlyphIndex(code) != 0, cache.HasGlyph(code)) << "code " << code;
        }
        EXPECT_EQ(map == 0, mapped > 100 && mapped < 1024) << "the face shows only one answer";
        for (const unsigned code : {1024U, 1024U + 'A', 65536U + 'A', ~0U})
            EXPECT_FALSE(cache.HasGlyph(code)) << "code " << code;
    }
    ASSERT_TRUE(cache.OpenFace(GFX_TEST_FACE, 20, true));
    EXPECT_TRUE(cache.HasGlyph('A'));
    cache.CloseFace();
    EXPECT_FALSE(cache.HasGlyph('A')) << "the face is closed";
}

TEST(FontFace, Metrics_are_scaled_by_adding_half_and_truncating) {
    struct Case {
        int unitsPerEm, size, ascender, descender, lineGap;
        int expected[3];
    };
    const Case cases[] = {
        {1000, 16, 728, -210, 67, {12, -3, 1}},
        {1000, 20, -728, 210, -30, {-14, 3, 0}},
        {2048, 0, 1556, -492, 410, {0, 0, 0}},
        {1000, -16, 728, -210, 67, {-11, 2, 0}},
        {1000, INT_MAX, 728, -210, -67, {32767, -32767, -32768}},
        {1000, INT_MAX, 0, 210, 0, {0, -32768, 0}},
        {1000, INT_MIN, 1, 0, -1, {-32768, 0, 32767}},
        {16, 16, -32768, -32768, 32767, {-32767, -32767, 32767}},
    };
    const ScratchDirectory directory;
    for (const Case& c : cases) {
        FaceFile file;
        file.Put16("head", 18, c.unitsPerEm);
        file.Put16("OS/2", 68, c.ascender);
        file.Put16("OS/2", 70, c.descender);
        file.Put16("OS/2", 72, c.lineGap);
        file.Save(directory.File("metrics"));
        ProbeCache cache;
        ASSERT_TRUE(cache.OpenFace(directory.File("metrics").c_str(), c.size, true)) << &c - cases;
        EXPECT_EQ(c.expected[0], cache.TypoAscender()) << "case " << &c - cases;
        EXPECT_EQ(c.expected[1], cache.TypoDescender()) << "case " << &c - cases;
        EXPECT_EQ(c.expected[2], cache.TypoLineGap()) << "case " << &c - cases;
    }
}

TEST(FontFace, Metrics_outlive_the_face_and_are_0_for_a_face_without_them) {
    const ScratchDirectory directory;
    FaceFile file;
    file.HideTable("OS/2");
    file.Save(directory.File("bare"));
    ProbeCache cache;
    ASSERT_TRUE(cache.OpenFace(GFX_TEST_FACE, 16, true));
    cache.CloseFace();
    EXPECT_NE(0, cache.TypoAscender());
    ASSERT_TRUE(cache.OpenFace(directory.File("bare").c_str(), 16, true));
    EXPECT_EQ(0, cache.TypoAscender() | cache.TypoDescender() | cache.TypoLineGap());
}

TEST(FontFace, Any_size_is_safe_and_bands_are_as_tall_as_the_em) {
    LedgerCheck check;
    constexpr int kSizes[][2] = {{INT_MIN, 1}, {-1, 1},        {0, 1},         {1, 1},
                                 {300, 300},   {65535, 65535}, {65536, 65535}, {INT_MAX, 65535}};
    for (const auto& [size, bandHeight] : kSizes) {
        for (const bool smooth : {false, true}) {
            ProbeCache cache;
            ASSERT_TRUE(cache.OpenFace(GFX_TEST_FACE, size, smooth)) << size;
            EXPECT_EQ(bandHeight, cache.bandHeight) << size;
            EXPECT_EQ(64, cache.bandWidth) << size;
            const Delivered glyph = Access(cache, 0x41);
            EXPECT_EQ((bandHeight < 1000), glyph.Width() > 0 && glyph.Height() > 0) << size;
            EXPECT_EQ(bandHeight == 65535, glyph.geom.advance == 32767) << size;
        }
    }
}

TEST(FontFace, No_environment_variable_changes_the_hinting) {
    constexpr char kName[] = "FREETYPE_PROPERTIES";
    ProbeCache plain;
    ASSERT_TRUE(plain.OpenFace(GFX_TEST_FACE, 12, false));
    ASSERT_EQ(0, setenv(kName, "truetype:interpreter-version=35", 1));
    ProbeCache changed;
    EXPECT_TRUE(changed.OpenFace(GFX_TEST_FACE, 12, false));
    unsetenv(kName);
    for (unsigned short code = 0x21; code < 0x7F; ++code) {
        GfxFontCache::GlyphGeom geoms[2];
        plain.GetGlyphGeometry(code, geoms[0]);
        changed.GetGlyphGeometry(code, geoms[1]);
        EXPECT_EQ(Fields(geoms[0]), Fields(geoms[1])) << code;
    }
}

}  // namespace
}  // namespace test
