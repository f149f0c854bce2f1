// The public writers of caller-supplied runs: BGR24 pixels, and one colour through a row of bits.
#include <gfx/surface.h>

#include "surface/pixel_format.h"

namespace {

using gfx::Color32;
using gfx::PixelFormat;
using gfx::Rgb565;
using gfx::StorePixel;

/// The columns of a run that lie inside the clip rectangle, and what belongs to the first of them.
struct VisibleRun {
    std::size_t begin;
    std::size_t end;
    std::uint64_t skipped;  // pixels of the run before `begin`
};

struct ClipColumns {
    int x0, x1;
};

/// Where a run of n pixels from column x on ends, formed in 32 bits and read as signed: where it
/// wraps it lies left of x, so that no column is left to write.
std::int32_t WrappedEnd(int x, unsigned n) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(x) + n);
}

bool MeetsColumns(int x, unsigned n, ClipColumns clip) {
    return x < clip.x1 && WrappedEnd(x, n) > clip.x0;
}

VisibleRun ClipRun(int x, unsigned n, ClipColumns clip) {
    const std::int32_t end = WrappedEnd(x, n);
    const int first = x > clip.x0 ? x : clip.x0;
    const int last = end < clip.x1 ? end : clip.x1;
    if (last <= first) return {0, 0, 0};
    return {static_cast<std::size_t>(first), static_cast<std::size_t>(last),
            static_cast<std::uint64_t>(std::int64_t{first} - x)};
}

template <class Format>
void WriteBgr24(std::uint8_t* row, const VisibleRun& run, const unsigned char* bgr) {
    const unsigned char* pixel = bgr + 3 * run.skipped;
    for (std::size_t column = run.begin; column < run.end; ++column, pixel += 3) {
        const std::uint32_t color =
            std::uint32_t{pixel[2]} << 16 | std::uint32_t{pixel[1]} << 8 | pixel[0];
        StorePixel<Format>(row, column, Format::FromRgb(color));
    }
}

template <class Format>
void WriteMono(std::uint8_t* row, const VisibleRun& run, std::uint32_t color,
               const unsigned char* bits) {
    const std::uint32_t value = Format::FromRgb(color);
    std::uint64_t bit = run.skipped;
    for (std::size_t column = run.begin; column < run.end;) {
        const unsigned byte = bits[bit / 8];
        if (byte == 0xFF) {  // nothing to paint up to the next byte
            const std::uint64_t step = 8 - bit % 8;
            column += static_cast<std::size_t>(step);
            bit += step;
            continue;
        }
        if ((byte & 0x80U >> (bit % 8)) == 0) StorePixel<Format>(row, column, value);
        ++column;
        ++bit;
    }
}

}  // namespace

void GfxSurface::SetPixelLineBGR24(int x, int y, unsigned int n, const unsigned char* bgr) {
    const ClipColumns clip{clipX0, clipX1};
    if (y < clipY0 || y >= clipY1 || !MeetsColumns(x, n, clip)) return;
    empty = false;
    if (bgr == nullptr) return;
    const VisibleRun run = ClipRun(x, n, clip);
    const PixelFormat format = gfx::FormatOf(depth, pixelShift, lines);
    if (format == PixelFormat::Rgb565) WriteBgr24<Rgb565>(lines[y], run, bgr);
    if (format == PixelFormat::Color32) WriteBgr24<Color32>(lines[y], run, bgr);
}

void GfxSurface::SetPixelLineMono(int x, int y, unsigned int n, unsigned int color,
                                  const unsigned char* bits) {
    const ClipColumns clip{clipX0, clipX1};
    if (y < clipY0 || y >= clipY1 || !MeetsColumns(x, n, clip)) return;
    empty = false;
    if (bits == nullptr) return;
    const VisibleRun run = ClipRun(x, n, clip);
    const PixelFormat format = gfx::FormatOf(depth, pixelShift, lines);
    if (format == PixelFormat::Rgb565) WriteMono<Rgb565>(lines[y], run, color, bits);
    if (format == PixelFormat::Color32) WriteMono<Color32>(lines[y], run, color, bits);
}
