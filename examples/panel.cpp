// An instrument panel in a window. The picture is 5-6-5 memory; what has changed since the last
// frame is drawn anew, and reaches the window through the damage list alone.
//   panel [--frames N] [--full] [--shot FILE]   (a PNG of the last of N frames; --full draws all)
#include <SDL.h>
#include <gfx/kit/damage.h>
#include <gfx/kit/display.h>
#include <gfx/kit/owning.h>
#include <gfx/kit/shapes.h>
#include <gfx/kit/text.h>
#include <png.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

using namespace gfx::kit;

namespace {

constexpr unsigned kWidth = 480;
constexpr unsigned kHeight = 272;
constexpr Color kGround = Color::FromRgb(0x10161F);
constexpr Color kQuiet = Color::FromRgb(0x33414F);
constexpr Color kInk = Color::FromRgb(0xE8EEF4);
constexpr Color kWarm = Color::FromRgb(0xFF9F40);
constexpr Color kCool = Color::FromRgb(0x48C7F4);

/// What the panel shows: all of it follows from the frame's number.
struct Values {
    int speed, load[6];

    explicit Values(int frame) : speed(90 + (frame * 7 + frame * frame / 9) % 130) {
        for (int i = 0; i < 6; ++i)
            load[i] = 10 + (frame / (i + 1) * 13 + i * 31) % 90;
    }
};

struct Panel {
    Surface screen{kWidth, kHeight, 16};
    Canvas canvas{*screen};
    GfxFontCache large, small;
    Font digits{large}, labels{small};

    explicit Panel(const char* face) {
        if (!large.OpenFace(face, 40, true) || !small.OpenFace(face, 15, true)) throw face;
        digits = Font(large);
        labels = Font(small);
    }

    void DrawDial(int speed) {
        const Point middle{136, 136};
        canvas.DrawArc(middle, 100, 16, Angle::Degrees(-130), Angle::Degrees(260), Cap::kRound,
                       kQuiet);
        canvas.DrawArc(middle, 100, 16, Angle::Degrees(-130), Angle::Degrees(260 * speed / 240),
                       Cap::kRound, speed > 180 ? kWarm : kCool);
        for (int mark = 0; mark <= 240; mark += 20) {
            const Angle angle = Angle::Degrees(-130 + 260 * mark / 240);
            canvas.DrawLine(OnCircle(middle, 84, angle), OnCircle(middle, 76, angle), {2}, kInk);
        }
        DrawString(*screen, digits, 136, 150, std::to_string(speed), kInk, AlignX::kCenter);
        DrawString(*screen, labels, 136, 178, "km/h", kInk.WithOpacity(150), AlignX::kCenter);
    }

    void DrawBar(int i, int load) {
        const int x = 270 + i * 34;
        canvas.FillRoundRect({x, 60, 22, 150}, 6, kQuiet.WithOpacity(128));
        canvas.FillRoundRect({x, 210 - load * 3 / 2, 22, load * 3 / 2}, 6,
                             load > 80 ? kWarm : kCool);
        DrawString(*screen, labels, x + 11, 232, std::to_string(i + 1), kInk, AlignX::kCenter);
    }

    /// Draws what of the panel lies in a rectangle.
    void Draw(const Values& values, const DamageRect& r) {
        const ClipScope clip(*screen, static_cast<int>(r.x), static_cast<int>(r.y), r.w, r.h);
        screen->RectFill(0, 0, kWidth, kHeight, kGround.Word());
        DrawString(*screen, labels, 270, 40, "Load of each core", kInk);
        DrawDial(values.speed);
        for (int i = 0; i < 6; ++i)
            DrawBar(i, values.load[i]);
    }
};

/// What differs between two frames.
void AddChanges(DamageList& damage, const Values& before, const Values& now) {
    if (before.speed != now.speed) damage.Add(24, 24, 224, 200);
    for (int i = 0; i < 6; ++i)
        if (before.load[i] != now.load[i]) damage.Add(270 + i * 34, 60, 22, 150);
}

void WritePng(const char* path, const GfxSurface& screen) {
    std::vector<std::uint8_t> rgb;
    for (unsigned i = 0; i < kWidth * kHeight; ++i) {
        const Color c = Color::FromWord(
            screen.RetPixelRGB(static_cast<int>(i % kWidth), static_cast<int>(i / kWidth)));
        for (const unsigned channel : {c.Red(), c.Green(), c.Blue()})
            rgb.push_back(static_cast<std::uint8_t>(channel));
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = kWidth;
    image.height = kHeight;
    image.format = PNG_FORMAT_RGB;
    if (png_image_write_to_file(&image, path, 0, rgb.data(), 0, nullptr) == 0) throw path;
}

}  // namespace

int main(int argc, char** argv) {
    int frames = -1;
    bool isFull = false;
    const char* shot = nullptr;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--full") == 0) isFull = true;
        if (std::strcmp(argv[i], "--frames") == 0 && i + 1 < argc) frames = std::atoi(argv[++i]);
        if (std::strcmp(argv[i], "--shot") == 0 && i + 1 < argc) shot = argv[++i];
    }
    UseRuntimeMemory();
    SDL_Init(SDL_INIT_VIDEO);
    SDL_Window* const window = SDL_CreateWindow("panel", 0, 0, kWidth, kHeight, 0);
    SDL_Renderer* const renderer = SDL_CreateRenderer(window, -1, SDL_RENDERER_SOFTWARE);
    SDL_Texture* const texture = SDL_CreateTexture(renderer, SDL_PIXELFORMAT_RGB565,
                                                   SDL_TEXTUREACCESS_STREAMING, kWidth, kHeight);
    Panel panel(GFX_EXAMPLE_FACE);
    DamageList damage(kWidth, kHeight, 2);
    damage.AddAll();
    for (int frame = 0; frame != frames; ++frame) {
        SDL_Event event;
        while (SDL_PollEvent(&event) != 0)
            if (event.type == SDL_QUIT) frames = frame + 1;
        const Values values(frame);
        if (frame > 0) AddChanges(damage, Values(frame - 1), values);
        if (isFull) damage.AddAll();
        damage.Flush([&](const DamageRect& r) {
            panel.Draw(values, r);
            std::vector<std::uint16_t> pixels(std::size_t{r.w} * r.h);
            CopyToDisplay(*panel.screen, r.x, r.y, r.w, r.h,
                          {pixels.data(), pixels.size() * 2, r.w * 2}, DisplayFormat::k565);
            const SDL_Rect rect{static_cast<int>(r.x), static_cast<int>(r.y), static_cast<int>(r.w),
                                static_cast<int>(r.h)};
            SDL_UpdateTexture(texture, &rect, pixels.data(), static_cast<int>(r.w * 2));
        });
        SDL_RenderCopy(renderer, texture, nullptr, nullptr);
        SDL_RenderPresent(renderer);
        if (shot == nullptr) SDL_Delay(33);
    }
    if (shot != nullptr) WritePng(shot, *panel.screen);
    SDL_DestroyTexture(texture);
    SDL_DestroyRenderer(renderer);
    SDL_DestroyWindow(window);
    SDL_Quit();
}
