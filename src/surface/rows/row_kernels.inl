// Every row kernel once, as templates over the storage format and the vectors. Included by one file
// for each instruction set, which defines `Wide` and `Narrow`, the vector wrappers for long and for
// narrow rows, and IsNarrow, which tells them apart, before it includes this; see pixel_format.h
// for why all of it is in an unnamed namespace.
#include "surface/rows/copy_fill.h"
#include "surface/rows/format_lanes.h"
#include "surface/rows/row_walk.h"

namespace gfx {
namespace {

using Word = std::uint32_t;

/// Selects the old pixels where a mask is set.
template <class Block>
inline Block KeepWhere(Block mask, Block old, Block fresh) {
    return (old & mask) | (fresh & ~mask);
}

/// The kernels of one format over one set of vectors.
template <template <class> class FormatLanes, class L>
struct BlockKernels {
    using F = FormatLanes<L>;
    using Format = typename F::Format;
    using Words = typename F::Words;

    static unsigned BlendMask8(PixelRows to, PixelRows mask, unsigned w, unsigned h, Word color) {
        const auto colors = F::SplatColor(color);
        const Word alpha = AlphaOf(color);
        if (alpha == 0) {  // under an opaque colour the mask is the alpha
            return WalkRowPairs<Format, Grey8, F::kPixels>(
                to, mask, w, h, [=](std::uint8_t* p, const std::uint8_t* m, auto count) {
                    F::Store(p, F::Mix(F::Load(p, count), colors, F::LoadMask(m, count)), count);
                });
        }
        return WalkRowPairs<Format, Grey8, F::kPixels>(
            to, mask, w, h, [=](std::uint8_t* p, const std::uint8_t* m, auto count) {
                const auto alphas = MaskedAlphas<L>(F::LoadMask(m, count), alpha);
                F::Store(p, F::Mix(F::Load(p, count), colors, alphas), count);
            });
    }

    static unsigned BlendMask32(PixelRows to, PixelRows mask, unsigned w, unsigned h, Word color) {
        const auto colors = F::SplatColor(color);
        const Word alpha = AlphaOf(color);
        return WalkRowPairs<Format, Color32, F::kPixels>(
            to, mask, w, h, [=](std::uint8_t* p, const std::uint8_t* m, auto count) {
                const auto alphas = MaskedAlphas<L>(F::AlphasOf(Words::Load(m, count)), alpha);
                F::Store(p, F::Mix(F::Load(p, count), colors, alphas), count);
            });
    }

    static unsigned CopyKeyed(PixelRows to, PixelRows from, unsigned w, unsigned h, Word key) {
        const auto keys = F::Splat(key);
        return WalkRowPairs<Format, Format, F::kPixels>(
            to, from, w, h, [=](std::uint8_t* p, const std::uint8_t* source, auto count) {
                const auto pixels = F::Load(source, count);
                F::Store(p, L::KeepKeyed(F::Load(p, count), pixels, keys), count);
            });
    }

    static unsigned ToWords(PixelRows to, PixelRows from, unsigned w, unsigned h, Word alpha) {
        return WalkRowPairs<Color32, Format, F::kExpanded>(
            to, from, w, h, [=](std::uint8_t* p, const std::uint8_t* source, auto count) {
                F::Expand(p, source, alpha & 0xFF, count);
            });
    }

    static unsigned FromWords(PixelRows to, PixelRows from, unsigned w, unsigned h) {
        return WalkRowPairs<Format, Color32, F::kPixels>(
            to, from, w, h, [](std::uint8_t* p, const std::uint8_t* source, auto count) {
                F::Store(p, F::FromWords(Words::Load(source, count)), count);
            });
    }

    static unsigned FromWordsKeyed(PixelRows to, PixelRows from, unsigned w, unsigned h, Word key) {
        return WalkRowPairs<Format, Color32, F::kPixels>(
            to, from, w, h, [=](std::uint8_t* p, const std::uint8_t* source, auto count) {
                const Words words = Words::Load(source, count);
                F::Store(p,
                         KeepWhere(F::Matches(words, key), F::Load(p, count), F::FromWords(words)),
                         count);
            });
    }

