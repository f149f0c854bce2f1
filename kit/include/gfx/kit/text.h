/// @file
/// Text: UTF-8 strings measured, drawn, broken into lines and set into boxes.
#ifndef GFX_KIT_TEXT_H
#define GFX_KIT_TEXT_H

#include <gfx/font_cache.h>
#include <gfx/kit/color.h>
#include <gfx/kit/export.h>
#include <gfx/surface.h>

#include <cstddef>
#include <string_view>

namespace gfx::kit {

/// An image of the host's own for a character that no face has or that the caches do not reach
/// (codes above U+03FF, such as arrows or the euro sign).
struct GlyphImage {
    char32_t code;           ///< the character
    const GfxSurface* mask;  ///< depth 8: 0 full ink, 255 none; null draws nothing
    int x;                   ///< left column of the image in the mask, from 0 on
    int y;                   ///< top row of the image in the mask, from 0 on
    int w;                   ///< width; cut at the mask's edge
    int h;                   ///< height; cut at the mask's edge
    int left;                ///< from the pen to the image's left edge
    int top;                 ///< from the baseline up to the image's top edge
    int advance;             ///< how far the pen moves on
};

/// What text is set in: faces, images, spacing. Refers to caches and images of the host's, which
/// must live as long; takes no memory. Cheap to copy.
///
/// A character is drawn from the first face that has a glyph for it; else as the first image with
/// its code; else as the replacement, found in the same way; else it is left out. Tabs and line
/// breaks count as spaces, except where lines are broken.
///
/// Characters are set one behind the other by their advances: there is no kerning, no shaping, no
/// ligature, no right-to-left text, and marks are not placed over letters. Text that needs these is
/// not for this library.
class GFX_KIT_API Font {
public:
    static constexpr int kMaxFaces = 8;  ///< the most faces a font takes

    /// Text in one face. The line metrics are those of the face as it is now.
    explicit Font(GfxFontCache& face);

    /// Adds a face for characters that those before lack; false when there are kMaxFaces already.
    bool AddFace(GfxFontCache& face);

    /// Images for characters that no face has. @param images  `count` images; null for none.
    void SetImages(const GlyphImage* images, int count);

    /// The character drawn for malformed bytes and for those without glyph and image; '?' at first.
    /// 0 draws nothing for them.
    void SetReplacement(char32_t code) { replacement_ = code; }

    /// Pixels added between characters; 0 at first, negative ones bring them closer.
    void SetTracking(int pixels) { tracking_ = pixels; }

    /// Replaces the line metrics, in pixels: what a line takes above and below its baseline, and
    /// the gap to the next one. For faces that have none of their own.
    void SetLineMetrics(int ascent, int descent, int gap);

    int Ascent() const { return ascent_; }      ///< pixels above the baseline
    int Descent() const { return descent_; }    ///< pixels below it, usually positive
    int LineGap() const { return lineGap_; }    ///< pixels between two lines
    int Tracking() const { return tracking_; }  ///< pixels between two characters

    /// From baseline to baseline: ascent + descent + gap.
    int LineHeight() const { return ascent_ + descent_ + lineGap_; }

    /// Whether a face or an image has this character.
    bool Has(char32_t code) const;

private:
    friend struct GlyphFinder;

