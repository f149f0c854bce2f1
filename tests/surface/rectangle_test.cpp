// Written-out examples of the rectangle copies, masks and display blits, so that the model is not
// the only witness: which pixel meets which, what `empty` says, what keys and odd depths do.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>

#include "support/probe_surface.h"
#include "surface/model.h"

namespace test {
namespace {

// A row of greys on a surface of height 1, as text: one number a pixel.
std::string Greys(const GfxSurface& s, int y = 0) {
    std::string text;
    for (int x = 0; x < static_cast<int>(s.DX()); ++x)
        text += std::to_string(s.RetPixelRGB(x, y) & 0xFF) + " ";
    return text;
}

SurfacePtr Ramp(unsigned bits, unsigned w, unsigned h) {
    SurfacePtr s = MakeSurface(bits, w, h);
    for (unsigned i = 0; i < w * h; ++i)
        s->SetPixelRGB(static_cast<int>(i % w), static_cast<int>(i / w), (i + 1) * 0x010101);
    return s;
}

TEST(MaskedFill, Mask_pixels_stay_under_their_pixels) {
    static constexpr struct {
        int x;
        unsigned w;
        int srcX;
        const char* greys;  // the mask's columns hold 1 to 10 as transparency
    } kCases[] = {{0, 20, 0, "1 2 3 4 5 6 7 8 9 10 0 0 0 0 0 0 0 0 0 0 "},
                  {0, 20, -2, "9 10 1 2 3 4 5 6 7 8 9 10 0 0 0 0 0 0 0 0 "},
                  {0, 2, -3, "8 9 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 "},
                  {-3, 5, 4, "8 9 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 "},
                  {4, 5, 8, "0 0 0 0 9 10 0 0 0 0 0 0 0 0 0 0 0 0 0 0 "},
                  {0, 5, 10, "0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 "}};
    const SurfacePtr mask = Ramp(8, 10, 1);
    for (const auto& c : kCases) {
        // White over black through a mask value m of at most 127 gives a grey of 255 - m.
        const SurfacePtr s = MakeSurface(32, 20, 1);
        s->RectFill(0, 0, 20, 1, 0x00000000);
        s->SetEmpty(true);
        s->RectFillBlend(c.x, 0, c.w, 1, 0x00FFFFFF, c.srcX, 0, mask.get());
        std::string greys;
        for (int x = 0; x < 20; ++x) {
            const Word grey = s->RetPixelRGB(x, 0) & 0xFF;
            greys += std::to_string(grey == 0 ? 0 : 255 - grey) + " ";
        }
        EXPECT_EQ(c.greys, greys) << c.x << ", " << c.w << ", " << c.srcX;
        EXPECT_EQ(c.srcX == 10, s->IsEmpty()) << c.srcX;
    }
}

TEST(RectCopy, Source_pixels_meet_their_targets) {
    static constexpr struct {
        int x;
        unsigned w;
        int srcX;
        bool tile;
        const char* greys;  // the source's columns hold 1 to 4
    } kCases[] = {
        {0, 10, 0, true, "1 2 3 4 1 2 3 4 1 2 "},   {0, 10, -1, true, "4 1 2 3 4 1 2 3 4 1 "},
        {0, 3, 9, true, "2 3 4 0 0 0 0 0 0 0 "},    {0, 10, 1, false, "2 3 4 0 0 0 0 0 0 0 "},
        {0, 10, -2, false, "0 0 1 2 3 4 0 0 0 0 "}, {-2, 9, 0, false, "3 4 0 0 0 0 0 0 0 0 "},
        {-2, 9, -1, false, "2 3 4 0 0 0 0 0 0 0 "}, {0, 2, -2, false, "0 0 0 0 0 0 0 0 0 0 "},
        {0, 9, 4, false, "0 0 0 0 0 0 0 0 0 0 "},   {8, 9, INT_MAX, true, "0 0 0 0 0 0 0 0 4 1 "}};
    for (const auto& c : kCases) {
        for (const unsigned bits : {8u, 32u}) {
            const SurfacePtr s = MakeSurface(bits, 10, 1), source = Ramp(8, 4, 1);
            s->RectCopy(c.x, 0, c.w, 1, c.srcX, 0, source.get(), c.tile);
            EXPECT_EQ(c.greys, Greys(*s)) << c.x << ", " << c.w << ", " << c.srcX << ", " << c.tile;
            EXPECT_EQ(std::string(c.greys) == "0 0 0 0 0 0 0 0 0 0 ", s->IsEmpty()) << c.srcX;
        }
    }
}

/// Large enough for each row to be repeated as soon as it is drawn.
TEST(RectCopy, Large_tiles_repeat_across_and_down) {
    constexpr int kTileW = 70, kTileH = 60, kW = 300, kH = 200;
    const Rect r = {3, 2, 290, 190};
    constexpr Point kStart = {17, 50};
    for (const unsigned bits : {8U, 16U, 32U}) {
        const SurfacePtr tile = MakeSurface(bits, kTileW, kTileH), s = MakeSurface(bits, kW, kH);
        for (int i = 0; i < kTileW * kTileH; ++i) {
            tile->SetPixelRGB(i % kTileW, i / kTileW, static_cast<Word>(i) * 0x9E3779B1);
        }
        s->RectCopy(r.x, r.y, r.w, r.h, kStart.x, kStart.y, tile.get(), true);
        int differences = 0;
        for (int y = 0; y < kH; ++y) {
            for (int x = 0; x < kW; ++x) {
                const int across = x - r.x, down = y - r.y;
                const bool isCovered = across >= 0 && across < static_cast<int>(r.w) && down >= 0 &&
                                       down < static_cast<int>(r.h);
                const Word expected = isCovered ? tile->RetPixelRGB((kStart.x + across) % kTileW,
                                                                    (kStart.y + down) % kTileH)
                                                : 0;
                differences += s->RetPixelRGB(x, y) != expected;
            }
        }
        EXPECT_EQ(0, differences) << "depth " << bits;
    }
}

TEST(RectCopy, Onto_itself_reads_before_it_writes) {
    for (const unsigned bits : {8u, 32u}) {
        const SurfacePtr across = Ramp(bits, 11, 1), down = Ramp(bits, 1, 11),
                         back = Ramp(bits, 11, 1);
        across->RectCopy(1, 0, 10, 1, 0, 0, nullptr, false);
        back->RectCopy(0, 0, 10, 1, 1, 0, back.get(), false);
        down->RectCopy(0, 1, 1, 10, 0, 0, nullptr, false);
        EXPECT_EQ("1 1 2 3 4 5 6 7 8 9 10 ", Greys(*across)) << "depth " << bits;
        EXPECT_EQ("2 3 4 5 6 7 8 9 10 11 11 ", Greys(*back)) << "depth " << bits;
        for (int y = 0; y < 11; ++y)
            EXPECT_EQ(std::to_string(y == 0 ? 1 : y) + " ", Greys(*down, y)) << "depth " << bits;
    }
}

/// Single pixels have a way of their own; a key that no pixel has leads around it.
TEST(RectCopy, A_single_pixel_is_copied_as_a_rectangle_is) {
    constexpr unsigned kSize = 5;
    constexpr int kPlaces[] = {INT_MIN, -1, 0, 1, 3, 4, 5, INT_MAX};
    constexpr unsigned kPositions = 8 * 8 * 8 * 8;
    for (const unsigned bits : {8U, 16U, 32U}) {
        for (unsigned at = 0; at < 2 * kPositions; ++at) {
            const int x = kPlaces[at % 8], y = kPlaces[at / 8 % 8];
            const int srcX = kPlaces[at / 64 % 8], srcY = kPlaces[at / 512 % 8];
            const bool isOntoItself = at >= kPositions;
            const SurfacePtr source = MakeSurface(bits, kSize, kSize - 1);
            const SurfacePtr pixel = MakeSurface(bits, kSize, kSize);
            const SurfacePtr rectangle = MakeSurface(bits, kSize, kSize);
            for (GfxSurface* s : {source.get(), pixel.get(), rectangle.get()}) {
                for (int i = 0; i < 20; ++i)
                    s->SetPixelRGB(i % 5, i / 5, static_cast<Word>(i) * 0x0B0907);
                s->SetClipRect(1, 0, 3, 5);
                s->SetEmpty(true);
            }
            rectangle->SetTransparent(0x12345678);
            pixel->RectCopy(x, y, 1, 1, srcX, srcY, isOntoItself ? nullptr : source.get(), false);
            rectangle->RectCopy(x, y, 1, 1, srcX, srcY, isOntoItself ? nullptr : source.get(),
                                false);
            ASSERT_EQ(0, std::memcmp(pixel->Line(0), rectangle->Line(0), kSize * pixel->Pitch()))
                << bits << ": " << x << ", " << y << " from " << srcX << ", " << srcY;
            ASSERT_EQ(rectangle->IsEmpty(), pixel->IsEmpty())
                << bits << ": " << x << ", " << y << " from " << srcX << ", " << srcY;
        }
    }
}

TEST(RectCopy, The_key_is_compared_with_all_32_bits_after_conversion) {
    static constexpr struct {
        unsigned bits;
        Word color, sourceAlpha, key;
        bool skipped;
    } kCases[] = {{32, 0x00FF00FF, 0, 0x00FF00FF, true},    {32, 0x01FF00FF, 0, 0x00FF00FF, false},
                  {32, 0x00FF00FF, 9, 0x00FF00FF, true},    {8, 0x00FFFFFF, 0, 0x00FFFFFF, true},
                  {8, 0x00FFFFFF, 0x10, 0x00FFFFFF, false}, {8, 0x00FFFFFF, 0x10, 0x10FFFFFF, true},
                  {16, 0x00FF8040, 0, 0x00FF8242, true},    {16, 0x00FF8040, 0, 0x00FF8040, false}};
    for (const auto& c : kCases) {
        for (const unsigned bits : {32u, c.bits}) {
            const SurfacePtr s = MakeSurface(bits, 1, 1), source = MakeSurface(c.bits, 1, 1);
            s->SetAlpha(c.sourceAlpha);
            source->SetAlpha(c.sourceAlpha);
            source->SetPixelRGB(0, 0, c.color);
            const Word before = s->RetPixelRGB(0, 0), copied = source->RetPixelRGB(0, 0);
            s->SetTransparent(c.key);
            s->RectCopy(0, 0, 1, 1, 0, 0, source.get(), false);
            EXPECT_EQ(c.skipped ? before : copied, s->RetPixelRGB(0, 0))
                << "depth " << c.bits << " to " << bits << ", " << c.color << ", key " << c.key;
            EXPECT_FALSE(s->IsEmpty());
            s->SetOpaque();
            s->RectCopy(0, 0, 1, 1, 0, 0, source.get(), false);
            EXPECT_EQ(copied, s->RetPixelRGB(0, 0)) << "the key is off";
        }
    }
}

TEST(DisplayBlit, The_examples_reach_both_layouts) {
    static constexpr Word kCases[][3] = {{0x00FFFFFF, 0xFFFF, 0x7FFF},
                                         {0xFF000000, 0x0000, 0x0000},
                                         {0x00FF8040, 0xFC08, 0x7E08},
                                         {0x00123456, 0x11AA, 0x08CA}};
    for (const auto& [color, as565, as555] : kCases) {
        for (const unsigned bits : {16u, 32u}) {
            const SurfacePtr s = MakeSurface(bits, 1, 1);
            s->SetPixelRGB(0, 0, color);
            std::uint8_t display[2][2];
            s->QuickBltTo565(0, 0, 1, 1, display[0], 2);
            s->QuickBltTo555(0, 0, 1, 1, display[1], 2);
            EXPECT_EQ(as565, display[0][0] + 256u * display[0][1]) << "depth " << bits;
            EXPECT_EQ(as555, display[1][0] + 256u * display[1][1]) << "depth " << bits;
        }
    }
}

}  // namespace
}  // namespace test
