/// @file
/// GfxSurface: a rectangle of pixels of one depth, and every drawing operation on it. One file,
/// because a host reads one class in one place.
#ifndef GFX_SURFACE_H
#define GFX_SURFACE_H

#include <gfx/export.h>
#include <gfx/memory.h>

#include <cstdint>

class GfxFontCache;

namespace gfx {
struct SurfaceView;
}

/// A rectangle of pixels, 0 to 32 bits deep, in memory of its own or over memory of the host.
///
/// Colours are 32-bit words 0xAARRGGBB whose alpha counts transparency: 0 is opaque, 255 invisible.
/// Depths 2 to 8 store one grey byte a pixel, 9 to 16 one 16-bit 5-6-5 word (red on top, low byte
/// first), 17 to 32 one colour word (bytes blue, green, red, alpha). Depth 0 stores nothing. Depth
/// 1 keeps eight pixels a byte for the host alone: no operation draws on it or reads from it, and
/// as a source, mask or plane it draws nothing.
///
/// The grey of a colour is ((red + 2 green) * 307 + blue * 103) >> 10. 5-6-5 keeps each channel's
/// top bits; reading repeats them below.
///
/// Drawing is clipped silently to the clip rectangle; arguments may have any value. Drawing
/// operations clear the `empty` flag once something is left after clipping, also when no pixel
/// changes. Unless a line below says otherwise they throw nothing.
///
/// The blend rule, per 8-bit channel, for a colour of alpha a: with a' = a + (a > 127) the pixel
/// becomes (old * a' + colour * (256 - a')) >> 8; a 32-bit pixel keeps its own alpha byte.
///
/// A surface serves one operation at a time; separate surfaces are independent of each other.
/// Sizes are pixels and may be up to 2^31 - 1 each way. Create with New, destroy with Delete.
class GFX_API GfxSurface : public GfxMemory {
public:
    /// One pointer into pixel memory, seen as 8-, 16- or 32-bit units. Need not be aligned.
    union MemoryPtr {
        std::uint8_t* ptr8;    ///< bytes: grey pixels, plane and mask bytes
        std::uint16_t* ptr16;  ///< 5-6-5 pixels
        std::uint32_t* ptr32;  ///< colour words
    };

    /// Names one byte of the colour word; other values are legal where one is taken.
    enum ColorPlane : unsigned int {
        PlaneAlpha = 0,  ///< bits 24 to 31
        PlaneRed = 1,    ///< bits 16 to 23
        PlaneGreen = 2,  ///< bits 8 to 15
        PlaneBlue = 3    ///< bits 0 to 7
    };

    /// One step of a line along its major axis.
    struct LineDot {
        std::int32_t minor;     ///< pixel coordinate on the minor axis
        std::uint8_t fraction;  ///< how far the line lies beyond `minor`, in 1/255.99 pixel
    };

    /// Records in the dots buffer; a line's larger extent must stay below it.
    enum : unsigned int { MAX_LINE_LENGTH = 10000 };

    /// @name Making and destroying
    /// @{

    /// A surface without memory; call Initialise next. Null when fn_alloc delivers null.
    /// @param bitsPerPixel  0 to 32; it never changes afterwards.
    /// @throws const char* "bpp < 33" for larger depths; what a hook throws.
    static GfxSurface* New(unsigned int bitsPerPixel);

    /// Destroys a surface, returns all its memory and sets `s` to null; null is left alone.
    static void Delete(GfxSurface*& s);

    /// A surface owns its memory, so it cannot be copied: make another one and RectCopy into it.
    GfxSurface(const GfxSurface&) = delete;
    GfxSurface& operator=(const GfxSurface&) = delete;
    /// @}

    /// @name Memory and size
    /// @{

    /// Gives the surface zeroed memory of its own and resets the clip rectangle. What it held is
    /// released. Rows are padded to multiples of 16 bytes (depth 1: of 16 pixels).
    /// @param w,h  size in pixels.
    /// @throws const char* "dx <= INT_MAX", "dy <= INT_MAX", "row <= pitch" or "size <= ULONG_MAX"
    ///         for sizes that cannot be represented, before anything is released; what a hook
    ///         throws: the surface then holds no memory and draws nothing.
    void Initialise(unsigned int w, unsigned int h);