    GfxFontCache* faces_[kMaxFaces] = {};
    int faceCount_ = 1;
    const GlyphImage* images_ = nullptr;
    int imageCount_ = 0;
    char32_t replacement_ = U'?';
    int tracking_ = 0;
    int ascent_ = 0;
    int descent_ = 0;
    int lineGap_ = 0;
};

/// Where a string lies along its line.
enum class AlignX {
    kLeft,    ///< it begins there
    kCenter,  ///< its middle lies there
    kRight    ///< it ends there
};

/// Where lines lie in the height of a box.
enum class AlignY {
    kTop,       ///< the first line at the upper edge
    kBaseline,  ///< the first baseline on the upper edge
    kMiddle,    ///< as much room above as below
    kBottom     ///< the last line at the lower edge
};

/// Which way the baseline runs. Turned text is as legible as upright text: its pixels are those of
/// upright text, turned around the pen's pixel.
enum class Turn {
    kNone,  ///< to the right
    kUp,    ///< upwards
    kDown   ///< downwards
};

/// The width of a string in pixels: its advances, with the tracking between them. Saturates at
/// +-2^30. @throws what a hook throws.
GFX_KIT_API int MeasureString(const Font& font, std::string_view text);

/// Draws a string from a pen position on the baseline and gives its width.
/// @param x,y    the pen; glyphs beyond +-2^30 are left out.
/// @param align  kLeft: the text begins at the pen; kCenter: its middle lies there (half of its
///               width, cut to whole pixels, before); kRight: it ends there. Along the baseline.
/// @throws what a hook throws; some of the text may be drawn then. Upright text takes no memory
///         but that of the caches; turned text a surface for the time of the call.
GFX_KIT_API int DrawString(GfxSurface& target, const Font& font, int x, int y,
                           std::string_view text, Color color, AlignX align = AlignX::kLeft,
                           Turn turn = Turn::kNone);

/// A line at the beginning of a text.
struct TextLine {
    std::size_t length;  ///< its bytes, without spaces at its end
    std::size_t next;    ///< where the next line begins; the text's size at the end
    int width;           ///< its width in pixels
};

/// The first line of `text` that is at most maxWidth pixels wide.
///
/// A line ends at a line feed (a carriage return before it belongs to it). Otherwise it is broken
/// behind spaces, tabs and hyphens, which stay on it; a word too wide for a line of its own is
/// broken between characters, but not before a combining mark (U+0300 to U+036F). A line has one
/// character at least, however narrow it is. No-break spaces are no place to break.
/// @throws what a hook throws.
GFX_KIT_API TextLine NextLine(const Font& font, std::string_view text, int maxWidth);

/// What of a string fits into a width.
struct TextFit {
    std::size_t length;  ///< bytes to draw, before the ellipsis
    int width;           ///< their width with the ellipsis
    bool hasEllipsis;    ///< whether an ellipsis follows
};

/// The longest beginning of `text` that is at most maxWidth wide together with an ellipsis: U+2026
/// if the font has it, else three full stops. A text that fits whole has none. Spaces before the
/// ellipsis are left out; where not even the ellipsis fits, nothing is left.
/// @throws what a hook throws.
GFX_KIT_API TextFit FitString(const Font& font, std::string_view text, int maxWidth);

/// A rectangle of whole pixels that text is set into.
struct TextBox {
    int x;  ///< left column
    int y;  ///< top row
    int w;  ///< width in pixels
    int h;  ///< height in pixels
};

/// How text is set into a box.
struct TextStyle {
    Color color;                    ///< ink
    AlignX alignX = AlignX::kLeft;  ///< of each line
    AlignY alignY = AlignY::kTop;   ///< of all lines together
    bool wrap = false;              ///< break lines at the box's width, not only at line feeds
    bool ellipsis = false;          ///< cut what does not fit: lines by an ellipsis at their end,
                                    ///< and lines that leave the height (one always stays)
    Turn turn = Turn::kNone;        ///< kUp: lines begin at the lower edge, the first one at the
                                    ///< left; kDown: at the upper edge, the first one at the right
};

/// Sets a text into a box and gives the number of lines drawn. The box does not clip: without
/// `ellipsis` text may leave it. All lines together are as high as their line heights, less the
/// last gap; what is left over is halved, rounded down, where text stands in the middle.
/// @throws as DrawString.
GFX_KIT_API int DrawStringInBox(GfxSurface& target, const Font& font, TextBox box,
                                std::string_view text, const TextStyle& style);

}  // namespace gfx::kit

#endif  // GFX_KIT_TEXT_H
