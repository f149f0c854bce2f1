// Draws with the native library what the page says its lines draw. `listings.inc` has those lines,
// copied from the page: CASES lists, for each case, its function and what it shows. The pictures go
// to the standard output: width, height, then red, green, blue of each pixel, told pixel by pixel
// and not by the code that the page uses.
#include <gfx/gfx.h>
#include <gfx/kit/shapes.h>
#include <gfx/kit/text.h>

#include <cstdint>
#include <cstdio>
#include <vector>

#include "hooks.h"

namespace {

void Put(const std::vector<std::uint8_t>& bytes) {
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
}

void PutNumber(std::uint32_t number) {
    for (int i = 0; i < 4; ++i)
        std::fputc(static_cast<int>(number >> 8 * i & 0xFF), stdout);
}

void PutColor(std::vector<std::uint8_t>& bytes, std::uint32_t color) {
    for (const int shift : {16, 8, 0})
        bytes.push_back(static_cast<std::uint8_t>(color >> shift));
}

void PutSize(unsigned w, unsigned h) {
    PutNumber(w);
    PutNumber(h);
}

void ShowSurface(GfxSurface* surface) {
    surface->ResetClipRect();
    PutSize(surface->DX(), surface->DY());
    std::vector<std::uint8_t> bytes;
    for (int y = 0; y < static_cast<int>(surface->DY()); ++y)
        for (int x = 0; x < static_cast<int>(surface->DX()); ++x)
            PutColor(bytes, surface->RetPixelRGB(x, y));
    Put(bytes);
}

void ShowBits(const unsigned char* buffer) {
    PutSize(160, 120);
    std::vector<std::uint8_t> bytes;
    for (unsigned y = 0; y < 120; ++y)
        for (unsigned x = 0; x < 160; ++x)
            PutColor(bytes, buffer[32 * y + x / 8] & 0x80 >> x % 8 ? 0xFFFFFF : 0);
    Put(bytes);
}

/// Display memory with `green` bits of green.
void ShowDisplay(const unsigned char* dest, int green) {
    PutSize(160, 120);
    const unsigned top = (1U << green) - 1;
    std::vector<std::uint8_t> bytes;
    for (unsigned i = 0; i < 160 * 120; ++i) {
        const unsigned word = dest[2 * i] | static_cast<unsigned>(dest[2 * i + 1]) << 8;
        const unsigned r = word >> (5 + green) & 31;
        const unsigned g = word >> 5 & top;
        const unsigned b = word & 31;
        PutColor(bytes, (r << 3 | r >> 2) << 16 | (g << (8 - green) | g >> (2 * green - 8)) << 8 |
                            (b << 3 | b >> 2));
    }
    Put(bytes);
}

void ShowValue(unsigned value) {
    PutSize(0, 0);
    PutNumber(value);
}

// Whatever the lines leave on the heap lives until the program ends.
#include "listings.inc"

}  // namespace

int main() {
    playground::InstallHooks();
    DrawAllCases();
    return 0;
}
