// GfxSurface's life, memory, sizes and clip rectangle. Draws nothing.
#include <gfx/surface.h>

#include <algorithm>
#include <bit>
#include <climits>
#include <cstring>
#include <new>

#include "memory/hook_block.h"
#include "memory/on_failure.h"
#include "surface/limits.h"
#include "surface/surface_view.h"

static_assert(std::endian::native == std::endian::little,
              "pixels are stored as little-endian words, the way host memory is laid out");

namespace {

constexpr unsigned kMaxDepth = 32;
constexpr std::uint32_t kRowAlignment = 16;  // bytes
constexpr std::uint32_t kSizeStep = 16;      // pixels

constexpr std::uint32_t BytesPerPixelOf(unsigned depth) {
    if (depth == 0) return 0;
    if (depth <= 8) return 1;
    return depth <= 16 ? 2 : 4;
}

/// Bytes that the pixels of one row take, without padding.
std::uint64_t RowBytes(unsigned depth, std::uint32_t bytesPerPixel, unsigned w) {
    if (depth == 1) return (std::uint64_t{w} + 7) / 8;
    return std::uint64_t{bytesPerPixel} * w;
}

/// The pitch of own memory. Depth 1 packs eight pixels of the padded row into a byte.
std::uint64_t PaddedPitch(unsigned depth, std::uint32_t bytesPerPixel, unsigned w) {
    const std::uint64_t row =
        (std::uint64_t{bytesPerPixel} * w + kRowAlignment - 1) / kRowAlignment * kRowAlignment;
    return depth == 1 ? row / 8 : row;
}

/// The smallest multiple of 16 above `extent`.
std::uint64_t GrownExtent(unsigned extent) {
    return (std::uint64_t{extent} / kSizeStep + 1) * kSizeStep;
}

/// Refuses what cannot be represented, before anything is released.
void CheckExtents(std::uint64_t w, std::uint64_t h) {
    if (w > INT_MAX) throw gfx::kWidthLimit;
    if (h > INT_MAX) throw gfx::kHeightLimit;
}

/// The same of a surface that has pixel memory, which gets a row table and a scratch row as well.
void CheckSize(std::uint64_t w, std::uint64_t h, std::uint64_t pitch) {
    CheckExtents(w, h);
    if (pitch > UINT32_MAX) throw gfx::kPitchLimit;
    const std::uint64_t blocks[] = {pitch * h, h * sizeof(std::uint8_t*),
                                    w * sizeof(std::uint32_t)};
    for (const std::uint64_t size : blocks) {
        if (size > ULONG_MAX || size > SIZE_MAX) throw gfx::kBlockLimit;
    }
}

/// Gives up a pointer field: null from now on.
template <class T>
T* Take(T*& field) {
    T* const taken = field;
    field = nullptr;
    return taken;
}

struct ClipSpan {
    std::int32_t begin, end;
};

/// One axis of SetClipRect: what of [position, position + extent) lies inside [0, size).
ClipSpan ClipSpanOf(int position, unsigned extent, unsigned size) {
    std::int64_t begin = position;
    std::int64_t end = begin + extent;
    if (begin < 0) {
        begin = 0;
        if (end < 0) end = 0;
    }
    if (begin >= size) return {0, 0};
    if (end > size) end = size;
    return {static_cast<std::int32_t>(begin), static_cast<std::int32_t>(end)};
}

}  // namespace

GfxSurface::GfxSurface(unsigned int bitsPerPixel)
    : surface(nullptr),
      rgbLine(nullptr),
      lines(nullptr),
      dots(nullptr),
      dx(0),
      dy(0),
      pitch(0),
      alpha(0),
      allocDX(0),
      allocDY(0),
      ownsSurface(false),
      transparent(false),
      empty(false),
      clipX0(0),
      clipY0(0),
      clipX1(0),
      clipY1(0),
      depth(bitsPerPixel),
      bytesPerPixel(BytesPerPixelOf(bitsPerPixel)),
      pixelShift(bytesPerPixel / 2),
      transparentColor(0) {
    if (bitsPerPixel > kMaxDepth) throw gfx::kDepthLimit;
}

GfxSurface::~GfxSurface() noexcept(false) { GfxSurface::FreeSurfaceAndLines(); }

GfxSurface* GfxSurface::New(unsigned int bitsPerPixel) {
    // A new-expression with a null result from a throwing operator new would be undefined.
    void* const storage = gfx::TakeBlock(sizeof(GfxSurface));
    if (storage == nullptr) return nullptr;
    if (bitsPerPixel > kMaxDepth) {
        // Before the failure is thrown: a hook that throws must not meet it on its way.
        gfx::ReturnBlock(storage);
        throw gfx::kDepthLimit;
    }
    return ::new (storage) GfxSurface(bitsPerPixel);
}

void GfxSurface::Delete(GfxSurface*& s) { delete Take(s); }

// The surface is left without memory when a hook throws: sizes and clip rectangle are 0 then.
template <class ObtainPixels>
void gfx::SurfaceView::LayOut(GfxSurface& surface, unsigned w, unsigned h, std::uint64_t pitch,
                              ObtainPixels obtainPixels) {
    const auto reset = [&surface](unsigned newW, unsigned newH, std::uint64_t newPitch) {
        surface.FreeSurfaceAndLines();
        surface.allocDX = surface.dx = newW;
        surface.allocDY = surface.dy = newH;
        surface.pitch = static_cast<std::uint32_t>(newPitch);
        surface.ResetClipRect();
    };
    OnFailure dropAll([&] { reset(0, 0, 0); });
    reset(w, h, pitch);
    obtainPixels();
    surface.AllocLinesForSurface();
    dropAll.Dismiss();
}

