// The model's rules for one value, and the dots of lines; see model.h.
#include <algorithm>
#include <cmath>

#include "surface/model.h"

namespace test {

Word GreyOf(Word color) {
    return ((Byte(color, 16) + 2 * Byte(color, 8)) * 307 + Byte(color, 0) * 103) / 1024;
}

Word Pack565(Word color) {
    return Byte(color, 16) / 8 * 2048 + Byte(color, 8) / 4 * 32 + Byte(color, 0) / 8;
}

Word Unpack565(Word pixel, Word alpha) {
    const Word r = pixel / 2048, g = pixel / 32 % 64, b = pixel % 32;
    return (alpha & 0xFF) << 24 | (r * 8 + r / 4) << 16 | (g * 4 + g / 16) << 8 | (b * 8 + b / 4);
}

Word BlendStored(unsigned bytesPerPixel, Word stored, Word color) {
    const Word a = color >> 24;
    if (a == 255) return stored;
    const Word old = a > 127 ? a + 1 : a;
    const auto mix = [&](Word was, Word with) {
        return a == 0 ? with : (was * old + with * (256 - old)) / 256;
    };
    if (bytesPerPixel == 1) return mix(stored, GreyOf(color));
    const Word was = bytesPerPixel == 2 ? Unpack565(stored, 0) : stored;
    const Word mixed = mix(Byte(was, 16), Byte(color, 16)) << 16 |
                       mix(Byte(was, 8), Byte(color, 8)) << 8 | mix(Byte(was, 0), Byte(color, 0));
    return bytesPerPixel == 2 ? Pack565(mixed) : (stored & 0xFF000000) | mixed;
}

Word MaskedAlpha(Word colorAlpha, Word mask) {
    return 255 - static_cast<Word>(std::lround((255 - colorAlpha) * (255 - mask) / 255.0));
}

Word ScaledAlpha(double transparency, Word alpha) {
    double f = std::isnan(transparency) ? 0.0 : transparency;
    if (f > 1.0) f = 1.0;
    const auto k = static_cast<Word>(std::min(256.0 * (1.0 - f) + 0.5, 65536.0));
    return 255 - std::min<Word>(255, ((255 - alpha) * k) >> 8);
}

bool IsLight(Word color) { return GreyOf(color) > 128; }

std::vector<ModelDot> ModelDots(std::int64_t start, unsigned steps, int rise, double offset) {
    const double e = std::isnan(offset) ? 0.0 : offset;
    std::int64_t p = start;
    double f = e;
    if (e < 0) {
        const auto k = static_cast<std::int64_t>(-e);
        p = start - (k + 1);
        f = e + static_cast<double>(k) + 1;
    } else if (e >= 1.0) {
        const auto k = static_cast<std::int64_t>(e);
        p = start + k;
        f = e - static_cast<double>(k);
    }
    LineRecurrence recurrence(p, f, steps, rise);
    std::vector<ModelDot> dots;
    for (unsigned i = 0; i <= steps; ++i)
        dots.push_back(recurrence.Next());
    return dots;
}

}  // namespace test
