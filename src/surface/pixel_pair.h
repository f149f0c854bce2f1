// Two pixels blended at once with one colour and an alpha each: a step of an anti-aliased line. One
// vector of eight 16-bit lanes holds both; half the time of two blends one after the other, and no
// branch for alphas of 0 and 255.
#ifndef GFX_SURFACE_PIXEL_PAIR_H
#define GFX_SURFACE_PIXEL_PAIR_H

#include <array>
#include <cstdint>

#include "surface/pixel_format.h"
#include "surface/rows/lanes_baseline.h"
#include "surface/rows/mix_lanes.h"

namespace gfx {
namespace {

using PairLanes = BaselineLanes::U16;

/// The weights of an old pixel under each alpha, for lanes blue, green, red, alpha. The alpha byte
/// stays, but under alpha 0, where the single-pixel write stores the whole colour word.
inline constexpr std::array<std::uint64_t, 256> kLaneWeights = [] {
    std::array<std::uint64_t, 256> weights{};
    for (std::uint64_t a = 0; a < 256; ++a) {
        const std::uint64_t channel = a + (a > 127 ? 1 : 0);
        const std::uint64_t alpha = a == 0 ? 0 : 256;
        weights[a] = channel | channel << 16 | channel << 32 | alpha << 48;
    }
    return weights;
}();

/// Two 64-bit halves as lanes.
inline PairLanes LanesOf(std::uint64_t first, std::uint64_t second) {
    typedef std::uint64_t Halves __attribute__((vector_size(16)));
    return BaselineLanes::AsHalves(Halves{first, second});
}

/// The blending of pairs with one colour. The general one is for formats without a vector form.
template <class Format>
class PixelPair {
public:
    explicit PixelPair(std::uint32_t rgb) : rgb_(rgb) {}

    void Blend(std::uint8_t* first, std::uint32_t firstAlpha, std::uint8_t* second,
               std::uint32_t secondAlpha) const {
        BlendInto<Format>(first, 0, rgb_, firstAlpha);
        BlendInto<Format>(second, 0, rgb_, secondAlpha);
    }

private:
    std::uint32_t rgb_;
};

/// A colour's channels in the lanes of both pixels.
inline PairLanes ColorLanes(std::uint32_t rgb) {
    const std::uint64_t lanes = std::uint64_t{rgb & 0xFF} | std::uint64_t{rgb >> 8 & 0xFF} << 16 |
                                std::uint64_t{rgb >> 16 & 0xFF} << 32;
    return LanesOf(lanes, lanes);
}

template <>
class PixelPair<Color32> {
public:
    explicit PixelPair(std::uint32_t rgb) : color_(ColorLanes(rgb)) {}

    void Blend(std::uint8_t* first, std::uint32_t firstAlpha, std::uint8_t* second,
               std::uint32_t secondAlpha) const {
        using L = BaselineLanes;
        const L::U32 old{LoadPixel<Color32>(first, 0), LoadPixel<Color32>(second, 0), 0, 0};
        const PairLanes weights = LanesOf(kLaneWeights[firstAlpha], kLaneWeights[secondAlpha]);
        const PairLanes mixed = MixHalves(L::WidenLowBytes(L::AsBytes(old)), color_, weights) >> 8;
        const L::U32 pixels = L::AsWords(L::NarrowHalves(mixed));
        StorePixel<Color32>(first, 0, pixels[0]);
        StorePixel<Color32>(second, 0, pixels[1]);
    }

private:
    PairLanes color_;
};

/// Lanes of a 5-6-5 pixel: blue is multiplied to the top of its half like red, green stands in its
/// middle; one high product widens all three (see Rgb565Lanes::Mix), another cuts the mixed ones to
/// 5, 6 and 5 bits, and a sum of products puts them in their places.
template <>
class PixelPair<Rgb565> {
public:
    explicit PixelPair(std::uint32_t rgb) : color_(ColorLanes(rgb)) {}

    void Blend(std::uint8_t* first, std::uint32_t firstAlpha, std::uint8_t* second,
               std::uint32_t secondAlpha) const {
        using L = BaselineLanes;
        constexpr std::uint64_t kEach = 0x0001000100010001;
        const PairLanes pixels =
            LanesOf(LoadPixel<Rgb565>(first, 0) * kEach, LoadPixel<Rgb565>(second, 0) * kEach);
        const PairLanes aligned = pixels * Lanes(2048, 1, 1) & Lanes(0xF800, 0x07E0, 0xF800);
        const PairLanes wide = L::MulHigh(aligned, Lanes(264, 8320, 264));
        const PairLanes weights = LanesOf(kLaneWeights[firstAlpha], kLaneWeights[secondAlpha]);
        const PairLanes cut = L::MulHigh(MixHalves(wide, color_, weights), Lanes(32, 64, 32));
        const L::U32 sums = L::MulAddPairs(cut, Lanes(1, 32, 2048));
        StorePixel<Rgb565>(first, 0, sums[0] + sums[1]);
        StorePixel<Rgb565>(second, 0, sums[2] + sums[3]);
    }

private:
    static PairLanes Lanes(std::uint64_t blue, std::uint64_t green, std::uint64_t red) {
        const std::uint64_t lanes = blue | green << 16 | red << 32;
        return LanesOf(lanes, lanes);
    }

    PairLanes color_;
};

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_PIXEL_PAIR_H
