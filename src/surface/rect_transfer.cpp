#include "surface/rect_transfer.h"

#include "surface/pixel_format.h"

using gfx::Storage;

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
