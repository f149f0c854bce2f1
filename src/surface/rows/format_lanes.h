// The three formats in vectors: how a block of pixels is loaded, stored, mixed and turned into
// colour words. The row kernels are written once on top of these; what a format must offer, and
// what each member means, stands in contracts.h. Unnamed namespace: see pixel_format.h.
#ifndef GFX_SURFACE_ROWS_FORMAT_LANES_H
#define GFX_SURFACE_ROWS_FORMAT_LANES_H

#include <cstdint>
#include <type_traits>

#include "surface/pixel_format.h"
#include "surface/rows/mix_lanes.h"

namespace gfx {
namespace {

/// One format over one set of vectors.
template <PixelFormat kFormat, class L>
struct FormatLanes;

/// What the formats below 32 bits share: a pixel is a half, next to a pair of registers of words.
template <class L>
struct HalfLanes {
    using Block = typename L::U16;
    using Alphas = Block;
    using Words = WordPair<L>;
    static constexpr unsigned kPixels = L::kHalves;

    template <class Count>
    static Words LoadWords(const std::uint8_t* p, Count count) {
        return Words::Load(p, count);
    }
    template <class Count>
    static Alphas LoadMask(const std::uint8_t* p, Count count) {
        return L::LoadBytesAsHalves(p, count) << 8;
    }
    static Alphas AlphasOf(const Words& words) { return words.High() & 0xFF00; }
    static Block Matches(const Words& words, std::uint32_t key) {
        return words.Map([key](auto w) { return L::AsWords(w == L::SplatWord(key)); }).Low();
    }
};

template <class L>
struct FormatLanes<PixelFormat::Grey8, L> : HalfLanes<L> {
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
    static Block FromWords(const Words& words) { return words.Map(GreysOfWords<L>).High(); }
    static Colors ColorsOf(const Words& words) { return FromWords(words); }
    static Colors SplatColor(std::uint32_t color) { return L::SplatHalf(RgbToGrey(color)); }

    template <class Weights>
    static Block Mix(Block old, Colors colors, const Weights& weights) {
        return MixTowards(weights, old, colors, MixHalves<Block>) >> 8;
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

    using Expanded = FormatLanes<PixelFormat::Color32, L>;
    template <class Count>
    static typename L::U32 Expand(const std::uint8_t* pixels, std::uint32_t alpha, Count count) {
        return (L::LoadBytesFourTimes(pixels, count) & 0x00FFFFFFU) | alpha << 24;
    }
};

template <class L>
struct FormatLanes<PixelFormat::Rgb565, L> : HalfLanes<L> {
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
    static Block FromWords(const Words& words) { return words.Map(Pixels16OfWords<L>).Low(); }
    static Colors ColorsOf(const Words& words) {
        const Block low = words.Low();
        return {words.High() & 0xFF, low >> 8, low & 0xFF};
    }
    static Colors SplatColor(std::uint32_t color) {
        return {L::SplatHalf(color >> 16 & 0xFF), L::SplatHalf(color >> 8 & 0xFF),
                L::SplatHalf(color & 0xFF)};
    }

    template <class Weights>
    static Block Mix(Block old, const Colors& colors, const Weights& weights) {
        const auto mix = [&weights](Block from, Block to) {
            return MixTowards(weights, from, to, MixHalves<Block>);
        };
        const Colors wide = ChannelsOf(old);
        return Join(PartsOf({mix(wide.red, colors.red), mix(wide.green, colors.green),
                             mix(wide.blue, colors.blue)}));
    }

    /// Each channel of a pixel by itself.
    struct ComputedSolid {
        Block weight;
        Colors shares;

        explicit ComputedSolid(std::uint32_t color)
            : weight(L::SplatHalf(OldWeight(AlphaOf(color)))), shares(SplatColor(color)) {
            const Block colorWeight = 256 - weight;
            shares.red *= colorWeight;
            shares.green *= colorWeight;
            shares.blue *= colorWeight;
        }
        Colors Parts(Block old) const {
            const Colors wide = ChannelsOf(old);
            return PartsOf({wide.red * weight + shares.red, wide.green * weight + shares.green,
                            wide.blue * weight + shares.blue});
        }
        Block Blend(Block old) const { return Join(Parts(old)); }
    };

