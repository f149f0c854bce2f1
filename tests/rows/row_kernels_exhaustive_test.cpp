// The row kernels of every table over all values of a pixel, a mask or an alpha.
#include <gtest/gtest.h>

#include <vector>

#include "rows/kernel_tables.h"
#include "surface/pixel_format.h"

namespace test {
namespace {

using gfx::Color32;
using gfx::Grey8;
using gfx::PixelFormat;
using gfx::Rgb565;
using gfx::RowKernels;

using Word = std::uint32_t;

/// Blends one row of all pixels of a format with one colour after another.
template <class Format>
void BlendAllPixels(unsigned pixels, const std::vector<Word>& colors) {
    std::vector<std::uint8_t> row(pixels * sizeof(typename Format::Unit));
    std::uint8_t* const line = row.data();
    for (const RowKernels* table : AllTables()) {
        for (Word alpha = 0; alpha < 256; ++alpha) {
            for (const Word rgb : colors) {
                const Word color = alpha << 24 | rgb;
                for (unsigned p = 0; p < pixels; ++p)
                    gfx::StorePixel<Format>(line, p, p);
                (*table)[Format::kFormat].blendColor({&line, 0}, pixels, 1, color);
                for (unsigned p = 0; p < pixels; ++p) {
                    ASSERT_EQ(gfx::Blend<Format>(p, color), gfx::LoadPixel<Format>(line, p))
                        << table->name << " pixel " << std::hex << p << " color " << color;
                }
            }
        }
    }
}

TEST(RowKernels, Blend_every_565_pixel_with_every_alpha) {
    BlendAllPixels<Rgb565>(65536, {0x00C35A11});
}

TEST(RowKernels, Blend_every_grey_pixel_with_every_alpha_and_grey) {
    std::vector<Word> greys;
    for (Word grey = 0; grey < 256; ++grey)
        greys.push_back(grey * 0x010101);
    BlendAllPixels<Grey8>(256, greys);
}

TEST(RowKernels, Every_mask_value_takes_every_alpha_of_a_colour) {
    std::vector<std::uint8_t> masks(256);
    for (unsigned m = 0; m < 256; ++m)
        masks[m] = static_cast<std::uint8_t>(m);
    std::uint8_t* mask = masks.data();
    for (const RowKernels* table : AllTables()) {
        for (Word alpha = 0; alpha < 256; ++alpha) {
            const Word color = alpha << 24 | 0x00A1FF07;
            std::vector<Word> row(256, 0x55123456);
            auto* line = reinterpret_cast<std::uint8_t*>(row.data());
            (*table)[PixelFormat::Color32].blendMask8({&line, 0}, {&mask, 0}, 256, 1, color);
            for (Word m = 0; m < 256; ++m) {
                const Word masked = gfx::MaskedAlpha(alpha, m) << 24 | 0x00A1FF07;
                ASSERT_EQ(gfx::Blend<Color32>(0x55123456, masked), row[m])
                    << table->name << " alpha " << alpha << " mask " << m;
            }
        }
    }
}

TEST(RowKernels, Every_565_pixel_becomes_its_colour_word) {
    std::vector<std::uint16_t> pixels(65536);
    for (unsigned p = 0; p < 65536; ++p)
        pixels[p] = static_cast<std::uint16_t>(p);
    auto* from = reinterpret_cast<std::uint8_t*>(pixels.data());
    for (const RowKernels* table : AllTables()) {
        std::vector<Word> words(65536);
        auto* to = reinterpret_cast<std::uint8_t*>(words.data());
        (*table)[PixelFormat::Rgb565].toWords({&to, 0}, {&from, 0}, 65536, 1, 0x3C);
        for (unsigned p = 0; p < 65536; ++p) {
            ASSERT_EQ(gfx::Pixel16ToRgb(p, 0x3C), words[p]) << table->name;
        }
    }
}

TEST(RowKernels, Scaling_alphas_follows_the_plain_rule_for_every_alpha_and_scale) {
    for (const RowKernels* table : AllTables()) {
        for (const Word k : {0U, 1U, 64U, 127U, 128U, 192U, 255U, 256U, 257U, 512U, 65536U}) {
            std::vector<Word> words(256);
            for (Word a = 0; a < 256; ++a)
                words[a] = a << 24 | 0x00123456;
            table->scaleAlpha(reinterpret_cast<std::uint8_t*>(words.data()), words.size(), k);
            for (Word a = 0; a < 256; ++a) {
                ASSERT_EQ(PlainScale(a << 24 | 0x00123456, k), words[a]) << table->name;
            }
        }
    }
}

}  // namespace
}  // namespace test
