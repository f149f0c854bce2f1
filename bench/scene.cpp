#include "scene.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <cmath>
#include <cstring>
#include <random>
#include <stdexcept>

namespace bench {

namespace {

using Random = std::mt19937;

int Below(Random& random, int end) {
    return static_cast<int>(random() % static_cast<unsigned>(end));
}

constexpr std::uint32_t kOpaqueBits = 0xFF000000;
constexpr std::uint32_t kLightBits = 0x00808080;

/// Coverage along rows as glyphs have it: none for 7 to 21 pixels, an edge, 2 to 4 full, an edge.
void PaintGlyphAlpha(std::vector<std::uint32_t>& words, Random& random) {
    std::size_t at = 0;
    const auto run = [&](int length, bool edge, int alpha) {
        for (; length > 0 && at < words.size(); --length, ++at) {
            const std::uint32_t a =
                static_cast<std::uint32_t>(edge ? 1 + Below(random, 254) : alpha);
            words[at] = (words[at] & ~kOpaqueBits) | a << 24;
        }
    };
    while (at < words.size()) {
        run(7 + Below(random, 15), false, 0);
        run(1 + Below(random, 2), true, 0);
        run(2 + Below(random, 3), false, 255);
        run(1 + Below(random, 2), true, 0);
    }
}

/// Discs of radius 28 on a grid of 64, their rims fading over three pixels: seven pixels of eight
/// are all visible or all invisible, in runs as sprites have them.
void PaintSpriteAlpha(std::vector<std::uint32_t>& words, int width) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        const double x = static_cast<int>(i % width) % 64 - 31.5;
        const double y = static_cast<int>(i / width) % 64 - 31.5;
        const double share = (29.5 - std::hypot(x, y)) / 3.0;
        const double alpha = std::fmin(1.0, std::fmax(0.0, share)) * 255.0;
        words[i] = (words[i] & ~kOpaqueBits) | static_cast<std::uint32_t>(alpha) << 24;
    }
}

std::uint32_t WithAlphaForm(std::uint32_t word, AlphaForm form) {
    switch (form) {
        case AlphaForm::kOpaque:
            return word | kOpaqueBits;
        case AlphaForm::kTransparency:
            return word ^ kOpaqueBits;
        case AlphaForm::kStraight:
            return word;
        case AlphaForm::kPremultiplied:
            break;
    }
    const std::uint32_t alpha = word >> 24;
    std::uint32_t result = word & kOpaqueBits;
    for (int shift = 0; shift < 24; shift += 8) {
        result |= ((word >> shift & 0xFF) * alpha + 127) / 255 << shift;
    }
    return result;
}

std::string Utf8(unsigned int code) {
    if (code < 0x80) return std::string(1, static_cast<char>(code));
    return {static_cast<char>(0xC0 | code >> 6), static_cast<char>(0x80 | (code & 0x3F))};
}

/// Printable codes only: U+0021 to U+007E, then U+00A1 upwards without the soft hyphen.
std::vector<unsigned int> Codes(int count) {
    std::vector<unsigned int> codes;
    for (unsigned int code = 0x21; static_cast<int>(codes.size()) < count; ++code) {
        if ((code >= 0x7F && code <= 0xA0) || code == 0xAD) continue;
        codes.push_back(code);
    }
    return codes;
}

}  // namespace

void StorePixel(std::uint8_t* to, Format format, std::uint32_t word) {
    const std::uint32_t red = word >> 16 & 0xFF, green = word >> 8 & 0xFF, blue = word & 0xFF;
    if (format == Format::k32) {
        std::memcpy(to, &word, 4);
    } else if (format == Format::k565) {
        const auto packed =
            static_cast<std::uint16_t>(red >> 3 << 11 | green >> 2 << 5 | blue >> 3);
        std::memcpy(to, &packed, 2);
    } else {
        *to = static_cast<std::uint8_t>((red * 77 + green * 150 + blue * 29) >> 8);
    }
}