    /// Lays the surface over the host's memory and resets the clip rectangle. What it held is
    /// released; the host's memory never is, and must outlive its use here.
    /// @param w,h        size in pixels.
    /// @param buffer     first byte of row 0; rowBytes x h bytes that the host vouches for. Any
    ///                   alignment; may be a window into a larger picture, but then Clear zeroes
    ///                   what lies between the rows too. Null gives a surface without memory: it
    ///                   draws nothing and reads as 0.
    /// @param rowBytes   bytes from one row to the next, at least a row's own size (depth 1: w / 8,
    ///                   rounded up).
    /// @param isEmpty    whether the memory is known to be all zero.
    /// @throws as the other form, "row <= pitch" when rowBytes is too small. It is not looked at
    ///         where no row is addressed: with h = 0 and without a buffer. A surface without memory
    ///         may have any size up to 2^31 - 1 each way.
    void Initialise(unsigned int w, unsigned int h, void* buffer, unsigned int rowBytes,
                    bool isEmpty);

    /// Changes the logical size. Content and clip rectangle stay while the allocation is large
    /// enough; otherwise the surface is initialised anew with each side rounded up to the next
    /// larger multiple of 16, and the clip rectangle is that larger size.
    /// @throws as Initialise; refused sizes leave the surface as it was.
    void SetNewSize(unsigned int w, unsigned int h);

    /// Initialises the surface with a smaller allocation when a side has fallen below half of it
    /// and both rounded sides come out smaller. Content is lost then and the size is the rounded
    /// one. @throws as Initialise.
    void OptimiseSize();
    /// @}

    /// @name Clipping
    /// @{

    /// Sets the clip rectangle to what lies inside the surface of (x, y, w, h), in pixels. A side
    /// that misses the surface gives an empty range at 0.
    void SetClipRect(int x, int y, unsigned int w, unsigned int h);

    /// Delivers the clip rectangle; SetClipRect with these values restores it, as long as it lies
    /// inside the logical size.
    void GetClipRect(int& x, int& y, unsigned int& w, unsigned int& h) const {
        x = clipX0;
        y = clipY0;
        w = static_cast<unsigned int>(clipX1) - static_cast<unsigned int>(clipX0);
        h = static_cast<unsigned int>(clipY1) - static_cast<unsigned int>(clipY0);
    }

    /// Sets the clip rectangle to the whole logical size.
    void ResetClipRect();
    /// @}

    /// @name Clearing
    /// @{

    /// Zeroes Pitch() x DY() bytes, gaps between the rows included, and sets the `empty` flag. Of a
    /// derived surface one of whose rows lies elsewhere it zeroes the rows alone, as wide as they
    /// were laid out.
    void Clear();
    /// @}

    /// @name Properties
    /// @{

    unsigned int DX() const { return dx; }        ///< logical width in pixels
    unsigned int DY() const { return dy; }        ///< logical height in pixels
    unsigned int Depth() const { return depth; }  ///< bits per pixel
    unsigned int Alpha() const { return alpha; }  ///< surface alpha, see SetAlpha
    unsigned int Pitch() const { return pitch; }  ///< bytes from row to row

    /// First byte of row y. `y` is trusted: 0 to the allocated height - 1. Null without memory.
    void* Line(int y) const { return lines == nullptr ? nullptr : lines[y]; }

    /// Whether the content is known to be all zero. The library itself never reads this flag.
    bool IsEmpty() const { return empty; }
    void SetEmpty(bool isEmpty) { empty = isEmpty; }  ///< sets that flag

    /// The alpha byte with which 8- and 16-bit pixels are read; only the low 8 bits count.
    void SetAlpha(unsigned int newAlpha) { alpha = newAlpha; }

    /// Turns on the colour key: RectCopy into this surface skips source pixels whose colour word
    /// equals `color` in all 32 bits (8- and 16-bit pixels carry their surface's alpha).
    void SetTransparent(unsigned int color) {
        transparentColor = color;
        transparent = true;
    }
    void SetOpaque() { transparent = false; }  ///< turns the colour key off; its value stays
    /// @}

