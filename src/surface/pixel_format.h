// The three formats: how one pixel is loaded, stored, turned into and made from a colour
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

/// How a surface takes part in drawing; see SurfaceView::Format.
enum class PixelFormat : unsigned { None, Grey8, Rgb565, Color32 };
inline constexpr unsigned kPixelFormatCount = 4;

namespace {

inline std::uint32_t AlphaOf(std::uint32_t color) { return color >> 24; }

/// The weight, of 256, of the old pixel under a colour of alpha a. It is never 128, 0 keeps the
/// colour alone and 256 the old pixel alone, so the blend formula needs no branch for either.
constexpr std::uint32_t OldWeight(std::uint32_t a) { return a + (a > 127 ? 1U : 0U); }

/// Three channels in their places in a colour word, green apart from its neighbours: so one product
/// serves red and blue.
struct Channels {
    std::uint32_t redBlue, green;
};

inline Channels ChannelsOf(std::uint32_t color) { return {color & 0x00FF00FF, color & 0x0000FF00}; }

/// 256 times the mixed channels. (old - color) * weight + 256 * color is exact modulo 2^32, because
/// the true value old * weight + color * (256 - weight) fits, and no carry crosses from blue to
/// red.
inline Channels MixChannels(Channels old, Channels color, std::uint32_t oldWeight) {
    return {(old.redBlue - color.redBlue) * oldWeight + (color.redBlue << 8),
            (old.green - color.green) * oldWeight + (color.green << 8)};
}

/// Mixes the channels of a colour word; the old word keeps its alpha byte.
inline std::uint32_t MixWords(std::uint32_t old, std::uint32_t color, std::uint32_t oldWeight) {
    const Channels sums = MixChannels(ChannelsOf(old), ChannelsOf(color), oldWeight);
    return (old & 0xFF000000) | (sums.redBlue >> 8 & 0x00FF00FF) | (sums.green >> 8 & 0x0000FF00);
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

/// Channels widened to 8 bits by bit replication. Red and blue first stand at the top of their
/// bytes, then their upper three bits are repeated below them; green likewise with two.
inline Channels Pixel16Channels(std::uint32_t pixel) {
    const std::uint32_t redBlue = (pixel << 8 & 0x00F80000) | (pixel << 3 & 0x000000F8);
    const std::uint32_t green = pixel << 5 & 0x0000FC00;
    return {redBlue | (redBlue >> 5 & 0x00070007), green | (green >> 6 & 0x00000300)};
}

inline std::uint32_t Pixel16ToRgb(std::uint32_t pixel, std::uint32_t alpha) {
    const Channels wide = Pixel16Channels(pixel);
    return alpha << 24 | wide.redBlue | wide.green;
}

// One type a format: the stored unit, the write, read and mix rules. Pixels are moved with memcpy
// because host memory may have any alignment.

struct Grey8 {
    static constexpr PixelFormat kFormat = PixelFormat::Grey8;
    using Unit = std::uint8_t;
    static std::uint32_t FromRgb(std::uint32_t color) { return RgbToGrey(color); }
    static std::uint32_t ToRgb(std::uint32_t pixel, std::uint32_t alpha) {
        return alpha << 24 | pixel * 0x010101U;
    }
    static std::uint32_t Mix(std::uint32_t old, std::uint32_t color, std::uint32_t oldWeight) {
        return (old * oldWeight + RgbToGrey(color) * (256 - oldWeight)) >> 8;
    }
};

struct Rgb565 {
    static constexpr PixelFormat kFormat = PixelFormat::Rgb565;
    using Unit = std::uint16_t;
    static std::uint32_t FromRgb(std::uint32_t color) { return RgbToPixel16(color); }
    static std::uint32_t ToRgb(std::uint32_t pixel, std::uint32_t alpha) {
        return Pixel16ToRgb(pixel, alpha);
    }
    static std::uint32_t Mix(std::uint32_t old, std::uint32_t color, std::uint32_t oldWeight) {
        const Channels sums = MixChannels(Pixel16Channels(old), ChannelsOf(color), oldWeight);
        return (sums.redBlue >> 16 & 0xF800) | (sums.green >> 13 & 0x07E0) |
               (sums.redBlue >> 11 & 0x001F);
    }
};

struct Color32 {
    static constexpr PixelFormat kFormat = PixelFormat::Color32;
    using Unit = std::uint32_t;
    static std::uint32_t FromRgb(std::uint32_t color) { return color; }
    static std::uint32_t ToRgb(std::uint32_t pixel, std::uint32_t) { return pixel; }
    static std::uint32_t Mix(std::uint32_t old, std::uint32_t color, std::uint32_t oldWeight) {
        return MixWords(old, color, oldWeight);
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

/// The blend rule: a colour word mixed into a stored pixel by its alpha.
template <class Format>
inline std::uint32_t Blend(std::uint32_t old, std::uint32_t color) {
    return Format::Mix(old, color, OldWeight(AlphaOf(color)));
}

/// The blended write of a single pixel: alpha 0 stores the word 0x00RRGGBB whole, 255 nothing.
template <class Format>
inline void BlendInto(std::uint8_t* row, std::size_t x, std::uint32_t rgb, std::uint32_t alpha) {
    if (alpha == 255) return;
    const std::uint32_t pixel = alpha == 0
                                    ? Format::FromRgb(rgb)
                                    : Blend<Format>(LoadPixel<Format>(row, x), alpha << 24 | rgb);
    StorePixel<Format>(row, x, pixel);
}

/// Calls visit with the type of a format; not at all where nothing is stored. The wider the format,
/// the fewer jumps, which single pixels feel.
template <class Visit>
inline void WithFormat(PixelFormat format, Visit visit) {
    static_assert(kPixelFormatCount == 4, "each format that stores pixels is named here");
    if (format == PixelFormat::Color32) [[likely]] {
        visit(Color32{});
    } else if (format == PixelFormat::Rgb565) [[likely]] {
        visit(Rgb565{});
    } else if (format == PixelFormat::Grey8) {
        visit(Grey8{});
    }
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
