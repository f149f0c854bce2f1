// The three formats in vectors: how a block of pixels is loaded, stored, mixed and turned
// into colour words. The row kernels are written once on top of these.
//
// A format's block holds kPixels pixels. Its Alphas are one value of 0..255 a pixel, in the upper
// bytes of halves with nothing below, its Colors what Mix wants of the colours. Its Solid blends
// one colour of one alpha, whose share of each sum, colour * (256 - weight), is the same for all
// pixels. Unnamed namespace: see pixel_format.h.
#ifndef GFX_SURFACE_ROWS_FORMAT_LANES_H
#define GFX_SURFACE_ROWS_FORMAT_LANES_H

#include <cstdint>
#include <type_traits>

#include "surface/pixel_format.h"
#include "surface/rows/mix_lanes.h"

namespace gfx {
namespace {

template <class L>
struct Color32Lanes;

/// What the formats below 32 bits share: a pixel is a half, next to a pair of registers of words.
template <class L>
struct HalfLanes {
    using Block = typename L::U16;
    using Alphas = Block;
    using Words = WordPair<L>;
    static constexpr unsigned kPixels = L::kHalves;

    template <class Count>
    static Alphas LoadMask(const std::uint8_t* p, Count count) {
        return L::LoadBytesAsHalves(p, count) << 8;
    }

    static Alphas AlphasOf(const Words& words) { return words.High() & 0xFF00; }
    static Block Matches(const Words& words, std::uint32_t key) {
        const auto match = [key]<class M>(M, typename M::U32 w) {
            return M::AsWords(w == M::SplatWord(key));
        };
        return words.Map(match).Low();
    }
};

template <class L>
struct Grey8Lanes : HalfLanes<L> {
    using Format = Grey8;
    using Block = typename L::U16;
    using Words = WordPair<L>;
    using Colors = Block;

    template <class Count>
    static Block Load(const std::uint8_t* p, Count count) {
        return L::LoadBytesAsHalves(p, count);
    }
    template <class Count>
    static void Store(std::uint8_t* p, Block pixels, Count count) {
        L::StoreHalvesAsBytes(p, pixels, count);
    }
    static Colors SplatColor(std::uint32_t color) { return L::SplatHalf(RgbToGrey(color)); }
    static Block FromWords(const Words& words) {
        return words.Map([]<class M>(M, typename M::U32 w) { return GreysOfWords<M>(w); }).High();
    }
    static Colors ColorsOf(const Words& words) { return FromWords(words); }
    static Block PutOpaque(const std::uint8_t*, const Words& words) { return FromWords(words); }

    template <bool kAreOfColors>
    static Block Mix(Block old, Colors colors, const Weights<Block, kAreOfColors>& weights) {
        return MixTowards(weights, old, colors, [](Block from, Block to, Block weight) {
            // Modulo 256: as halves the sum would carry.
            const Block change = (to - from) * weight >> 8;
            return L::AsHalves(L::AsBytes(from) + L::AsBytes(change));
        });
    }

    /// Works on bytes, the even and the odd ones in halves of their own: twice as many a register
    /// as widened ones.
    struct Solid {
        Block weight, share;

        explicit Solid(std::uint32_t color)
            : weight(L::SplatHalf(OldWeight(AlphaOf(color)))),
              share(L::SplatHalf(RgbToGrey(color) * (256 - OldWeight(AlphaOf(color))))) {}

        Block Blend(Block old) const {
            const Block even = ((old & 0x00FF) * weight + share) >> 8;
            const Block odd = ((old >> 8) * weight + share) & 0xFF00;
            return even | odd;
        }
    };

    /// Pixels become colour words, in blocks of their own size.
    using Expanded = Color32Lanes<L>;
    template <class Count>
    static typename L::U32 Expand(const std::uint8_t* pixels, std::uint32_t alpha, Count count) {
        return (L::LoadBytesFourTimes(pixels, count) & 0x00FFFFFFU) | alpha << 24;
    }
};

template <class L>
struct Rgb565Lanes : HalfLanes<L> {
    using Format = Rgb565;
    using Block = typename L::U16;
    using Words = WordPair<L>;
    struct Colors {
        Block red, green, blue;
    };

    template <class Count>
    static Block Load(const std::uint8_t* p, Count count) {
        return L::LoadHalves(p, count);
    }
    template <class Count>
    static void Store(std::uint8_t* p, Block pixels, Count count) {
        L::StoreHalves(p, pixels, count);
    }
    static Block FromWords(const Words& words) {
        return words.Map([]<class M>(M, typename M::U32 w) { return Pixels16OfWords<M>(w); }).Low();
    }
    static Colors ColorsOf(const Words& words) {
        const Block low = words.Low();
        return {words.High() & 0xFF, low >> 8, low & 0xFF};
    }

