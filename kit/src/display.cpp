#include <gfx/kit/display.h>

#include <climits>
#include <cstdint>
#include <cstring>

namespace gfx::kit {
namespace {

bool IsInside(unsigned start, unsigned size, unsigned limit) {
    return size != 0 && start < limit && size <= limit - start;
}

bool Holds(const DisplayMemory& memory, unsigned w, unsigned h) {
    const std::size_t row = std::size_t{w} * 2;
    if (memory.pixels == nullptr || row > memory.size) return false;
    if (h == 1) return true;
    return memory.pitch >= row && memory.pitch <= UINT_MAX &&
           (memory.size - row) / memory.pitch >= h - 1;
}

}  // namespace

bool CopyToDisplay(const GfxSurface& surface, unsigned x, unsigned y, unsigned w, unsigned h,
                   const DisplayMemory& memory, DisplayFormat format) {
    if (!IsInside(x, w, surface.DX()) || !IsInside(y, h, surface.DY())) return false;
    // Depths 9 to 16 are stored as 16 bits, 17 to 32 as 32.
    if (surface.Depth() <= 8 || surface.Line(0) == nullptr) return false;
    if (!Holds(memory, w, h)) return false;
    const auto pitch = h == 1 ? 0 : static_cast<unsigned>(memory.pitch);
    const bool is565 = format == DisplayFormat::k565 || format == DisplayFormat::k565HighFirst;
    if (is565) {
        surface.QuickBltTo565(x, y, w, h, memory.pixels, pitch);
    } else {
        surface.QuickBltTo555(x, y, w, h, memory.pixels, pitch);
    }
    if (format == DisplayFormat::k565 || format == DisplayFormat::k555) return true;
    auto* row = static_cast<std::uint8_t*>(memory.pixels);
    for (unsigned j = 0; j < h; ++j)
        SwapBytes(row + std::size_t{j} * pitch, w);
    return true;
}

void SwapBytes(void* pixels, std::size_t count) {
    if (pixels == nullptr) return;
    auto* const bytes = static_cast<std::uint8_t*>(pixels);
    for (std::size_t i = 0; i < count; ++i) {
        std::uint16_t pixel;
        std::memcpy(&pixel, bytes + 2 * i, sizeof pixel);
        pixel = static_cast<std::uint16_t>(pixel << 8 | pixel >> 8);
        std::memcpy(bytes + 2 * i, &pixel, sizeof pixel);
    }
}

}  // namespace gfx::kit
