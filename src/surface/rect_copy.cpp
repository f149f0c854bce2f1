// RectCopy, RectBlend, RectBlendAlpha: which pairs of formats go directly, and which through the
// scratch row.
#include <gfx/surface.h>

#include "surface/opacity.h"
#include "surface/pixel_format.h"
#include "surface/rect_transfer.h"

using gfx::PixelFormat;

namespace {

/// The stored pixel whose colour word equals a key.
struct StoredKey {
    bool exists;
    std::uint32_t pixel;
};

template <class Format>
StoredKey StoredKeyIn(std::uint32_t key, std::uint32_t surfaceAlpha) {
    const std::uint32_t pixel = Format::FromRgb(key);
    return {Format::ToRgb(pixel, surfaceAlpha) == key, pixel};
}

/// A key is compared with whole colour words. Most words are no pixel's below 32 bits: such a key
/// skips nothing.
StoredKey StoredKeyOf(PixelFormat format, std::uint32_t key, std::uint32_t surfaceAlpha) {
    switch (format) {
        case PixelFormat::Grey8:
            return StoredKeyIn<gfx::Grey8>(key, surfaceAlpha);
        case PixelFormat::Rgb565:
            return StoredKeyIn<gfx::Rgb565>(key, surfaceAlpha);
        default:
            return StoredKeyIn<gfx::Color32>(key, surfaceAlpha);
    }
}

}  // namespace

void GfxSurface::RectCopy(int x, int y, unsigned int w, unsigned int h, int srcX, int srcY,
                          const GfxSurface* src, bool tile) {
    const GfxSurface& from = src != nullptr ? *src : *this;
    // First of all: what follows saves many registers.
    if (w == 1 && h == 1 && !tile && !transparent) return CopyPixel(x, y, srcX, srcY, from);
    const PixelFormat format = gfx::FormatOf(depth, pixelShift, lines);
    const bool isOneFormat = format == gfx::FormatOf(from.depth, from.pixelShift, from.lines);
    if (tile || transparent || !isOneFormat || format == PixelFormat::None) {
        return CopyConverted(x, y, w, h, srcX, srcY, from, tile);
    }
    Transfer transfer{*this, from, {x, y, w, h, srcX, srcY}};
    if (!transfer.Frame(false)) return;
    empty = false;
    gfx::Kernels()[format].copy(transfer.Target(), transfer.Source(), transfer.rect.w,
                                transfer.rect.h, transfer.RunsUpwards());
}

// Single pixels take three quarters of the time of a rectangle's way.
void GfxSurface::CopyPixel(int x, int y, int srcX, int srcY, const GfxSurface& from) {
    const PixelFormat format = gfx::FormatOf(depth, pixelShift, lines);
    if (format != gfx::FormatOf(from.depth, from.pixelShift, from.lines)) {
        return CopyConverted(x, y, 1, 1, srcX, srcY, from, false);
    }
    // Positions before the origin come out beyond any size.
    const auto column = static_cast<unsigned>(srcX);
    const auto row = static_cast<unsigned>(srcY);
    if (!IsInsideClip(x, y) || column >= from.dx || row >= from.dy) return;
    empty = false;
    gfx::WithFormat(format, [&]<class Format>(Format) {
        const std::uint32_t pixel = gfx::LoadPixel<Format>(from.lines[row], column);
        gfx::StorePixel<Format>(lines[y], static_cast<std::size_t>(x), pixel);
    });
}

// Apart from RectCopy, and kept so, because the saving of its registers is felt by small copies.
[[gnu::noinline]] void GfxSurface::CopyConverted(int x, int y, unsigned int w, unsigned int h,
                                                 int srcX, int srcY, const GfxSurface& from,
                                                 bool tile) {
    Transfer transfer{*this, from, {x, y, w, h, srcX, srcY}};
    if (!transfer.Frame(tile)) return;
    empty = false;
    const PixelFormat target = transfer.TargetFormat();
    const PixelFormat source = transfer.SourceFormat();
    if (target == PixelFormat::None || source == PixelFormat::None) return;

    const gfx::RowKernels& kernels = gfx::Kernels();
    const gfx::FormatKernels& own = kernels[target];
    const gfx::ClippedRect& rect = transfer.rect;
    const auto key =
        transparent ? StoredKeyOf(source, transparentColor, from.alpha) : StoredKey{false, 0};
    const gfx::WriteStep step = key.exists ? gfx::WriteStep(own.fromWordsKeyed, transparentColor)
                                           : gfx::WriteStep(own.fromWords);
    if (source == target && !key.exists) {
        if (!transfer.wraps) {
            return own.copy(transfer.Target(), transfer.Source(), rect.w, rect.h,
                            transfer.RunsUpwards());
        }
        if (transfer.AreApart()) return transfer.CopyTiles(own);
    }
    if (transfer.wraps || transfer.RunsUpwards()) return transfer.ThroughScratchRow(step);

    unsigned done = 0;
    if (source == target) {
        done = own.copyKeyed(transfer.Target(), transfer.Source(), rect.w, rect.h, key.pixel);
    } else if (source == PixelFormat::Color32) {
        done = step(transfer.Target(), transfer.Source(), rect.w, rect.h);
    } else if (target == PixelFormat::Color32 && !key.exists) {
        done = kernels[source].toWords(transfer.Target(), transfer.Source(), rect.w, rect.h,
                                       from.alpha);
    }
    if (done < rect.h) transfer.ThroughScratchRow(step, done);
}

void GfxSurface::RectBlend(int x, int y, unsigned int w, unsigned int h, int srcX, int srcY,
                           const GfxSurface* src, bool tile) {
    Transfer transfer{*this, src != nullptr ? *src : *this, {x, y, w, h, srcX, srcY}};
    if (!transfer.Frame(tile)) return;
    empty = false;
    const PixelFormat target = transfer.TargetFormat();
    if (target == PixelFormat::None || transfer.SourceFormat() == PixelFormat::None) return;
    transfer.WriteWords(gfx::WriteStep(gfx::Kernels()[target].blendWords));
}

void GfxSurface::RectBlendAlpha(int x, int y, unsigned int w, unsigned int h, int srcX, int srcY,
                                double transparency, const GfxSurface* src, bool tile) {
    Transfer transfer{*this, src != nullptr ? *src : *this, {x, y, w, h, srcX, srcY}};
    if (!transfer.Frame(tile)) return;
    empty = false;
    const PixelFormat target = transfer.TargetFormat();
    if (target == PixelFormat::None || transfer.SourceFormat() == PixelFormat::None) return;
    const gfx::FormatKernels& kernels = gfx::Kernels()[target];
    const std::uint32_t opacity = gfx::OpacityScale(transparency);
    if (opacity <= gfx::kUnitOpacity) {
        return transfer.WriteWords({kernels.blendWordsScaled, opacity});
    }
    // More opaque than it is: rare, and its products leave the 16 bits of the direct way.
    transfer.ThroughScratchRow(gfx::WriteStep(kernels.blendWords), 0, opacity);
}