    /// @name Single pixels
    /// @{

    /// Stores a colour in pixel (x, y); only 32-bit pixels store its alpha.
    void SetPixelRGB(int x, int y, unsigned int color);

    /// Mixes a colour into pixel (x, y) by its alpha: 0 stores it as SetPixelRGB does, 255 leaves
    /// the pixel, others follow the blend rule.
    void SetPixelRGBBlend(int x, int y, unsigned int color);

    /// Pixel (x, y) as a colour word; 0 outside the clip rectangle.
    unsigned int RetPixelRGB(int x, int y) const;

    /// The colour at (x + fx, y + fy), interpolated between four pixels per channel: each column is
    /// top + (bottom - top) * fy, the result left + (right - left) * fx, truncated to 0..255.
    /// Pixels outside the clip rectangle take no part; 0 when all four are.
    /// @param fx,fy  how far towards column x + 1 and row y + 1, not limited to 0..1. A channel
    ///               that comes out as NaN counts as 0.
    unsigned int RetPixelMergeRGB(int x, int y, double fx, double fy) const;
    /// @}

    /// @name Runs of pixels
    /// @{

    /// Writes a run of n pixels, three bytes each (blue, green, red), into row y from column x on.
    /// 16- and 32-bit surfaces only; the alpha byte becomes 0. A null run writes nothing, and
    /// neither does one that ends beyond column 2^31 - 1 or has no pixels; but one without pixels
    /// clears the `empty` flag where x lies inside the clip rectangle, right of its first column.
    void SetPixelLineBGR24(int x, int y, unsigned int n, const unsigned char* bgr);

    /// Paints a colour into those of the n pixels of row y from column x on whose bit is 0, the
    /// most significant bit first. 16- and 32-bit surfaces only, stored without blending. Null
    /// bits write nothing; a run without pixels or beyond column 2^31 - 1 as SetPixelLineBGR24.
    void SetPixelLineMono(int x, int y, unsigned int n, unsigned int color,
                          const unsigned char* bits);
    /// @}

    /// @name Rectangles of one colour
    /// @{

    /// Fills a rectangle, alpha byte included on 32-bit surfaces. The colour key plays no part.
    /// @param x,y  top-left pixel. @param w,h  size in pixels; nothing is drawn when x + w or
    ///             y + h exceeds 2^31 - 1.
    void RectFill(int x, int y, unsigned int w, unsigned int h, unsigned int color);

    /// Blends a colour into a rectangle by its alpha; alpha 0 does exactly what RectFill does.
    void RectFillBlend(int x, int y, unsigned int w, unsigned int h, unsigned int color);

    /// Blends a colour into a rectangle through a mask of transparencies.
    /// @param srcX,srcY  mask pixel under (x, y). The rectangle ends at the mask's right and bottom
    ///                   edges; to the left and upwards the mask repeats.
    /// @param mask       depth 8: the byte, depth 32: the alpha byte is the transparency m. Other
    ///                   depths change no pixel; null fills solidly. With the colour's alpha a the
    ///                   pixel's alpha is 255 - round((255 - a)(255 - m) / 255).
    void RectFillBlend(int x, int y, unsigned int w, unsigned int h, unsigned int color, int srcX,
                       int srcY, const GfxSurface* mask);
    /// @}

    /// @name Rectangles of another surface
    /// @{

    /// Copies a rectangle from a surface of any depth, or from this one.
    /// @param x,y,w,h    the rectangle here, as RectFill.
    /// @param srcX,srcY  source pixel that goes to (x, y).
    /// @param src        the source; null means this surface. Overlapping rows come out as if each
    ///                   were read whole before it is written. Rows are copied top down, but bottom
    ///                   up where one surface is copied downwards over itself; two surfaces that
    ///                   share memory are copied top down.
    /// @param tile       false: the source ends at its edges; true: it repeats in all directions.
    void RectCopy(int x, int y, unsigned int w, unsigned int h, int srcX, int srcY,
                  const GfxSurface* src, bool tile);

