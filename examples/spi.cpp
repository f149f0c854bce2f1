// A panel on a serial bus: windows of pixels, high byte first, written to a file as a display
// controller takes them. Each window is a command byte 0x2A with its columns, 0x2B with its rows,
// 0x2C and the pixels.
//   spi FILE [--check]     (--check plays the file back and compares the screens)
#include <gfx/kit/damage.h>
#include <gfx/kit/display.h>
#include <gfx/kit/owning.h>
#include <gfx/kit/shapes.h>

#include <cstdio>
#include <cstring>
#include <vector>

using namespace gfx::kit;

namespace {

constexpr unsigned kWidth = 240;
constexpr unsigned kHeight = 320;

void Write16(std::FILE* bus, unsigned value) {
    std::fputc(static_cast<int>(value >> 8 & 0xFF), bus);
    std::fputc(static_cast<int>(value & 0xFF), bus);
}

void SendWindow(std::FILE* bus, const GfxSurface& screen, const DamageRect& r) {
    std::fputc(0x2A, bus);
    Write16(bus, r.x);
    Write16(bus, r.x + r.w - 1);
    std::fputc(0x2B, bus);
    Write16(bus, r.y);
    Write16(bus, r.y + r.h - 1);
    std::fputc(0x2C, bus);
    std::vector<std::uint8_t> pixels(std::size_t{2} * r.w * r.h);
    CopyToDisplay(screen, r.x, r.y, r.w, r.h, {pixels.data(), pixels.size(), 2 * r.w},
                  DisplayFormat::k565HighFirst);
    std::fwrite(pixels.data(), 1, pixels.size(), bus);
}

/// A ball that moves over a striped ground.
void DrawFrame(GfxSurface& screen, DamageList& damage, int frame) {
    const auto left = [](int f) { return 10 + f * 7 % 180; };
    const auto top = [](int f) { return 10 + f * 11 % 260; };
    if (frame == 0) damage.AddAll();
    for (const int f : {frame - 1, frame})
        damage.Add(left(f), top(f), 41, 41);
    for (int y = 0; y < static_cast<int>(kHeight); y += 16)
        screen.RectFill(0, y, kWidth, 16, y % 32 == 0 ? 0x00103050 : 0x00205070);
    Canvas canvas(screen);
    canvas.FillCircle({left(frame) + 20, top(frame) + 20}, 20, Color::Rgb(255, 170, 40));
}

unsigned Read16(std::FILE* bus) {
    const int high = std::fgetc(bus);
    return static_cast<unsigned>(high << 8 | std::fgetc(bus));
}

/// What a display shows that got the file.
std::vector<std::uint16_t> Play(std::FILE* bus) {
    std::vector<std::uint16_t> shown(std::size_t{kWidth} * kHeight);
    unsigned x0 = 0, x1 = 0, y0 = 0, y1 = 0;
    for (int command = std::fgetc(bus); command != EOF; command = std::fgetc(bus)) {
        if (command == 0x2A) x0 = Read16(bus), x1 = Read16(bus);
        if (command == 0x2B) y0 = Read16(bus), y1 = Read16(bus);
        if (command != 0x2C) continue;
        for (unsigned y = y0; y <= y1; ++y)
            for (unsigned x = x0; x <= x1; ++x)
                shown[std::size_t{y} * kWidth + x] = static_cast<std::uint16_t>(Read16(bus));
    }
    return shown;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return std::fprintf(stderr, "usage: spi FILE [--check]\n"), 2;
    UseRuntimeMemory();
    const Surface screen(kWidth, kHeight, 16);
    DamageList damage(kWidth, kHeight, 2);
    std::FILE* bus = std::fopen(argv[1], "wb");
    if (bus == nullptr) return std::perror(argv[1]), 1;
    for (int frame = 0; frame < 50; ++frame) {
        DrawFrame(*screen, damage, frame);
        damage.Flush([&](const DamageRect& r) { SendWindow(bus, *screen, r); });
    }
    std::printf("%ld bytes, %u a whole frame\n", std::ftell(bus), kWidth * kHeight * 2);
    std::fclose(bus);
    if (argc < 3 || std::strcmp(argv[2], "--check") != 0) return 0;
    bus = std::fopen(argv[1], "rb");
    const std::vector<std::uint16_t> shown = Play(bus);
    std::fclose(bus);
    for (unsigned y = 0; y < kHeight; ++y) {
        if (std::memcmp(screen->Line(static_cast<int>(y)), &shown[std::size_t{y} * kWidth],
                        kWidth * 2) != 0)
            return std::printf("row %u differs\n", y), 1;
    }
    return 0;
}
