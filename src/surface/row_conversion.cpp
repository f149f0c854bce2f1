// Rows to and from colour words, and rows of bytes and bits. Rows here are trusted; the public
// writers of BGR24 and mono runs are in row_writers.cpp.
#include <gfx/surface.h>

#include <cstring>

#include "surface/opacity.h"
#include "surface/surface_view.h"

namespace {

using gfx::BytesOf;
using gfx::LoadWord;
using gfx::PointerTo;
using gfx::SingleRow;
using gfx::StoreWord;
using gfx::SurfaceView;

constexpr std::uint32_t kBitsOfByte = 8;

inline std::uint8_t BitMask(std::size_t bit) {
    return static_cast<std::uint8_t>(0x80U >> (bit % kBitsOfByte));
}

}  // namespace

void GfxSurface::ConvertToRGB(MemoryPtr pixelRow, MemoryPtr colorRow, unsigned int x,
                              unsigned int n) const {
    SurfaceView{*this}.KernelsOfPixels().toWords(SingleRow{BytesOf(colorRow)},
                                                 SingleRow{BytesOf(pixelRow), x}, n, 1, alpha);
}

void GfxSurface::ConvertTileToRGB(MemoryPtr pixelRow, MemoryPtr colorRow, unsigned int x,
                                  unsigned int n) const {
    if (dx == 0 || SurfaceView{*this}.FormatOfPixels() == gfx::PixelFormat::None) return;
    // One period of the pattern in at most two runs; then what is there is doubled.
    std::uint8_t* const words = BytesOf(colorRow);
    const auto wordAt = [words](std::size_t i) { return words + i * sizeof(std::uint32_t); };
    const unsigned start = x % dx;
    const unsigned period = n < dx ? n : dx;
    const unsigned toEdge = dx - start < period ? dx - start : period;
    ConvertToRGB(pixelRow, colorRow, start, toEdge);
    ConvertToRGB(pixelRow, PointerTo(wordAt(toEdge)), 0, period - toEdge);
    for (std::size_t done = period; done < n;) {
        const std::size_t more = done < n - done ? done : n - done;
        std::memcpy(wordAt(done), words, more * sizeof(std::uint32_t));
        done += more;
    }
}

void GfxSurface::ConvertFromRGB(MemoryPtr colorRow, MemoryPtr pixelRow, unsigned int x,
                                unsigned int n) const {
    SurfaceView{*this}.KernelsOfPixels().fromWords(SingleRow{BytesOf(pixelRow), x},
                                                   SingleRow{BytesOf(colorRow)}, n, 1);
}

void GfxSurface::ConvertFromRGB(MemoryPtr colorRow, MemoryPtr pixelRow, unsigned int x,
                                unsigned int n, unsigned int key) const {
    SurfaceView{*this}.KernelsOfPixels().fromWordsKeyed(SingleRow{BytesOf(pixelRow), x},
                                                        SingleRow{BytesOf(colorRow)}, n, 1, key);
}

void GfxSurface::BlendWithRGB(MemoryPtr colorRow, MemoryPtr pixelRow, unsigned int x,
                              unsigned int n) const {
    SurfaceView{*this}.KernelsOfPixels().blendWords(SingleRow{BytesOf(pixelRow), x},
                                                    SingleRow{BytesOf(colorRow)}, n, 1);
}

void GfxSurface::CombineRGBAlpha(double transparency, MemoryPtr colorRow, unsigned int n) const {
    gfx::Kernels().scaleAlpha(BytesOf(colorRow), n, gfx::OpacityScale(transparency));
}

void GfxSurface::ExtractFromRGB(MemoryPtr colorRow, MemoryPtr byteRow, unsigned int x,
                                unsigned int n, unsigned int shift) const {
    const std::uint8_t* const words = BytesOf(colorRow);
    std::uint8_t* const bytes = BytesOf(byteRow) + x;
    for (std::size_t i = 0; i < n; ++i) {
        bytes[i] = static_cast<std::uint8_t>(shift < 32 ? LoadWord(words, i) >> shift : 0);
    }
}

void GfxSurface::InsertIntoRGB(MemoryPtr byteRow, MemoryPtr colorRow, unsigned int x,
                               unsigned int n, unsigned int shift, unsigned int keepMask) const {
    const std::uint8_t* const bytes = BytesOf(byteRow) + x;
    std::uint8_t* const words = BytesOf(colorRow);
    for (std::size_t i = 0; i < n; ++i) {
        const std::uint32_t inserted = shift < 32 ? std::uint32_t{bytes[i]} << shift : 0;
        StoreWord(words, i, inserted | (LoadWord(words, i) & keepMask));
    }
}

void GfxSurface::ExtractMonoFromRGB(MemoryPtr colorRow, unsigned char* bits, unsigned int x,
                                    unsigned int n) const {
    const std::uint8_t* const words = BytesOf(colorRow);
    for (std::size_t i = 0; i < n; ++i) {
        const std::uint32_t word = LoadWord(words, i);
        if (gfx::AlphaOf(word) >= 128) continue;
        const std::size_t bit = x + i;
        const std::uint8_t mask = BitMask(bit);
        std::uint8_t& byte = bits[bit / kBitsOfByte];
        byte = static_cast<std::uint8_t>(gfx::RgbToGrey(word) > 128 ? byte | mask : byte & ~mask);
    }
}

void GfxSurface::ExtractMonoAlphaFromRGB(MemoryPtr colorRow, unsigned char* bits, unsigned int x,
                                         unsigned int n) const {
    const std::uint8_t* const words = BytesOf(colorRow);
    std::uint8_t gathered = 0;
    for (std::size_t i = 0; i < n; ++i) {
        const std::size_t bit = x + i;
        if (gfx::AlphaOf(LoadWord(words, i)) < 128) {
            gathered = static_cast<std::uint8_t>(gathered | BitMask(bit));
        }
        const bool isByteComplete = bit % kBitsOfByte == kBitsOfByte - 1 || i + 1 == n;
        if (!isByteComplete) continue;
        bits[bit / kBitsOfByte] = gathered;
        gathered = 0;
    }
}

void GfxSurface::InsertMonoIntoRGB(const unsigned char* bits, MemoryPtr colorRow, unsigned int x,
                                   unsigned int n) const {
    std::uint8_t* const words = BytesOf(colorRow);
    for (std::size_t i = 0; i < n; ++i) {
        const std::size_t bit = x + i;
        const bool isBlack = (bits[bit / kBitsOfByte] & BitMask(bit)) != 0;
        StoreWord(words, i, isBlack ? 0x00000000 : 0x00FFFFFF);
    }
}
