/// @file
/// Pixels on their way to a display: the engine's display blits with their arguments checked, and
/// the order of bytes that some buses want.
#ifndef GFX_KIT_DISPLAY_H
#define GFX_KIT_DISPLAY_H

#include <gfx/kit/export.h>
#include <gfx/surface.h>

#include <cstddef>

namespace gfx::kit {

/// How a display stores a pixel in 16 bits.
enum class DisplayFormat {
    k565,           ///< [RRRRRGGG GGGBBBBB], low byte first
    k555,           ///< [0RRRRRGG GGGBBBBB], low byte first
    k565HighFirst,  ///< as k565, high byte first, as panels on a serial bus want it
    k555HighFirst   ///< as k555, high byte first
};

/// Memory of a display, or of a transfer to one.
struct DisplayMemory {
    void* pixels;       ///< where the first pixel goes; any alignment
    std::size_t size;   ///< bytes that may be written from there on
    std::size_t pitch;  ///< bytes from one row to the next; for a single row any value
};

/// Copies a rectangle of a surface of 16 or 32 bits into a display's memory, after having looked at
/// every argument. Bytes between the rows are not touched. The memory must be apart from the
/// surface's.
/// @param x,y,w,h  the rectangle, in pixels
/// @return whether it was copied. It is not, and nothing is written, where the rectangle does not
///         lie inside the surface or is empty, the surface has no rows or other depths, a pitch is
///         smaller than a row, or `size` is too small. Throws nothing.
GFX_KIT_API bool CopyToDisplay(const GfxSurface& surface, unsigned x, unsigned y, unsigned w,
                               unsigned h, const DisplayMemory& memory, DisplayFormat format);

/// Swaps the bytes of `count` 16-bit pixels in place; any alignment. Null does nothing.
GFX_KIT_API void SwapBytes(void* pixels, std::size_t count);

}  // namespace gfx::kit

#endif  // GFX_KIT_DISPLAY_H