    /// Blends a rectangle of a source by each source pixel's alpha; otherwise as RectCopy, without
    /// the colour key.
    void RectBlend(int x, int y, unsigned int w, unsigned int h, int srcX, int srcY,
                   const GfxSurface* src, bool tile);

    /// As RectBlend, with the source made more transparent first: its opacity (255 - alpha) is
    /// scaled by k / 256, k = trunc(256 (1 - transparency) + 0.5).
    /// @param transparency  0: as it is, 1 or more: invisible, below 0: more opaque; NaN counts as
    ///                      0, k is limited to 65,536.
    void RectBlendAlpha(int x, int y, unsigned int w, unsigned int h, int srcX, int srcY,
                        double transparency, const GfxSurface* src, bool tile);
    /// @}

    /// @name Colour planes
    /// @{

    /// Copies one byte of every pixel's colour word into a surface of depth 8.
    /// @param planeX,planeY  plane pixel that belongs to (x, y); cut at the plane's edges.
    /// @param plane          receives the bytes; null or another depth does nothing.
    /// @param which          the byte; values without a name take the blue one.
    void RectExtract(int x, int y, unsigned int w, unsigned int h, int planeX, int planeY,
                     GfxSurface* plane, ColorPlane which);

    /// Replaces one byte of every pixel's colour word by a plane's and stores the pixel again; a
    /// value of `which` without a name ORs the byte into blue. Otherwise as RectExtract.
    void RectInsert(int x, int y, unsigned int w, unsigned int h, int planeX, int planeY,
                    const GfxSurface* plane, ColorPlane which);
    /// @}

    /// @name Rectangles to bits
    /// @{

    /// Reduces a rectangle to one bit a pixel: 1 where the grey value exceeds 128, 0 elsewhere; a
    /// pixel of alpha 128 or more leaves its bit as it was.
    /// @param bufX,bufY  bit and row of the buffer that belong to (x, y); what lies before the
    ///                   buffer's first column or row is cut.
    /// @param buffer     rows of bits, most significant first; the host vouches that it holds what
    ///                   is written. Null does nothing.
    /// @param bufPitch   bytes from row to row; 0 does nothing.
    void RectExtractMono(int x, int y, unsigned int w, unsigned int h, int bufX, int bufY,
                         unsigned char* buffer, unsigned int bufPitch);

    /// As RectExtractMono, but the bit is 1 where the pixel's alpha is below 128, and whole bytes
    /// are written: their bits outside the run become 0.
    void RectExtractMonoAlpha(int x, int y, unsigned int w, unsigned int h, int bufX, int bufY,
                              unsigned char* buffer, unsigned int bufPitch);
    /// @}

    /// @name Lines
    /// @{

    /// Draws a line between two pixels, both included; the reversed line gives the same pixels.
    /// Each pixel is written as by SetPixelRGBBlend. The first line of more than a pixel takes the
    /// dots buffer from fn_alloc, 80,000 bytes, which the surface keeps until it is initialised
    /// anew or destroyed.
    /// @throws const char* "dx < MAX_LINE_LENGTH" or "dy < MAX_LINE_LENGTH" when the larger extent
    ///         is 10000 or more, before anything is drawn; what a hook throws.
    void DrawLine(int x0, int y0, int x1, int y1, unsigned int color);

    /// Draws a dashed line.
    /// @param pattern  run lengths in pixels, alternately drawn and skipped, the first one drawn;
    ///                 it starts afresh with every line at its end of smaller major coordinate.
    /// @param count    entries of the pattern; a negative count uses entry 0 for every run. A null
    ///                 pattern, count 0 or first entry 0 draws a solid line.
    void DrawLine(int x0, int y0, int x1, int y1, unsigned int color, const unsigned short* pattern,
                  int count);

    /// Draws an anti-aliased line: at each step along its longer axis two neighbouring pixels share
    /// the colour by the line's exact position. With f the dot's fraction, a the colour's alpha and
    /// w = 256 - a', the pixel at the dot's minor coordinate gets the alpha 255 - ((255 - f) w >>
    /// 8), the next one 255 - (f w >> 8). Otherwise as DrawLine.
    void DrawAALine(int x0, int y0, int x1, int y1, unsigned int color);