    static Block PutOpaque(const std::uint8_t*, const Words& words) { return FromWords(words); }

    /// The channels of pixels, widened to 8 bits. A channel at the top of its half, times 264 = 2^8
    /// + 2^3 (6 bits: 8320 = 2^13 + 2^7, from its own place), shifted down by 16, is the bit
    /// replication.
    static Colors ChannelsOf(Block pixels) {
        return {L::MulHigh(pixels & 0xF800, L::SplatHalf(264)),
                L::MulHigh(pixels & 0x07E0, L::SplatHalf(8320)),
                L::MulHigh(pixels << 11, L::SplatHalf(264))};
    }
    template <bool kAreOfColors>
    static Block Mix(Block old, const Colors& colors, const Weights<Block, kAreOfColors>& weights) {
        const Colors wide = ChannelsOf(old);
        const Block oldWeight = weights.Old();
        const Block colorWeight = weights.Color();
        return Pack({wide.red * oldWeight + colors.red * colorWeight,
                     wide.green * oldWeight + colors.green * colorWeight,
                     wide.blue * oldWeight + colors.blue * colorWeight});
    }

    /// The parts of pixels that 256 times their channels come to.
    static Colors PartsOf(const Colors& sums) {
        return {sums.red & 0xF800, (sums.green >> 5) & 0x07E0, sums.blue >> 11};
    }
    static Block Join(const Colors& parts) { return parts.red | parts.green | parts.blue; }
    static Block Pack(const Colors& sums) { return Join(PartsOf(sums)); }

    static Colors SplatChannels(std::uint32_t color) {
        return {L::SplatHalf(color >> 16 & 0xFF), L::SplatHalf(color >> 8 & 0xFF),
                L::SplatHalf(color & 0xFF)};
    }

    /// A rule for each channel of pixels by itself: computed, or, where an instruction looks halves
    /// up in tables of 32 or 64, as many as a channel has values, looked up.
    template <class Rule>
    struct ComputedChannels {
        Rule rule;
        explicit ComputedChannels(const Rule& channelRule) : rule(channelRule) {}
        Colors Of(Block old) const { return rule(old); }
    };
    template <class Rule>
    struct TabledChannels {
        Block red, greenLow, greenHigh, blue;
        explicit TabledChannels(const Rule& rule) {
            const Block value = L::Indices();
            red = rule(value << 11).red;
            greenLow = rule(value << 5).green;
            greenHigh = rule((value + 32) << 5).green;
            blue = rule(value).blue;
        }
        Colors Of(Block old) const {
            return {L::Lookup(red, old >> 11), L::Lookup(greenLow, greenHigh, old >> 5),
                    L::Lookup(blue, old)};
        }
    };
    static constexpr bool kLooksUp = requires(Block half) { L::Lookup(half, half); };
    template <class Rule>
    using Channels = std::conditional_t<kLooksUp, TabledChannels<Rule>, ComputedChannels<Rule>>;

    /// The parts of pixels blended with one colour of one alpha. Looked up, they take 0.45 of the
    /// time.
    struct BlendedParts {
        Block weight;
        Colors shares;

        explicit BlendedParts(std::uint32_t color)
            : weight(L::SplatHalf(OldWeight(AlphaOf(color)))), shares(SplatChannels(color)) {
            const Block colorWeight = 256 - weight;
            shares.red *= colorWeight;
            shares.green *= colorWeight;
            shares.blue *= colorWeight;
        }
        Colors operator()(Block old) const {
            const Colors wide = ChannelsOf(old);
            return PartsOf({wide.red * weight + shares.red, wide.green * weight + shares.green,
                            wide.blue * weight + shares.blue});
        }
    };
    struct Solid {
        Channels<BlendedParts> parts;
        explicit Solid(std::uint32_t color) : parts(BlendedParts(color)) {}
        Block Blend(Block old) const { return Join(parts.Of(old)); }
    };

    /// One colour to mix with by many alphas.
    struct Difference {
        Colors colors;
        Colors operator()(Block old) const {
            const Colors wide = ChannelsOf(old);
            return {wide.red - colors.red, wide.green - colors.green, wide.blue - colors.blue};
        }
    };
    struct OneColor {
        Colors colors256;
        Channels<Difference> differences;
    };
    static OneColor SplatColor(std::uint32_t color) {
        const Colors colors = SplatChannels(color);
        return {{colors.red << 8, colors.green << 8, colors.blue << 8},
                Channels<Difference>(Difference{colors})};
    }
    template <bool kAreOfColors>
    static Block Mix(Block old, const OneColor& color,
                     const Weights<Block, kAreOfColors>& weights) {
        const Colors differences = color.differences.Of(old);
        const Block weight = weights.Old();
        return Pack({differences.red * weight + color.colors256.red,
                     differences.green * weight + color.colors256.green,
                     differences.blue * weight + color.colors256.blue});
    }

