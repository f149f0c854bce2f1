// The three storage formats: how one pixel is loaded, stored, turned into and made from a colour
// word, and blended. Each rule stands here once; the row kernels apply the same ones along rows.
//
// Everything is in an unnamed namespace on purpose: this header is compiled into kernel files for
// several instruction sets, and the linker would merge equal inline functions of external linkage,
// so that a caller built for any processor could end up in code built for a newer one.
#ifndef GFX_SURFACE_PIXEL_FORMAT_H
#define GFX_SURFACE_PIXEL_FORMAT_H

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace gfx {

/// How a surface takes part in drawing. Decided by FormatOf and StorageOf alone.
enum class Storage : unsigned { None, Grey8, Rgb565, Color32 };
inline constexpr unsigned kStorageCount = 4;

namespace {

/// Depths 0 and 1 store nothing for drawing: packed bits are storage only. Every other format
/// follows from its bytes per pixel.
inline Storage FormatOf(unsigned depth, unsigned pixelShift) {
    return depth <= 1 ? Storage::None : static_cast<Storage>(pixelShift + 1);
}

/// The format in which a surface takes part in drawing; one without rows does not.
inline Storage StorageOf(unsigned depth, unsigned pixelShift, const void* lines) {
    return lines == nullptr ? Storage::None : FormatOf(depth, pixelShift);
}

inline std::uint32_t AlphaOf(std::uint32_t color) { return color >> 24; }

/// The weight, of 256, of the old pixel under a colour of alpha a. It is never 128, 0 keeps the
/// colour alone and 256 the old pixel alone, so the blend formula needs no branch for either.
inline std::uint32_t OldWeight(std::uint32_t a) { return a + (a > 127 ? 1U : 0U); }

inline std::uint32_t MixChannel(std::uint32_t old, std::uint32_t color, std::uint32_t oldWeight) {
    return (old * oldWeight + color * (256 - oldWeight)) >> 8;
}

/// Weights that sum to 1024, so white gives 255.
inline std::uint32_t RgbToGrey(std::uint32_t color) {
    const std::uint32_t red = color >> 16 & 0xFF;
    const std::uint32_t green = color >> 8 & 0xFF;
    const std::uint32_t blue = color & 0xFF;
    return ((red + 2 * green) * 307 + blue * 103) >> 10;
}

/// The top bits of each channel: [RRRRRGGG GGGBBBBB].
inline std::uint32_t RgbToPixel16(std::uint32_t color) {
    return (color >> 8 & 0xF800) | (color >> 5 & 0x07E0) | (color >> 3 & 0x001F);
}

/// A 5- or 6-bit channel to 8 bits by bit replication.
inline std::uint32_t Expand5(std::uint32_t v) { return v << 3 | v >> 2; }
inline std::uint32_t Expand6(std::uint32_t v) { return v << 2 | v >> 4; }

inline std::uint32_t Pixel16ToRgb(std::uint32_t pixel, std::uint32_t alpha) {
    return alpha << 24 | Expand5(pixel >> 11) << 16 | Expand6(pixel >> 5 & 0x3F) << 8 |
           Expand5(pixel & 0x1F);
}

// One type a format: the stored unit, and the rules. Pixels are moved with memcpy because host
// memory may have any alignment.

struct Grey8 {
    using Unit = std::uint8_t;
    static std::uint32_t FromRgb(std::uint32_t color) { return RgbToGrey(color); }
    static std::uint32_t ToRgb(std::uint32_t pixel, std::uint32_t alpha) {
        return alpha << 24 | pixel * 0x010101U;
    }
    static std::uint32_t Blend(std::uint32_t old, std::uint32_t color) {
        return MixChannel(old, RgbToGrey(color), OldWeight(AlphaOf(color)));
    }
};

struct Rgb565 {
    using Unit = std::uint16_t;
    static std::uint32_t FromRgb(std::uint32_t color) { return RgbToPixel16(color); }
    static std::uint32_t ToRgb(std::uint32_t pixel, std::uint32_t alpha) {
        return Pixel16ToRgb(pixel, alpha);
    }
    static std::uint32_t Blend(std::uint32_t old, std::uint32_t color) {
        const std::uint32_t weight = OldWeight(AlphaOf(color));
        const std::uint32_t wide = Pixel16ToRgb(old, 0);
        return RgbToPixel16(MixChannel(wide >> 16, color >> 16 & 0xFF, weight) << 16 |
                            MixChannel(wide >> 8 & 0xFF, color >> 8 & 0xFF, weight) << 8 |
                            MixChannel(wide & 0xFF, color & 0xFF, weight));
    }
};

struct Color32 {
    using Unit = std::uint32_t;
    static std::uint32_t FromRgb(std::uint32_t color) { return color; }
    static std::uint32_t ToRgb(std::uint32_t pixel, std::uint32_t) { return pixel; }
    static std::uint32_t Blend(std::uint32_t old, std::uint32_t color) {
        const std::uint32_t weight = OldWeight(AlphaOf(color));
        return (old & 0xFF000000U) |
               MixChannel(old >> 16 & 0xFF, color >> 16 & 0xFF, weight) << 16 |
               MixChannel(old >> 8 & 0xFF, color >> 8 & 0xFF, weight) << 8 |
               MixChannel(old & 0xFF, color & 0xFF, weight);
    }
};

template <class Format>
inline std::uint32_t LoadPixel(const std::uint8_t* row, std::size_t x) {
    typename Format::Unit unit;
    std::memcpy(&unit, row + x * sizeof unit, sizeof unit);
    return unit;
}

template <class Format>
inline void StorePixel(std::uint8_t* row, std::size_t x, std::uint32_t pixel) {
    const auto unit = static_cast<typename Format::Unit>(pixel);
    std::memcpy(row + x * sizeof unit, &unit, sizeof unit);
}

/// The transparency that a colour's alpha a leaves under a mask value m:
/// 255 - round((255 - a)(255 - m) / 255), in exact integers.
inline std::uint32_t MaskedAlpha(std::uint32_t a, std::uint32_t m) {
    const std::uint32_t product = (255 - a) * (255 - m);
    return 255 - (product + 127) / 255;
}

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_PIXEL_FORMAT_H
