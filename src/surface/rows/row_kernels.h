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

/// A pointer to a kernel that has no value of its own: a table with one left out does not compile.
template <class Function>
class Kernel {
public:
    constexpr Kernel(Function* function) : function_(function) {}
    constexpr operator Function*() const { return function_; }

private:
    Function* function_;
};

/// The kernels of one format.
/// `PixelFormat::None` has kernels that do nothing and have done all rows.
///
/// A kernel that reads one set of rows while it writes another gives exact pixels only where the
/// two do not share memory within a row. It stops at the first row where they do and returns the
/// number of rows done; the caller takes the others through its scratch row. Here the test is one
/// compare a row; before the call it would be another walk over the row table.
struct FormatKernels {
    /// Stores a colour, alpha included where the format has one.
    Kernel<void(PixelRows to, unsigned w, unsigned h, std::uint32_t color)> fill;

    /// Blends a colour of any alpha.
    Kernel<void(PixelRows to, unsigned w, unsigned h, std::uint32_t color)> blendColor;

    /// Blends a colour through a mask of transparencies: bytes, or the alpha of colour words.
    Kernel<unsigned(PixelRows to, PixelRows mask, unsigned w, unsigned h, std::uint32_t color)>
        blendMask8;
    Kernel<unsigned(PixelRows to, PixelRows mask, unsigned w, unsigned h, std::uint32_t color)>
        blendMask32;

    /// Copies within the format; rows may overlap in any way. Bottom up when `upwards`.
    Kernel<void(PixelRows to, PixelRows from, unsigned w, unsigned h, bool upwards)> copy;

    /// Copies within the format all pixels but those that equal `key`, a stored pixel.
    Kernel<unsigned(PixelRows to, PixelRows from, unsigned w, unsigned h, std::uint32_t key)>
        copyKeyed;

    /// Pixels to colour words; `alpha` is their alpha byte below 32 bits.
    Kernel<unsigned(PixelRows to, PixelRows from, unsigned w, unsigned h, std::uint32_t alpha)>
        toWords;

    /// Colour words to pixels.
    Kernel<unsigned(PixelRows to, PixelRows from, unsigned w, unsigned h)> fromWords;

    /// The same, leaving pixels whose word equals `key`.
    Kernel<unsigned(PixelRows to, PixelRows from, unsigned w, unsigned h, std::uint32_t key)>
        fromWordsKeyed;

    /// Blends colour words by their own alpha.
    Kernel<unsigned(PixelRows to, PixelRows from, unsigned w, unsigned h)> blendWords;

    /// The same, their opacity scaled first as by scaleAlpha; k <= 256.
    Kernel<unsigned(PixelRows to, PixelRows from, unsigned w, unsigned h, std::uint32_t k)>
        blendWordsScaled;

    /// Pixels to 16-bit display words [0RRRRRGG GGGBBBBB].
    Kernel<unsigned(PixelRows to, PixelRows from, unsigned w, unsigned h)> toDisplay555;
};

struct RowKernels {
    const char* name;
    FormatKernels formats[kPixelFormatCount];

    /// Replaces each word's opacity s = 255 - alpha by min(255, s * k >> 8); k <= 65,536.
    Kernel<void(std::uint8_t* words, std::size_t n, std::uint32_t k)> scaleAlpha;

    /// Whether each of n pointers lies that many bytes behind the one before.
    Kernel<bool(std::uint8_t* const* lines, std::size_t n, std::size_t distance)> areApartBy;

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
