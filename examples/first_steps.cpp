// The shortest complete host: hooks, a surface, some drawing, and the pixels read back as text.
#include <gfx/gfx.h>

#include <cstdio>
#include <cstdlib>
#include <new>

namespace {

void* Take(void*, unsigned long size) {
    void* block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) throw std::bad_alloc();  // a hook that cannot deliver must not return
    return block;
}

void GiveBack(void*, void* block) { std::free(block); }

}  // namespace

int main(int count, char** words) {
    // 1. The hooks come first: all memory of the library passes through them.
    GfxMemory::fn_alloc = Take;
    GfxMemory::fn_free = GiveBack;

    // 2. A surface has a depth for life and gets its size from Initialise.
    GfxSurface* surface = GfxSurface::New(8);
    surface->Initialise(64, 20);

    // 3. Colours are 0xAARRGGBB, and alpha counts transparency: 0x80 lets half of what lies below
    //    shine through.
    surface->RectFill(2, 2, 60, 16, 0x00303030);
    surface->RectFillBlend(40, 5, 30, 10, 0x80FFFFFF);
    surface->DrawAALine(4, 15, 36, 4, 0x00FFFFFF);

    // 4. Text needs a face file; the pen stands on the baseline.
    if (count > 1) {
        GfxFontCache text;
        if (!text.OpenFace(words[1], 14, true)) std::fputs("this face does not open\n", stderr);
        text.DrawGlyph('A', 24, 16, 0x00FFFFFF, surface, 0);  // a closed cache draws nothing
    }

    // 5. Rows are plain memory: one grey byte a pixel at this depth.
    for (unsigned y = 0; y < surface->DY(); ++y) {
        const auto* row = static_cast<const unsigned char*>(surface->Line(static_cast<int>(y)));
        for (unsigned x = 0; x < surface->DX(); ++x)
            std::putchar(" .:-=+*#%@"[row[x] * 10 / 256]);
        std::putchar('\n');
    }

    // 6. What New made, Delete takes back.
    GfxSurface::Delete(surface);
    return 0;
}
