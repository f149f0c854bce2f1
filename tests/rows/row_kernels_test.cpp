// Every row kernel of every table against the one-pixel rules of pixel_format.h, over all short
// widths and alignments, with canaries around the rows.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <random>
#include <string>

#include "rows/kernel_tables.h"
#include "support/fenced_memory.h"
#include "surface/pixel_format.h"

namespace test {
namespace {

using gfx::AlphaOf;
using gfx::Color32;
using gfx::FormatKernels;
using gfx::Grey8;
using gfx::PixelFormat;
using gfx::PixelRows;
using gfx::Rgb565;
using gfx::RowKernels;

using Word = std::uint32_t;

std::mt19937 generator(20240607);

Word RandomBits() { return static_cast<Word>(generator()); }

/// Alpha bytes of 0, 255 and around 127 are as likely as all others together.
Word RandomWord() {
    const Word word = RandomBits();
    const Word alphas[] = {0x00, 0xFF, 0x7F, 0x80};
    return RandomBits() % 2 == 0 ? word : (word & 0x00FFFFFF) | alphas[RandomBits() % 4] << 24;
}

Word Load(PixelFormat format, const std::uint8_t* row, std::size_t x) {
    switch (format) {
        case PixelFormat::Grey8:
            return gfx::LoadPixel<Grey8>(row, x);
        case PixelFormat::Rgb565:
            return gfx::LoadPixel<Rgb565>(row, x);
        default:
            return gfx::LoadPixel<Color32>(row, x);
    }
}

std::size_t UnitSize(PixelFormat format) {
    return std::size_t{1} << (static_cast<unsigned>(format) - 1);
}

/// The three formats' rules by format.
struct PlainRules {
    Word (*fromRgb)(Word);
    Word (*toRgb)(Word, Word);
    Word (*blend)(Word, Word);
};

PlainRules RulesOf(PixelFormat format) {
    switch (format) {
        case PixelFormat::Grey8:
            return {Grey8::FromRgb, Grey8::ToRgb, gfx::Blend<Grey8>};
        case PixelFormat::Rgb565:
            return {Rgb565::FromRgb, Rgb565::ToRgb, gfx::Blend<Rgb565>};
        default:
            return {Color32::FromRgb, Color32::ToRgb, gfx::Blend<Color32>};
    }
}

/// One call of a kernel and what it makes of a pixel: (old pixel, source pixel) -> pixel.
struct Operation {
    std::string name;
    PixelFormat target;
    PixelFormat source;
    std::function<unsigned(PixelRows, PixelRows, unsigned, unsigned)> run;
    std::function<Word(Word, Word)> rule;
};

Word ToDisplay(Word color) {
    return (color >> 9 & 0x7C00) | (color >> 6 & 0x03E0) | (color >> 3 & 0x001F);
}

/// All operations of one table on one format, with the given arguments: one entry a kernel, in one
/// list, so that a missing one shows.
std::vector<Operation> OperationsOf(const RowKernels& table, PixelFormat format, Word color,
                                    Word key) {
    const FormatKernels& k = table[format];
    const PlainRules rules = RulesOf(format);
    const Word alpha = color >> 8 & 0xFF;
    const Word scale = key % 257;
    const Word storedKey = rules.fromRgb(key);
    const auto masked = [=](Word m) {
        return gfx::MaskedAlpha(AlphaOf(color), m) << 24 | (color & 0x00FFFFFF);
    };
    const PixelFormat none = PixelFormat::None;
    const PixelFormat words = PixelFormat::Color32;
    return {
        {"fill", format, none,
         [=](PixelRows to, PixelRows, unsigned w, unsigned h) {
             return k.fill(to, w, h, color), h;
         },
         [=](Word, Word) { return rules.fromRgb(color); }},
        {"blendColor", format, none,
         [=](PixelRows to, PixelRows, unsigned w, unsigned h) {
             return k.blendColor(to, w, h, color), h;
         },
         [=](Word old, Word) { return rules.blend(old, color); }},
        {"blendMask8", format, PixelFormat::Grey8,
         [=](auto to, auto from, auto w, auto h) { return k.blendMask8(to, from, w, h, color); },
         [=](Word old, Word m) { return rules.blend(old, masked(m)); }},
        {"blendMask8 opaque", format, PixelFormat::Grey8,
         [=](auto to, auto from, auto w, auto h) {
             return k.blendMask8(to, from, w, h, color & 0x00FFFFFF);
         },
         [=](Word old, Word m) { return rules.blend(old, m << 24 | (color & 0x00FFFFFF)); }},
        {"blendMask32", format, words,
         [=](auto to, auto from, auto w, auto h) { return k.blendMask32(to, from, w, h, color); },
         [=](Word old, Word m) { return rules.blend(old, masked(AlphaOf(m))); }},
        {"copy", format, format,
         [=](auto to, auto from, auto w, auto h) { return k.copy(to, from, w, h, false), h; },
         [=](Word, Word pixel) { return pixel; }},
        {"copyKeyed", format, format,
         [=](auto to, auto from, auto w, auto h) { return k.copyKeyed(to, from, w, h, storedKey); },
         [=](Word old, Word pixel) { return pixel == storedKey ? old : pixel; }},
        {"toWords", words, format,
         [=](auto to, auto from, auto w, auto h) { return k.toWords(to, from, w, h, alpha); },
         [=](Word, Word pixel) { return rules.toRgb(pixel, alpha); }},
        {"fromWords", format, words,
         [=](auto to, auto from, auto w, auto h) { return k.fromWords(to, from, w, h); },
         [=](Word, Word word) { return rules.fromRgb(word); }},
        {"fromWordsKeyed", format, words,
         [=](auto to, auto from, auto w, auto h) { return k.fromWordsKeyed(to, from, w, h, key); },
         [=](Word old, Word word) { return word == key ? old : rules.fromRgb(word); }},
        {"blendWords", format, words,
         [=](auto to, auto from, auto w, auto h) { return k.blendWords(to, from, w, h); },
         [=](Word old, Word word) { return rules.blend(old, word); }},
        {"blendWordsScaled", format, words,
         [=](auto to, auto from, auto w, auto h) {
             return k.blendWordsScaled(to, from, w, h, scale);
         },
         [=](Word old, Word word) { return rules.blend(old, PlainScale(word, scale)); }},
        {"toDisplay555", PixelFormat::Rgb565, format,
         [=](auto to, auto from, auto w, auto h) { return k.toDisplay555(to, from, w, h); },
         [=](Word, Word pixel) { return ToDisplay(rules.toRgb(pixel, 0)); }},
    };
}

/// Rows of random pixels between canaries, and their row table.
struct Rows {
    Rows(PixelFormat format, unsigned columns, unsigned h, unsigned offset)
        : memory(columns * UnitSize(format), h, 3, offset) {
        for (unsigned y = 0; y < h; ++y) {
            table.push_back(memory.Row(y));
            for (std::size_t i = 0; i < columns * UnitSize(format); ++i) {
                memory.Row(y)[i] = static_cast<std::uint8_t>(RandomBits());
            }
        }
    }

