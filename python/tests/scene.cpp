// The same pseudo-random calls as test_scene.py makes, straight on the library. Writes the pixels
// of three surfaces to the standard output. Usage: gfx_python_scene SEED CALLS
#include <gfx/surface.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr unsigned kWidth = 61;
constexpr unsigned kHeight = 47;

class Numbers {
public:
    explicit Numbers(std::uint32_t seed) : state_(seed) {}

    std::uint32_t Word() {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 17;
        state_ ^= state_ << 5;
        return state_;
    }
    unsigned Below(unsigned limit) { return Word() % limit; }
    int Place() { return static_cast<int>(Below(100)) - 20; }

private:
    std::uint32_t state_;
};

struct Rect {
    int x, y;
    unsigned w, h;
    explicit Rect(Numbers& n) : x(n.Place()), y(n.Place()), w(n.Below(50)), h(n.Below(50)) {}
};

void DrawOne(Numbers& n, GfxSurface* const (&surfaces)[3]) {
    GfxSurface& s = *surfaces[n.Below(3)];
    const GfxSurface* const other = surfaces[n.Below(3)];
    const unsigned kind = n.Below(10);
    const Rect r(n);
    const int a = n.Place(), b = n.Place();
    const std::uint32_t word = n.Word();
    const unsigned short pattern[] = {static_cast<unsigned short>(1 + n.Below(5)),
                                      static_cast<unsigned short>(1 + n.Below(5))};
    switch (kind) {
        case 0:
            s.RectFill(r.x, r.y, r.w, r.h, word);
            break;
        case 1:
            s.RectFillBlend(r.x, r.y, r.w, r.h, word);
            break;
        case 2:
            s.RectFillBlend(r.x, r.y, r.w, r.h, word, a, b, surfaces[0]);
            break;
        case 3:
            s.RectCopy(r.x, r.y, r.w, r.h, a, b, other, (word & 1) != 0);
            break;
        case 4:
            s.RectBlend(r.x, r.y, r.w, r.h, a, b, other, (word & 1) != 0);
            break;
        case 5:
            s.RectBlendAlpha(r.x, r.y, r.w, r.h, a, b, 0.25, other, false);
            break;
        case 6:
            s.DrawLine(r.x, r.y, a, b, word, pattern, 2);
            break;
        case 7:
            s.DrawAALine(r.x, r.y, a, b, word);
            break;
        case 8:
            s.RectInsert(r.x, r.y, r.w, r.h, a, b, surfaces[0],
                         static_cast<GfxSurface::ColorPlane>(word & 3));
            break;
        default:
            s.SetClipRect(r.x, r.y, r.w + 20, r.h + 20);
            break;
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    GfxMemory::fn_alloc = [](void*, unsigned long size) { return std::malloc(size); };
    GfxMemory::fn_free = [](void*, void* block) { std::free(block); };
    GfxSurface* surfaces[3];
    const unsigned depths[3] = {8, 16, 32};
    for (int i = 0; i < 3; ++i) {
        surfaces[i] = GfxSurface::New(depths[i]);
        surfaces[i]->Initialise(kWidth, kHeight);
    }
    Numbers numbers(static_cast<std::uint32_t>(std::strtoul(argv[1], nullptr, 10)));
    for (long call = std::strtol(argv[2], nullptr, 10); call > 0; --call) {
        DrawOne(numbers, surfaces);
    }
    for (int i = 0; i < 3; ++i) {
        for (unsigned y = 0; y < kHeight; ++y) {
            std::fwrite(surfaces[i]->Line(static_cast<int>(y)), depths[i] / 8, kWidth, stdout);
        }
        GfxSurface::Delete(surfaces[i]);
    }
    return 0;
}
