// The pixel rules of pixel_format.h for vectors, `L` being one set of vector wrappers.
// Products are formed in 16-bit lanes, modulo 2^16. Either 256 times a mixed channel is summed
// there: (to - from) * weight + (from << 8) is exact, because the true value to * weight + from *
// (256 - weight) lies in 0..65,280. Or (to - from) * weight >> 8 is added to `from` as bytes, which
// is exact modulo 256 (Color32).
// Unnamed namespace: see pixel_format.h.
#ifndef GFX_SURFACE_ROWS_MIX_LANES_H
#define GFX_SURFACE_ROWS_MIX_LANES_H

#include <cstdint>

#include "surface/pixel_format.h"
#include "surface/rows/lanes.h"

namespace gfx {
namespace {

/// Selects the old pixels where a mask is set.
template <class Block>
inline Block KeepWhere(Block mask, Block old, Block fresh) {
    return (old & mask) | (fresh & ~mask);
}

/// The channel that lies weights / 256 of the way from one to another, in the high byte, and its
/// remainder below.
template <class U16>
inline U16 MixHalves(U16 from, U16 to, U16 weights) {
    return (to - from) * weights + (from << 8);
}

/// How many 256ths of a mixed channel are the old pixel's, or the colour's.
template <class U16>
struct OldWeights {
    U16 given;
};
template <class U16>
struct ColorWeights {
    U16 given;
};

/// Mixes by mix(from, to, weights), which starts from one of the two and goes by weights / 256
/// towards the other: the one whose weights are given.
template <class U16, class Pixels, class Mix>
inline Pixels MixTowards(const OldWeights<U16>& weights, Pixels old, Pixels colors, Mix mix) {
    return mix(colors, old, weights.given);
}
template <class U16, class Pixels, class Mix>
inline Pixels MixTowards(const ColorWeights<U16>& weights, Pixels old, Pixels colors, Mix mix) {
    return mix(old, colors, weights.given);
}

/// Under alphas that stand in the upper bytes of halves, with nothing below; see OldWeight.
/// 256 a * 258 is 65536 a + 512 a, so its high half is a, plus 1 from 128 on.
template <class L>
inline OldWeights<typename L::U16> WeightsUnder(typename L::U16 alphas) {
    if constexpr (L::kHasFastMulHigh) {
        return {L::MulHigh(alphas, L::SplatHalf(258))};
    } else {
        return {(alphas >> 8) + (alphas >> 15)};
    }
}

/// Of colours by their opacity, 255 less the alpha.
template <class U16>
inline ColorWeights<U16> WeightsOfOpacities(U16 opacities) {
    return {opacities + (opacities >> 7)};
}

/// The colours' weights where the opacity is scaled by k <= 256, see scaleAlpha.
template <class L>
inline ColorWeights<typename L::U16> ScaledWeights(typename L::U16 alphas, std::uint32_t k) {
    const typename L::U16 opacities = alphas ^ 0xFF00;  // in the upper bytes
    const auto factor = L::SplatHalf(k);
    if constexpr (L::kHasFastMulHigh) {
        return WeightsOfOpacities(L::MulHigh(opacities, factor));
    } else {
        return WeightsOfOpacities<typename L::U16>((opacities >> 8) * factor >> 8);
    }
}

/// The weights of a colour of an alpha through masks, see MaskedAlpha. x / 255, rounded, is
/// (x + 128 + (x + 128 >> 8)) >> 8 for x up to 65,025.
template <class L>
inline ColorWeights<typename L::U16> MaskedWeights(typename L::U16 masks, std::uint32_t alpha) {
    const typename L::U16 opacities = (masks ^ 0xFF00) >> 8;
    const typename L::U16 biased = opacities * L::SplatHalf(255 - alpha) + 128;
    return WeightsOfOpacities<typename L::U16>((biased + (biased >> 8)) >> 8);
}

/// Grey levels of colour words, in the upper halves. The sum of a word's pair (blue, red + 2 green)
/// times (103, 307), shifted down by 10, is the grey. 64 times as much has it in the upper half,
/// its remainder below, and is as much as the signed halves of MulAddPairs hold.
template <class L>
inline typename L::U32 GreysOfWords(typename L::U32 words) {
    const typename L::U32 pairs = (words & 0x00FF00FFU) + ((words << 9) & 0x01FE0000U);
    const auto factors = L::AsHalves(L::SplatWord(64 * 307U << 16 | 64 * 103U));
    return L::MulAddPairs(L::AsHalves(pairs), factors);
}

/// 5-6-5 pixels of colour words, in the lower halves. The sum of a word's pair (blue, red), cut to
/// 5 bits, times (4, 8192) puts them around green's place; then all move down by 5.
template <class L>
inline typename L::U32 Pixels16OfWords(typename L::U32 words) {
    const auto factors = L::AsHalves(L::SplatWord(8192U << 16 | 4U));
    const auto redBlue = L::MulAddPairs(L::AsHalves(words & 0x00F800F8U), factors);
    return (redBlue | (words & 0x0000FC00U)) >> 5;
}

/// As many colour words as there are halves in a register of L: two registers of them.
template <class L>
struct WordPair {
    static constexpr unsigned kPixels = L::kHalves;
    typename L::U32 first, second;

    static WordPair Load(const std::uint8_t* words, All) {
        return {L::LoadWords(words, All{}), L::LoadWords(words + L::kBytes, All{})};
    }
    static WordPair Load(const std::uint8_t* words, Some some) {
        if (some.n <= L::kWords) return {L::LoadWords(words, some), typename L::U32{}};
        return {L::LoadWords(words, All{}),
                L::LoadWords(words + L::kBytes, Some{some.n - L::kWords})};
    }
    template <unsigned k>
    static WordPair Load(const std::uint8_t* words, Ends<k> ends) {
        if constexpr (k < L::kWords) {
            return {L::LoadWords(words, ends), typename L::U32{}};
        } else {
            return {L::LoadWords(words, All{}), L::LoadWords(ends.template Last<4>(words), All{})};
        }
    }

    typename L::U16 Low() const { return L::PackLow(first, second); }
    typename L::U16 High() const { return L::PackHigh(first, second); }

    template <class Rule>
    WordPair Map(Rule rule) const {
        return {rule(first), rule(second)};
    }

    /// Words of pairs of halves.
    static WordPair Interleave(typename L::U16 low, typename L::U16 high) {
        return {L::InterleaveFirst(low, high), L::InterleaveSecond(low, high)};
    }

    static void Store(std::uint8_t* p, const WordPair& words, All) {
        L::StoreWords(p, words.first, All{});
        L::StoreWords(p + L::kBytes, words.second, All{});
    }
    static void Store(std::uint8_t* p, const WordPair& words, Some some) {
        if (some.n <= L::kWords) return L::StoreWords(p, words.first, some);
        L::StoreWords(p, words.first, All{});
        L::StoreWords(p + L::kBytes, words.second, Some{some.n - L::kWords});
    }
    template <unsigned k>
    static void Store(std::uint8_t* p, const WordPair& words, Ends<k> ends) {
        if constexpr (k < L::kWords) {
            L::StoreWords(p, words.first, ends);
        } else {
            L::StoreWords(p, words.first, All{});
            L::StoreWords(ends.template Last<4>(p), words.second, All{});
        }
    }
};

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_MIX_LANES_H
