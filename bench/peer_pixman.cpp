#include <ft2build.h>
#include FT_FREETYPE_H
#include <pixman.h>

#include <algorithm>
#include <memory>

#include "library.h"

namespace bench {

namespace {

using Picture = std::shared_ptr<pixman_image_t>;

Picture Own(pixman_image_t* image) {
    return {image, [](pixman_image_t* owned) { pixman_image_unref(owned); }};
}

/// 8-bit pixels are grey through a palette of 256 entries; masks are plain coverage.
pixman_format_code_t Code(Format format) {
    return format == Format::k32    ? PIXMAN_x8r8g8b8
           : format == Format::k565 ? PIXMAN_r5g6b5
                                    : PIXMAN_g8;
}

const pixman_indexed_t* GreyPalette() {
    static const pixman_indexed_t palette = [] {
        pixman_indexed_t made = {};
        made.color = 0;
        for (unsigned i = 0; i < 256; ++i)
            made.rgba[i] = 0xFF000000 | i * 0x10101;
        for (unsigned i = 0; i < 32768; ++i)
            made.ent[i] = static_cast<pixman_index_type>(i >> 7);
        return made;
    }();
    return &palette;
}

Picture Wrap(const Image& image, pixman_format_code_t code) {
    const Picture picture =
        Own(pixman_image_create_bits(code, image.width, image.height,
                                     reinterpret_cast<std::uint32_t*>(image.data), image.pitch));
    if (code == PIXMAN_g8) pixman_image_set_indexed(picture.get(), GreyPalette());
    return picture;
}

Picture Solid(int opacity) {
    const auto channel = [&](int level) {
        return static_cast<std::uint16_t>(level * opacity * 257 / 255);
    };
    const pixman_color_t color = {channel(kRed), channel(kGreen), channel(kBlue),
                                  static_cast<std::uint16_t>(opacity * 257)};
    return Own(pixman_image_create_solid_fill(&color));
}

Work Composite(pixman_op_t operation, const Picture& source, const Picture& mask,
               const Picture& target, const std::vector<Spot>& spots) {
    return [=, &spots] {
        for (const Spot& s : spots) {
            pixman_image_composite32(operation, source.get(), mask.get(), target.get(), s.sourceX,
                                     s.sourceY, s.sourceX, s.sourceY, s.x, s.y, s.width, s.height);
        }
    };
}

Work MakeFill(Scene& scene, const Row& row) {
    std::uint8_t color[4];
    StorePixel(color, row.target, kColor);
    const std::uint32_t word = row.target == Format::k32 ? kColor
                               : row.target == Format::k565
                                   ? static_cast<std::uint32_t>(color[0] | color[1] << 8)
                                   : color[0];
    return [to = scene.Target(row), &spots = scene.Spots(row), word] {
        for (const Spot& s : spots) {
            pixman_fill(reinterpret_cast<std::uint32_t*>(to.data), to.pitch / 4,
                        BytesPerPixel(to.format) * 8, s.x, s.y, s.width, s.height, word);
        }
    };
}

Work MakeCopy(Scene& scene, const Row& row) {
    const Image from = scene.Source(row, AlphaForm::kOpaque);
    if (row.target == Format::k8) {  // pixman_blt refuses 8 bits; coverage is copied as it is
        const Picture to = Wrap(scene.Target(row), PIXMAN_a8);
        return Composite(PIXMAN_OP_SRC, Wrap(from, PIXMAN_a8), nullptr, to, scene.Spots(row));
    }
    return [to = scene.Target(row), from, &spots = scene.Spots(row)] {
        const int bits = BytesPerPixel(to.format) * 8;
        for (const Spot& s : spots) {
            pixman_blt(reinterpret_cast<std::uint32_t*>(from.data),
                       reinterpret_cast<std::uint32_t*>(to.data), from.pitch / 4, to.pitch / 4,
                       bits, bits, s.sourceX, s.sourceY, s.x, s.y, s.width, s.height);
        }
    };
}

Work MakeTile(Scene& scene, const Row& row) {
    const auto code = row.target == Format::k8 ? PIXMAN_a8 : Code(row.target);
    const Picture tile = Wrap(scene.Source(row, AlphaForm::kOpaque), code);
    pixman_image_set_repeat(tile.get(), PIXMAN_REPEAT_NORMAL);
    return Composite(PIXMAN_OP_SRC, tile, nullptr, Wrap(scene.Target(row), code), scene.Spots(row));
}

Work MakeOver(Scene& scene, const Row& row, const Picture& target) {
    const Picture source = Wrap(scene.Source(row, AlphaForm::kPremultiplied), PIXMAN_a8r8g8b8);
    Picture mask;
    if (row.opacity != 1.0) {
        const pixman_color_t share = {0, 0, 0, 0x8080};
        mask = Own(pixman_image_create_solid_fill(&share));
    }
    return Composite(PIXMAN_OP_OVER, source, mask, target, scene.Spots(row));
}

/// Glyph images live in pixman's own cache; the font engine fills it beforehand.
class GlyphCache {
public:
    GlyphCache(Scene& scene, const Row& row) : cache_(pixman_glyph_cache_create()) {
        FT_Library library = nullptr;
        FT_Face face = nullptr;
        FT_Init_FreeType(&library);
        FT_New_Face(library, scene.FontPath(), 0, &face);
        FT_Set_Pixel_Sizes(face, 0, static_cast<FT_UInt>(row.fontSize));
        pixman_glyph_cache_freeze(cache_);
        for (const Glyph& glyph : scene.TextOf(row).glyphs) {
            FT_Load_Glyph(face, glyph.index, FT_LOAD_RENDER | FT_LOAD_NO_BITMAP);
            Insert(glyph, *face->glyph);
        }
        FT_Done_Face(face);
        FT_Done_FreeType(library);
    }
    ~GlyphCache() {
        pixman_glyph_cache_thaw(cache_);
        pixman_glyph_cache_destroy(cache_);
    }
    GlyphCache(const GlyphCache&) = delete;
    GlyphCache& operator=(const GlyphCache&) = delete;

