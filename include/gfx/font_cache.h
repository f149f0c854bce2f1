/// @file
/// GfxFontCache: one TrueType face at one size, each glyph rendered once and kept.
#ifndef GFX_FONT_CACHE_H
#define GFX_FONT_CACHE_H

#include <gfx/export.h>
#include <gfx/memory.h>

#include <cstdint>

class GfxSurface;

/// Draws text in one TrueType face at one pixel size through a cache of rendered glyphs.
///
/// Codes are Unicode code points 0 to 1023 (U+0000 to U+03FF); a larger code gets the results of a
/// closed cache and is never stored. A glyph is rendered at its first request and kept until the
/// cache is destroyed, also when another face is opened later: use one cache for each face and
/// size. Glyphs are outlines only; embedded bitmaps and colour layers are not used.
///
/// The file may come from anyone. Faces with TrueType outlines open, OpenType faces with CFF
/// outlines and collections of either kind; compressed faces (WOFF) and all others are refused.
/// What a face may ask for is bounded, in a way that no face in use was found to meet:
///  - A composite of more than 64 parts, the glyph itself and parts of parts counted, or of more
///    than 32 levels has an empty geometry, as a glyph that cannot be loaded.
///  - A glyph has no image, only its advance, if the image would be wider or taller than 32767
///    pixels or take more than 64 MiB, or if the length of its outline in pixels (across and down
///    added, and 1 for each point) times its height is more than 2^31. It has none either at sizes
///    of 512 or more times the face's units per em. An advance that is too large saturates.
///  - Hinting programs are not run for a glyph of more than 960 points (less 64 for each part), nor
///    for a face that says it needs more than 8192 stack elements, 1024 twilight points or 1024
///    functions, or whose programs are longer than 16 KiB: it is then drawn without hinting.
/// The file is read as glyphs are asked for. A file that becomes shorter while its face is open
/// loses glyphs, and nothing else.
///
/// A cache serves one call at a time. Separate caches are independent of each other.
/// Create it with `new GfxFontCache` (which takes its storage from the hooks), on the stack or as
/// a member; it is some 10 KiB large.
class GFX_API GfxFontCache : public GfxMemory {
public:
    /// The geometry of a glyph in whole pixels, from the pen position on the baseline, y upwards.
    struct GlyphGeom {
        short left;      ///< left edge of the glyph's box
        short right;     ///< right edge of the box, exclusive
        short bottom;    ///< bottom edge of the box
        short top;       ///< top edge of the box, exclusive
        short bearingX;  ///< horizontal bearing X: (b + 63) / 64 of b in 1/64 pixel, toward zero
        short bearingY;  ///< horizontal bearing Y, rounded in the same way
        short advance;   ///< how far the pen moves on after the glyph, rounded in the same way
        short reserved;  ///< always 0
    };

    /// The cache's entry for one character code.
    struct GFX_API GlyphInfo {
        GlyphInfo* next;       ///< next record of the chain, owned; null at its end
        std::uint16_t bandX;   ///< column of the image in its band
        std::uint16_t bandY;   ///< row of the image in its band; always 0
        std::uint16_t width;   ///< image width in pixels, right - left
        std::uint16_t height;  ///< image height in pixels, top - bottom
        std::uint16_t code;    ///< character code; 0xFFFF marks a free record
        std::uint16_t band;    ///< slot of the band that holds the image
        GlyphGeom geom;        ///< the geometry

        /// A free record: code 0xFFFF, next null, every other field 0.
        GlyphInfo();

        /// Destroys the records chained behind this one, last first, and returns them to fn_free.
        ~GlyphInfo() noexcept(false);

        /// A record owns its chain, so it cannot be copied: copy `geom` and the fields you need.
        GlyphInfo(const GlyphInfo&) = delete;
        GlyphInfo& operator=(const GlyphInfo&) = delete;
    };

    /// @name Making and destroying
    /// @{

    /// A closed, empty cache. Takes no memory; the three metrics are 0.
    GfxFontCache();

    /// A cache owns its face and bands, so it cannot be copied: open a second cache on the file.
    GfxFontCache(const GfxFontCache&) = delete;
    GfxFontCache& operator=(const GfxFontCache&) = delete;

    /// Closes the face and returns all bands and records. May throw only what fn_free throws.
    virtual ~GfxFontCache() noexcept(false);
    /// @}

    /// @name The face
    /// @{

    /// Opens the first face of a font file; a face that was open is closed first.
    ///
    /// @param path      file name, zero-terminated. If it begins with two slashes, every slash is
    ///                  turned into a backslash before the file is opened. Null gives false.
    /// @param emSize    em size in pixels; any value is safe, useful ones are 1 or more.
    /// @param smooth    true: anti-aliased glyphs in five steps of coverage; false: 1-bit glyphs.
    /// @return true when the face is open. On false no face is open, whatever was open before.
    ///         Faces that are not scalable are refused, and so is whatever is no regular file of
    ///         less than 2 GiB. Glyphs cached earlier stay as they are.
    /// @throws what a hook throws; the cache is closed then.
    bool OpenFace(const char* path, int emSize, bool smooth);

    /// Closes the face; on a closed cache it does nothing. Bands, records and metrics stay, but no
    /// glyph is delivered or drawn until a face is opened again.
    void CloseFace();

