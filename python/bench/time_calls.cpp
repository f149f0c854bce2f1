// What time_calls.py compares with: the nanoseconds of RectFill by itself, a line for each size.
#include <gfx/surface.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

double Nanoseconds(GfxSurface& surface, unsigned size, long count) {
    const auto start = std::chrono::steady_clock::now();
    for (long i = 0; i < count; ++i)
        surface.RectFill(0, 0, size, size, 0x010203);
    const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - start;
    return taken.count();
}

}  // namespace

int main() {
    GfxMemory::fn_alloc = [](void*, unsigned long size) { return std::malloc(size); };
    GfxMemory::fn_free = [](void*, void* block) { std::free(block); };
    for (const unsigned size : {1U, 16U, 256U, 1024U}) {
        GfxSurface* surface = GfxSurface::New(32);
        if (surface == nullptr) return 1;
        surface->Initialise(size, size);
        long count = 1;
        while (Nanoseconds(*surface, size, count) < 4e7)
            count *= 2;
        double best = 1e300;
        for (int i = 0; i < 5; ++i)
            best = std::min(best, Nanoseconds(*surface, size, count));
        std::printf("%u %.3f\n", size, best / static_cast<double>(count));
        GfxSurface::Delete(surface);
    }
    return 0;
}
