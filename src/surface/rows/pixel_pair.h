// One colour blended into single pixels, and into pairs of them with a share each, as lines do. A
// vector of eight 16-bit lanes holds both pixels' channels, and no share needs a branch. Formats
// without a vector form take the plain rule. Unnamed namespace: see pixel_format.h.
#ifndef GFX_SURFACE_ROWS_PIXEL_PAIR_H
#define GFX_SURFACE_ROWS_PIXEL_PAIR_H

#include <array>
#include <cstddef>
#include <cstdint>

#include "surface/pixel_format.h"
#include "surface/rows/lanes_baseline.h"

namespace gfx {
namespace {

using PairLanes = BaselineLanes::U16;  // blue, green, red, alpha of one pixel, then of another

/// The weights of an old pixel under a colour's share of 0..255, 255 less its alpha. The old alpha
/// byte stays, but under the whole colour, where the write of a single pixel stores its word.
inline constexpr std::array<std::uint64_t, 256> kLaneWeights = [] {
    std::array<std::uint64_t, 256> weights{};
    for (std::uint32_t share = 0; share < 256; ++share) {
        const std::uint64_t channel = OldWeight(255 - share);
        const std::uint64_t alpha = share == 255 ? 0 : 256;
        weights[static_cast<std::size_t>(share)] =
            channel | channel << 16 | channel << 32 | alpha << 48;
    }
    return weights;
}();

/// Two 64-bit halves as lanes.
inline PairLanes LanesOf(std::uint64_t first, std::uint64_t second) {
    return BaselineLanes::AsHalves(BaselineLanes::U64{first, second});
}

inline PairLanes WeightsOf(std::uint32_t firstShare, std::uint32_t secondShare) {
    return LanesOf(kLaneWeights[firstShare], kLaneWeights[secondShare]);
}

/// The same three values for both pixels.
inline PairLanes ChannelLanes(std::uint64_t blue, std::uint64_t green, std::uint64_t red) {
    const std::uint64_t lanes = blue | green << 16 | red << 32;
    return LanesOf(lanes, lanes);
}

inline PairLanes ColorLanes(std::uint32_t rgb) {
    return ChannelLanes(rgb & 0xFF, rgb >> 8 & 0xFF, rgb >> 16 & 0xFF);
}

/// How lanes are made of two pixels, or of one that is followed by anything, and how pixels are
/// made of 256 times their channels.
template <class Format>
struct PixelLanes;

template <>
struct PixelLanes<Color32> {
    using L = BaselineLanes;

    static PairLanes Of(std::uint32_t first, std::uint32_t second) {
        return L::WidenLowBytes(L::AsBytes(L::U32{first, second, 0, 0}));
    }
    static PairLanes OfNeighbours(const std::uint8_t* p) {
        return L::WidenLowBytes(L::AsBytes(LanesOf(LoadAs<std::uint64_t>(p), 0)));
    }

    explicit PixelLanes(PairLanes sums) : pixels_(L::AsWords(L::NarrowHalves(sums >> 8))) {}
    std::uint32_t First() const { return pixels_[0]; }
    std::uint32_t Second() const { return pixels_[1]; }
    void StoreNeighbours(std::uint8_t* p) const {
        StoreAs<std::uint64_t>(p, reinterpret_cast<L::U64>(pixels_)[0]);
    }

private:
    L::U32 pixels_;
};

/// Blue is multiplied to the top of its half, where red stands; green stands in its middle. One
/// high product widens all three (see Rgb565Lanes::ChannelsOf), another cuts the mixed ones to 5, 6
/// and 5 bits, and a sum of products puts them in their places.
template <>
struct PixelLanes<Rgb565> {
    using L = BaselineLanes;

    static PairLanes Of(std::uint32_t first, std::uint32_t second) {
        return OfBoth(first | second << 16);
    }
    static PairLanes OfNeighbours(const std::uint8_t* p) {
        return OfBoth(LoadAs<std::uint32_t>(p));
    }