    void Draw(pixman_image_t* ink, pixman_image_t* target, const std::vector<Glyph>& text) {
        glyphs_.clear();
        for (const Glyph& glyph : text) {
            const void* const found = pixman_glyph_cache_lookup(cache_, this, Key(glyph));
            glyphs_.push_back({glyph.x, glyph.y, found});
        }
        pixman_composite_glyphs_no_mask(PIXMAN_OP_OVER, ink, target, 0, 0, 0, 0, cache_,
                                        static_cast<int>(glyphs_.size()), glyphs_.data());
    }

private:
    static void* Key(const Glyph& glyph) {
        return reinterpret_cast<void*>(std::uintptr_t{glyph.code});
    }

    void Insert(const Glyph& glyph, const FT_GlyphSlotRec& slot) {
        const FT_Bitmap& from = slot.bitmap;
        const int width = static_cast<int>(from.width), height = static_cast<int>(from.rows);
        pixman_image_t* const image =
            pixman_image_create_bits(PIXMAN_a8, width, height, nullptr, 0);
        auto* to = reinterpret_cast<std::uint8_t*>(pixman_image_get_data(image));
        for (int y = 0; y < height; ++y, to += pixman_image_get_stride(image)) {
            std::copy_n(from.buffer + y * from.pitch, width, to);
        }
        pixman_glyph_cache_insert(cache_, this, Key(glyph), -slot.bitmap_left, slot.bitmap_top,
                                  image);
        pixman_image_unref(image);
    }

    pixman_glyph_cache_t* cache_;
    std::vector<pixman_glyph_t> glyphs_;
};

Work MakeText(Scene& scene, const Row& row, const Picture& target) {
    const auto cache = std::make_shared<GlyphCache>(scene, row);
    return [cache, ink = Solid(255), target, &glyphs = scene.TextOf(row).glyphs] {
        cache->Draw(ink.get(), target.get(), glyphs);
    };
}

Work Make(Scene& scene, const Row& row) {
    const Picture target = Wrap(scene.Target(row), Code(row.target));
    const std::vector<Spot>* const spots = &scene.Spots(row);
    const bool grey = row.target == Format::k8;
    switch (row.operation) {
        case Operation::kFill:
            return MakeFill(scene, row);
        case Operation::kBlend:
            if (grey) return {};
            return Composite(PIXMAN_OP_OVER, Solid(kHalf), nullptr, target, *spots);
        case Operation::kMask:
            if (grey) return {};
            return Composite(PIXMAN_OP_OVER, Solid(255),
                             Wrap(scene.Mask(row, MaskForm::kCoverage), PIXMAN_a8), target, *spots);
        case Operation::kCopy:
            return MakeCopy(scene, row);
        case Operation::kConvert:
        case Operation::kDisplay:
            return Composite(PIXMAN_OP_SRC,
                             Wrap(scene.Source(row, AlphaForm::kOpaque), Code(row.source)), nullptr,
                             target, *spots);
        case Operation::kOver:
            return grey ? Work{} : MakeOver(scene, row, target);
        case Operation::kTile:
            return MakeTile(scene, row);
        case Operation::kText:
            return MakeText(scene, row, target);
        default:
            return {};
    }
}

}  // namespace

Library MakePixman(Scene& scene) {
    return {"pixman", [&scene](const Row& row) { return Make(scene, row); }};
}

}  // namespace bench
