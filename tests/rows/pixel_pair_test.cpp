// The vector blends of one and two pixels against the plain rule of a single pixel.
#include "surface/rows/pixel_pair.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace test {
namespace {

using gfx::Color32;
using gfx::Grey8;
using gfx::LoadPixel;
using gfx::Rgb565;
using gfx::StorePixel;

using Word = std::uint32_t;

std::vector<Word> AllPixels(Word count) {
    std::vector<Word> pixels;
    for (Word p = 0; p < count; ++p)
        pixels.push_back(p);
    return pixels;
}

std::vector<Word> RandomWords(unsigned count) {
    std::mt19937 random(311);
    std::vector<Word> words(count);
    std::generate(words.begin(), words.end(), [&] { return static_cast<Word>(random()); });
    return words;
}

/// Four pixels with a pair in their middle, so that a store beside it is seen.
template <class Format>
struct Pixels {
    std::uint8_t bytes[4 * sizeof(typename Format::Unit)];

    explicit Pixels(const Word (&values)[4]) {
        for (unsigned i = 0; i < 4; ++i)
            StorePixel<Format>(bytes, i, values[i]);
    }
    std::uint8_t* At(unsigned i) { return bytes + i * sizeof(typename Format::Unit); }
    bool operator==(const Pixels&) const = default;
};

template <class Format>
void CompareAllAlphas(const std::vector<Word>& pixels) {
    std::mt19937 random(99);
    for (Word alpha = 0; alpha < 256; ++alpha) {
        const Word rgb = static_cast<Word>(random()) & 0x00FFFFFF;
        const gfx::PixelBlend<Format> blend(rgb, alpha);
        const gfx::PairBlend<Format> pair(rgb);
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            const Word other = static_cast<Word>(random()) % 256;
            const Word values[] = {other, pixels[i], pixels[pixels.size() - 1 - i], alpha};
            Pixels<Format> expected(values), got(values), apart(values);
            gfx::BlendInto<Format>(expected.bytes, 1, rgb, alpha);
            if (alpha != 0 && alpha != 255) {
                blend(got.At(1));
                ASSERT_EQ(expected, got) << "alpha " << alpha << ", pixel " << i;
                got = Pixels<Format>(values);
            }
            gfx::BlendInto<Format>(expected.bytes, 2, rgb, other);
            pair.Neighbours(got.At(1), 255 - alpha, 255 - other);
            ASSERT_EQ(expected, got) << "alphas " << alpha << ", " << other << ", pixel " << i;
            pair(apart.At(1), 255 - alpha, apart.At(2), 255 - other);
            ASSERT_EQ(expected, apart) << "alphas " << alpha << ", " << other << ", pixel " << i;
        }
    }
}

TEST(PixelPair, Every_565_pixel_takes_every_alpha) { CompareAllAlphas<Rgb565>(AllPixels(65536)); }

TEST(PixelPair, Every_grey_pixel_takes_every_alpha) { CompareAllAlphas<Grey8>(AllPixels(256)); }

TEST(PixelPair, Random_colour_words_take_every_alpha) {
    CompareAllAlphas<Color32>(RandomWords(4096));
}

}  // namespace
}  // namespace test