void GfxSurface::Initialise(unsigned int w, unsigned int h) {
    const std::uint64_t rowBytes = PaddedPitch(depth, bytesPerPixel, w);
    CheckSize(w, h, rowBytes);
    gfx::SurfaceView::LayOut(*this, w, h, rowBytes, [this] { AllocSurface(); });
}

void GfxSurface::Initialise(unsigned int w, unsigned int h, void* buffer, unsigned int rowBytes,
                            bool isEmpty) {
    buffer == nullptr ? CheckExtents(w, h) : CheckSize(w, h, rowBytes);
    if (buffer != nullptr && h > 0 && RowBytes(depth, bytesPerPixel, w) > rowBytes) {
        throw gfx::kPitchLimit;
    }
    gfx::SurfaceView::LayOut(*this, w, h, rowBytes,
                             [=, this] { surface = static_cast<std::uint8_t*>(buffer); });
    empty = isEmpty;
}

void GfxSurface::SetNewSize(unsigned int w, unsigned int h) {
    if (w > allocDX || h > allocDY) {
        const std::uint64_t grownW = GrownExtent(w);
        const std::uint64_t grownH = GrownExtent(h);
        CheckSize(grownW, grownH, 0);
        Initialise(static_cast<unsigned>(grownW), static_cast<unsigned>(grownH));
    }
    dx = w;
    dy = h;
}

void GfxSurface::OptimiseSize() {
    if (dx >= allocDX / 2 && dy >= allocDY / 2) return;
    const std::uint64_t w = GrownExtent(dx);
    const std::uint64_t h = GrownExtent(dy);
    if (w < allocDX && h < allocDY) {
        Initialise(static_cast<unsigned>(w), static_cast<unsigned>(h));
    }
}

void GfxSurface::SetClipRect(int x, int y, unsigned int w, unsigned int h) {
    const ClipSpan columns = ClipSpanOf(x, w, dx);
    const ClipSpan rows = ClipSpanOf(y, h, dy);
    clipX0 = columns.begin;
    clipX1 = columns.end;
    clipY0 = rows.begin;
    clipY1 = rows.end;
}

void GfxSurface::ResetClipRect() {
    clipX0 = 0;
    clipY0 = 0;
    clipX1 = static_cast<std::int32_t>(dx);
    clipY1 = static_cast<std::int32_t>(dy);
}

void GfxSurface::Clear() {
    const std::uint64_t size = std::uint64_t{pitch} * dy;
    const std::uint64_t rowBytes = RowBytes(depth, bytesPerPixel, allocDX);
    const auto isInside = [=, this](const std::uint8_t* row) {
        const std::uint64_t before =
            reinterpret_cast<std::uintptr_t>(row) - reinterpret_cast<std::uintptr_t>(surface);
        return before <= size && rowBytes <= size - before;
    };
    empty = true;
    if (surface != nullptr && (lines == nullptr || std::all_of(lines, lines + dy, isInside))) {
        if (size != 0) std::memset(surface, 0, static_cast<std::size_t>(size));
    } else if (lines != nullptr && rowBytes != 0) {
        std::for_each(lines, lines + dy, [=](std::uint8_t* row) {
            std::memset(row, 0, static_cast<std::size_t>(rowBytes));
        });
    }
}

void GfxSurface::AllocSurface() {
    const std::uint64_t size = std::uint64_t{pitch} * dy;
    surface = static_cast<std::uint8_t*>(gfx::TakeBlock(size));
    ownsSurface = true;
    empty = true;
    if (size != 0) std::memset(surface, 0, static_cast<std::size_t>(size));
}

void GfxSurface::AllocLinesForSurface() {
    // A surface without pixel memory stays without rows; own memory of no bytes may be null.
    if (surface == nullptr && !ownsSurface) return;
    lines = static_cast<std::uint8_t**>(gfx::TakeBlock(std::uint64_t{dy} * sizeof *lines));
    for (std::uint32_t y = 0; y < dy; ++y)
        lines[y] = surface + std::size_t{y} * pitch;
    rgbLine = static_cast<std::uint32_t*>(gfx::TakeBlock(std::uint64_t{dx} * sizeof *rgbLine));
}

void GfxSurface::AllocDotsBuffer() {
    dots = static_cast<LineDot*>(gfx::TakeBlock(MAX_LINE_LENGTH * sizeof *dots));
}

void GfxSurface::FreeSurfaceAndLines() {
    // Every field is null before the first block goes back: a hook that throws finds nothing to
    // return twice. The blocks go back last declared first.
    const auto dotsBlock = gfx::HookBlock::Adopt(Take(dots));
    const auto wordsBlock = gfx::HookBlock::Adopt(Take(rgbLine));
    const auto pixelBlock = gfx::HookBlock::Adopt(ownsSurface ? surface : nullptr);
    const auto rowsBlock = gfx::HookBlock::Adopt(Take(lines));
    surface = nullptr;
    ownsSurface = false;
}
