#include "surface/rect_transfer.h"

#include "surface/pixel_format.h"

using gfx::PixelRows;
using gfx::Storage;

namespace {

/// The addresses of a block of memory.
struct Block {
    std::uintptr_t begin, end;

    Block(const std::uint8_t* bytes, std::size_t size)
        : begin(reinterpret_cast<std::uintptr_t>(bytes)), end(begin + size) {}

    bool Holds(const Block& other) const { return begin <= other.begin && other.end <= end; }
    bool IsApartFrom(const Block& other) const { return end <= other.begin || other.end <= begin; }

    bool HoldsRows(std::uint8_t* const* lines, unsigned count, std::size_t rowBytes) const {
        for (unsigned j = 0; j < count; ++j) {
            if (!Holds(Block(lines[j], rowBytes))) return false;
        }
        return true;
    }
};

}  // namespace

void GfxSurface::Transfer::WriteWords(const gfx::WriteStep& step) const {
    unsigned done = 0;
    if (SourceStorage() == Storage::Color32 && !wraps && !RunsUpwards()) {
        done = step(Target(), Source(), rect.w, rect.h);
    }
    ThroughScratchRow(step, done);
}

void GfxSurface::Transfer::ThroughScratchRow(const gfx::WriteStep& step, unsigned done,
                                             std::uint32_t opacity) const {
    const bool isUpwards = RunsUpwards();
    const auto column = static_cast<unsigned>(rect.srcX);
    auto* const words = reinterpret_cast<std::uint8_t*>(to.rgbLine);
    MemoryPtr colorRow;
    colorRow.ptr32 = to.rgbLine;
    for (unsigned i = done; i < rect.h; ++i) {
        const unsigned row = isUpwards ? rect.h - 1 - i : i;
        MemoryPtr pixelRow;
        if (wraps) {
            pixelRow.ptr8 = from.lines[gfx::WrapPosition(rect.srcY + row, from.dy)];
            from.ConvertTileToRGB(pixelRow, colorRow, column, rect.w);
        } else {
            pixelRow.ptr8 = from.lines[rect.srcY + row];
            from.ConvertToRGB(pixelRow, colorRow, column, rect.w);
        }
        if (opacity != gfx::kUnitOpacity) gfx::Kernels().scaleAlpha(words, rect.w, opacity);
        step(Target(row), {&words, 0}, rect.w, 1);
    }
}

bool GfxSurface::Transfer::AreApart() const {
    const Block target(to.surface, std::size_t{to.pitch} * to.allocDY);
    const Block source(from.surface, std::size_t{from.pitch} * from.allocDY);
    return target.IsApartFrom(source) && target.HoldsRows(to.lines + rect.y, rect.h, to.pitch) &&
           source.HoldsRows(from.lines, from.dy, from.pitch);
}

void GfxSurface::Transfer::CopyTiles(const gfx::FormatKernels& kernels) const {
    const auto column = static_cast<unsigned>(rect.srcX);
    const unsigned period = rect.w < from.dx ? rect.w : from.dx;
    const unsigned toEdge = from.dx - column < period ? from.dx - column : period;
    const unsigned drawn = rect.h < from.dy ? rect.h : from.dy;
    for (unsigned row = 0; row < drawn; ++row) {
        const PixelRows target = Target(row);
        std::uint8_t* const* const source =
            from.lines + gfx::WrapPosition(rect.srcY + row, from.dy);
        kernels.copy(target, {source, column}, toEdge, 1, false);
        kernels.copy({target.lines, target.x + toEdge}, {source, 0}, period - toEdge, 1, false);
        for (unsigned done = period; done < rect.w;) {
            const unsigned more = done < rect.w - done ? done : rect.w - done;
            kernels.copy({target.lines, target.x + done}, target, more, 1, false);
            done += more;
        }
    }
    // Each further row repeats the one that stands the source's height above it.
    kernels.copy(Target(drawn), Target(), rect.w, rect.h - drawn, false);
}