    /// Whether the open face has a glyph of its own for `code`: any other code is drawn as the
    /// face's missing-glyph shape. False while no face is open and for codes of 1024 and more.
    bool HasGlyph(unsigned int code) const;
    /// @}

    /// @name Line metrics
    /// @{

    /// The typographic ascender of the face's OS/2 table in pixels: value / unitsPerEm * emSize +
    /// 0.5, truncated toward zero; 0 before the first OpenFace and for faces without that table.
    /// Saturates at the limits of short.
    short TypoAscender() const { return typoAscender; }

    /// The typographic descender in pixels, negative for usual faces: computed as TypoAscender with
    /// its sign turned, then turned back.
    short TypoDescender() const;

    /// The typographic line gap in pixels; otherwise as TypoAscender.
    short TypoLineGap() const { return typoLineGap; }
    /// @}

    /// @name Glyphs
    /// @{

    /// Delivers the image of a glyph, rendering it at the first request.
    ///
    /// @param code  Unicode code point, 0 to 1023.
    /// @param band  receives the depth-8 surface that holds the image: one byte a pixel, 0 for full
    ///              ink, 255 for none. It belongs to the cache: read it, do not draw on, resize or
    ///              delete it. Left as it was when no glyph is delivered.
    /// @param x,y   receive the image's top-left pixel in the band; 0, 0 without a glyph.
    /// @param geom  receives the geometry, all zero without a glyph. The image is right - left by
    ///              top - bottom pixels, as far as it lies inside the band.
    /// @throws what a hook throws; the glyph is then tried again at the next request.
    void AccessGlyph(unsigned short code, GfxSurface*& band, unsigned short& x, unsigned short& y,
                     GlyphGeom& geom);

    /// Draws a glyph, rendering it at the first request.
    ///
    /// @param code    Unicode code point, 0 to 1023.
    /// @param x,y     pen position on the baseline, in pixels of the target; a position left of or
    ///                above the target is passed as the unsigned form of the negative number.
    /// @param color   colour word 0xAARRGGBB, alpha counts transparency: 0 opaque, 255 invisible.
    /// @param target  the surface drawn on, within its clip rectangle; null draws nothing.
    /// @param angle   0: upright, with partial coverage. 90: a quarter turn counter-clockwise, the
    ///                baseline runs up; 270: clockwise, the baseline runs down; turned glyphs draw
    ///                only pixels of full ink. Any other angle draws nothing (the glyph is cached).
    /// @throws what a hook throws; nothing is drawn then.
    void DrawGlyph(unsigned short code, unsigned int x, unsigned int y, unsigned int color,
                   GfxSurface* target, int angle);

    /// Delivers the geometry of a glyph as AccessGlyph does, without its image.
    void GetGlyphGeometry(unsigned short code, GlyphGeom& geom);
    /// @}

protected:
    struct FaceData;

    /// Chooses the first character map that is (3, 1) or (0, 0) by platform and encoding ID and
    /// fills the table of glyph indices from it; without one every code maps to glyph 0.
    void CharToUnicode();

    /// The record of `code`, or null when it is not cached. At most four steps.
    GlyphInfo* FindGlyphInfo(unsigned short code);

    /// The record that will hold `code`, which must not be cached: the head of its slot for codes
    /// below 256, a new record at the chain's end above; null for codes of 1024 and more.
    GlyphInfo* NewGlyphInfo(unsigned short code);

    /// Loads, measures and renders the glyph of info->code and stores its image in a band. With
    /// no face open it leaves the record alone.
    /// @throws what a hook throws; the record then keeps its old values.
    void FillGlyphInfo(GlyphInfo* info);

    /// The record of `code`, filled at its first request; null when closed and for codes of 1024
    /// and more. @throws what a hook throws; the code is not cached then.
    GlyphInfo* ObtainGlyphInfo(unsigned short code);

    /// Reserves `imageWidth` columns: gives their first column and the band's slot. An image that
    /// does not fit the current band starts a new one at column 0.
    void NewGlyphInBand(unsigned short imageWidth, unsigned short& x, unsigned short& band);

    /// Makes a band of bandWidth x bandHeight, puts it into the first free slot from 1 upwards and
    /// makes it the current one.
    void NewBand();

    /// Adds ten free slots to the band array.
    void GrowBands();

    GfxSurface** bands;          ///< band array, slot 0 never used; null before the first band
    std::uint32_t bandCount;     ///< slots in `bands`
    std::uint16_t currentBand;   ///< slot that receives new glyphs; 0 before the first band
    std::uint16_t currentX;      ///< first free column of the current band
    std::uint16_t bandWidth;     ///< width of new bands in pixels
    std::uint16_t bandHeight;    ///< height of new bands in pixels
    std::int16_t typoAscender;   ///< scaled typographic ascender
    std::int16_t typoDescender;  ///< scaled typographic descender with its sign turned
    std::int16_t typoLineGap;    ///< scaled typographic line gap
    GlyphInfo glyphs[256];       ///< heads of the glyph table; code k belongs to slot k & 0xFF
    FaceData* faceData;          ///< the open face, owned; null when closed
    std::int32_t size;           ///< em size given to the last OpenFace, in pixels
    bool antialias;              ///< mode given to the last OpenFace
};

#endif  // GFX_FONT_CACHE_H