    FencedMemory memory;
    std::vector<std::uint8_t*> table;
};

/// Colour words with telling alphas, in runs of invisible, opaque and any ones, some equal to the
/// key; or pixels, some equal to it.
void Seed(Rows& rows, PixelFormat format, unsigned columns, Word key) {
    for (std::uint8_t* row : rows.table) {
        Word run = 0;
        for (unsigned x = 0; x < columns; ++x) {
            const bool isKey = RandomBits() % 16 == 0;
            if (x == 0 || RandomBits() % 32 == 0) run = RandomBits() % 3;
            if (format == PixelFormat::Color32) {
                const Word words[] = {RandomBits() & 0x00FFFFFF, RandomBits() | 0xFF000000,
                                      RandomWord()};
                gfx::StorePixel<Color32>(row, x, isKey ? key : words[run]);
            } else if (isKey && format == PixelFormat::Rgb565) {
                gfx::StorePixel<Rgb565>(row, x, Rgb565::FromRgb(key));
            } else if (isKey) {
                row[x] = static_cast<std::uint8_t>(Grey8::FromRgb(key));
            }
        }
    }
}

void Compare(const RowKernels& table, const Operation& op, unsigned w, unsigned offset, Word key) {
    constexpr unsigned kHeight = 2;
    const unsigned columns = w + offset;
    Rows target(op.target, columns, kHeight, offset);
    const PixelFormat source = op.source == PixelFormat::None ? PixelFormat::Grey8 : op.source;
    Rows from(source, columns, kHeight, (offset + 1) % 4);
    Seed(from, source, columns, key);
    const FencedMemory before = target.memory;
    const FencedMemory sourceBefore = from.memory;

    ASSERT_EQ(kHeight,
              op.run({target.table.data(), offset}, {from.table.data(), offset}, w, kHeight));

    ASSERT_TRUE(target.memory.IsFenceWhole() && from.memory.IsFenceWhole()) << op.name;
    for (unsigned y = 0; y < kHeight; ++y) {
        for (unsigned x = 0; x < columns; ++x) {
            const Word old = Load(op.target, before.Row(y), x);
            const Word pixel = Load(source, sourceBefore.Row(y), x);
            const Word expected = x < offset ? old : op.rule(old, pixel);
            ASSERT_EQ(expected, Load(op.target, target.memory.Row(y), x))
                << table.name << " " << op.name << " format " << static_cast<unsigned>(op.target)
                << " from " << static_cast<unsigned>(source) << ", w " << w << ", offset " << offset
                << ", at (" << x << ", " << y << "), old " << std::hex << old << ", source "
                << pixel;
        }
    }
}

class EachFormat : public testing::TestWithParam<PixelFormat> {};

TEST_P(EachFormat, Kernels_give_the_pixels_of_the_plain_rules_at_every_width_and_offset) {
    for (const RowKernels* table : AllTables()) {
        for (unsigned w = 0; w <= 67; ++w) {
            for (unsigned offset = 0; offset <= 4; ++offset) {
                const Word key = RandomWord();
                for (const Operation& op : OperationsOf(*table, GetParam(), RandomWord(), key)) {
                    Compare(*table, op, w, offset, key);
                    if (HasFatalFailure()) return;
                }
            }
        }
    }
}

TEST_P(EachFormat, Kernels_give_the_pixels_of_the_plain_rules_on_long_rows) {
    for (const RowKernels* table : AllTables()) {
        for (unsigned round = 0; round < 60; ++round) {
            const Word key = RandomWord();
            const unsigned w = 68 + RandomBits() % 1200;
            for (const Operation& op : OperationsOf(*table, GetParam(), RandomWord(), key)) {
                Compare(*table, op, w, RandomBits() % 5, key);
                if (HasFatalFailure()) return;
            }
        }
    }
}

/// Words are blended in groups of rows, those of sprites by kernels of their own.
TEST_P(EachFormat, Rows_of_sprites_and_other_rows_may_follow_each_other) {
    constexpr unsigned kHeight = 40, kWidth = 300, kShared = 37;
    const auto isSpriteRow = [](unsigned y) { return y < 16 || y >= 32; };
    for (const RowKernels* table : AllTables()) {
        Rows target(GetParam(), kWidth, kHeight, 1), from(PixelFormat::Color32, kWidth, kHeight, 2);
        for (unsigned y = 0; y < kHeight; ++y) {
            for (unsigned x = 0; x < kWidth; ++x) {
                const Word alpha = (x / 24 + y) % 2 == 0 ? 0x00 : 0xFF;
                const Word word = isSpriteRow(y) && x % 24 != 5 ? alpha << 24 | (RandomBits() >> 8)
                                                                : RandomWord();
                gfx::StorePixel<Color32>(from.table[y], x, word);
            }
        }
        const FencedMemory before = target.memory;
        std::vector<std::uint8_t*> sources = from.table;
        sources[kShared] = target.table[kShared];
        ASSERT_EQ(kShared, (*table)[GetParam()].blendWords({target.table.data(), 0},
                                                           {sources.data(), 0}, kWidth, kHeight))
            << table->name;
        for (unsigned y = 0; y < kHeight; ++y) {
            for (unsigned x = 0; x < kWidth; ++x) {
                const Word old = Load(GetParam(), before.Row(y), x);
                const Word word = gfx::LoadPixel<Color32>(from.table[y], x);
                const Word expected = y < kShared ? RulesOf(GetParam()).blend(old, word) : old;
                ASSERT_EQ(expected, Load(GetParam(), target.memory.Row(y), x))
                    << table->name << " at (" << x << ", " << y << ")";
            }
        }
    }
}

std::string NameOf(const testing::TestParamInfo<PixelFormat>& info) {
    const char* const names[] = {"None", "Grey8", "Rgb565", "Color32"};
    return names[static_cast<unsigned>(info.param)];
}

INSTANTIATE_TEST_SUITE_P(RowKernels, EachFormat,
                         testing::Values(PixelFormat::Grey8, PixelFormat::Rgb565,
                                         PixelFormat::Color32),
                         NameOf);

TEST_P(EachFormat, Copies_may_overlap_at_any_distance) {
    constexpr std::size_t kPlace = 700;
    const std::size_t unit = UnitSize(GetParam());
    std::vector<std::uint8_t> random(3 * kPlace);
    for (std::uint8_t& byte : random)
        byte = static_cast<std::uint8_t>(RandomBits());
    for (const RowKernels* table : AllTables()) {
        for (std::size_t bytes = unit; bytes <= 600; bytes += unit * (1 + RandomBits() % 12)) {
            for (std::size_t from = kPlace - bytes; from <= kPlace + bytes; from += 1 + from % 5) {
                std::vector<std::uint8_t> got = random, expected = random;
                std::uint8_t* target = got.data() + kPlace;
                std::uint8_t* source = got.data() + from;
                (*table)[GetParam()].copy({&target, 0}, {&source, 0},
                                          static_cast<unsigned>(bytes / unit), 1, false);
                std::memmove(expected.data() + kPlace, expected.data() + from, bytes);
                ASSERT_EQ(expected, got) << table->name << ", " << bytes << " bytes from " << from;
            }
        }
    }
}

TEST(RowKernels, Rows_that_share_memory_are_left_to_the_caller) {
    std::vector<std::uint8_t> memory(4096);
    for (const RowKernels* table : AllTables()) {
        const FormatKernels& k = (*table)[PixelFormat::Color32];
        std::uint8_t* rows[] = {memory.data(), memory.data() + 1024, memory.data() + 2048};
        std::uint8_t* sources[] = {memory.data() + 3072, memory.data() + 1024 + 396,
                                   memory.data() + 3072};
        EXPECT_EQ(1U, k.blendWords({rows, 0}, {sources, 0}, 100, 3)) << table->name;
        EXPECT_EQ(3U, k.blendWords({rows, 0}, {sources, 0}, 99, 3)) << table->name;
    }
}

}  // namespace
}  // namespace test
