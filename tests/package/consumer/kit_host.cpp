// A host of the kit in C++17: shapes, colours, pictures and damage; prints a checksum of the
// pixels.
#include <gfx/kit/color.h>
#include <gfx/kit/damage.h>
#include <gfx/kit/display.h>
#include <gfx/kit/owning.h>
#include <gfx/kit/pictures.h>
#include <gfx/kit/shapes.h>

#include <cstdint>
#include <cstdio>

using namespace gfx::kit;

int main() {
    UseRuntimeMemory();
    Surface screen(120, 80, 16);
    Canvas canvas(*screen);
    canvas.FillCircle({60, 40}, 30.5, Color::Rgba(200, 40, 90, 128));
    const Surface small(17, 9, 32);
    small->RectFill(2, 2, 9, 5, Color::Rgb(1, 200, 99).Word());
    DrawScaled(*screen, {70, 5, 45, 33}, *small, {0, 0, 17, 9}, Scaling::kBilinear,
               Writing::kBlend);
    DamageList damage(120, 80, 8);
    damage.AddAll();
    std::uint16_t display[120 * 80];
    damage.Flush([&](const DamageRect& r) {
        CopyToDisplay(*screen, r.x, r.y, r.w, r.h, {display, sizeof display, 240},
                      DisplayFormat::k565HighFirst);
    });
    std::uint64_t sum = 0xCBF29CE484222325u;
    for (const std::uint16_t pixel : display)
        sum = (sum ^ pixel) * 0x100000001B3u;
    std::printf("kit %016llx\n", static_cast<unsigned long long>(sum));
}