    /// Where an instruction looks halves up in tables of 32 or 64, as many as a channel has values.
    struct TabledSolid {
        Block red, greenLow, greenHigh, blue;

        explicit TabledSolid(std::uint32_t color) {
            const ComputedSolid solid(color);
            const Block value = L::Indices();
            red = solid.Parts(value << 11).red;
            greenLow = solid.Parts(value << 5).green;
            greenHigh = solid.Parts((value + 32) << 5).green;
            blue = solid.Parts(value).blue;
        }
        Block Blend(Block old) const {
            return Join({L::Lookup(red, old >> 11), L::Lookup(greenLow, greenHigh, old >> 5),
                         L::Lookup(blue, old)});
        }
    };
    static constexpr bool kLooksUp = requires(Block half) { L::Lookup(half, half); };
    using Solid = std::conditional_t<kLooksUp, TabledSolid, ComputedSolid>;

    using Expanded = Words;
    template <class Count>
    static Words Expand(const std::uint8_t* pixels, std::uint32_t alpha, Count count) {
        const Colors wide = ChannelsOf(Load(pixels, count));
        const Block alphaRed = wide.red | L::SplatHalf(alpha << 8);
        return Words::Interleave(wide.blue | wide.green << 8, alphaRed);
    }

private:
    /// The channels of pixels, widened to 8 bits. A channel at the top of its half, times 264 = 2^8
    /// + 2^3 (6 bits: 8320 = 2^13 + 2^7, from its own place), shifted down by 16, is the bit
    /// replication.
    static Colors ChannelsOf(Block pixels) {
        return {L::MulHigh(pixels & 0xF800, L::SplatHalf(264)),
                L::MulHigh(pixels & 0x07E0, L::SplatHalf(8320)),
                L::MulHigh(pixels << 11, L::SplatHalf(264))};
    }

    /// The parts of pixels that 256 times their channels come to:
    /// [RRRRR... ........] [GGGGGG.. ........] [BBBBB... ........] to [RRRRRGGG GGGBBBBB]
    static Colors PartsOf(const Colors& sums) {
        return {sums.red & 0xF800, (sums.green >> 5) & 0x07E0, sums.blue >> 11};
    }
    static Block Join(const Colors& parts) { return parts.red | parts.green | parts.blue; }
};

template <class L>
struct FormatLanes<PixelFormat::Color32, L> {
    using Format = Color32;
    using Block = typename L::U32;
    using Halves = typename L::U16;
    using Alphas = Halves;  // a pixel's in both halves of its word
    using Words = Block;
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
    template <class Count>
    static Words LoadWords(const std::uint8_t* p, Count count) {
        return L::LoadWords(p, count);
    }
    template <class Count>
    static Alphas LoadMask(const std::uint8_t* p, Count count) {
        return L::LoadBytesAsUpper(p, count);
    }
    static Alphas AlphasOf(Words words) { return L::TopBytes(words); }
    static Block Matches(Words words, std::uint32_t key) { return L::AsWords(words == key); }
    static Block FromWords(Words words) { return words; }
    static Colors ColorsOf(Words words) { return words; }
    static Colors SplatColor(std::uint32_t color) { return L::SplatWord(color); }

    /// A half holds an upper channel u and a lower one l, which go by their differences du and dl
    /// times the weight w / 256 towards the other pixel's, as bytes, modulo 256:
    ///     [du w     ] upper = (to.u - from.u) w           its upper byte is the change of u
    ///     [256 du w + dl w] both = (to - from) w          its upper byte, less du w, is that of l
    template <class Weights>
    static Block Mix(Block old, Colors colors, const Weights& weights) {
        return MixTowards(weights, old, colors, [old](Block from, Block to, Halves weight) {
            const Halves fromHalves = L::AsHalves(from);
            const Halves toHalves = L::AsHalves(to);
            const Halves upper = ((toHalves >> 8) - (fromHalves >> 8)) * weight;
            const Halves both = (toHalves - fromHalves) * weight >> 8;
            return L::AddBelowTop(old, from, L::AsWords(L::WithLowerDifference(upper, both)));
        });
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

    using Expanded = FormatLanes;
    template <class Count>
    static Block Expand(const std::uint8_t* pixels, std::uint32_t, Count count) {
        return Load(pixels, count);
    }
};

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_FORMAT_LANES_H