    /// Draws a dashed anti-aliased line; see the dashed DrawLine.
    void DrawAALine(int x0, int y0, int x1, int y1, unsigned int color,
                    const unsigned short* pattern, int count);
    /// @}

    /// @name Display memory
    /// @{

    /// Copies a rectangle to 16-bit display memory, red in bits 15-11, green in 10-5, blue in 4-0,
    /// low byte first. 16- and 32-bit surfaces only; nothing is clipped, blended or keyed.
    /// @param x,y,w,h    the rectangle, trusted to lie inside the surface.
    /// @param dest       h rows of at least 2 w bytes, trusted; any alignment.
    /// @param destPitch  bytes from row to row; bytes between the rows are not touched.
    void QuickBltTo565(unsigned int x, unsigned int y, unsigned int w, unsigned int h, void* dest,
                       unsigned int destPitch) const;

    /// As QuickBltTo565, with red in bits 14-10, green in 9-5, blue in 4-0, and bit 15 zero.
    void QuickBltTo555(unsigned int x, unsigned int y, unsigned int w, unsigned int h, void* dest,
                       unsigned int destPitch) const;

    /// Writes nothing: there is no 24-bit display layout.
    void QuickBltTo24(unsigned int x, unsigned int y, unsigned int w, unsigned int h, void* dest,
                      unsigned int destPitch) const;

    /// Writes nothing: there is no 32-bit display layout.
    void QuickBltTo32(unsigned int x, unsigned int y, unsigned int w, unsigned int h, void* dest,
                      unsigned int destPitch) const;
    /// @}

protected:
    friend class GfxFontCache;

    /// A surface without memory. @throws const char* "bpp < 33".
    explicit GfxSurface(unsigned int bitsPerPixel);

    /// @name Memory of a derived surface
    /// The four allocation operations are virtual so that a derived surface can supply memory its
    /// own way. The library always calls them through the virtual table, but for the destructor,
    /// which calls the class's own FreeSurfaceAndLines: a derived surface releases its own memory.
    /// @{

    /// Obtains zeroed pixel memory of pitch x dy bytes; sets surface, ownsSurface and empty.
    virtual void AllocSurface();

    /// Obtains the row table, lines[y] = surface + y * pitch for y < dy, and the scratch row of dx
    /// words. Without pixel memory it obtains nothing: such a surface draws nothing.
    virtual void AllocLinesForSurface();

    /// Obtains the dots buffer of MAX_LINE_LENGTH records; called when `dots` is null.
    virtual void AllocDotsBuffer();

    /// Returns everything the surface holds and nulls its pointers; sizes stay.
    virtual void FreeSurfaceAndLines();
    /// @}

    /// May throw only what fn_free throws; everything is returned even then.
    virtual ~GfxSurface() noexcept(false);

    /// @name Row converters
    /// A pixel row is in this surface's format and starts at lines[y]; a colour row holds colour
    /// words from index 0 on. Rows are trusted to hold what is addressed and not to overlap each
    /// other. x is a pixel column, n a count of pixels; n = 0 does nothing.
    /// @{

    /// Pixels x .. x + n - 1 to colour words, with this surface's alpha below 32 bits.
    void ConvertToRGB(MemoryPtr pixelRow, MemoryPtr colorRow, unsigned int x, unsigned int n) const;

    /// As ConvertToRGB, the columns wrapping to 0 at the surface's width (0 does nothing).
    void ConvertTileToRGB(MemoryPtr pixelRow, MemoryPtr colorRow, unsigned int x,
                          unsigned int n) const;

    /// Colour words to pixels x .. x + n - 1.
    void ConvertFromRGB(MemoryPtr colorRow, MemoryPtr pixelRow, unsigned int x,
                        unsigned int n) const;

    /// The same, leaving pixels whose colour word equals `key` in all 32 bits.
    void ConvertFromRGB(MemoryPtr colorRow, MemoryPtr pixelRow, unsigned int x, unsigned int n,
                        unsigned int key) const;

