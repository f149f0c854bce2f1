// The patching of font files, and the engine asked directly; see test_face.h.
#include "font/test_face.h"

#include <unistd.h>

#include <cmath>
#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include FT_OUTLINE_H

namespace test {
namespace {

void Require(bool holds, const std::string& what) {
    if (!holds) throw std::runtime_error(what);
}

}  // namespace

ScratchDirectory::ScratchDirectory()
    : path_(std::filesystem::temp_directory_path() / ("gfx_font_" + std::to_string(getpid()))) {
    std::filesystem::create_directories(path_);
}

FaceFile::FaceFile() {
    std::ifstream file(GFX_TEST_FACE, std::ios::binary);
    bytes_.assign(std::istreambuf_iterator<char>(file), {});
    Require(bytes_.size() > 12, "the test face cannot be read");
}

unsigned FaceFile::Get16(std::size_t at) const {
    return static_cast<unsigned>(bytes_[at] << 8 | bytes_[at + 1]);
}

std::size_t FaceFile::Entry(const char* tag) const {
    std::size_t entry = 12;
    for (unsigned left = Get16(4); std::memcmp(&bytes_[entry], tag, 4) != 0; --left, entry += 16) {
        Require(left > 1, tag);
    }
    return entry;
}

void FaceFile::Put16(const char* tag, std::size_t offset, int value) {
    const std::size_t entry = Entry(tag);
    const std::size_t at = (Get16(entry + 8) << 16 | Get16(entry + 10)) + offset;
    bytes_[at] = static_cast<unsigned char>(value >> 8);
    bytes_[at + 1] = static_cast<unsigned char>(value);
}

void FaceFile::HideTable(const char* tag) { bytes_[Entry(tag)] = '?'; }

void FaceFile::SetCharMaps(const std::vector<std::pair<int, int>>& ids) {
    Put16("cmap", 2, static_cast<int>(ids.size()));
    for (std::size_t i = 0; i < ids.size(); ++i) {
        Put16("cmap", 4 + 8 * i, ids[i].first);
        Put16("cmap", 6 + 8 * i, ids[i].second);
    }
}

void FaceFile::Save(const std::string& path) const {
    std::ofstream file(path, std::ios::binary);
    std::copy(bytes_.begin(), bytes_.end(), std::ostreambuf_iterator<char>(file));
}

// The margin and the rows from the bottom up have nothing in common with the cache's buffer. No
// margin for the 1-bit renderer: it moves the dots that keep thin strokes together into the buffer.
Reference::Reference(const std::string& path, int size, bool smooth)
    : smooth_(smooth), margin_(smooth ? 5 : 0) {
    Require(FT_Init_FreeType(&engine_) == 0, "the engine does not start");
    Require(FT_New_Face(engine_, path.c_str(), 0, &face_) == 0, path);
    Require(FT_Set_Pixel_Sizes(face_, 0, static_cast<FT_UInt>(size)) == 0, "size refused");
}

Reference::~Reference() {
    FT_Done_Face(face_);
    FT_Done_FreeType(engine_);
}

void Reference::UseCharMap(int i) {
    usesMap_ = i >= 0;
    if (usesMap_) FT_Set_Charmap(face_, face_->charmaps[i]);
}

unsigned Reference::GlyphIndex(unsigned code) const {
    return usesMap_ ? FT_Get_Char_Index(face_, code) : 0;
}

void Reference::Load(unsigned code) {
    const FT_UInt index = GlyphIndex(code);
    Require(FT_Load_Glyph(face_, index, FT_LOAD_NO_BITMAP) == 0, "a glyph cannot be loaded");
    FT_Outline* const outline = &face_->glyph->outline;
    FT_Outline_Get_CBox(outline, &box_);
    const FT_Pos left = (box_.xMin >> 6) - margin_;
    const FT_Pos bottom = (box_.yMin >> 6) - margin_;
    pitch_ = ((box_.xMax + 63) >> 6) - left + margin_;
    rows_ = ((box_.yMax + 63) >> 6) - bottom + margin_;
    pixels_.assign(static_cast<std::size_t>(rows_ * pitch_), 0);
    FT_Bitmap bitmap = {};
    bitmap.rows = static_cast<unsigned>(rows_);
    bitmap.width = static_cast<unsigned>(pitch_);
    bitmap.pitch = -static_cast<int>(pitch_);
    bitmap.buffer = pixels_.data();
    bitmap.num_grays = 256;
    bitmap.pixel_mode = smooth_ ? FT_PIXEL_MODE_GRAY : FT_PIXEL_MODE_MONO;
    FT_Outline_Translate(outline, -left * 64, -bottom * 64);
    FT_Outline_Get_Bitmap(engine_, outline, &bitmap);
}

GfxFontCache::GlyphGeom Reference::Geom() const {
    const auto floor = [](FT_Pos v) {
        return static_cast<short>(std::floor(static_cast<double>(v) / 64));
    };
    const auto ceil = [](FT_Pos v) {
        return static_cast<short>(std::ceil(static_cast<double>(v) / 64));
    };
    const auto metric = [](FT_Pos v) {
        return static_cast<short>(std::trunc(static_cast<double>(v + 63) / 64));
    };
    const FT_Glyph_Metrics& m = face_->glyph->metrics;
    return {floor(box_.xMin),       ceil(box_.xMax),        floor(box_.yMin),      ceil(box_.yMax),
            metric(m.horiBearingX), metric(m.horiBearingY), metric(m.horiAdvance), 0};
}

unsigned char Reference::Transparency(int column, int row) const {
    const long x = column + margin_;
    const long line = (rows_ - 1 - row - margin_) * pitch_;
    const auto at = [this](long i) { return pixels_[static_cast<std::size_t>(i)]; };
    if (!smooth_) return (at(line + x / 8) << (x % 8) & 0x80) != 0 ? 0 : 255;
    constexpr unsigned char kSteps[5] = {0xFF, 0xBF, 0x7F, 0x3F, 0x00};
    return kSteps[std::lround(at(line + x) / 64.0)];
}

}  // namespace test
