// Fonts: glyphs found among faces and images, and strings drawn with them.
#include <gfx/kit/text.h>
#include <gfx/kit/utf8.h>

#include <algorithm>

#include "glyph_finder.h"
#include "turned_glyph.h"

namespace gfx::kit {

Font::Font(GfxFontCache& face)
    : ascent_(face.TypoAscender()), descent_(-face.TypoDescender()), lineGap_(face.TypoLineGap()) {
    faces_[0] = &face;
}

bool Font::AddFace(GfxFontCache& face) {
    if (faceCount_ == kMaxFaces) return false;
    faces_[faceCount_++] = &face;
    return true;
}

void Font::SetImages(const GlyphImage* images, int count) {
    images_ = images;
    imageCount_ = images == nullptr ? 0 : count;
}

void Font::SetLineMetrics(int ascent, int descent, int gap) {
    const auto limited = [](int v) { return std::clamp(v, -32768, 32767); };
    ascent_ = limited(ascent);
    descent_ = limited(descent);
    lineGap_ = limited(gap);
}

bool Font::Has(char32_t code) const {
    return GlyphFinder::FaceOf(*this, code) != nullptr ||
           GlyphFinder::ImageOf(*this, code) != nullptr;
}

GfxFontCache* GlyphFinder::FaceOf(const Font& font, char32_t code) {
    for (int i = 0; i < font.faceCount_; ++i) {
        if (font.faces_[i]->HasGlyph(code)) return font.faces_[i];
    }
    return nullptr;
}

const GlyphImage* GlyphFinder::ImageOf(const Font& font, char32_t code) {
    for (int i = 0; i < font.imageCount_; ++i) {
        if (font.images_[i].code == code) return &font.images_[i];
    }
    return nullptr;
}

Glyph GlyphFinder::Find(const Font& font, char32_t code) {
    for (const char32_t wanted : {code, font.replacement_}) {
        if (wanted == 0) continue;
        if (GfxFontCache* const face = FaceOf(font, wanted)) {
            GfxSurface* band = nullptr;
            unsigned short x, y;
            GfxFontCache::GlyphGeom geom;
            face->AccessGlyph(static_cast<unsigned short>(wanted), band, x, y, geom);
            return {
                band,      x,        y,           geom.right - geom.left, geom.top - geom.bottom,
                geom.left, geom.top, geom.advance};
        }
        if (const GlyphImage* const image = ImageOf(font, wanted)) {
            return {image->mask, image->x,    image->y,   image->w,
                    image->h,    image->left, image->top, image->advance};
        }
    }
    return {};
}

Character FirstCharacter(std::string_view text) {
    const Utf8Code first = DecodeUtf8(text);
    return {first.isValid ? first.code : 0, first.length};
}

std::string_view EllipsisOf(const Font& font) {
    return font.Has(kEllipsisCode) ? std::string_view("\xE2\x80\xA6") : std::string_view("...");
}

namespace {

/// Line breaks and tabs are spaces to those who draw.
char32_t DrawnCode(char32_t code) {
    return code == U'\t' || code == U'\n' || code == U'\r' ? U' ' : code;
}

/// A position that many steps along the baseline.
struct Pen {
    std::int64_t x, y;
    Turn turn;

    void Move(std::int64_t by) {
        if (turn == Turn::kNone) x += by;
        if (turn == Turn::kUp) y -= by;
        if (turn == Turn::kDown) y += by;
    }
    bool IsNear() const { return x == Saturated(x) && y == Saturated(y); }
};

/// Cuts the image at its mask's edges; false when nothing is left.
bool CutToMask(Glyph& glyph) {
    if (glyph.mask == nullptr || glyph.x < 0 || glyph.y < 0) return false;
    glyph.w =
        static_cast<int>(std::min<std::int64_t>(glyph.w, std::int64_t{glyph.mask->DX()} - glyph.x));
    glyph.h =
        static_cast<int>(std::min<std::int64_t>(glyph.h, std::int64_t{glyph.mask->DY()} - glyph.y));
    return glyph.w > 0 && glyph.h > 0;
}

void DrawUpright(GfxSurface& target, const Glyph& glyph, Pen pen, std::uint32_t word) {
    const int x = Saturated(pen.x + glyph.left);
    const int y = Saturated(pen.y - glyph.top);
    target.RectFillBlend(x, y, static_cast<unsigned>(glyph.w), static_cast<unsigned>(glyph.h), word,
                         glyph.x, glyph.y, glyph.mask);
}

}  // namespace

int MeasureString(const Font& font, std::string_view text) {
    std::int64_t width = text.empty() ? 0 : -std::int64_t{font.Tracking()};
    while (!text.empty()) {
        const Character next = FirstCharacter(text);
        width += GlyphFinder::AdvanceOf(font, DrawnCode(next.code)) + std::int64_t{font.Tracking()};
        text.remove_prefix(next.length);
    }
    return Saturated(width);
}

int DrawString(GfxSurface& target, const Font& font, int x, int y, std::string_view text,
               Color color, AlignX align, Turn turn) {
    const int width = MeasureString(font, text);
    Pen pen{x, y, turn};
    if (align == AlignX::kCenter) pen.Move(-(width / 2));
    if (align == AlignX::kRight) pen.Move(-width);
    TurnedGlyph turned;
    while (!text.empty()) {
        const Character next = FirstCharacter(text);
        Glyph glyph = GlyphFinder::Find(font, DrawnCode(next.code));
        if (pen.IsNear() && CutToMask(glyph)) {
            if (turn == Turn::kNone) {
                DrawUpright(target, glyph, pen, color.Word());
            } else {
                turned.Draw(target, glyph, Saturated(pen.x), Saturated(pen.y), color.Word(), turn);
            }
        }
        pen.Move(glyph.advance + std::int64_t{font.Tracking()});
        text.remove_prefix(next.length);
    }
    return width;
}

}  // namespace gfx::kit
