// The protected row converters: what they read and write, and nothing beside it.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "support/fenced_memory.h"
#include "support/probe_surface.h"
#include "surface/model.h"

namespace test {
namespace {

GfxSurface::MemoryPtr RowAt(void* bytes) {
    GfxSurface::MemoryPtr row;
    row.ptr8 = static_cast<std::uint8_t*>(bytes);
    return row;
}

// One row in fences, at any alignment, filled with noise.
struct Noisy {
    Noisy(std::mt19937& random, std::size_t size, std::size_t offset) : memory(size, 1, 0, offset) {
        std::generate_n(memory.Data(), size, [&] {
            return static_cast<std::uint8_t>(random() % 4 == 0 ? 128 : random());
        });
        expected.assign(memory.Data(), memory.Data() + size);
    }
    GfxSurface::MemoryPtr Row() { return RowAt(memory.Data()); }
    Word WordAt(std::size_t i) const {
        return Word{expected[4 * i]} | Word{expected[4 * i + 1]} << 8 |
               Word{expected[4 * i + 2]} << 16 | Word{expected[4 * i + 3]} << 24;
    }
    FencedMemory memory;
    std::vector<std::uint8_t> expected;  // a copy, changed into what the test expects
};

void PutWord(Noisy& row, std::size_t i, Word word) {
    for (unsigned k = 0; k < 4; ++k)
        row.expected[4 * i + k] = static_cast<std::uint8_t>(word >> (8 * k));
}

void PutBit(Noisy& row, unsigned bit, bool on) {
    std::uint8_t& byte = row.expected[bit / 8];
    byte = static_cast<std::uint8_t>(on ? byte | 0x80 >> bit % 8 : byte & ~(0x80 >> bit % 8));
}

void ExpectRow(const Noisy& row, const char* what, unsigned x, unsigned n, unsigned value) {
    const std::uint8_t* got = row.memory.Row(0);
    for (std::size_t i = 0; i < row.expected.size(); ++i)
        ASSERT_EQ(row.expected[i], got[i])
            << what << ", x " << x << ", n " << n << ", " << value << ": byte " << i;
    ASSERT_TRUE(row.memory.IsFenceWhole()) << what << ", x " << x << ", n " << n;
}

template <typename Body>
void ForManyRuns(Body body) {
    std::mt19937 random(5);
    for (unsigned n = 0; n <= 70; ++n) {
        for (const unsigned x : {0u, 1u, 3u, 7u, 8u, 13u})
            body(random, x, n);
    }
}

TEST(RowConversion, ConvertTileToRGB_wraps_at_the_width) {
    ForManyRuns([](std::mt19937& random, unsigned x, unsigned n) {
        const unsigned width = 1 + static_cast<unsigned>(random() % 9);
        for (const unsigned bits : {8u, 16u, 32u}) {
            ProbeSurface s(bits);
            Model model(bits);
            Noisy colors(random, 4 * n, 1), pixels(random, width * s.bytesPerPixel, 1);
            s.Initialise(width, 1);
            model.InitialiseOver(width, 1,
                                 std::make_shared<std::vector<std::uint8_t>>(pixels.expected),
                                 width * s.bytesPerPixel, false);
            for (unsigned i = 0; i < n; ++i)
                PutWord(colors, i, model.Read((x + i) % width, 0));
            s.ConvertTileToRGB(pixels.Row(), colors.Row(), x, n);
            ExpectRow(colors, "ConvertTileToRGB", x, n, width);
        }
    });
    ProbeSurface none(8);
    Word word = 7;
    none.ConvertTileToRGB(RowAt(&word), RowAt(&word), 0, 1);
    EXPECT_EQ(7u, word) << "a width of 0 does nothing";
}

TEST(RowConversion, Bytes_move_out_of_and_into_colour_words) {
    const ProbeSurface s(32);
    ForManyRuns([&](std::mt19937& random, unsigned x, unsigned n) {
        for (const unsigned shift : {0u, 8u, 16u, 24u, 31u, 32u, 40u, 0x80000000u}) {
            Noisy colors(random, 4 * n, 3), bytes(random, x + n, 0);
            const auto keep = static_cast<Word>(random());
            Noisy out = bytes;
            for (unsigned i = 0; i < n; ++i)
                out.expected[x + i] =
                    static_cast<std::uint8_t>(shift > 31 ? 0 : colors.WordAt(i) >> shift);
            s.ExtractFromRGB(colors.Row(), out.Row(), x, n, shift);
            ExpectRow(out, "ExtractFromRGB", x, n, shift);
            for (unsigned i = 0; i < n; ++i) {
                const Word byte = shift > 31 ? 0 : Word{bytes.expected[x + i]} << shift;
                PutWord(colors, i, byte | (colors.WordAt(i) & keep));
            }
            s.InsertIntoRGB(bytes.Row(), colors.Row(), x, n, shift, keep);
            ExpectRow(colors, "InsertIntoRGB", x, n, shift);
        }
    });
}

TEST(RowConversion, Bits_move_out_of_and_into_colour_words) {
    const ProbeSurface s(32);
    ForManyRuns([&](std::mt19937& random, unsigned x, unsigned n) {
        const std::size_t size = (x + n + 7) / 8 + 1;
        Noisy colors(random, 4 * n, 2), light(random, size, 0), clear(random, size, 0);
        const Noisy bits(random, size, 1);
        const auto opaque = [&](unsigned i) { return colors.WordAt(i) >> 24 < 128; };
        for (unsigned i = 0; i < n; ++i)
            if (opaque(i)) PutBit(light, x + i, IsLight(colors.WordAt(i)));
        s.ExtractMonoFromRGB(colors.Row(), light.memory.Data(), x, n);
        ExpectRow(light, "ExtractMonoFromRGB", x, n, 0);

        for (unsigned byte = x / 8; n > 0 && byte <= (x + n - 1) / 8; ++byte)
            clear.expected[byte] = 0;
        for (unsigned i = 0; i < n; ++i)
            PutBit(clear, x + i, opaque(i));
        s.ExtractMonoAlphaFromRGB(colors.Row(), clear.memory.Data(), x, n);
        ExpectRow(clear, "ExtractMonoAlphaFromRGB", x, n, 0);

        for (unsigned i = 0; i < n; ++i) {
            const bool isSet = bits.expected[(x + i) / 8] & 0x80 >> (x + i) % 8;
            PutWord(colors, i, isSet ? 0x00000000 : 0x00FFFFFF);
        }
        s.InsertMonoIntoRGB(bits.memory.Row(0), colors.Row(), x, n);
        ExpectRow(colors, "InsertMonoIntoRGB", x, n, 0);
    });
}

TEST(RowConversion, The_format_alone_decides_also_on_a_surface_without_memory) {
    const ProbeSurface grey(8), small(16);
    Word color = 0x00FF8040;
    std::uint8_t byte = 0;
    std::uint16_t word = 0;
    grey.ConvertFromRGB(RowAt(&color), RowAt(&byte), 0, 1);
    small.BlendWithRGB(RowAt(&color), RowAt(&word), 0, 1);
    EXPECT_EQ(159, byte);
    EXPECT_EQ(0xFC08, word);
    grey.ConvertToRGB(RowAt(&byte), RowAt(&color), 0, 1);
    EXPECT_EQ(0x009F9F9Fu, color);
}

TEST(RowConversion, The_threshold_of_the_mono_reduction_lies_above_128) {
    const ProbeSurface s(32);
    Word colors[] = {0x00808080, 0x00818181, 0x80FFFFFF, 0x7FFFFFFF, 0x00000000};
    unsigned char bits = 0b00100111;
    s.ExtractMonoFromRGB(RowAt(colors), &bits, 0, 5);
    EXPECT_EQ(0b01110111, bits);
    s.ExtractMonoAlphaFromRGB(RowAt(colors), &bits, 3, 2);
    EXPECT_EQ(0x18, bits);
}

}  // namespace
}  // namespace test
