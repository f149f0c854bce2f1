// A small host: installs hooks, draws on a surface, reads it back, and opens a font cache.
#include <gfx/gfx.h>

#include <cstdio>
#include <cstdlib>

namespace {

int liveBlocks = 0;

void* Alloc(void*, unsigned long size) {
    ++liveBlocks;
    return std::malloc(size == 0 ? 1 : size);
}

void Free(void*, void* block) {
    --liveBlocks;
    std::free(block);
}

}  // namespace

int main() {
    static_assert(__cplusplus == 201402L, "a host of the oldest supported language version");
    GfxMemory::fn_alloc = Alloc;
    GfxMemory::fn_free = Free;

    GfxSurface* s = GfxSurface::New(16);
    s->Initialise(8, 4);
    s->RectFill(-1, -1, 3, 3, 0x00FF0000u);
    const bool isDrawn = s->RetPixelRGB(1, 1) == 0x00FF0000u && s->RetPixelRGB(2, 2) == 0;
    GfxSurface::Delete(s);

    auto* cache = new GfxFontCache;
    const bool isRefused = !cache->OpenFace("no-such-face.ttf", 12, true);
    delete cache;

    if (!isDrawn || !isRefused || liveBlocks != 0) {
        std::printf("drawn %d, refused %d, blocks left %d\n", isDrawn, isRefused, liveBlocks);
        return 1;
    }
    return 0;
}
