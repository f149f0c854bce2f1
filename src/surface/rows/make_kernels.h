// A table of row kernels for an instruction set. Each file that names one includes this and nothing
// else of the library does; see pixel_format.h for why all of it is in an unnamed namespace.
#ifndef GFX_SURFACE_ROWS_MAKE_KERNELS_H
#define GFX_SURFACE_ROWS_MAKE_KERNELS_H

#include <type_traits>
#include <utility>

#include "surface/rows/block_kernels.h"

namespace gfx {
namespace {

/// One format's kernels over two sets of vectors, which may be the same: rows that fit in one wide
/// block take the narrow ones. That is decided once a rectangle.
template <PixelFormat kFormat, class Wide, class Narrow>
struct FormatTable {
    static_assert(Narrow::kTakesShortRows);
    using W = BlockKernels<kFormat, Wide>;
    using N = BlockKernels<kFormat, Narrow>;
    using Format = typename W::Format;

    static bool IsNarrow(unsigned w, unsigned widePixels) {
        return !std::is_same_v<Wide, Narrow> && w <= widePixels;
    }

    template <auto kWide, auto kNarrow>
    static void PickUpdate(PixelRows to, unsigned w, unsigned h, Word color) {
        IsNarrow(w, W::Raw::kPixels) ? kNarrow(to, w, h, color) : kWide(to, w, h, color);
    }

    template <auto kWide, auto kNarrow, class... Value>
    static unsigned PickPair(PixelRows to, PixelRows from, unsigned w, unsigned h, Value... value) {
        return IsNarrow(w, W::F::kPixels) ? kNarrow(to, from, w, h, value...)
                                          : kWide(to, from, w, h, value...);
    }

    /// A few words of every 16th row, or of every stretch of a long one, are looked at: where most
    /// are invisible or opaque, blocks are asked for either. In 32 bits only, whose blocks are
    /// small: too many of those of more pixels hold a rim.
    static unsigned BlendWords(PixelRows to, PixelRows from, unsigned w, unsigned h) {
        if (kFormat != PixelFormat::Color32 || w < kLeastSampled) {
            return PickPair<W::BlendWords, N::BlendWords>(to, from, w, h);
        }
        if (h == 1) return BlendStretches(to, from, w);
        unsigned done = 0;
        while (done < h) {
            const unsigned rows = h - done < kSampledRows ? h - done : kSampledRows;
            const unsigned blended =
                BlendAlike({to.lines + done, to.x}, {from.lines + done, from.x}, w, rows);
            done += blended;
            if (blended < rows) break;
        }
        return done;
    }

    /// Pixel by pixel in their order, whatever memory the two share.
    static unsigned ToDisplay555(PixelRows to, PixelRows from, unsigned w, unsigned h) {
        const RowPairs<Rgb565, Format> rows{to, from};
        for (unsigned j = 0; j < h; ++j) {
            const auto row = rows[j];
            for (std::size_t i = 0; i < w; ++i) {
                const Word pixel = RgbToPixel16(Format::ToRgb(LoadPixel<Format>(row.from, i), 0));
                StorePixel<Rgb565>(row.to, i, (pixel >> 1 & 0x7FE0) | (pixel & 0x001F));
            }
        }
        return h;
    }

    static constexpr FormatKernels Kernels() {
        return {
            .fill = PickUpdate<W::Fill, N::Fill>,
            .blendColor = PickUpdate<W::BlendColor, N::BlendColor>,
            .blendMask8 = PickPair<W::BlendMask8, N::BlendMask8, Word>,
            .blendMask32 = PickPair<W::BlendMask32, N::BlendMask32, Word>,
            .copy = N::Copy,  // wide vectors gain nothing on either way to copy
            .copyKeyed = N::CopyKeyed,
            .toWords = PickPair<W::ToWords, N::ToWords, Word>,
            .fromWords = PickPair<W::FromWords, N::FromWords>,
            .fromWordsKeyed = PickPair<W::FromWordsKeyed, N::FromWordsKeyed, Word>,
            .blendWords = BlendWords,
            .blendWordsScaled = PickPair<W::BlendWordsScaled, N::BlendWordsScaled, Word>,
            .toDisplay555 = ToDisplay555,
        };
    }

private:
    static constexpr unsigned kSampledRows = 16;
    // Pixels; a multiple of a prime, so that samples stand in many columns of usual widths.
    static constexpr unsigned kSampledStretch = 32 * 1009;
    static constexpr unsigned kLeastSampled = 4 * W::F::kPixels;

