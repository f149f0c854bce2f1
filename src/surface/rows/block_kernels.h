// The row kernels of one format over one set of vectors. Unnamed namespace: see pixel_format.h.
#ifndef GFX_SURFACE_ROWS_BLOCK_KERNELS_H
#define GFX_SURFACE_ROWS_BLOCK_KERNELS_H

#include "surface/rows/contracts.h"
#include "surface/rows/format_lanes.h"
#include "surface/rows/lanes_baseline.h"
#include "surface/rows/long_rows.h"
#include "surface/rows/raw_pixels.h"
#include "surface/rows/row_walk.h"

namespace gfx {
namespace {

template <PixelFormat kFormat, Vectors L>
struct BlockKernels {
    using F = FormatLanes<kFormat, L>;
    static_assert(FormatOverVectors<F, L>);
    using Format = typename F::Format;
    using Raw = RawPixels<L, Format>;
    using Words = typename F::Words;

    /// Rows of up to 32 bytes go by 16: a store across a cache line costs more the wider it is.
    static void Fill(PixelRows to, unsigned w, unsigned h, Word color) {
        if (L::kBytes == 32 && BytesOf<Format>(w) <= 32) {
            return BlockKernels<kFormat, BaselineLanes>::Fill(to, w, h, color);
        }
        const auto pattern = L::AsRaw(L::SplatWord(Format::FromRgb(color) * kRepeats<Format>));
        const Rows<Format> rows{to};
        if (w <= Raw::kPixels) {
            WalkRows<L, Raw>(rows, w, h, [&](const auto&, auto) { return pattern; });
            return;
        }
        for (unsigned j = 0; j < h; ++j) {
            FillLong<L, Raw::kUnit>(rows[j].to, BytesOf<Format>(w), pattern);
        }
    }

    static void BlendColor(PixelRows to, unsigned w, unsigned h, Word color) {
        const typename F::Solid solid(color);
        WalkRows<L, Raw>(Rows<Format>{to}, w, h, [&](const auto& at, auto count) {
            const auto olds = reinterpret_cast<typename F::Block>(Raw::Load(at.to, count));
            return L::AsRaw(solid.Blend(olds));
        });
    }

    static unsigned BlendMask8(PixelRows to, PixelRows mask, unsigned w, unsigned h, Word color) {
        const RowPairs<Format, Grey8> rows{to, mask};
        const auto colors = F::SplatColor(color);
        const Word alpha = AlphaOf(color);
        if (alpha == 0) {  // under an opaque colour the mask is the alpha
            return WalkRows<L, F>(rows, w, h, [&](const auto& at, auto count) {
                const auto weights = WeightsUnder<L>(F::LoadMask(at.from, count));
                return F::Mix(F::Load(at.to, count), colors, weights);
            });
        }
        return WalkRows<L, F>(rows, w, h, [&](const auto& at, auto count) {
            const auto weights = MaskedWeights<L>(F::LoadMask(at.from, count), alpha);
            return F::Mix(F::Load(at.to, count), colors, weights);
        });
    }

    static unsigned BlendMask32(PixelRows to, PixelRows mask, unsigned w, unsigned h, Word color) {
        const auto colors = F::SplatColor(color);
        const Word alpha = AlphaOf(color);
        return WalkWords(to, mask, w, h, [&](const auto& at, const Words& words, auto count) {
            const auto weights = MaskedWeights<L>(F::AlphasOf(words), alpha);
            return F::Mix(F::Load(at.to, count), colors, weights);
        });
    }

    /// Short rows as in Fill.
    static void Copy(PixelRows to, PixelRows from, unsigned w, unsigned h, bool upwards) {
        if (L::kBytes == 32 && BytesOf<Format>(w) <= 32) {
            return BlockKernels<kFormat, BaselineLanes>::Copy(to, from, w, h, upwards);
        }
        const RowPairs<Format, Format> rows{to, from};
        WithCopy<L>(BytesOf<Format>(w), [&](auto copy) {
            unsigned j = upwards ? h - 1 : 0;
            for (unsigned i = 0; i < h; ++i) {
                const auto row = rows[j];
                copy(row.to, row.from);
                j += upwards ? -1U : 1U;
            }
        });
    }

