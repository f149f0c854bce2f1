// A band is walked block by block; neighbours of one kind are drawn by one call of the engine.
#include "shape_paint.h"

#include <algorithm>
#include <cstring>

namespace gfx::kit {
namespace {

constexpr int kSolidBlocks = 3;  // fewer full blocks between others go through the mask with them

/// The first block from `block` on that is not of this kind; `kind` is a whole set.
int EndOfRun(const Band& band, int block, int blocks, std::uint8_t kind) {
    while (block < blocks && band.kinds[block] == kind)
        ++block;
    return block;
}

/// Stores an opaque colour as blending it would: 32-bit pixels keep their alpha byte.
void StoreOpaque(GfxSurface& target, int x, int y, int w, int h, std::uint32_t word) {
    if (target.Depth() <= 16) {
        target.RectFill(x, y, static_cast<unsigned>(w), static_cast<unsigned>(h), word);
        return;
    }
    target.SetEmpty(false);
    for (int row = y; row < y + h; ++row) {
        auto* const line = static_cast<unsigned char*>(target.Line(row));
        if (line == nullptr) return;
        unsigned char* const first = line + static_cast<std::ptrdiff_t>(x) * 4;
        for (std::ptrdiff_t i = 0; i < w; ++i) {
            std::uint32_t pixel;
            std::memcpy(&pixel, first + i * 4, 4);
            pixel = (pixel & 0xFF000000U) | word;
            std::memcpy(first + i * 4, &pixel, 4);
        }
    }
}

/// Calls solid(column, width) and masked(column, width) for what the band holds.
template <class Solid, class Masked>
void ForEachRun(const Band& band, Solid solid, Masked masked) {
    const int blocks = (band.w + kBlockColumns - 1) / kBlockColumns;
    const auto columnsTo = [&](int block) { return std::min(block * kBlockColumns, band.w); };
    int pending = 0;  // the first block that is not drawn yet
    for (int block = 0; block < blocks;) {
        const std::uint8_t kind = band.kinds[block];
        const int end = EndOfRun(band, block, blocks, kind);
        const bool skipped = kind == kHasEmpty;
        if (skipped || (kind == kHasFull && end - block >= kSolidBlocks)) {
            if (pending < block) masked(columnsTo(pending), columnsTo(block) - columnsTo(pending));
            if (!skipped) solid(columnsTo(block), columnsTo(end) - columnsTo(block));
            pending = end;
        }
        block = end;
    }
    if (pending < blocks) masked(columnsTo(pending), band.w - columnsTo(pending));
}

/// Makes n words as transparent as the mask says; for opaque words that is the mask's byte.
void MaskWords(std::uint32_t* words, const std::uint8_t* mask, int n, bool opaque) {
    if (opaque) {
        for (int i = 0; i < n; ++i)
            words[i] |= static_cast<std::uint32_t>(mask[i]) << 24;
        return;
    }
    for (int i = 0; i < n; ++i) {
        const std::uint32_t product = (255 - (words[i] >> 24)) * (255U - mask[i]) + 128;
        const std::uint32_t alpha =
            255 - ((product + (product >> 8)) >> 8);  // rounded product / 255
        words[i] = (words[i] & 0x00FFFFFFU) | alpha << 24;
    }
}

}  // namespace

void PaintColor(GfxSurface& target, const Band& band, const GfxSurface& mask, std::uint32_t word) {
    const auto rows = static_cast<unsigned>(band.rows);
    ForEachRun(
        band,
        [&](int column, int w) {
            if (word >> 24 == 0) {
                StoreOpaque(target, band.x + column, band.y, w, band.rows, word);
            } else {
                target.RectFillBlend(band.x + column, band.y, static_cast<unsigned>(w), rows, word);
            }
        },
        [&](int column, int w) {
            target.RectFillBlend(band.x + column, band.y, static_cast<unsigned>(w), rows, word,
                                 column, 0, &mask);
        });
}

void PaintGradient(GfxSurface& target, const Band& band, GfxSurface& words,
                   const Gradient& gradient) {
    const auto draw = [&](int column, int w, bool masked) {
        for (int row = 0; row < band.rows; ++row) {
            auto* const line = static_cast<std::uint32_t*>(words.Line(row)) + column;
            GradientRow(gradient, band.x + column, band.y + row, w, line);
            const std::uint8_t* const mask =
                band.mask + static_cast<std::ptrdiff_t>(row) * band.pitch + column;
            if (masked) MaskWords(line, mask, w, gradient.IsOpaque());
        }
        target.RectBlend(band.x + column, band.y, static_cast<unsigned>(w),
                         static_cast<unsigned>(band.rows), column, 0, &words, false);
    };
    ForEachRun(
        band, [&](int column, int w) { draw(column, w, false); },
        [&](int column, int w) { draw(column, w, true); });
}

}  // namespace gfx::kit
