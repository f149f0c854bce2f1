// Every row kernel once, as templates over the format and the vectors. Included by one file
// for each instruction set, which defines `Wide` and `Narrow`, the vector wrappers for long and for
// narrow rows, and IsNarrow, which tells them apart, before it includes this; see pixel_format.h
// for why all of it is in an unnamed namespace.
#include "surface/rows/format_lanes.h"
#include "surface/rows/lanes_baseline.h"
#include "surface/rows/long_rows.h"
#include "surface/rows/raw_pixels.h"
#include "surface/rows/row_walk.h"

namespace gfx {
namespace {

using Byte = std::uint8_t;
using Word = std::uint32_t;

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
            return Walk<Grey8>(to, mask, w, h, [&](const Byte* p, const Byte* m, auto count) {
                return F::Mix(F::Load(p, count), colors, WeightsUnder<L>(F::LoadMask(m, count)));
            });
        }
        return Walk<Grey8>(to, mask, w, h, [&](const Byte* p, const Byte* m, auto count) {
            const auto weights = MaskedWeights<L>(F::LoadMask(m, count), alpha);
            return F::Mix(F::Load(p, count), colors, weights);
        });
    }

    static unsigned BlendMask32(PixelRows to, PixelRows mask, unsigned w, unsigned h, Word color) {
        const auto colors = F::SplatColor(color);
        const Word alpha = AlphaOf(color);
        return Walk<Color32>(to, mask, w, h, [&](const Byte* p, const Byte* m, auto count) {
            const auto weights = MaskedWeights<L>(F::AlphasOf(Words::Load(m, count)), alpha);
            return F::Mix(F::Load(p, count), colors, weights);
        });
    }

    /// Wider vectors gain nothing here: the table has the narrow ones.
    static unsigned CopyKeyed(PixelRows to, PixelRows from, unsigned w, unsigned h, Word key) {
        using Blocks = KeyedPixels<L, Format>;
        const auto keys = L::AsRaw(L::SplatWord(key * kRepeats<Format>));
        return WalkRowPairs<L, Format, Format, Blocks>(
            to, from, w, h, [&](const Byte* p, const Byte* source, auto count) {
                return Blocks::Load(p, source, keys, count);
            });
    }

    static unsigned ToWords(PixelRows to, PixelRows from, unsigned w, unsigned h, Word alpha) {
        return WalkRowPairs<L, Color32, Format, typename F::Expanded>(
            to, from, w, h, [&](const Byte*, const Byte* source, auto count) {
                return F::Expand(source, alpha & 0xFF, count);
            });
    }

    static unsigned FromWords(PixelRows to, PixelRows from, unsigned w, unsigned h) {
        return Walk<Color32>(to, from, w, h, [](const Byte*, const Byte* source, auto count) {
            return F::FromWords(Words::Load(source, count));
        });
    }

    static unsigned FromWordsKeyed(PixelRows to, PixelRows from, unsigned w, unsigned h, Word key) {
        return Walk<Color32>(to, from, w, h, [&](const Byte* p, const Byte* source, auto count) {
            const Words words = Words::Load(source, count);
            return KeepWhere(F::Matches(words, key), F::Load(p, count), F::FromWords(words));
        });
    }

    /// Rows that look like a sprite's are asked block by block whether all of it is invisible, or
    /// opaque: in 32 bits they take a fifth less, with AVX2 a third. Others would lose by it, and
    /// so would blocks of 16 pixels, too many of which hold a rim.
    static unsigned BlendWords(PixelRows to, PixelRows from, unsigned w, unsigned h) {
        constexpr bool areBlocksSmall = FormatLanes<Narrow>::kPixels < 16;
        if (!areBlocksSmall || w < 4 * F::kPixels) return BlendBlocks(to, from, w, h);
        unsigned done = 0;
        while (done < h) {
            const unsigned rows = h - done < kSampledRows ? h - done : kSampledRows;
            const PixelRows target{to.lines + done, to.x};
            const PixelRows words{from.lines + done, from.x};
            const auto blend = LooksLikeSprite(RowOf<Color32>(words, 0), w)
                                   ? BlockKernels<FormatLanes, Narrow>::BlendSprite
                                   : BlendBlocks;
            const unsigned blended = blend(target, words, w, rows);
            done += blended;
            if (blended < rows) break;
        }
        return done;
    }

    [[gnu::noinline]] static unsigned BlendSprite(PixelRows to, PixelRows from, unsigned w,
                                                  unsigned h) {
        return WalkRowPairs<L, Format, Color32, F, BlendUniform>(
            to, from, w, h, [](const Byte* p, const Byte* source, auto count) {
                return MixBlock(p, source, count);
            });
    }

    /// Blends a block that is all invisible or all opaque.
    static bool BlendUniform(Byte* p, const Byte* source) {
        const Words words = Words::Load(source, All{});
        if (words.AreInvisible()) return true;
        if (!words.AreOpaque()) return false;
        F::Store(p, F::PutOpaque(p, words), All{});
        return true;
    }

    static unsigned BlendWordsScaled(PixelRows to, PixelRows from, unsigned w, unsigned h, Word k) {
        return Walk<Color32>(to, from, w, h, [&](const Byte* p, const Byte* source, auto count) {
            const Words words = Words::Load(source, count);
            const auto weights = ScaledWeights<L>(F::AlphasOf(words), k);
            return F::Mix(F::Load(p, count), F::ColorsOf(words), weights);
        });
    }

