// RectCopy, RectBlend, RectBlendAlpha: which pairs of formats go directly, and which through the
// scratch row.
#include "surface/rect_transfer.h"

using gfx::ClippedRect;
using gfx::PixelFormat;
using gfx::SurfaceView;
using gfx::Transfer;
using gfx::WriteStep;

namespace {

/// The stored pixel whose colour word equals a key.
struct StoredKey {
    bool exists;
    std::uint32_t pixel;
};

/// A key is compared with whole colour words. Most words are no pixel's below 32 bits: such a key
/// skips nothing.
StoredKey StoredKeyOf(PixelFormat format, std::uint32_t key, std::uint32_t surfaceAlpha) {
    StoredKey stored{};
    gfx::WithFormat(format, [&]<class Format>(Format) {
        const std::uint32_t pixel = Format::FromRgb(key);
        stored = {Format::ToRgb(pixel, surfaceAlpha) == key, pixel};
    });
    return stored;
}

/// Copies where formats differ, a colour key is on, or the source may repeat. Apart from RectCopy,
/// and kept so, because the saving of its registers is felt by small copies.
[[gnu::noinline]] void CopyConverted(GfxSurface& on, const GfxSurface& src, int x, int y,
                                     unsigned w, unsigned h, int srcX, int srcY, bool tile) {
    Transfer transfer{{on}, {src}, {x, y, w, h, srcX, srcY}};
    if (!transfer.Frame(tile)) return;
    on.SetEmpty(false);
    if (!transfer.IsDrawable()) return;

    const SurfaceView& to = transfer.to;
    const SurfaceView& from = transfer.from;
    const ClippedRect& rect = transfer.rect;
    const PixelFormat target = to.Format();
    const PixelFormat source = from.Format();
    const gfx::RowKernels& kernels = gfx::Kernels();
    const gfx::FormatKernels& own = kernels[target];
    const std::uint32_t alpha = from.surface.Alpha();
    const StoredKey key = to.HasKey() ? StoredKeyOf(source, to.Key(), alpha) : StoredKey{};
    const WriteStep step = key.exists ? WriteStep{nullptr, own.fromWordsKeyed, to.Key(), true}
                                      : WriteStep{own.fromWords};
    if (source == target && !key.exists) {
        if (!transfer.wraps) return transfer.Copy();
        if (transfer.AreRowsApart()) return transfer.CopyTiles(own);
    }
    if (transfer.wraps || transfer.RunsUpwards()) return transfer.ThroughScratchRow(step);

    unsigned done = 0;
    if (source == target) {
        done = transfer.Directly(own.copyKeyed, key.pixel);
    } else if (source == PixelFormat::Color32) {
        done = transfer.Directly(step);
    } else if (target == PixelFormat::Color32 && !key.exists) {
        done = transfer.Directly(kernels[source].toWords, alpha);
    }
    if (done < rect.h) transfer.ThroughScratchRow(step, done);
}

/// Copies a single pixel between surfaces of one format, without what a rectangle's way costs.
void CopyPixel(GfxSurface& on, int x, int y, int srcX, int srcY, const SurfaceView& from) {
    const SurfaceView to{on};
    // Positions before the origin come out beyond any size.
    const auto column = static_cast<unsigned>(srcX);
    const auto row = static_cast<unsigned>(srcY);
    if (!to.Holds(x, y) || column >= from.surface.DX() || row >= from.surface.DY()) return;
    on.SetEmpty(false);
    gfx::WithFormat(to.Format(), [&]<class Format>(Format) {
        const std::uint32_t pixel = gfx::LoadPixel<Format>(from.Row(row), column);
        gfx::StorePixel<Format>(to.Row(y), static_cast<std::size_t>(x), pixel);
    });
}

}  // namespace

void GfxSurface::RectCopy(int x, int y, unsigned int w, unsigned int h, int srcX, int srcY,
                          const GfxSurface* src, bool tile) {
    const SurfaceView to{*this};
    const SurfaceView from{src != nullptr ? *src : *this};
    const PixelFormat format = to.Format();
    const bool isPlain = !tile && !transparent && format == from.Format();
    // First of all: what follows saves many registers.
    if (w == 1 && h == 1 && isPlain) return CopyPixel(*this, x, y, srcX, srcY, from);
    if (!isPlain || format == PixelFormat::None) {
        return CopyConverted(*this, from.surface, x, y, w, h, srcX, srcY, tile);
    }
    Transfer transfer{to, from, {x, y, w, h, srcX, srcY}};
    if (!transfer.Frame(false)) return;
    empty = false;
    transfer.Copy();
}

void GfxSurface::RectBlend(int x, int y, unsigned int w, unsigned int h, int srcX, int srcY,
                           const GfxSurface* src, bool tile) {
    Transfer transfer{{*this}, {src != nullptr ? *src : *this}, {x, y, w, h, srcX, srcY}};
    if (!transfer.Frame(tile)) return;
    empty = false;
    if (!transfer.IsDrawable()) return;
    transfer.WriteWords({gfx::Kernels()[transfer.to.Format()].blendWords});
}

void GfxSurface::RectBlendAlpha(int x, int y, unsigned int w, unsigned int h, int srcX, int srcY,
                                double transparency, const GfxSurface* src, bool tile) {
    Transfer transfer{{*this}, {src != nullptr ? *src : *this}, {x, y, w, h, srcX, srcY}};
    if (!transfer.Frame(tile)) return;
    empty = false;
    if (!transfer.IsDrawable()) return;
    const gfx::FormatKernels& kernels = gfx::Kernels()[transfer.to.Format()];
    const std::uint32_t scale = gfx::OpacityScale(transparency);
    if (scale <= gfx::kUnitOpacityScale) {
        return transfer.WriteWords({nullptr, kernels.blendWordsScaled, scale, true});
    }
    // More opaque than it is: rare, and its products leave the 16 bits of the direct way.
    transfer.ThroughScratchRow({kernels.blendWords}, 0, scale);
}
