// Faces made to do harm: each of these once blocked, crashed, or took minutes or gigabytes.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

#include "font/built_face.h"
#include "font/probe_cache.h"
#include "font/test_face.h"
#include "support/hook_ledger.h"

namespace test {
namespace {

constexpr int kEm = 1000;  // units and, in most of these tests, pixels
constexpr std::array<int, 8> kNothing = {};

GfxFontCache::GlyphGeom GeomOf(const std::string& path, int size, unsigned short code,
                               bool smooth = true) {
    GfxFontCache cache;
    GfxFontCache::GlyphGeom geom = {};
    EXPECT_TRUE(cache.OpenFace(path.c_str(), size, smooth)) << path;
    cache.GetGlyphGeometry(code, geom);
    return geom;
}

bool Opens(const std::string& path) {
    GfxFontCache cache;
    return cache.OpenFace(path.c_str(), 12, true);
}

bool EngineOpens(const std::string& path) {
    FT_Library engine = nullptr;
    FT_Face face = nullptr;
    FT_Init_FreeType(&engine);
    const bool opens = FT_New_Face(engine, path.c_str(), 0, &face) == 0;
    FT_Done_FreeType(engine);
    return opens;
}

/// The tables in a compressed container, none of them compressed.
Bytes MakeContainer(const std::map<std::string, Bytes>& tables) {
    const Bytes plain = MakeSfnt(0x00010000, tables);
    const std::size_t directory = 44 + 20 * tables.size();
    Bytes file = {'w', 'O', 'F', 'F', 0, 1, 0, 0};
    Put32(file, static_cast<unsigned>(plain.size() + directory - 12 - 16 * tables.size()));
    Put16(file, static_cast<unsigned>(tables.size()));
    Put16(file, 0);
    Put32(file, static_cast<unsigned>(plain.size()));
    file.resize(44);
    std::size_t at = directory;
    for (const auto& [tag, table] : tables) {
        const auto size = static_cast<unsigned>(table.size());
        file.insert(file.end(), tag.begin(), tag.end());
        for (const unsigned word : {static_cast<unsigned>(at), size, size, 0u})
            Put32(file, word);
        at += (size + 3) & ~3u;
    }
    file.insert(file.end(), plain.end() - static_cast<long>(at - directory), plain.end());
    return file;
}

TEST(HostileFace, Only_regular_files_that_begin_like_a_face_are_opened) {
    LedgerCheck check;
    const ScratchDirectory directory;
    BuiltFace face(kEm);
    face.Add(SquareGlyph(kEm));
    const auto tables = face.Tables();
    Bytes collection = {'t', 't', 'c', 'f', 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 16};
    SaveBytes(directory.File("plain"), MakeSfnt(0x00010000, tables));
    SaveBytes(directory.File("true"), MakeSfnt(0x74727565, tables));
    SaveBytes(directory.File("collection"), MakeSfnt(0x00010000, tables, collection));
    for (const char* name : {"plain", "true", "collection"}) {
        EXPECT_TRUE(Opens(directory.File(name))) << name;
    }
    SaveBytes(directory.File("container"), MakeContainer(tables));
    ASSERT_TRUE(EngineOpens(directory.File("container"))) << "its refusal would not be tested";
    ASSERT_EQ(0, mkfifo(directory.File("pipe").c_str(), 0600));
    for (const char* name : {"container", "pipe", "."}) {
        EXPECT_FALSE(Opens(directory.File(name))) << name;
    }
    EXPECT_FALSE(Opens("/dev/zero"));
}

TEST(HostileFace, Composites_are_loaded_up_to_32_deep_and_64_parts_in_all) {
    LedgerCheck check;
    struct Case {
        const char* what;
        int levels, parts;
        bool isLoaded;
    };
    const Case cases[] = {
        {"one within the other", 32, 1, true},
        {"one too deep", 33, 1, false},
        {"deep enough for a crash", 9000, 1, false},
        {"side by side", 1, 63, true},
        {"one part too many", 1, 64, false},
        {"a tree", 5, 2, true},
        {"a larger tree", 6, 2, false},
        {"ten million parts", 7, 10, false},
    };
    const ScratchDirectory directory;
    const std::string path = directory.File("composite");
    for (const Case& c : cases) {
        BuiltFace face(kEm);
        face.Add({});
        face.Add({});
        unsigned part = face.Add(SquareGlyph(500));
        for (int level = 1; level < c.levels; ++level)
            part = face.Add(CompositeGlyph(std::vector<unsigned>(unsigned(c.parts), part)));
        face.Replace(1, CompositeGlyph(std::vector<unsigned>(unsigned(c.parts), part)));
        face.Save(path);
        const auto fields = Fields(GeomOf(path, 100, 1));
        const std::array<int, 8> square = {0, 50, 0, 50, 0, 50, 100, 0};
        EXPECT_EQ(c.isLoaded ? square : kNothing, fields) << c.what;
        EXPECT_EQ(square, Fields(GeomOf(path, 100, 2))) << "the part of " << c.what;
    }
    BuiltFace face(kEm);
    face.Add({});
    face.Add(CompositeGlyph({1}));
    face.Save(path);
    EXPECT_EQ(kNothing, Fields(GeomOf(path, 100, 1))) << "a part of itself";

    BuiltFace beyond(kEm);
    beyond.Add({});
    beyond.Add(CompositeGlyph({65000}));
    beyond.Save(path);
    EXPECT_EQ(kNothing, Fields(GeomOf(path, 100, 1))) << "a part whose place lies beyond the file";
}

/// Strokes from the bottom of the em to its top, close beside each other; no band reaches them.
std::vector<GlyphPoint> Strokes(int count) {
    std::vector<GlyphPoint> points = {{0, 0}};
    for (int i = 1; i < count; ++i)
        points.push_back({500 + i % 64, i % 2 * kEm});
    return points;
}

TEST(HostileFace, An_outline_over_the_budget_keeps_its_advance_alone) {
    LedgerCheck check;
    const ScratchDirectory directory;
    const std::string path = directory.File("strokes");
    // A stroke of 1000 pixels with 1 across and 1 for its point, times 1000 rows: 2143 are the
    // budget.
    for (const int count : {2100, 2130, 2150, 2200, 32000}) {
        BuiltFace face(kEm);
        face.Add({});
        face.Add(SimpleGlyph(Strokes(count)));
        face.Save(path);
        for (const bool smooth : {false, true}) {
            const GfxFontCache::GlyphGeom geom = GeomOf(path, kEm, 1, smooth);
            EXPECT_EQ(kEm, geom.advance) << count;
            EXPECT_EQ(count < 2143 ? kEm : 0, geom.top - geom.bottom) << count;
            EXPECT_EQ(count < 2143 ? 563 : 0, geom.right - geom.left) << count;
        }
    }
}

TEST(HostileFace, Programs_run_only_where_what_they_work_on_is_bounded) {
    LedgerCheck check;
    constexpr unsigned char kNoEffect = 0x18;
    constexpr unsigned char kNoSuchInstruction = 0x4F;  // where it is run, no glyph can be loaded
    struct Case {
        const char* what;
        int points;
        unsigned stack, twilightPoints, functions;
        std::size_t functionBytes;
        bool isRun;
    };
    const Case cases[] = {
        {"usual", 100, 1000, 100, 64, 100, true},
        {"all limits", 960, 8192, 1024, 1024, 16384, true},
        {"points", 961, 1000, 100, 64, 100, false},
        {"stack", 100, 8193, 100, 64, 100, false},
        {"twilight", 100, 1000, 1025, 64, 100, false},
        {"functions", 100, 1000, 100, 1025, 100, false},
        {"bytes of functions", 100, 1000, 100, 64, 16385, false},
    };
    const ScratchDirectory directory;
    const std::string path = directory.File("programs");
    for (const Case& c : cases) {
        BuiltFace face(kEm);
        face.Add({});
        face.Add(SimpleGlyph(Strokes(c.points)));
        face.SetProgramNeeds(c.stack, c.twilightPoints, c.functions);
        face.SetTable("fpgm", Bytes(c.functionBytes, kNoEffect));
        face.SetTable("prep", Bytes(8, kNoSuchInstruction));
        face.Save(path);
        const GfxFontCache::GlyphGeom geom = GeomOf(path, 20, 1);
        EXPECT_EQ(c.isRun ? 0 : 20, geom.advance) << c.what;
        EXPECT_EQ(c.isRun ? 0 : 20, geom.top) << c.what;
    }
}

// A face of the fuzzers' corpus: it has none of the tables in which composites are counted.
TEST(HostileFace, Faces_with_CFF_outlines_have_their_images) {
    LedgerCheck check;
    ProbeCache cache;
    ASSERT_TRUE(cache.OpenFace(GFX_CFF_FACE, 40, true));
    int images = 0;
    for (unsigned short code = 0x20; code < 0x7F; ++code) {
        const Delivered glyph = Access(cache, code);
        images += glyph.geom.right > glyph.geom.left && glyph.geom.advance > 0 ? 1 : 0;
    }
    EXPECT_GE(images, 1);
}

TEST(HostileFace, Advances_saturate_where_the_scale_leaves_32_bits) {
    const ScratchDirectory directory;
    const std::string path = directory.File("coarse");
    for (const unsigned units : {16u, 17u, 64u, 127u}) {
        BuiltFace face(units);
        face.Add({});
        face.Add(SquareGlyph(static_cast<int>(units / 2)));
        face.Save(path);
        for (const int size : {100, 8000, 8191, 8192, 8703, 8704, 32767, 32768, 65024, 65535}) {
            const GfxFontCache::GlyphGeom geom = GeomOf(path, size, 1);
            const int side = static_cast<int>(units / 2) * size / static_cast<int>(units);
            EXPECT_EQ(std::min(size, 32767), geom.advance) << units << ' ' << size;
            EXPECT_EQ(geom.right, geom.top) << units << ' ' << size;
            const bool isDrawn = size < static_cast<int>(units) * 512 && side < 8192;
            EXPECT_NEAR(isDrawn ? side : 0, geom.right, isDrawn ? 1 : 0) << units << ' ' << size;
        }
    }
}

TEST(HostileFace, A_file_that_becomes_shorter_while_it_is_open_loses_glyphs_alone) {
    LedgerCheck check;
    const ScratchDirectory directory;
    const std::string path = directory.File("shrinking");
    FaceFile().Save(path);
    ProbeCache cache;
    ASSERT_TRUE(cache.OpenFace(path.c_str(), 20, true));
    EXPECT_NE(kNothing, Fields(Access(cache, 0x41).geom));
    std::filesystem::resize_file(path, 3000);
    int lost = 0;
    for (unsigned short code = 0x20; code < 0x400; ++code) {
        if (Fields(Access(cache, code).geom) == kNothing) ++lost;
    }
    EXPECT_GT(lost, 500);
    EXPECT_NE(kNothing, Fields(Access(cache, 0x41).geom));
}

}  // namespace
}  // namespace test