    using Expanded = Words;
    template <class Count>
    static Words Expand(const std::uint8_t* pixels, std::uint32_t alpha, Count count) {
        const Colors wide = ChannelsOf(Load(pixels, count));
        const Block alphaRed = wide.red | L::SplatHalf(alpha << 8);
        return Words::Interleave(wide.blue | wide.green << 8, alphaRed);
    }
};

template <class L>
struct Color32Lanes {
    using Format = Color32;
    using Block = typename L::U32;
    using Halves = typename L::U16;
    using Alphas = Halves;  // a pixel's in both halves of its word
    using Colors = Block;
    static constexpr unsigned kPixels = L::kWords;

    template <class Count>
    static Block Load(const std::uint8_t* p, Count count) {
        return L::LoadWords(p, count);
    }
    template <class Count>
    static void Store(std::uint8_t* p, Block pixels, Count count) {
        L::StoreWords(p, pixels, count);
    }
    static Colors SplatColor(std::uint32_t color) { return L::SplatWord(color); }
    template <class Count>
    static Alphas LoadMask(const std::uint8_t* p, Count count) {
        return L::LoadBytesAsUpper(p, count);
    }

    struct Words {
        Block words;

        template <class Count>
        static Words Load(const std::uint8_t* p, Count count) {
            return {L::LoadWords(p, count)};
        }
        bool AreOpaque() const { return L::AreTopBytesZero(words); }
        bool AreInvisible() const { return L::AreTopBytesFull(words); }
    };
    static Alphas AlphasOf(const Words& words) { return L::TopBytes(words.words); }
    static Block Matches(const Words& words, std::uint32_t key) {
        return L::AsWords(words.words == key);
    }
    static Block FromWords(const Words& words) { return words.words; }
    static Colors ColorsOf(const Words& words) { return words.words; }

    /// A half holds an upper channel u and a lower one l, which go by their differences du and dl
    /// times the weight w / 256 towards the other pixel's, as bytes, modulo 256. The upper change
    /// is the upper byte of du w. For the lower one whole halves are subtracted: their product is
    /// 256 du w + dl w, so its upper byte less du w is the upper byte of dl w. With AVX-512
    /// blending words takes a third less than with each channel cut out first.
    template <bool kAreOfColors>
    static Block Mix(Block old, Colors colors, const Weights<Halves, kAreOfColors>& weights) {
        return MixTowards(weights, old, colors, [old](Block from, Block to, Halves weight) {
            const Halves fromHalves = L::AsHalves(from);
            const Halves toHalves = L::AsHalves(to);
            const Halves upper = ((toHalves >> 8) - (fromHalves >> 8)) * weight;
            const Halves both = (toHalves - fromHalves) * weight >> 8;
            return L::AddBelowTop(old, from, L::AsWords(L::WithLowerDifference(upper, both)));
        });
    }

    /// Opaque colours, as blending stores them: over the old alpha bytes.
    static Block PutOpaque(const std::uint8_t* old, const Words& words) {
        return KeepWhere(L::SplatWord(0xFF000000U), Load(old, All{}), words.words);
    }

    struct Solid {
        Halves redBlueWeight, alphaGreenWeight, redBlueShare, greenShare;

        explicit Solid(std::uint32_t color) {
            const std::uint32_t weight = OldWeight(AlphaOf(color));
            const std::uint32_t share = 256 - weight;
            redBlueWeight = L::SplatHalf(weight);
            alphaGreenWeight = L::AsHalves(L::SplatWord(256U << 16 | weight));
            redBlueShare = L::AsHalves(L::SplatWord((color & 0x00FF00FFU) * share));
            greenShare = L::AsHalves(L::SplatWord((color >> 8 & 0xFFU) * share));
        }

        Block Blend(Block old) const {
            const Halves redBlue =
                (L::AsHalves(old & 0x00FF00FFU) * redBlueWeight + redBlueShare) >> 8;
            const Halves alphaGreen = (L::AsHalves(old) >> 8) * alphaGreenWeight + greenShare;
            return L::AsWords(redBlue) | (L::AsWords(alphaGreen) & 0xFF00FF00U);
        }
    };

    using Expanded = Color32Lanes;
    template <class Count>
    static Block Expand(const std::uint8_t* pixels, std::uint32_t, Count count) {
        return Load(pixels, count);
    }
};

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_FORMAT_LANES_H