std::uint8_t GreyLevel() {
    std::uint8_t level = 0;
    StorePixel(&level, Format::k8, kColor);
    return level;
}

Scene::Scene() : fontPath_(std::string(FontDirectory()) + "/DejaVuSans.ttf") {
    targetMemory_.resize((1920 + kFreeColumns) * (1080 + kFreeRows) * 4);
    Random random(7);
    for (int i = 0; i < kPoints; ++i)
        points_.push_back({Below(random, 1024), Below(random, 1024)});
}

std::vector<Corner> StarCorners(int radius) {
    std::vector<Corner> corners;
    for (int i = 0; i < 10; ++i) {
        const double angle = i * 3.14159265358979 / 5, way = i % 2 == 0 ? radius : radius * 0.4;
        corners.push_back(
            {kShapeSurface / 2 + way * std::sin(angle), kShapeSurface / 2 - way * std::cos(angle)});
    }
    return corners;
}

Image Scene::Target(const Row& row) {
    return {targetMemory_.data(), row.surfaceWidth, row.surfaceHeight,
            row.surfaceWidth * BytesPerPixel(row.target), row.target};
}

void Scene::ResetTarget(const Row& row) {
    Row background;
    background.surfaceWidth = row.surfaceWidth;
    background.surfaceHeight = row.surfaceHeight;
    background.width = row.surfaceWidth;
    background.height = row.surfaceHeight;
    background.source = row.target;
    background.pattern = Pattern::kBackground;
    const Image target = Target(row);
    const Image from = Source(background, AlphaForm::kOpaque);
    std::memcpy(target.data, from.data, static_cast<std::size_t>(target.pitch) * target.height);
}

const Scene::Words& Scene::Picture(Pattern pattern, int width, int height) {
    Words& words = pictures_[{pattern, width, height}];
    if (!words.empty()) return words;
    Random random(1234u + static_cast<unsigned>(pattern) * 17 + static_cast<unsigned>(width));
    words.resize(static_cast<std::size_t>(width) * height);
    // Sources are light and backgrounds dark: what is drawn shows in the mean colour.
    for (std::uint32_t& word : words) {
        word = static_cast<std::uint32_t>(random());
        word = pattern == Pattern::kBackground ? word & ~kLightBits : word | kLightBits;
    }
    if (pattern == Pattern::kGlyph) PaintGlyphAlpha(words, random);
    if (pattern == Pattern::kSprite) PaintSpriteAlpha(words, width);
    if (pattern == Pattern::kKeyed) {
        PaintSpriteAlpha(words, width);
        for (std::uint32_t& word : words) {
            word = (word >> 31) != 0 ? word | kOpaqueBits : kKeyColor;
        }
    }
    return words;
}

Image Scene::Source(const Row& row, AlphaForm alpha) {
    const bool tile = row.operation == Operation::kTile;
    const int width = tile ? kTile : row.Scattered() ? kSheet : row.surfaceWidth;
    const int height = tile ? kTile : row.Scattered() ? kSheet : row.surfaceHeight;
    const int bytes = BytesPerPixel(row.source);
    Bytes& pixels = sources_[{row.pattern, width, height, row.source, alpha}];
    if (pixels.empty()) {
        const Words& words = Picture(row.pattern, width, height);
        pixels.resize(words.size() * bytes);
        for (std::size_t i = 0; i < words.size(); ++i) {
            StorePixel(&pixels[i * bytes], row.source, WithAlphaForm(words[i], alpha));
        }
    }
    return {pixels.data(), width, height, width * bytes, row.source};
}

Image Scene::Mask(const Row& row, MaskForm form) {
    const int width = row.Scattered() ? kSheet : row.surfaceWidth;
    const int height = row.Scattered() ? kSheet : row.surfaceHeight;
    Bytes& bytes = masks_[{row.pattern, width, height, form}];
    if (bytes.empty()) {
        const int turn = form == MaskForm::kTransparency ? 0xFF : 0;
        for (std::uint32_t word : Picture(row.pattern, width, height)) {
            bytes.push_back(static_cast<std::uint8_t>(word >> 24 ^ turn));
        }
    }
    return {bytes.data(), width, height, width, Format::k8};
}

