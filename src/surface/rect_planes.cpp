// Single channels to and from a depth-8 plane, and rectangles reduced to one bit a pixel.
#include <gfx/surface.h>

#include "surface/clip.h"
#include "surface/pixel_format.h"
#include "surface/row_pointer.h"

using gfx::ClippedRect;

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

GfxSurface::MemoryPtr RowPtr(std::uint8_t* bytes) {
    GfxSurface::MemoryPtr row;
    row.ptr8 = bytes;
    return row;
}

constexpr unsigned kPlaneDepth = 8;

/// Clips a rectangle to the colour surface's bounds and to the plane.
/// @return whether there is such a plane and anything is left.
bool ClipToPlane(ClippedRect& rect, const gfx::ClipBounds& bounds, const GfxSurface* plane) {
    return plane != nullptr && plane->Depth() == kPlaneDepth && ClipRectToBounds(rect, bounds) &&
           CutBeforeOrigin(rect) && ClipToSurfaceSize(rect, plane->DX(), plane->DY());
}

}  // namespace

void GfxSurface::RectExtract(int x, int y, unsigned int w, unsigned int h, int planeX, int planeY,
                             GfxSurface* plane, ColorPlane which) {
    ClippedRect rect{x, y, w, h, planeX, planeY};
    if (!ClipToPlane(rect, {clipX0, clipY0, clipX1, clipY1}, plane)) return;
    plane->empty = false;
    if (StoresNothing() || plane->StoresNothing()) return;
    const unsigned shift = PlaneBitsOf(which).shift;
    const auto column = static_cast<unsigned>(rect.x);
    MemoryPtr words;
    words.ptr32 = rgbLine;
    for (unsigned j = 0; j < rect.h; ++j) {
        ConvertToRGB(RowPtr(lines[rect.y + static_cast<int>(j)]), words, column, rect.w);
        ExtractFromRGB(words, RowPtr(plane->lines[rect.srcY + j]), static_cast<unsigned>(rect.srcX),
                       rect.w, shift);
    }
}

void GfxSurface::RectInsert(int x, int y, unsigned int w, unsigned int h, int planeX, int planeY,
                            const GfxSurface* plane, ColorPlane which) {
    ClippedRect rect{x, y, w, h, planeX, planeY};
    if (!ClipToPlane(rect, {clipX0, clipY0, clipX1, clipY1}, plane)) return;
    empty = false;
    if (StoresNothing() || plane->StoresNothing()) return;
    const PlaneBits bits = PlaneBitsOf(which);
    const auto column = static_cast<unsigned>(rect.x);
    MemoryPtr words;
    words.ptr32 = rgbLine;
    for (unsigned j = 0; j < rect.h; ++j) {
        const MemoryPtr row = RowPtr(lines[rect.y + static_cast<int>(j)]);
        ConvertToRGB(row, words, column, rect.w);
        InsertIntoRGB(RowPtr(plane->lines[rect.srcY + j]), words, static_cast<unsigned>(rect.srcX),
                      rect.w, bits.shift, bits.keepMask);
        ConvertFromRGB(words, row, column, rect.w);
    }
}

void GfxSurface::ReduceToBits(int x, int y, unsigned int w, unsigned int h, int bufX, int bufY,
                              unsigned char* buffer, unsigned int bufPitch,
                              BitReduction reduce) const {
    if (buffer == nullptr || bufPitch == 0) return;
    ClippedRect rect{x, y, w, h, bufX, bufY};
    if (!ClipRectToBounds(rect, {clipX0, clipY0, clipX1, clipY1}) || !CutBeforeOrigin(rect)) return;
    if (StoresNothing()) return;
    MemoryPtr words;
    words.ptr32 = rgbLine;
    // The bit's number may need more than 32 bits: whole bytes of it move the row's start.
    unsigned char* const firstByte = buffer + rect.srcX / 8;
    const auto firstBit = static_cast<unsigned>(rect.srcX % 8);
    for (unsigned j = 0; j < rect.h; ++j) {
        ConvertToRGB(RowPtr(lines[rect.y + static_cast<int>(j)]), words,
                     static_cast<unsigned>(rect.x), rect.w);
        const auto bufRow = static_cast<std::size_t>(rect.srcY) + j;
        (this->*reduce)(words, firstByte + bufRow * bufPitch, firstBit, rect.w);
    }
}

void GfxSurface::RectExtractMono(int x, int y, unsigned int w, unsigned int h, int bufX, int bufY,
                                 unsigned char* buffer, unsigned int bufPitch) {
    ReduceToBits(x, y, w, h, bufX, bufY, buffer, bufPitch, &GfxSurface::ExtractMonoFromRGB);
}

void GfxSurface::RectExtractMonoAlpha(int x, int y, unsigned int w, unsigned int h, int bufX,
                                      int bufY, unsigned char* buffer, unsigned int bufPitch) {
    ReduceToBits(x, y, w, h, bufX, bufY, buffer, bufPitch, &GfxSurface::ExtractMonoAlphaFromRGB);
}
