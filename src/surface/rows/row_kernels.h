// The table of row kernels: loops over rectangles of pixels, one set for each instruction set.
// Kernels know formats and row pointers, never surfaces. Nobody clips or checks here: every
// pixel named is trusted to exist.
#ifndef GFX_SURFACE_ROWS_ROW_KERNELS_H
#define GFX_SURFACE_ROWS_ROW_KERNELS_H

#include <cstddef>
#include <cstdint>

#include "surface/pixel_format.h"

namespace gfx {

/// A rectangle's place in a surface: the row table's entry of its first row, its first column.
struct PixelRows {
    std::uint8_t* const* lines;
    std::size_t x;
};

/// The kernels of one format, as references: a table with one left out does not compile.
/// `PixelFormat::None` has kernels that do nothing and have done all rows.
///
/// Rows that follow each other without a gap, as the whole rows of most surfaces do, are taken as
/// one where that does the same.
///
/// A kernel that reads one set of rows while it writes another gives exact pixels only where the
/// two do not share memory within a row. It stops at the first row where they do and returns the
/// number of rows done; the caller takes the others through its scratch row. Here the test is one
/// compare a row; before the call it would be another walk over the row table.
struct FormatKernels {
    /// Stores a colour, alpha included where the format has one.
    void (&fill)(PixelRows to, unsigned w, unsigned h, std::uint32_t color);

    /// Blends a colour of any alpha.
    void (&blendColor)(PixelRows to, unsigned w, unsigned h, std::uint32_t color);

    /// Blends a colour through a mask of transparencies: bytes, or the alpha of colour words.
    unsigned (&blendMask8)(PixelRows to, PixelRows mask, unsigned w, unsigned h,
                           std::uint32_t color);
    unsigned (&blendMask32)(PixelRows to, PixelRows mask, unsigned w, unsigned h,
                            std::uint32_t color);

    /// Copies within the format; rows may overlap in any way. Bottom up when `upwards`.
    void (&copy)(PixelRows to, PixelRows from, unsigned w, unsigned h, bool upwards);

    /// Copies within the format all pixels but those that equal `key`, a stored pixel.
    unsigned (&copyKeyed)(PixelRows to, PixelRows from, unsigned w, unsigned h, std::uint32_t key);

    /// Pixels to colour words; `alpha` is their alpha byte below 32 bits.
    unsigned (&toWords)(PixelRows to, PixelRows from, unsigned w, unsigned h, std::uint32_t alpha);

    /// Colour words to pixels.
    unsigned (&fromWords)(PixelRows to, PixelRows from, unsigned w, unsigned h);

    /// The same, leaving pixels whose word equals `key`.
    unsigned (&fromWordsKeyed)(PixelRows to, PixelRows from, unsigned w, unsigned h,
                               std::uint32_t key);

    /// Blends colour words by their own alpha.
    unsigned (&blendWords)(PixelRows to, PixelRows from, unsigned w, unsigned h);

    /// The same, their opacity scaled first as by scaleAlpha; k <= 256.
    unsigned (&blendWordsScaled)(PixelRows to, PixelRows from, unsigned w, unsigned h,
                                 std::uint32_t k);

    /// Pixels to 16-bit display words [0RRRRRGG GGGBBBBB].
    unsigned (&toDisplay555)(PixelRows to, PixelRows from, unsigned w, unsigned h);
};

struct RowKernels {
    const char* name;
    FormatKernels formats[kPixelFormatCount];

    /// Replaces each word's opacity s = 255 - alpha by min(255, s * k >> 8); k <= 65,536.
    void (&scaleAlpha)(std::uint8_t* words, std::size_t n, std::uint32_t k);

    const FormatKernels& operator[](PixelFormat format) const {
        return formats[static_cast<unsigned>(format)];
    }
};

extern const RowKernels kRowKernelsBaseline;
#if defined(GFX_X86_KERNELS)
extern const RowKernels kRowKernelsAvx2;
extern const RowKernels kRowKernelsAvx512;
#endif

}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_ROW_KERNELS_H