private:
    static constexpr unsigned kSampledRows = 16;

    /// Whether three of four of 16 colour words along a row are invisible or opaque.
    static bool LooksLikeSprite(const Byte* words, unsigned w) {
        unsigned count = 0;
        for (std::size_t i = 0; i < 16; ++i) {
            const Word alpha = words[(2 * i + 1) * w / 32 * 4 + 3];
            count += alpha == 0 || alpha == 255 ? 1 : 0;
        }
        return count >= 12;
    }

    static auto MixBlock(const Byte* p, const Byte* source, auto count) {
        const Words words = Words::Load(source, count);
        return F::Mix(F::Load(p, count), F::ColorsOf(words), WeightsUnder<L>(F::AlphasOf(words)));
    }

    [[gnu::noinline]] static unsigned BlendBlocks(PixelRows to, PixelRows from, unsigned w,
                                                  unsigned h) {
        return Walk<Color32>(to, from, w, h, [](const Byte* p, const Byte* source, auto count) {
            return MixBlock(p, source, count);
        });
    }

    template <class From, class Make>
    static unsigned Walk(PixelRows to, PixelRows from, unsigned w, unsigned h, Make make) {
        return WalkRowPairs<L, Format, From, F>(to, from, w, h, make);
    }
};

/// Rows of up to 32 bytes go by 16: a store across a cache line costs more the wider it is. Squares
/// of 16 pixels take a sixth less in 5-6-5, a fifth in 8 bits. Copies were not seen to gain.
template <class Format, class L>
void Fill(PixelRows to, unsigned w, unsigned h, Word color) {
    if (L::kBytes == 32 && BytesOf<Format>(w) <= 32) {
        return Fill<Format, BaselineLanes>(to, w, h, color);
    }
    const auto pattern = L::AsRaw(L::SplatWord(Format::FromRgb(color) * kRepeats<Format>));
    using Pixels = RawPixels<L, Format>;
    if (w <= Pixels::kPixels) {
        return WalkRows<L, Format, Pixels>(to, w, h, [&](const Byte*, auto) { return pattern; });
    }
    for (unsigned j = 0; j < h; ++j) {
        FillLong<L, Pixels::kUnit>(RowOf<Format>(to, j), BytesOf<Format>(w), pattern);
    }
}

/// Rows of up to 16 bytes need no masks, whose stores cost more: squares of 16 pixels take a
/// seventh less in 8 bits.
template <template <class> class FormatLanes, class L>
void BlendColor(PixelRows to, unsigned w, unsigned h, Word color) {
    using F = FormatLanes<L>;
    using Pixels = RawPixels<L, typename F::Format>;
    if (L::kHasMasks && BytesOf<typename F::Format>(w) <= 16) {
        return BlendColor<FormatLanes, BaselineLanes>(to, w, h, color);
    }
    const typename F::Solid solid(color);
    WalkRows<L, typename F::Format, Pixels>(to, w, h, [&](const Byte* p, auto count) {
        return L::AsRaw(solid.Blend(reinterpret_cast<typename F::Block>(Pixels::Load(p, count))));
    });
}

/// A colour through a mask on grey pixels. Both are bytes: the even and the odd ones are mixed in
/// halves of their own, which takes a quarter less than widening and narrowing them.
template <class L>
unsigned BlendGreyMask(PixelRows to, PixelRows mask, unsigned w, unsigned h, Word color) {
    using Halves = typename L::U16;
    using Pixels = RawPixels<L, Grey8>;
    const Halves grey = L::SplatHalf(RgbToGrey(color));
    const Word alpha = AlphaOf(color);
    const auto blend = [&](auto weigh) {
        return WalkRowPairs<L, Grey8, Grey8, Pixels>(
            to, mask, w, h, [&](const Byte* p, const Byte* m, auto count) {
                const Halves olds = L::AsHalves(Pixels::Load(p, count));
                const Halves masks = L::AsHalves(Pixels::Load(m, count));
                const Halves even =
                    MixTowards(weigh(masks << 8), olds & 0x00FF, grey, MixHalves<Halves>);
                const Halves odd =
                    MixTowards(weigh(masks & 0xFF00), olds >> 8, grey, MixHalves<Halves>);
                return L::AsRaw(even >> 8 | (odd & 0xFF00));
            });
    };
    if (alpha == 0) return blend([](Halves masks) { return WeightsUnder<L>(masks); });
    return blend([=](Halves masks) { return MaskedWeights<L>(masks, alpha); });
}