    static unsigned BlendWords(PixelRows to, PixelRows from, unsigned w, unsigned h) {
        return WalkRowPairs<Format, Color32, F::kPixels>(
            to, from, w, h, [](std::uint8_t* p, const std::uint8_t* source, auto count) {
                const Words words = Words::Load(source, count);
                if (BlendUniform(p, words, source[3], count)) return;
                F::Store(p, F::Mix(F::Load(p, count), F::ColorsOf(words), F::AlphasOf(words)),
                         count);
            });
    }

    /// Blends whole blocks that are all invisible or all opaque, as most of a sprite's are. Asked
    /// only where the first pixel is either, which random alphas seldom are. In 32 bits that costs
    /// nothing on random alphas and takes a quarter off sprites; on narrower pixels, whose blocks
    /// are longer, it was seen to cost a fifth on both.
    static bool BlendUniform(std::uint8_t* p, const Words& words, Word alpha, All count) {
        if (sizeof(typename Format::Unit) != 4 || (alpha != 0 && alpha != 255)) return false;
        const auto alphas = F::AlphasOf(words);
        if (!L::AreEqual(L::AsBytes(alphas), L::AsBytes(F::SplatAlpha(alpha)))) return false;
        if (alpha == 0) F::Store(p, F::PutOpaque(F::Load(p, count), words), count);
        return true;
    }
    static bool BlendUniform(std::uint8_t*, const Words&, Word, Some) { return false; }

    static unsigned BlendWordsScaled(PixelRows to, PixelRows from, unsigned w, unsigned h, Word k) {
        return WalkRowPairs<Format, Color32, F::kPixels>(
            to, from, w, h, [=](std::uint8_t* p, const std::uint8_t* source, auto count) {
                const Words words = Words::Load(source, count);
                const auto alphas = ScaledAlphas<L>(F::AlphasOf(words), k);
                F::Store(p, F::Mix(F::Load(p, count), F::ColorsOf(words), alphas), count);
            });
    }
};

/// The pixel that a colour is stored as, repeated through a word.
template <class Format>
inline Word FillPattern(Word color) {
    constexpr Word kRepeats[] = {0, 0x01010101, 0x00010001, 0, 1};
    return Format::FromRgb(color) * kRepeats[sizeof(typename Format::Unit)];
}

template <class Format, class L>
void Fill(PixelRows to, unsigned w, unsigned h, Word color) {
    const auto pattern = L::AsBytes(L::SplatWord(FillPattern<Format>(color)));
    for (unsigned j = 0; j < h; ++j) {
        FillBytes<L, sizeof(typename Format::Unit)>(RowOf<Format>(to, j), BytesOf<Format>(w), pattern);
    }
}

template <class F>
void BlendColor(PixelRows to, unsigned w, unsigned h, Word color) {
    const typename F::Solid solid(color);
    WalkRows<typename F::Format, F::Solid::kPixels>(
        to, w, h, [solid](std::uint8_t* p, auto count) { solid.BlendInto(p, count); });
}

template <class Format, class L>
void Copy(PixelRows to, PixelRows from, unsigned w, unsigned h, bool upwards) {
    for (unsigned i = 0; i < h; ++i) {
        const unsigned j = upwards ? h - 1 - i : i;
        CopyBytes<L>(RowOf<Format>(to, j), RowOf<Format>(from, j), BytesOf<Format>(w));
    }
}

template <class Format>
unsigned ToDisplay555(PixelRows to, PixelRows from, unsigned w, unsigned h) {
    for (unsigned j = 0; j < h; ++j) {
        std::uint8_t* const row = RowOf<Rgb565>(to, j);
        const std::uint8_t* const source = RowOf<Format>(from, j);
        for (std::size_t i = 0; i < w; ++i) {
            const Word pixel = RgbToPixel16(Format::ToRgb(LoadPixel<Format>(source, i), 0));
            StorePixel<Rgb565>(row, i, (pixel >> 1 & 0x7FE0) | (pixel & 0x001F));
        }
    }
    return h;
}

void ScaleAlpha(std::uint8_t* words, std::size_t n, Word k) {
    for (std::size_t i = 0; i < n; ++i) {
        const Word word = LoadPixel<Color32>(words, i);
        const Word share = (255 - AlphaOf(word)) * k >> 8;
        const Word alpha = 255 - (share > 255 ? 255 : share);
        StorePixel<Color32>(words, i, alpha << 24 | (word & 0x00FFFFFF));
    }
}

// Narrow rows take narrow vectors, see IsNarrow in the file that includes this. Picked once a
// rectangle. Heavy kernels spend many instructions on a pixel, light ones few.

/// Pixels of one register, for kernels that work on bytes.
template <class F>
constexpr unsigned kNarrowPixels = Narrow::kBytes / sizeof(typename F::Format::Unit);

template <class F, auto kWide, auto kNarrow>
void PickUpdate(PixelRows to, unsigned w, unsigned h, Word value) {
    IsNarrow(w, kNarrowPixels<F>, Load::Light) ? kNarrow(to, w, h, value) : kWide(to, w, h, value);
}

template <class F, auto kWide, auto kNarrow>
void PickCopy(PixelRows to, PixelRows from, unsigned w, unsigned h, bool upwards) {
    IsNarrow(w, kNarrowPixels<F>, Load::Light) ? kNarrow(to, from, w, h, upwards)
                                               : kWide(to, from, w, h, upwards);
}

template <class F, Load kLoad, auto kWide, auto kNarrow, class... Value>
unsigned PickPair(PixelRows to, PixelRows from, unsigned w, unsigned h, Value... value) {
    return IsNarrow(w, F::kPixels, kLoad) ? kNarrow(to, from, w, h, value...)
                                          : kWide(to, from, w, h, value...);
}

template <template <class> class FormatLanes>
struct FormatTable {
    using F = FormatLanes<Narrow>;
    using Format = typename F::Format;
    using W = BlockKernels<FormatLanes, Wide>;
    using N = BlockKernels<FormatLanes, Narrow>;