    /// Blends colour words into pixels x .. x + n - 1; 32-bit pixels keep their alpha byte.
    void BlendWithRGB(MemoryPtr colorRow, MemoryPtr pixelRow, unsigned int x, unsigned int n) const;

    /// Scales the opacity of n colour words in place, see RectBlendAlpha.
    void CombineRGBAlpha(double transparency, MemoryPtr colorRow, unsigned int n) const;

    /// byteRow[x + i] = (word i >> shift) & 0xFF; a shift of 32 or more gives 0.
    void ExtractFromRGB(MemoryPtr colorRow, MemoryPtr byteRow, unsigned int x, unsigned int n,
                        unsigned int shift) const;

    /// word i = byteRow[x + i] << shift | (word i & keepMask); a shift of 32 or more inserts 0.
    void InsertIntoRGB(MemoryPtr byteRow, MemoryPtr colorRow, unsigned int x, unsigned int n,
                       unsigned int shift, unsigned int keepMask) const;

    /// Bit x + i is 1 where the grey value of word i exceeds 128; kept where its alpha is >= 128.
    void ExtractMonoFromRGB(MemoryPtr colorRow, unsigned char* bits, unsigned int x,
                            unsigned int n) const;

    /// Bit x + i is 1 where the alpha of word i is below 128; other bits of the bytes become 0.
    void ExtractMonoAlphaFromRGB(MemoryPtr colorRow, unsigned char* bits, unsigned int x,
                                 unsigned int n) const;

    /// Word i is opaque black where bit x + i is 1 and opaque white where it is 0.
    void InsertMonoIntoRGB(const unsigned char* bits, MemoryPtr colorRow, unsigned int x,
                           unsigned int n) const;
    /// @}

    /// @name Steps of a line
    /// @{

    /// Fills the dots buffer for a line along x of `stepCount` steps (below MAX_LINE_LENGTH,
    /// trusted) that rises by `rise` rows (|rise| <= stepCount, trusted), from row y0 + offset on.
    /// Writes stepCount + 1 records. x0 is not used. A NaN offset counts as 0.
    /// The position is carried in double precision from step to step: that recurrence decides.
    void ComputeLineDotsDX(unsigned int x0, unsigned int y0, unsigned int stepCount, int rise,
                           double offset);

    /// The mirror: a line along y, whose column goes from x0 + offset by `rise` columns.
    void ComputeLineDotsDY(unsigned int x0, unsigned int y0, int rise, unsigned int stepCount,
                           double offset);
    /// @}

    /// @name Fields
    /// @{
    std::uint8_t* surface;           ///< first byte of pixel memory, row 0 here; null without any
    std::uint32_t* rgbLine;          ///< scratch row of colour words, allocDX long
    std::uint8_t** lines;            ///< row table, allocDY long; null without memory
    LineDot* dots;                   ///< dots buffer of the line drawers; null until needed
    std::uint32_t dx;                ///< logical width in pixels
    std::uint32_t dy;                ///< logical height in pixels
    std::uint32_t pitch;             ///< bytes from row to row
    std::uint32_t alpha;             ///< surface alpha
    std::uint32_t allocDX;           ///< width that was laid out
    std::uint32_t allocDY;           ///< height that was laid out
    bool ownsSurface;                ///< the pixel memory came from the hooks
    bool transparent;                ///< the colour key is on
    bool empty;                      ///< the content is known to be all zero
    std::int32_t clipX0;             ///< clip rectangle: left, inclusive
    std::int32_t clipY0;             ///< top, inclusive
    std::int32_t clipX1;             ///< right, exclusive
    std::int32_t clipY1;             ///< bottom, exclusive
    std::uint32_t depth;             ///< bits per pixel
    std::uint32_t bytesPerPixel;     ///< 0, 1, 2 or 4, from depth
    std::uint32_t pixelShift;        ///< log2 of bytesPerPixel
    std::uint32_t transparentColor;  ///< colour key, a whole colour word
    /// @}

private:
    friend struct gfx::SurfaceView;  // the inside, as the library's own code sees it
};

#endif  // GFX_SURFACE_H