/// In narrow vectors whatever the width: wide ones were not faster, and slower where rows are 4 KiB
/// apart. Short rows go without masks: squares of 16 pixels take a quarter less in 8 bits.
template <class Format, class L>
void Copy(PixelRows to, PixelRows from, unsigned w, unsigned h, bool upwards) {
    if (L::kHasMasks && BytesOf<Format>(w) < L::kBytes) {
        return Copy<Format, BaselineLanes>(to, from, w, h, upwards);
    }
    WithCopy<L>(BytesOf<Format>(w), [&](auto copy) {
        unsigned j = upwards ? h - 1 : 0;
        for (unsigned i = 0; i < h; ++i) {
            copy(RowOf<Format>(to, j), RowOf<Format>(from, j));
            j += upwards ? -1U : 1U;
        }
    });
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
// rectangle.

/// Pixels of one register, for kernels that work on bytes.
template <class F>
constexpr unsigned kNarrowPixels = Narrow::kBytes / sizeof(typename F::Format::Unit);

/// Light also for solid blends: wide blocks across cache lines would take a sixth less on pixels at
/// hand, and half as much again on a large surface.
template <class F, auto kWide, auto kNarrow>
void PickUpdate(PixelRows to, unsigned w, unsigned h, Word value) {
    IsNarrow(w, kNarrowPixels<F>, Load::Light) ? kNarrow(to, w, h, value) : kWide(to, w, h, value);
}

template <class F, Load kLoad, auto kWide, auto kNarrow, class... Value>
unsigned PickPair(PixelRows to, PixelRows from, unsigned w, unsigned h, Value... value) {
    return IsNarrow(w, F::kPixels, kLoad) ? kNarrow(to, from, w, h, value...)
                                          : kWide(to, from, w, h, value...);
}

/// Rows of one widened block have plain moves where rows of bytes would take masks, which cost
/// more.
inline unsigned PickGreyMask(PixelRows to, PixelRows mask, unsigned w, unsigned h, Word color) {
    using Widened = BlockKernels<Grey8Lanes, Narrow>;
    if (w <= Grey8Lanes<Narrow>::kPixels) return Widened::BlendMask8(to, mask, w, h, color);
    return IsNarrow(w, Narrow::kBytes, Load::Heavy) ? BlendGreyMask<Narrow>(to, mask, w, h, color)
                                                    : BlendGreyMask<Wide>(to, mask, w, h, color);
}

template <template <class> class FormatLanes>
struct FormatTable {
    using F = FormatLanes<Narrow>;
    using Format = typename F::Format;
    using W = BlockKernels<FormatLanes, Wide>;
    using N = BlockKernels<FormatLanes, Narrow>;

    /// In 32 bits channels are neither widened nor packed.
    static constexpr Load kBlendLoad = std::is_same_v<Format, Color32> ? Load::Medium : Load::Heavy;

    static constexpr auto kBlendMask8 = [] {
        if constexpr (std::is_same_v<Format, Grey8>) {
            return PickGreyMask;
        } else {
            return PickPair<F, kBlendLoad, W::BlendMask8, N::BlendMask8, Word>;
        }
    }();

    static constexpr FormatKernels kTable = {
        .fill = PickUpdate<F, Fill<Format, Wide>, Fill<Format, Narrow>>,
        .blendColor = PickUpdate<F, BlendColor<FormatLanes, Wide>, BlendColor<FormatLanes, Narrow>>,
        .blendMask8 = kBlendMask8,
        .blendMask32 = PickPair<F, kBlendLoad, W::BlendMask32, N::BlendMask32, Word>,
        .copy = Copy<Format, Narrow>,
        .copyKeyed = N::CopyKeyed,
        .toWords = PickPair<F, Load::Light, W::ToWords, N::ToWords, Word>,
        .fromWords = PickPair<F, Load::Light, W::FromWords, N::FromWords>,
        .fromWordsKeyed = PickPair<F, Load::Light, W::FromWordsKeyed, N::FromWordsKeyed, Word>,
        .blendWords = PickPair<F, kBlendLoad, W::BlendWords, N::BlendWords>,
        .blendWordsScaled = PickPair<F, kBlendLoad, W::BlendWordsScaled, N::BlendWordsScaled, Word>,
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
