// Blocks of pixels as they are stored, for kernels that need no channels: filling, comparing with a
// key, and blending in place.
// Unnamed namespace: see pixel_format.h.
#ifndef GFX_SURFACE_ROWS_RAW_PIXELS_H
#define GFX_SURFACE_ROWS_RAW_PIXELS_H

#include <cstdint>

#include "surface/rows/mix_lanes.h"

namespace gfx {
namespace {

/// Pixels as they are stored, a register of them.
template <class L, class Format>
struct RawPixels {
    static constexpr unsigned kUnit = sizeof(typename Format::Unit);
    static constexpr unsigned kPixels = L::kBytes / kUnit;

    template <class Count>
    static typename L::Raw Load(const std::uint8_t* p, Count count) {
        return L::template Load<kUnit>(p, count);
    }
    template <class Count>
    static void Store(std::uint8_t* p, typename L::Raw pixels, Count count) {
        L::template Store<kUnit>(p, pixels, count);
    }
};

/// A pixel times this fills a word.
template <class Format>
constexpr std::uint32_t kRepeats = 0xFFFFFFFFU /
                                   (0xFFFFFFFFU >> (32 - 8 * sizeof(typename Format::Unit)));

/// Pixels for the place of old ones, which stay where the fresh ones equal a key. Where stores have
/// masks the old ones are not even loaded: a tenth less than choosing.
template <class L, class Format>
struct KeyedPixels : RawPixels<L, Format> {
    using Raw = typename L::Raw;
    using RawPixels<L, Format>::kUnit;
    using RawPixels<L, Format>::Store;

    struct Masked {
        Raw pixels;
        std::uint64_t mask;
    };

    template <class Count>
    static auto Load(const std::uint8_t* old, const std::uint8_t* fresh, Raw keys, Count count) {
        const Raw pixels = L::template Load<kUnit>(fresh, count);
        const auto isKey = L::template EqualUnits<kUnit>(pixels, keys);
        if constexpr (L::kHasMasks) {
            return Masked{pixels, ~isKey};
        } else {
            const auto olds = L::AsBytes(L::template Load<kUnit>(old, count));
            return L::AsRaw(KeepWhere(isKey, olds, L::AsBytes(pixels)));
        }
    }
    template <class Count>
    static void Store(std::uint8_t* p, const Masked& block, Count count) {
        L::template StoreUnder<kUnit>(block.mask, p, block.pixels, count);
    }
};

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_RAW_PIXELS_H