    static unsigned BlendStretches(PixelRows to, PixelRows from, unsigned w) {
        if (RowPairs<Format, Color32>{to, from}[0].SharesMemory(w)) return 0;
        for (std::size_t x = 0; x < w; x += kSampledStretch) {
            const std::size_t n = w - x < kSampledStretch ? w - x : kSampledStretch;
            BlendAlike({to.lines, to.x + x}, {from.lines, from.x + x}, static_cast<unsigned>(n), 1);
        }
        return 1;
    }

    static unsigned BlendAlike(PixelRows to, PixelRows from, unsigned w, unsigned h) {
        return LooksLikeSprite(*from.lines + BytesOf<Color32>(from.x), w)
                   ? SpriteKernel<Narrow>::Blend(to, from, w, h)
                   : W::BlendWords(to, from, w, h);
    }

    /// Whether three of four of 16 colour words along a row are invisible or opaque.
    static bool LooksLikeSprite(const Byte* words, unsigned w) {
        unsigned count = 0;
        for (std::size_t i = 0; i < 16; ++i) {
            const Word alpha = words[(2 * i + 1) * w / 32 * 4 + 3];
            count += alpha == 0 || alpha == 255 ? 1 : 0;
        }
        return count >= 12;
    }
};

/// Kernels of any form that do nothing: all rows are done.
template <class Wide, class Narrow>
struct FormatTable<PixelFormat::None, Wide, Narrow> {
    struct Nothing {
        template <class... Args>
        static void Update(Args...) {}
        template <class... Value>
        static unsigned Combine(PixelRows, PixelRows, unsigned, unsigned h, Value...) {
            return h;
        }

        template <class... Args>
        constexpr operator Kernel<void(Args...)>() const {
            return Update<Args...>;
        }
        template <class... Value>
        constexpr operator Kernel<unsigned(PixelRows, PixelRows, unsigned, unsigned, Value...)>()
            const {
            return Combine<Value...>;
        }
    };

    template <std::size_t... i>
    static constexpr FormatKernels Repeat(std::index_sequence<i...>) {
        return {(static_cast<void>(i), Nothing{})...};
    }
    static constexpr FormatKernels Kernels() {
        return Repeat(std::make_index_sequence<sizeof(FormatKernels) / sizeof(void (*)())>());
    }
};

/// Replaces each word's opacity, see RowKernels.
inline void ScaleAlpha(Byte* words, std::size_t n, Word k) {
    for (std::size_t i = 0; i < n; ++i) {
        const Word word = LoadPixel<Color32>(words, i);
        const Word opacity = (255 - AlphaOf(word)) * k >> 8;
        const Word alpha = 255 - (opacity > 255 ? 255 : opacity);
        StorePixel<Color32>(words, i, alpha << 24 | (word & 0x00FFFFFF));
    }
}

/// Without a branch in the loop, so that it is vectorised.
inline bool AreApartBy(Byte* const* lines, std::size_t n, std::size_t distance) {
    std::uintptr_t differences = 0;
    for (std::size_t j = 1; j < n; ++j)
        differences |= (AddressOf(lines[j]) - AddressOf(lines[j - 1])) ^ distance;
    return differences == 0;
}

template <class Wide, class Narrow, unsigned... formats>
constexpr RowKernels MakeTable(const char* name, std::integer_sequence<unsigned, formats...>) {
    return {name,
            {FormatTable<PixelFormat{formats}, Wide, Narrow>::Kernels()...},
            ScaleAlpha,
            AreApartBy};
}

/// The table of an instruction set by its vectors.
template <class Wide, class Narrow = Wide>
constexpr RowKernels MakeRowKernels(const char* name) {
    return MakeTable<Wide, Narrow>(name, std::make_integer_sequence<unsigned, kPixelFormatCount>());
}

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_MAKE_KERNELS_H