    static unsigned CopyKeyed(PixelRows to, PixelRows from, unsigned w, unsigned h, Word key) {
        const auto keys = L::AsRaw(L::SplatWord(key * kRepeats<Format>));
        const RowPairs<Format, Format> rows{to, from};
        return WalkRows<L, Raw>(rows, w, h, [&](const auto& at, auto count) {
            const auto fresh = Raw::Load(at.from, count);
            const auto isKey = L::template EqualUnits<Raw::kUnit>(fresh, keys);
            return L::AsRaw(
                KeepWhere(isKey, L::AsBytes(Raw::Load(at.to, count)), L::AsBytes(fresh)));
        });
    }

    static unsigned ToWords(PixelRows to, PixelRows from, unsigned w, unsigned h, Word alpha) {
        const RowPairs<Color32, Format> rows{to, from};
        return WalkRows<L, typename F::Expanded>(rows, w, h, [&](const auto& at, auto count) {
            return F::Expand(at.from, alpha & 0xFF, count);
        });
    }

    static unsigned FromWords(PixelRows to, PixelRows from, unsigned w, unsigned h) {
        return WalkWords(to, from, w, h,
                         [](const auto&, const Words& words, auto) { return F::FromWords(words); });
    }

    static unsigned FromWordsKeyed(PixelRows to, PixelRows from, unsigned w, unsigned h, Word key) {
        return WalkWords(to, from, w, h, [&](const auto& at, const Words& words, auto count) {
            return KeepWhere(F::Matches(words, key), F::Load(at.to, count), F::FromWords(words));
        });
    }

    static unsigned BlendWords(PixelRows to, PixelRows from, unsigned w, unsigned h) {
        return WalkWords(to, from, w, h, [](const auto& at, const Words& words, auto count) {
            const auto weights = WeightsUnder<L>(F::AlphasOf(words));
            return F::Mix(F::Load(at.to, count), F::ColorsOf(words), weights);
        });
    }

    static unsigned BlendWordsScaled(PixelRows to, PixelRows from, unsigned w, unsigned h, Word k) {
        return WalkWords(to, from, w, h, [&](const auto& at, const Words& words, auto count) {
            const auto weights = ScaledWeights<L>(F::AlphasOf(words), k);
            return F::Mix(F::Load(at.to, count), F::ColorsOf(words), weights);
        });
    }

private:
    /// Walks by make(place, colour words, count), which makes pixels.
    template <class Make>
    static unsigned WalkWords(PixelRows to, PixelRows from, unsigned w, unsigned h, Make make) {
        const RowPairs<Format, Color32> rows{to, from};
        return WalkRows<L, F>(rows, w, h, [&](const auto& at, auto count) {
            return make(at, F::LoadWords(at.from, count), count);
        });
    }
};

/// BlendWords of 32 bits for rows like a sprite's: whole blocks are seldom anything but invisible,
/// which are not even stored, or opaque.
template <Vectors L>
struct SpriteKernel {
    using F = FormatLanes<PixelFormat::Color32, L>;

    struct Blocks {
        static constexpr unsigned kPixels = F::kPixels;
        typename F::Block pixels;
        bool isVisible;

        template <class Count>
        static void Store(Byte* p, const Blocks& block, Count count) {
            if (block.isVisible) F::Store(p, block.pixels, count);
        }
    };

    static unsigned Blend(PixelRows to, PixelRows from, unsigned w, unsigned h) {
        const RowPairs<Color32, Color32> rows{to, from};
        return WalkRows<L, Blocks>(rows, w, h, [](const auto& at, auto count) -> Blocks {
            const auto words = F::LoadWords(at.from, count);
            if (L::AreTopBytesFull(words)) return {words, false};
            const auto olds = F::Load(at.to, count);
            if (L::AreTopBytesZero(words)) {  // blended, they keep the old alpha bytes
                return {KeepWhere(L::SplatWord(0xFF000000U), olds, words), true};
            }
            return {F::Mix(olds, words, WeightsUnder<L>(F::AlphasOf(words))), true};
        });
    }
};

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_BLOCK_KERNELS_H
