// The colours of all pictures. Every channel is a multiple of 8, the step of a 5-bit channel, so
// that flat areas come out flat and in one shade on 5-6-5 and 5-5-5 displays alike.
#pragma once

#include <cstdint>

namespace demo {

using Color = std::uint32_t;  ///< 0xAARRGGBB; alpha counts transparency

inline constexpr Color kBackdrop = 0x081018;
inline constexpr Color kCard = 0x101820;
inline constexpr Color kCardEdge = 0x202830;
inline constexpr Color kTrack = 0x283038;
inline constexpr Color kGrid = 0x303840;
inline constexpr Color kTick = 0x586878;

inline constexpr Color kText = 0xF8FCF8;  // becomes pure white, with all six bits of green
inline constexpr Color kSoftText = 0xB0B8C8;
inline constexpr Color kFaintText = 0x788898;

inline constexpr Color kTeal = 0x30D0C0;
inline constexpr Color kBlue = 0x48A0F8;
inline constexpr Color kAmber = 0xF8B040;
inline constexpr Color kCoral = 0xF86858;
inline constexpr Color kGreen = 0x60D088;

inline constexpr Color kPaper = 0xF0F0E8;
inline constexpr Color kPaperInk = 0x283038;
inline constexpr Color kPaperFaint = 0x808888;
inline constexpr Color kPaperLine = 0xC8C8C0;

/// The colour with an opacity of 0 to 1 in its alpha byte.
constexpr Color Fade(Color color, double opacity) {
    const double clamped = opacity < 0 ? 0 : opacity > 1 ? 1 : opacity;
    return (color & 0xFFFFFF) | static_cast<Color>(255.0 - 255.0 * clamped + 0.5) << 24;
}

/// The opaque colour between two others: t = 0 is the first, 1 the second.
constexpr Color Mix(Color from, Color to, double t) {
    Color mixed = 0;
    for (unsigned shift = 0; shift < 24; shift += 8) {
        const double a = from >> shift & 0xFF;
        const double b = to >> shift & 0xFF;
        mixed |= static_cast<Color>(a + (b - a) * t + 0.5) << shift;
    }
    return mixed;
}

}  // namespace demo
