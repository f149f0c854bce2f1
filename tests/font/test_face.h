// Font files made by patching the test face, and the font engine asked directly, as the reference
// that the cache is compared with.
#pragma once

#include <gfx/font_cache.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include <ft2build.h>
#include FT_FREETYPE_H

#ifndef GFX_TEST_FACE
#error "GFX_TEST_FACE must name a TrueType face with an OS/2 table, hinting and Unicode maps"
#endif

namespace test {

/// An empty directory that goes with the object.
class ScratchDirectory {
public:
    ScratchDirectory();
    ~ScratchDirectory() { std::filesystem::remove_all(path_); }
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;
    std::string File(const std::string& name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

/// The bytes of the test face.
class FaceFile {
public:
    FaceFile();

    /// Replaces the 16 bits at an offset of a table.
    void Put16(const char* tag, std::size_t offset, int value);
    void HideTable(const char* tag);

    /// Keeps the first maps of the face, under these platform and encoding IDs.
    void SetCharMaps(const std::vector<std::pair<int, int>>& ids);
    void Truncate(std::size_t length) { bytes_.resize(length); }
    void Save(const std::string& path) const;

private:
    std::size_t Entry(const char* tag) const;
    unsigned Get16(std::size_t at) const;
    std::vector<unsigned char> bytes_;
};

/// A face opened with the engine alone.
class Reference {
public:
    Reference(const std::string& path, int size, bool smooth);
    ~Reference();
    Reference(const Reference&) = delete;
    Reference& operator=(const Reference&) = delete;

    /// Maps codes by the face's map i, by none (every code is glyph 0) when i is negative.
    void UseCharMap(int i);

    /// The glyph of a code; 0 for one that the map lacks.
    unsigned GlyphIndex(unsigned code) const;

    /// Loads, measures and renders the glyph of a code.
    void Load(unsigned code);

    /// What the cache must report of the loaded glyph.
    GfxFontCache::GlyphGeom Geom() const;

    /// What the cache must hold at a pixel of the loaded glyph's box.
    unsigned char Transparency(int column, int row) const;

private:
    FT_Library engine_ = nullptr;
    FT_Face face_ = nullptr;
    FT_BBox box_ = {};
    bool smooth_;
    bool usesMap_ = true;
    int margin_;
    long rows_ = 0;
    long pitch_ = 0;
    std::vector<unsigned char> pixels_;
};

}  // namespace test
