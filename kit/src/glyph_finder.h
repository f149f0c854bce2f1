// Which glyph or image stands for a character, and the walk along a string's characters.
#ifndef GFX_KIT_SRC_GLYPH_FINDER_H
#define GFX_KIT_SRC_GLYPH_FINDER_H

#include <gfx/kit/text.h>

#include <cstdint>

namespace gfx::kit {

inline constexpr char32_t kEllipsisCode = 0x2026;
inline constexpr std::int64_t kFarthest = std::int64_t{1} << 30;  // widths and pens saturate here

/// Image and geometry of a character; without a mask it has no ink.
struct Glyph {
    const GfxSurface* mask;
    int x, y, w, h;
    int left, top;
    int advance;
};

struct GlyphFinder {
    /// The face that has a code, or null.
    static GfxFontCache* FaceOf(const Font& font, char32_t code);

    /// The image that has a code, or null.
    static const GlyphImage* ImageOf(const Font& font, char32_t code);

    /// What is drawn for a code; 0 stands for malformed bytes. @throws what a hook throws.
    static Glyph Find(const Font& font, char32_t code);

    /// How far the pen moves on, as Find, without the image.
    static int AdvanceOf(const Font& font, char32_t code) { return Find(font, code).advance; }
};

/// A character of a string; `code` is 0 for malformed bytes.
struct Character {
    char32_t code;
    std::size_t length;
};

Character FirstCharacter(std::string_view text);

inline bool IsSpace(char32_t code) { return code == U' ' || code == U'\t'; }
inline bool IsCombining(char32_t code) { return code >= 0x300 && code <= 0x36F; }

inline int Saturated(std::int64_t v) {
    return static_cast<int>(v > kFarthest ? kFarthest : v < -kFarthest ? -kFarthest : v);
}

/// The font's ellipsis as a string.
std::string_view EllipsisOf(const Font& font);

}  // namespace gfx::kit

#endif  // GFX_KIT_SRC_GLYPH_FINDER_H
