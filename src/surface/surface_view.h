// The inside of a surface as the library's own code sees it: the format it takes part in drawing
// with, its clip rectangle, its rows. Changes no pixel: what draws stands in the operations.
#ifndef GFX_SURFACE_SURFACE_VIEW_H
#define GFX_SURFACE_SURFACE_VIEW_H

#include <gfx/surface.h>

#include <cstring>

#include "surface/clip.h"
#include "surface/one_run.h"
#include "surface/rows/row_dispatch.h"

namespace gfx {

/// The first byte of a row, whichever view the caller set: reading another member of the union
/// than the one last written would be undefined, copying its bytes is not.
inline std::uint8_t* BytesOf(GfxSurface::MemoryPtr row) {
    std::uint8_t* bytes;
    static_assert(sizeof bytes == sizeof row, "all views of a row are one pointer");
    std::memcpy(&bytes, &row, sizeof bytes);
    return bytes;
}

inline GfxSurface::MemoryPtr PointerTo(std::uint8_t* bytes) {
    GfxSurface::MemoryPtr row;
    row.ptr8 = bytes;
    return row;
}

inline std::uint32_t LoadWord(const std::uint8_t* words, std::size_t i) {
    return LoadPixel<Color32>(words, i);
}

inline void StoreWord(std::uint8_t* words, std::size_t i, std::uint32_t word) {
    StorePixel<Color32>(words, i, word);
}

/// A single row as kernels take it. They are done before a temporary of it goes.
struct SingleRow {
    std::uint8_t* bytes;
    std::size_t x = 0;

    operator PixelRows() const { return {&bytes, x}; }
};

// Display memory and the runs that a host supplies serve surfaces that keep colours. Overloads, so
// that a new format has to say what it is.
constexpr bool KeepsColor(Grey8) { return false; }
constexpr bool KeepsColor(Rgb565) { return true; }
constexpr bool KeepsColor(Color32) { return true; }

/// A reference and nothing else: the compiler sees through it.
struct SurfaceView {
    const GfxSurface& surface;

    /// The format of the pixels, whether or not there are any. Depths 0 and 1 have none: their bits
    /// can only be kept. Every other format follows from its bytes per pixel.
    PixelFormat FormatOfPixels() const {
        if (surface.pixelShift == 2) [[likely]] {
            return PixelFormat::Color32;
        }
        if (surface.pixelShift == 1) [[likely]] {
            return PixelFormat::Rgb565;
        }
        return surface.depth <= 1 ? PixelFormat::None : PixelFormat::Grey8;
    }

    /// The format in which the surface takes part in drawing. One without rows does not: None is
    /// drawn on without effect and draws nothing as a source.
    PixelFormat Format() const {
        return surface.lines == nullptr ? PixelFormat::None : FormatOfPixels();
    }

    bool IsDrawable() const { return Format() != PixelFormat::None; }

    const FormatKernels& KernelsOfPixels() const { return Kernels()[FormatOfPixels()]; }

    ClipBounds Clip() const {
        return {surface.clipX0, surface.clipY0, surface.clipX1, surface.clipY1};
    }

    /// Whether a pixel lies inside the clip rectangle. On the fields themselves, which compiles to
    /// four jumps: single pixels feel the difference.
    bool Holds(int x, int y) const {
        return x >= surface.clipX0 && x < surface.clipX1 && y >= surface.clipY0 &&
               y < surface.clipY1;
    }

    // Rows and columns are trusted to exist, and to have a format.

    std::uint8_t* Row(std::int64_t y) const { return surface.lines[y]; }
    PixelRows Rows(std::int64_t x, std::int64_t y) const {
        return {surface.lines + y, static_cast<std::size_t>(x)};
    }
    RectRows RowsOf(std::int64_t x, std::int64_t y) const { return {Rows(x, y), BytesOfPixels(1)}; }
    std::uint8_t* ScratchRow() const { return reinterpret_cast<std::uint8_t*>(surface.rgbLine); }

    /// Bytes of a run of pixels.
    std::size_t BytesOfPixels(std::size_t n) const { return n << surface.pixelShift; }

    /// Pixels x .. x + n - 1 of row y to colour words.
    void ToWords(std::int64_t y, unsigned x, unsigned n, std::uint8_t* words) const {
        surface.ConvertToRGB(PointerTo(Row(y)), PointerTo(words), x, n);
    }

    /// The same, the columns wrapping at the surface's width.
    void TileToWords(std::int64_t y, unsigned x, unsigned n, std::uint8_t* words) const {
        surface.ConvertTileToRGB(PointerTo(Row(y)), PointerTo(words), x, n);
    }

    /// Gives a surface a size and, by obtainPixels(), pixel memory and all that belongs to it; what
    /// it held is released. Stands with the surface's life.
    template <class ObtainPixels>
    static void LayOut(GfxSurface& surface, unsigned w, unsigned h, std::uint64_t pitch,
                       ObtainPixels obtainPixels);

    bool HasKey() const { return surface.transparent; }
    std::uint32_t Key() const { return surface.transparentColor; }
};

}  // namespace gfx

#endif  // GFX_SURFACE_SURFACE_VIEW_H
