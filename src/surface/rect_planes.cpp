// Single channels to and from a depth-8 plane, and rectangles reduced to one bit a pixel.
#include <gfx/surface.h>

#include "surface/surface_view.h"

using gfx::ClippedRect;
using gfx::PointerTo;
using gfx::SurfaceView;

namespace {

/// Where a plane's byte lies in the colour word, and the bits that inserting it keeps.
struct PlaneBits {
    unsigned shift;
    std::uint32_t keepMask;
};

PlaneBits PlaneBitsOf(GfxSurface::ColorPlane which) {
    switch (which) {
        case GfxSurface::PlaneAlpha:
            return {24, 0x00FFFFFF};
        case GfxSurface::PlaneRed:
            return {16, 0xFF00FFFF};
        case GfxSurface::PlaneGreen:
            return {8, 0xFFFF00FF};
        case GfxSurface::PlaneBlue:
            return {0, 0xFFFFFF00};
        default:
            return {0, 0xFFFFFFFF};
    }
}

constexpr unsigned kPlaneDepth = 8;

/// Clips a rectangle to the colour surface's bounds and to the plane.
/// @return whether there is such a plane and anything is left.
bool ClipToPlane(ClippedRect& rect, const SurfaceView& view, const GfxSurface* plane) {
    return plane != nullptr && plane->Depth() == kPlaneDepth &&
           ClipRectToBounds(rect, view.Clip()) && CutBeforeOrigin(rect) &&
           ClipToSurfaceSize(rect, plane->DX(), plane->DY());
}

/// What RectExtractMono and RectExtractMonoAlpha share: reduce(words, bits, first bit) turns each
/// row of colour words into bits.
template <class Reduce>
void ReduceToBits(const SurfaceView& view, ClippedRect rect, unsigned char* buffer,
                  unsigned bufPitch, Reduce reduce) {
    if (buffer == nullptr || bufPitch == 0) return;
    if (!ClipRectToBounds(rect, view.Clip()) || !CutBeforeOrigin(rect)) return;
    if (!view.IsDrawable()) return;
    // The bit's number may need more than 32 bits: whole bytes of it move the row's start.
    unsigned char* const firstByte = buffer + rect.srcX / 8;
    const auto firstBit = static_cast<unsigned>(rect.srcX % 8);
    for (unsigned j = 0; j < rect.h; ++j) {
        view.ToWords(std::int64_t{rect.y} + j, static_cast<unsigned>(rect.x), rect.w,
                     view.ScratchRow());
        const auto bufRow = static_cast<std::size_t>(rect.srcY) + j;
        reduce(PointerTo(view.ScratchRow()), firstByte + bufRow * bufPitch, firstBit, rect.w);
    }
}

}  // namespace

void GfxSurface::RectExtract(int x, int y, unsigned int w, unsigned int h, int planeX, int planeY,
                             GfxSurface* plane, ColorPlane which) {
    const SurfaceView view{*this};
    ClippedRect rect{x, y, w, h, planeX, planeY};
    if (!ClipToPlane(rect, view, plane)) return;
    plane->empty = false;
    const SurfaceView bytes{*plane};
    if (!view.IsDrawable() || !bytes.IsDrawable()) return;
    const unsigned shift = PlaneBitsOf(which).shift;
    const auto planeColumn = static_cast<unsigned>(rect.srcX);
    std::uint8_t* const words = view.ScratchRow();
    for (unsigned j = 0; j < rect.h; ++j) {
        view.ToWords(std::int64_t{rect.y} + j, static_cast<unsigned>(rect.x), rect.w, words);
        ExtractFromRGB(PointerTo(words), PointerTo(bytes.Row(rect.srcY + j)), planeColumn, rect.w,
                       shift);
    }
}

void GfxSurface::RectInsert(int x, int y, unsigned int w, unsigned int h, int planeX, int planeY,
                            const GfxSurface* plane, ColorPlane which) {
    const SurfaceView view{*this};
    ClippedRect rect{x, y, w, h, planeX, planeY};
    if (!ClipToPlane(rect, view, plane)) return;
    empty = false;
    const SurfaceView bytes{*plane};
    if (!view.IsDrawable() || !bytes.IsDrawable()) return;
    const PlaneBits bits = PlaneBitsOf(which);
    const auto column = static_cast<unsigned>(rect.x);
    const auto planeColumn = static_cast<unsigned>(rect.srcX);
    const MemoryPtr words = PointerTo(view.ScratchRow());
    for (unsigned j = 0; j < rect.h; ++j) {
        const MemoryPtr row = PointerTo(view.Row(std::int64_t{rect.y} + j));
        ConvertToRGB(row, words, column, rect.w);
        InsertIntoRGB(PointerTo(bytes.Row(rect.srcY + j)), words, planeColumn, rect.w, bits.shift,
                      bits.keepMask);
        ConvertFromRGB(words, row, column, rect.w);
    }
}

void GfxSurface::RectExtractMono(int x, int y, unsigned int w, unsigned int h, int bufX, int bufY,
                                 unsigned char* buffer, unsigned int bufPitch) {
    ReduceToBits({*this}, {x, y, w, h, bufX, bufY}, buffer, bufPitch,
                 [this](auto... row) { ExtractMonoFromRGB(row...); });
}

void GfxSurface::RectExtractMonoAlpha(int x, int y, unsigned int w, unsigned int h, int bufX,
                                      int bufY, unsigned char* buffer, unsigned int bufPitch) {
    ReduceToBits({*this}, {x, y, w, h, bufX, bufY}, buffer, bufPitch,
                 [this](auto... row) { ExtractMonoAlphaFromRGB(row...); });
}
