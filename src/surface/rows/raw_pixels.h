// Blocks of pixels as they are stored, for kernels that work on bytes: filling, comparing with a
// key, and blending in place.
// Unnamed namespace: see pixel_format.h.
#ifndef GFX_SURFACE_ROWS_RAW_PIXELS_H
#define GFX_SURFACE_ROWS_RAW_PIXELS_H

#include <cstdint>

#include "surface/pixel_format.h"
#include "surface/rows/lanes.h"

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

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_RAW_PIXELS_H
