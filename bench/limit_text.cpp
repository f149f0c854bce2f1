// Text from a warm cache at its limit: images that are ready, xored into the target. From a cold
// one: the font engine alone, no target touched.
#include <ft2build.h>
#include FT_FREETYPE_H

#include <cstdlib>
#include <memory>
#include <utility>

#include "limit.h"

namespace bench {

namespace {

constexpr int kTextStep =
    4;  // pixels a step; images are padded to whole steps (8 and 16 cost more)

struct Bitmap {
    std::vector<std::uint8_t> coverage;
    int x, y, width, height;
};

/// A face at a size, opened afresh.
class Face {
public:
    Face(const char* path, int size) {
        if (FT_Init_FreeType(&library_) != 0 || FT_New_Face(library_, path, 0, &face_) != 0) {
            std::abort();  // the scene has opened the same file before
        }
        FT_Set_Pixel_Sizes(face_, 0, static_cast<FT_UInt>(size));
    }
    ~Face() {
        FT_Done_Face(face_);
        FT_Done_FreeType(library_);
    }
    Face(const Face&) = delete;
    Face& operator=(const Face&) = delete;

    FT_GlyphSlot Render(unsigned int code) {
        FT_Load_Glyph(face_, FT_Get_Char_Index(face_, code), FT_LOAD_NO_BITMAP);
        FT_Render_Glyph(face_->glyph, FT_RENDER_MODE_NORMAL);
        return face_->glyph;
    }

private:
    FT_Library library_ = nullptr;
    FT_Face face_ = nullptr;
};

std::vector<Bitmap> RenderText(Scene& scene, const Row& row) {
    Face face(scene.FontPath(), row.fontSize);
    std::vector<Bitmap> bitmaps;
    for (const Glyph& glyph : scene.TextOf(row).glyphs) {
        const FT_GlyphSlot slot = face.Render(glyph.code);
        const FT_Bitmap& from = slot->bitmap;
        Bitmap bitmap = {{},
                         glyph.x + slot->bitmap_left,
                         glyph.y - slot->bitmap_top,
                         (static_cast<int>(from.width) + kTextStep - 1) / kTextStep * kTextStep,
                         static_cast<int>(from.rows)};
        for (int y = 0; y < bitmap.height; ++y) {
            const std::uint8_t* const line = from.buffer + y * from.pitch;
            bitmap.coverage.insert(bitmap.coverage.end(), line, line + from.width);
            bitmap.coverage.resize(static_cast<std::size_t>(bitmap.width) * (y + 1u));
        }
        bitmaps.push_back(std::move(bitmap));
    }
    return bitmaps;
}

}  // namespace

Work MakeTextLimit(Scene& scene, const Row& row) {
    if (row.operation == Operation::kTextCold) {
        return [&scene, &glyphs = scene.TextOf(row).glyphs, size = row.fontSize] {
            Face face(scene.FontPath(), size);
            for (const Glyph& glyph : glyphs)
                face.Render(glyph.code);
        };
    }
    const auto bitmaps = std::make_shared<std::vector<Bitmap>>(RenderText(scene, row));
    const Image to = scene.Target(row);
    return ForFormat(row.target, [&](auto pixel) {
        using T = decltype(pixel);
        return [bitmaps, to] {
            for (const Bitmap& bitmap : *bitmaps) {
                const std::uint8_t* from = bitmap.coverage.data();
                std::uint8_t* line = to.At(bitmap.x, bitmap.y);
                for (int y = 0; y < bitmap.height; ++y, line += to.pitch) {
                    for (int x = 0; x < bitmap.width; x += kTextStep, from += kTextStep) {
                        XorRow()(reinterpret_cast<T*>(line) + x, from, kTextStep);
                    }
                }
            }
        };
    });
}

}  // namespace bench
