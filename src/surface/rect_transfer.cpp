#include "surface/rect_transfer.h"

#include "surface/pixel_format.h"

using gfx::PixelFormat;
using gfx::PixelRows;

namespace {

/// Whether a surface's rows lie in its pixel memory one behind the other.
bool HasRegularRows(const std::uint8_t* pixels, std::uint8_t* const* lines, unsigned first,
                    unsigned count, std::size_t pitch) {
    for (std::size_t y = first; y < std::size_t{first} + count; ++y) {
        if (lines[y] != pixels + y * pitch) return false;
    }
    return true;
}

}  // namespace

void GfxSurface::Transfer::WriteWords(const gfx::WriteStep& step) const {
    unsigned done = 0;
    if (SourceFormat() == PixelFormat::Color32 && !wraps && !RunsUpwards()) {
        done = step(Target(), Source(), rect.w, rect.h);
    }
    if (done < rect.h) ThroughScratchRow(step, done);
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
    const auto target = reinterpret_cast<std::uintptr_t>(to.surface);
    const auto source = reinterpret_cast<std::uintptr_t>(from.surface);
    const std::uint64_t rowBytes = std::uint64_t{to.allocDX} << to.pixelShift;
    const bool areBlocksApart = target + std::size_t{to.pitch} * to.allocDY <= source ||
                                source + std::size_t{from.pitch} * from.allocDY <= target;
    return areBlocksApart && rowBytes <= to.pitch &&
           HasRegularRows(to.surface, to.lines, static_cast<unsigned>(rect.y), rect.h, to.pitch) &&
           HasRegularRows(from.surface, from.lines, 0, from.dy, from.pitch);
}

void GfxSurface::Transfer::CopyTiles(const gfx::FormatKernels& kernels) const {
    const auto column = static_cast<unsigned>(rect.srcX);
    const unsigned period = rect.w < from.dx ? rect.w : from.dx;
    const unsigned toEdge = from.dx - column < period ? from.dx - column : period;
    const unsigned drawn = rect.h < from.dy ? rect.h : from.dy;
    // Further rows repeat the one that stands the source's height above: all in one go where what
    // is drawn first stays in the fastest cache, each as soon as it is drawn where it would not. On
    // a large surface that takes two thirds of the time, on small ones up to twice as much.
    constexpr std::uint64_t kStaysAtHand = 16384;  // bytes
    const bool isLarge = (std::uint64_t{rect.w} * drawn << to.pixelShift) >= kStaysAtHand;
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
        if (!isLarge) continue;
        for (unsigned again = row + from.dy; again < rect.h; again += from.dy) {
            kernels.copy(Target(again), target, rect.w, 1, false);
        }
    }
    if (!isLarge) kernels.copy(Target(drawn), Target(), rect.w, rect.h - drawn, false);
}
