// Getting at the bytes behind a MemoryPtr, and at colour words that may lie at any alignment.
#ifndef GFX_SURFACE_ROW_POINTER_H
#define GFX_SURFACE_ROW_POINTER_H

#include <gfx/surface.h>

#include <cstring>

#include "surface/pixel_format.h"

namespace gfx {

/// The first byte of a row, whichever view the caller set: reading another member of the union
/// than the one last written would be undefined, copying its bytes is not.
inline std::uint8_t* BytesOf(GfxSurface::MemoryPtr row) {
    std::uint8_t* bytes;
    static_assert(sizeof bytes == sizeof row, "all views of a row are one pointer");
    std::memcpy(&bytes, &row, sizeof bytes);
    return bytes;
}

inline GfxSurface::MemoryPtr PointerTo(std::uint8_t* bytes) {
    GfxSurface::MemoryPtr row;
    row.ptr8 = bytes;
    return row;
}

inline std::uint32_t LoadWord(const std::uint8_t* words, std::size_t i) {
    return LoadPixel<Color32>(words, i);
}

inline void StoreWord(std::uint8_t* words, std::size_t i, std::uint32_t word) {
    StorePixel<Color32>(words, i, word);
}

}  // namespace gfx

#endif  // GFX_SURFACE_ROW_POINTER_H
