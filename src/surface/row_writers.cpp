// The public writers of caller-supplied runs: BGR24 pixels, and one colour through a row of bits.
#include "surface/surface_view.h"

namespace {

using gfx::StorePixel;

/// The columns of a run that lie inside the clip rectangle, and what belongs to the first of them.
struct VisibleRun {
    std::size_t begin;
    std::size_t end;
    std::uint64_t skipped;  // pixels of the run before `begin`
};

/// Where a run of n pixels from column x on ends, formed in 32 bits and read as signed: where it
/// wraps it lies left of x, so that no column is left to write.
std::int32_t WrappedEnd(int x, unsigned n) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(x) + n);
}

VisibleRun ClipRun(int x, unsigned n, const gfx::ClipBounds& clip) {
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

/// Clips a run and calls write(format, row, visible run) where the surface keeps colours.
template <class Write>
void WriteRun(GfxSurface& surface, int x, int y, unsigned n, const void* source, Write write) {
    const gfx::SurfaceView view{surface};
    const gfx::ClipBounds clip = view.Clip();
    if (!clip.HoldsRow(y) || x >= clip.x1 || WrappedEnd(x, n) <= clip.x0) return;
    surface.SetEmpty(false);
    if (source == nullptr) return;
    gfx::WithFormat(view.Format(), [&](auto format) {
        if constexpr (gfx::KeepsColor(format)) write(format, view.Row(y), ClipRun(x, n, clip));
    });
}

}  // namespace

void GfxSurface::SetPixelLineBGR24(int x, int y, unsigned int n, const unsigned char* bgr) {
    const auto write = [&]<class Format>(Format, std::uint8_t* row, const VisibleRun& run) {
        WriteBgr24<Format>(row, run, bgr);
    };
    WriteRun(*this, x, y, n, bgr, write);
}

void GfxSurface::SetPixelLineMono(int x, int y, unsigned int n, unsigned int color,
                                  const unsigned char* bits) {
    const auto write = [&]<class Format>(Format, std::uint8_t* row, const VisibleRun& run) {
        WriteMono<Format>(row, run, color, bits);
    };
    WriteRun(*this, x, y, n, bits, write);
}
