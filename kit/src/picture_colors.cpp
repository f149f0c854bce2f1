// Pictures whose colours change on their way: through a palette, or dithered.
#include "picture_rows.h"

namespace gfx::kit {
namespace {

/// The Bayer matrix: bits of x ^ y and of y, lowest first, become those of the threshold, highest
/// first.
unsigned ThresholdAt(unsigned x, unsigned y) {
    const unsigned mixed = x ^ y;
    unsigned threshold = 0;
    for (unsigned bit = 0; bit < 3; ++bit)
        threshold = threshold << 2 | (mixed >> bit & 1) << 1 | (y >> bit & 1);
    return threshold;
}

std::uint32_t Raised(std::uint32_t channel, unsigned by) {
    return std::min<std::uint32_t>(channel + by, 255);
}

/// A colour word before its channels are cut to 5, 6 and 5 bits.
std::uint32_t Dithered(std::uint32_t word, unsigned threshold) {
    const std::uint32_t red = Raised(word >> 16 & 0xFF, threshold / 8);
    const std::uint32_t green = Raised(word >> 8 & 0xFF, threshold / 16);
    const std::uint32_t blue = Raised(word & 0xFF, threshold / 8);
    return (word & 0xFF000000) | red << 16 | green << 8 | blue;
}

}  // namespace

void DrawDithered(GfxSurface& target, int x, int y, const GfxSurface& source, PictureRect from) {
    if (!LiesInside(source, from)) return;
    const VisiblePart visible(target, {x, y, from.w, from.h});
    if (visible.IsEmpty()) return;
    const unsigned n = visible.columns.Size();
    WordRow row(n);
    if (!row.IsMade()) return;
    const auto left = static_cast<unsigned>(x + visible.columns.first);
    for (std::int64_t j = visible.rows.first; j < visible.rows.last; ++j) {
        row.Read(source, from.x + static_cast<int>(visible.columns.first),
                 from.y + static_cast<int>(j), n);
        const auto top = static_cast<unsigned>(y + j);
        unsigned thresholds[8];
        for (unsigned i = 0; i < 8; ++i)
            thresholds[i] = ThresholdAt((left + i) & 7, top & 7);
        std::uint32_t* const words = row.Words();
        for (unsigned i = 0; i < n; ++i)
            words[i] = Dithered(words[i], thresholds[i & 7]);
        row.Write(target, left, top, Writing::kCopy);
    }
}

void DrawIndexed(GfxSurface& target, int x, int y, const GfxSurface& source, PictureRect from,
                 const Palette& palette, Writing writing) {
    if (source.Depth() != 8 || !LiesInside(source, from) || source.Line(0) == nullptr) return;
    const VisiblePart visible(target, {x, y, from.w, from.h});
    if (visible.IsEmpty()) return;
    const unsigned n = visible.columns.Size();
    WordRow row(n);
    if (!row.IsMade()) return;
    std::uint32_t colors[256];
    for (unsigned i = 0; i < 256; ++i)
        colors[i] = palette.colors[i].Word();
    for (std::int64_t j = visible.rows.first; j < visible.rows.last; ++j) {
        const auto* const pixels =
            static_cast<const std::uint8_t*>(source.Line(from.y + static_cast<int>(j))) + from.x +
            visible.columns.first;
        std::uint32_t* const words = row.Words();
        for (unsigned i = 0; i < n; ++i)
            words[i] = colors[pixels[i]];
        // Runs between pixels that are not drawn.
        for (unsigned i = 0; i < n;) {
            if (pixels[i] == palette.transparent) {
                ++i;
                continue;
            }
            const unsigned first = i;
            while (i < n && pixels[i] != palette.transparent)
                ++i;
            row.Write(target, x + visible.columns.first + first, y + j, writing, first, i - first);
        }
    }
}

}  // namespace gfx::kit