    static constexpr FormatKernels kTable = {
        .fill = PickUpdate<F, Fill<Format, Wide>, Fill<Format, Narrow>>,
        .blendColor = PickUpdate<F, BlendColor<FormatLanes<Wide>>, BlendColor<F>>,
        .blendMask8 = PickPair<F, Load::Heavy, W::BlendMask8, N::BlendMask8, Word>,
        .blendMask32 = PickPair<F, Load::Heavy, W::BlendMask32, N::BlendMask32, Word>,
        .copy = PickCopy<F, Copy<Format, WideCopy>, Copy<Format, Narrow>>,
        .copyKeyed = PickPair<F, Load::Light, W::CopyKeyed, N::CopyKeyed, Word>,
        .toWords = PickPair<F, Load::Light, W::ToWords, N::ToWords, Word>,
        .fromWords = PickPair<F, Load::Light, W::FromWords, N::FromWords>,
        .fromWordsKeyed = PickPair<F, Load::Light, W::FromWordsKeyed, N::FromWordsKeyed, Word>,
        .blendWords = PickPair<F, Load::Heavy, W::BlendWords, N::BlendWords>,
        .blendWordsScaled =
            PickPair<F, Load::Heavy, W::BlendWordsScaled, N::BlendWordsScaled, Word>,
        .toDisplay555 = ToDisplay555<Format>,
    };
};

/// A format that stores nothing: every kernel does nothing and has done all rows.
struct NoTable {
    static void Update(PixelRows, unsigned, unsigned, Word) {}
    static unsigned Combine(PixelRows, PixelRows, unsigned, unsigned h) { return h; }
    static unsigned CombineWith(PixelRows, PixelRows, unsigned, unsigned h, Word) { return h; }
    static void Copy(PixelRows, PixelRows, unsigned, unsigned, bool) {}

    static constexpr FormatKernels kTable = {
        .fill = Update,
        .blendColor = Update,
        .blendMask8 = CombineWith,
        .blendMask32 = CombineWith,
        .copy = Copy,
        .copyKeyed = CombineWith,
        .toWords = CombineWith,
        .fromWords = Combine,
        .fromWordsKeyed = CombineWith,
        .blendWords = Combine,
        .blendWordsScaled = CombineWith,
        .toDisplay555 = Combine,
    };
};

constexpr RowKernels MakeRowKernels(const char* name) {
    return {name,
            {NoTable::kTable, FormatTable<Grey8Lanes>::kTable, FormatTable<Rgb565Lanes>::kTable,
             FormatTable<Color32Lanes>::kTable},
            ScaleAlpha};
}

}  // namespace
}  // namespace gfx
