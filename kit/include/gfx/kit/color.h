/// @file
/// Colours by red, green, blue and opacity. The engine's colour words count transparency in their
/// top byte; here that is said by names, once, and nowhere else in a host's code.
#ifndef GFX_KIT_COLOR_H
#define GFX_KIT_COLOR_H

#include <cstdint>

namespace gfx::kit {

/// A colour of three channels and an opacity, each from 0 to 255. Opacity 255 hides what lies
/// below, 0 leaves it as it is. A value without memory of its own; everything is constexpr.
///
/// There is no conversion from an integer: a number must say by the name of its function how its
/// top byte counts.
class Color {
public:
    /// Opaque black.
    constexpr Color() = default;

    /// An opaque colour. @param red,green,blue  0 to 255; of larger values the low 8 bits count
    static constexpr Color Rgb(unsigned red, unsigned green, unsigned blue) {
        return Color((red & 0xFF) << 16 | (green & 0xFF) << 8 | (blue & 0xFF));
    }

    /// The same with an opacity, 0 invisible to 255 opaque.
    static constexpr Color Rgba(unsigned red, unsigned green, unsigned blue, unsigned opacity) {
        return Rgb(red, green, blue).WithOpacity(opacity);
    }

    /// An opaque colour of 0xRRGGBB; the top byte is not looked at.
    static constexpr Color FromRgb(std::uint32_t rgb) { return Color(rgb & 0x00FFFFFF); }

    /// A colour of the usual 0xAARRGGBB, whose top byte is the opacity. Not premultiplied.
    static constexpr Color FromArgb(std::uint32_t argb) { return Color(argb ^ 0xFF000000); }

    /// A colour word of the engine, whose top byte counts transparency.
    static constexpr Color FromWord(std::uint32_t word) { return Color(word); }

    /// The engine's colour word, for every operation that takes one.
    constexpr std::uint32_t Word() const { return word_; }

    /// The usual 0xAARRGGBB, whose top byte is the opacity.
    constexpr std::uint32_t Argb() const { return word_ ^ 0xFF000000; }

    constexpr unsigned Red() const { return word_ >> 16 & 0xFF; }       ///< 0 to 255
    constexpr unsigned Green() const { return word_ >> 8 & 0xFF; }      ///< 0 to 255
    constexpr unsigned Blue() const { return word_ & 0xFF; }            ///< 0 to 255
    constexpr unsigned Opacity() const { return 255 - (word_ >> 24); }  ///< 0 invisible to 255

    /// The same channels under another opacity, 0 to 255; of larger values the low 8 bits count.
    constexpr Color WithOpacity(unsigned opacity) const {
        return Color((255 - (opacity & 0xFF)) << 24 | (word_ & 0x00FFFFFF));
    }

    /// The opacity times `share` / 255, rounded to nearest. @param share  0 to 255; more is 255
    constexpr Color Faded(unsigned share) const {
        const unsigned factor = share > 255 ? 255 : share;
        return WithOpacity((Opacity() * factor + 127) / 255);
    }

    /// Equal channels and equal opacity; invisible colours differ by their channels too.
    friend constexpr bool operator==(Color a, Color b) { return a.word_ == b.word_; }
    /// The opposite.
    friend constexpr bool operator!=(Color a, Color b) { return a.word_ != b.word_; }

private:
    explicit constexpr Color(std::uint32_t word) : word_(word) {}

    std::uint32_t word_ = 0;
};

/// The colour that lies `share` / 256 of the way from one to another, each channel and the opacity
/// rounded to nearest, halves up. @param share  0 gives `from`, 256 and more `to`
constexpr Color Mix(Color from, Color to, unsigned share) {
    const unsigned part = share > 256 ? 256 : share;
    const auto mixed = [part](unsigned a, unsigned b) {
        return (a * (256 - part) + b * part + 128) >> 8;
    };
    return Color::Rgba(mixed(from.Red(), to.Red()), mixed(from.Green(), to.Green()),
                       mixed(from.Blue(), to.Blue()), mixed(from.Opacity(), to.Opacity()));
}

}  // namespace gfx::kit

#endif  // GFX_KIT_COLOR_H