    explicit PixelLanes(PairLanes sums) {
        const PairLanes cut = L::MulHigh(sums, ChannelLanes(32, 64, 32));
        const L::U32 parts = L::MulAddPairs(cut, ChannelLanes(1, 32, 2048));
        pixels_ = parts + __builtin_shufflevector(parts, parts, 1, 0, 3, 2);
    }
    std::uint32_t First() const { return pixels_[0]; }
    std::uint32_t Second() const { return pixels_[2]; }
    /// Words, then halves are shuffled: g++ makes one shuffle of many instructions.
    void StoreNeighbours(std::uint8_t* p) const {
        const PairLanes pixels = L::AsHalves(__builtin_shufflevector(pixels_, pixels_, 0, 2, 0, 2));
        StoreAs<std::uint32_t>(
            p, L::AsWords(__builtin_shufflevector(pixels, pixels, 0, 2, 0, 2, 4, 5, 6, 7))[0]);
    }

private:
    static PairLanes OfBoth(std::uint32_t both) {
        const PairLanes aligned =
            L::RepeatTwoHalves(L::AsHalves(L::U32{both, 0, 0, 0})) * ChannelLanes(2048, 1, 1) &
            ChannelLanes(0xF800, 0x07E0, 0xF800);
        return L::MulHigh(aligned, ChannelLanes(264, 8320, 264));
    }

    L::U32 pixels_;  // each pixel twice, in neighbouring words
};

/// Blends one colour into single pixels by the plain rule.
template <class Format>
class PlainBlend {
public:
    PlainBlend(std::uint32_t rgb, std::uint32_t alpha) : rgb_(rgb), weight_(OldWeight(alpha)) {}

    void operator()(std::uint8_t* p) const {
        StorePixel<Format>(p, 0, Format::Mix(LoadPixel<Format>(p, 0), rgb_, weight_));
    }

private:
    std::uint32_t rgb_;
    std::uint32_t weight_;
};

/// The same for an alpha that is neither 0 nor 255, in a vector.
template <class Format>
class PixelBlend {
public:
    PixelBlend(std::uint32_t rgb, std::uint32_t alpha)
        : weights_(WeightsOf(255 - alpha, 255 - alpha)),
          sums_(ColorLanes(rgb) * static_cast<std::uint16_t>(256 - OldWeight(alpha))) {}

    void operator()(std::uint8_t* p) const {
        using Lanes = PixelLanes<Format>;
        const PairLanes old = Lanes::Of(LoadPixel<Format>(p, 0), 0);
        StorePixel<Format>(p, 0, Lanes(old * weights_ + sums_).First());
    }

private:
    PairLanes weights_;
    PairLanes sums_;
};

template <>
class PixelBlend<Grey8> : public PlainBlend<Grey8> {
    using PlainBlend::PlainBlend;
};

/// Blends one colour into pairs of pixels, with a share for each.
template <class Format>
class PairBlend {
public:
    explicit PairBlend(std::uint32_t rgb) : color_(ColorLanes(rgb)) {}

    void operator()(std::uint8_t* first, std::uint32_t firstShare, std::uint8_t* second,
                    std::uint32_t secondShare) const {
        const PairLanes old = Lanes::Of(LoadPixel<Format>(first, 0), LoadPixel<Format>(second, 0));
        const Lanes mixed = Mix(old, firstShare, secondShare);
        StorePixel<Format>(first, 0, mixed.First());
        StorePixel<Format>(second, 0, mixed.Second());
    }

    /// A pixel and the next one in its row.
    void Neighbours(std::uint8_t* p, std::uint32_t firstShare, std::uint32_t secondShare) const {
        Mix(Lanes::OfNeighbours(p), firstShare, secondShare).StoreNeighbours(p);
    }

private:
    using Lanes = PixelLanes<Format>;

    Lanes Mix(PairLanes old, std::uint32_t firstShare, std::uint32_t secondShare) const {
        return Lanes((old - color_) * WeightsOf(firstShare, secondShare) + (color_ << 8));
    }

    PairLanes color_;
};

template <>
class PairBlend<Grey8> {
public:
    explicit PairBlend(std::uint32_t rgb) : rgb_(rgb) {}

    void operator()(std::uint8_t* first, std::uint32_t firstShare, std::uint8_t* second,
                    std::uint32_t secondShare) const {
        BlendInto<Grey8>(first, 0, rgb_, 255 - firstShare);
        BlendInto<Grey8>(second, 0, rgb_, 255 - secondShare);
    }
    void Neighbours(std::uint8_t* p, std::uint32_t firstShare, std::uint32_t secondShare) const {
        (*this)(p, firstShare, p + 1, secondShare);
    }

private:
    std::uint32_t rgb_;
};

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_PIXEL_PAIR_H