const std::vector<Spot>& Scene::Spots(const Row& row) {
    std::vector<Spot>& spots = spots_[{row.width, row.height, row.surfaceWidth, row.surfaceHeight}];
    if (!spots.empty()) return spots;
    if (!row.Scattered()) {
        const int x = (row.surfaceWidth - row.width) / 2, y = (row.surfaceHeight - row.height) / 2;
        spots.push_back({x, y, row.width, row.height, x, y});
        return spots;
    }
    Random random(99);
    for (int i = 0; i < kSpots; ++i) {
        spots.push_back({Below(random, row.surfaceWidth - row.width + 1),
                         Below(random, row.surfaceHeight - row.height + 1), row.width, row.height,
                         Below(random, kSheet - row.width + 1),
                         Below(random, kSheet - row.height + 1)});
    }
    return spots;
}

const std::vector<Segment>& Scene::Segments(const Row& row) {
    std::vector<Segment>& lines = segments_[{row.lineLength, static_cast<int>(row.slope)}];
    if (!lines.empty()) return lines;
    Random random(5);
    const int side = 1024;
    constexpr double kTurn = 6.283185307179586 / 4294967296.0;  // a random word to an angle
    while (static_cast<int>(lines.size()) < kSegments) {
        const double angle = row.slope == Slope::kHorizontal ? 0.0
                             : row.slope == Slope::kVertical
                                 ? std::acos(0.0)
                                 : static_cast<double>(random()) * kTurn;
        const int x = Below(random, side), y = Below(random, side);
        const int endX = x + static_cast<int>(std::lround(row.lineLength * std::cos(angle)));
        const int endY = y + static_cast<int>(std::lround(row.lineLength * std::sin(angle)));
        // One pixel stays free at every edge: anti-aliased lines touch a neighbour.
        const auto inside = [&](int v) { return v >= 1 && v < side - 1; };
        if (inside(x) && inside(y) && inside(endX) && inside(endY)) {
            lines.push_back({x, y, endX, endY});
        }
    }
    return lines;
}

const Text& Scene::TextOf(const Row& row) {
    Text& text =
        texts_[{row.fontSize, row.operation == Operation::kTextCold ? kColdGlyphs : kTextGlyphs}];
    if (text.glyphs.empty()) text = LayOut(row);
    return text;
}

Text Scene::LayOut(const Row& row) const {
    FT_Library library = nullptr;
    FT_Face face = nullptr;
    if (FT_Init_FreeType(&library) != 0 || FT_New_Face(library, FontPath(), 0, &face) != 0) {
        throw std::runtime_error("cannot open " + fontPath_ + " (Debian: fonts-dejavu-core)");
    }
    FT_Set_Pixel_Sizes(face, 0, static_cast<FT_UInt>(row.fontSize));
    Text text;
    constexpr int kPerLine = kTextGlyphs;
    int x = 0, y = 0;
    for (unsigned int code :
         Codes(row.operation == Operation::kTextCold ? kColdGlyphs : kTextGlyphs)) {
        if (text.glyphs.size() % kPerLine == 0) {
            x = 16;
            y += row.fontSize * 2;
            text.lines.push_back({"", x, y});
        }
        const FT_UInt index = FT_Get_Char_Index(face, code);
        text.glyphs.push_back({code, index, x, y});
        text.lines.back().utf8 += Utf8(code);
        FT_Load_Glyph(face, index, FT_LOAD_DEFAULT);
        x += static_cast<int>(face->glyph->advance.x >> 6);
    }
    FT_Done_Face(face);
    FT_Done_FreeType(library);
    return text;
}

}  // namespace bench
