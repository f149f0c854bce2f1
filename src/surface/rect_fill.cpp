// Rectangle fills: solid, blended, and blended through a mask.
#include <gfx/surface.h>

#include "surface/surface_view.h"

using gfx::ClippedRect;
using gfx::PixelFormat;
using gfx::PixelRows;
using gfx::SurfaceView;

namespace {

/// Runs a kernel on a clipped rectangle.
inline void Update(void (*kernel)(PixelRows to, unsigned w, unsigned h, std::uint32_t color),
                   const SurfaceView& view, const ClippedRect& rect, std::uint32_t color) {
    const gfx::RectRows to = view.RowsOf(rect.x, rect.y);
    if (IsOneRun(to, rect.w, rect.h)) return kernel(to.rows, rect.w * rect.h, 1, color);
    kernel(to.rows, rect.w, rect.h, color);
}

/// How a mask gives one transparency a pixel. Decided by exact depth.
enum class MaskKind { None, Bytes, AlphaOfWords };

MaskKind MaskKindOf(unsigned depth, PixelFormat format) {
    if (format == PixelFormat::None) return MaskKind::None;
    if (depth == 8) return MaskKind::Bytes;
    return depth == 32 ? MaskKind::AlphaOfWords : MaskKind::None;
}

/// A row of colour words that carry a colour through n pixels of a mask row, from column `start`
/// on, repeating at the mask's width.
void BuildMaskedRow(std::uint32_t* words, const std::uint8_t* maskRow, MaskKind kind,
                    unsigned maskWidth, unsigned start, unsigned n, std::uint32_t color) {
    const std::uint32_t rgb = color & 0x00FFFFFF;
    unsigned column = start;
    for (unsigned i = 0; i < n; ++i) {
        const std::uint32_t m = kind == MaskKind::Bytes
                                    ? maskRow[column]
                                    : gfx::AlphaOf(gfx::LoadWord(maskRow, column));
        words[i] = gfx::MaskedAlpha(gfx::AlphaOf(color), m) << 24 | rgb;
        if (++column == maskWidth) column = 0;
    }
}

}  // namespace

void GfxSurface::RectFill(int x, int y, unsigned int w, unsigned int h, unsigned int color) {
    if (w == 1 && h == 1) return SetPixelRGB(x, y, color);
    const SurfaceView view{*this};
    ClippedRect rect{x, y, w, h};
    if (!ClipRectToBounds(rect, view.Clip())) return;
    empty = false;
    const PixelFormat format = view.Format();
    if (format == PixelFormat::None) return;
    Update(gfx::Kernels()[format].fill, view, rect, color);
}

void GfxSurface::RectFillBlend(int x, int y, unsigned int w, unsigned int h, unsigned int color) {
    if (w == 1 && h == 1) return SetPixelRGBBlend(x, y, color);
    const std::uint32_t a = gfx::AlphaOf(color);
    if (a == 0) return RectFill(x, y, w, h, color);
    const SurfaceView view{*this};
    ClippedRect rect{x, y, w, h};
    if (!ClipRectToBounds(rect, view.Clip())) return;
    empty = false;
    const PixelFormat format = view.Format();
    if (a == 255 || format == PixelFormat::None) return;
    Update(gfx::Kernels()[format].blendColor, view, rect, color);
}

void GfxSurface::RectFillBlend(int x, int y, unsigned int w, unsigned int h, unsigned int color,
                               int srcX, int srcY, const GfxSurface* mask) {
    if (mask == nullptr) return RectFill(x, y, w, h, color);
    const SurfaceView view{*this};
    const SurfaceView from{*mask};
    ClippedRect rect{x, y, w, h, srcX, srcY};
    if (!ClipRectToBounds(rect, view.Clip())) return;
    if (mask->dx == 0 || mask->dy == 0 || !ClipToSurfaceSize(rect, mask->dx, mask->dy)) return;
    empty = false;
    const MaskKind kind = MaskKindOf(mask->depth, from.Format());
    const PixelFormat format = view.Format();
    if (kind == MaskKind::None || format == PixelFormat::None || gfx::AlphaOf(color) == 255) return;

    const gfx::FormatKernels& kernels = gfx::Kernels()[format];
    const gfx::RectRows to = view.RowsOf(rect.x, rect.y);
    unsigned done = 0;
    if (rect.srcX >= 0 && rect.srcY >= 0) {
        const auto blend = kind == MaskKind::Bytes ? kernels.blendMask8 : kernels.blendMask32;
        const gfx::RectRows masks = from.RowsOf(rect.srcX, rect.srcY);
        if (AreOneRun(to, masks, rect.w, rect.h)) {
            blend(to.rows, masks.rows, rect.w * rect.h, 1, color);
            return;
        }
        done = blend(to.rows, masks.rows, rect.w, rect.h, color);
    }
    // What is left repeats the mask, or shares memory with it: row by row through colour words.
    for (; done < rect.h; ++done) {
        const unsigned maskRow = gfx::WrapPosition(rect.srcY + done, mask->dy);
        BuildMaskedRow(rgbLine, from.Row(maskRow), kind, mask->dx,
                       gfx::WrapPosition(rect.srcX, mask->dx), rect.w, color);
        kernels.blendWords({to.rows.lines + done, to.rows.x}, gfx::SingleRow{view.ScratchRow()},
                           rect.w, 1);
    }
}
