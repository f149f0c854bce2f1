#include "surface/rect_transfer.h"

#include <algorithm>

namespace gfx {
namespace {

/// Where a row begins, as a number: rows of different blocks are compared.
std::uintptr_t Start(PixelRows rows, unsigned y) {
    return reinterpret_cast<std::uintptr_t>(rows.lines[y]);
}

/// Whether each of h rows begins at least `distance` bytes behind the one before.
bool AreInOrder(PixelRows rows, unsigned h, std::size_t distance) {
    for (unsigned y = 1; y < h; ++y) {
        if (Start(rows, y) < Start(rows, y - 1) + distance) return false;
    }
    return true;
}

}  // namespace

void Transfer::WriteWords(const WriteStep& step) const {
    unsigned done = 0;
    if (from.Format() == PixelFormat::Color32 && !wraps && !RunsUpwards()) {
        done = Directly(step);
    }
    if (done < rect.h) ThroughScratchRow(step, done);
}

void Transfer::ThroughScratchRow(const WriteStep& step, unsigned done,
                                 std::uint32_t opacityScale) const {
    const bool isUpwards = RunsUpwards();
    const auto column = static_cast<unsigned>(rect.srcX);
    std::uint8_t* const words = to.ScratchRow();
    for (unsigned i = done; i < rect.h; ++i) {
        const unsigned row = isUpwards ? rect.h - 1 - i : i;
        if (wraps) {
            const unsigned tileRow = WrapPosition(rect.srcY + row, from.surface.DY());
            from.TileToWords(tileRow, column, rect.w, words);
        } else {
            from.ToWords(rect.srcY + row, column, rect.w, words);
        }
        if (opacityScale != kUnitOpacityScale) Kernels().scaleAlpha(words, rect.w, opacityScale);
        step(Target(row), SingleRow{words}, rect.w, 1);
    }
}

bool Transfer::AreRowsApart() const {
    const PixelRows target = Target();
    const PixelRows source = from.Rows(0, 0);
    const unsigned height = from.surface.DY();
    const std::size_t offset = to.BytesOfPixels(target.x);
    const std::size_t size = to.BytesOfPixels(rect.w);
    const std::size_t sourceSize = from.BytesOfPixels(from.surface.DX());
    return AreInOrder(target, rect.h, size) && AreInOrder(source, height, 0) &&
           (Start(target, rect.h - 1) + offset + size <= Start(source, 0) ||
            Start(source, height - 1) + sourceSize <= Start(target, 0) + offset);
}

void Transfer::CopyTiles(const FormatKernels& kernels) const {
    const unsigned width = from.surface.DX();
    const unsigned height = from.surface.DY();
    const auto column = static_cast<unsigned>(rect.srcX);
    const unsigned period = std::min(rect.w, width);
    const unsigned toEdge = std::min(width - column, period);
    const unsigned drawn = std::min(rect.h, height);
    // Further rows repeat the one that stands the source's height above: all in one go where what
    // is drawn first stays in the fastest cache, each as soon as it is drawn where it would not.
    constexpr std::uint64_t kStaysAtHand = 16384;  // bytes
    const bool isLarge = std::uint64_t{to.BytesOfPixels(rect.w)} * drawn >= kStaysAtHand;
    for (unsigned row = 0; row < drawn; ++row) {
        const PixelRows target = Target(row);
        const PixelRows source = from.Rows(0, WrapPosition(rect.srcY + row, height));
        kernels.copy(target, {source.lines, column}, toEdge, 1, false);
        kernels.copy({target.lines, target.x + toEdge}, source, period - toEdge, 1, false);
        for (unsigned done = period; done < rect.w;) {
            const unsigned more = std::min(done, rect.w - done);
            kernels.copy({target.lines, target.x + done}, target, more, 1, false);
            done += more;
        }
        if (!isLarge) continue;
        for (unsigned again = row + height; again < rect.h; again += height) {
            kernels.copy(Target(again), target, rect.w, 1, false);
        }
    }
    if (!isLarge) kernels.copy(Target(drawn), Target(), rect.w, rect.h - drawn, false);
}

}  // namespace gfx
