// A picture drawn by several threads at once: each has a surface of its own over a strip of one
// buffer, and all read the same source. Prints the speed-up, and fails unless the bytes are those
// of one thread.
//   strips [THREADS]
#include <gfx/kit/owning.h>
#include <gfx/kit/shapes.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

using namespace gfx::kit;

namespace {

constexpr unsigned kWidth = 1920;
constexpr unsigned kHeight = 1080;

using Picture = std::vector<std::uint32_t>;

/// Draws what of the picture lies in rows `top` and below, of a surface that begins there.
void DrawStrip(GfxSurface& strip, int top, const GfxSurface& source) {
    strip.RectFill(0, 0, kWidth, kHeight, 0x00203040);
    strip.RectBlend(0, -top, kWidth, kHeight, 0, 0, &source, true);
    Canvas canvas(strip);
    for (int i = 0; i < 200; ++i) {
        const Color color = Color::FromRgb(static_cast<unsigned>(i) * 0x0B5A11U).WithOpacity(90);
        canvas.FillCircle({i * 97 % 1920, i * 61 % 1080 - top}, 20 + i % 60, color);
    }
}

double Draw(Picture& picture, unsigned threads, const GfxSurface& source) {
    const auto start = std::chrono::steady_clock::now();
    std::vector<std::thread> running;
    for (unsigned i = 0; i < threads; ++i) {
        const unsigned top = kHeight * i / threads;
        const unsigned bottom = kHeight * (i + 1) / threads;
        running.emplace_back([&picture, &source, top, bottom] {
            const Surface strip = Surface::Over(picture.data() + std::size_t{top} * kWidth, kWidth,
                                                bottom - top, 32, kWidth * 4);
            DrawStrip(*strip, static_cast<int>(top), source);
        });
    }
    for (std::thread& thread : running)
        thread.join();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace

int main(int argc, char** argv) {
    const int wanted = argc > 1 ? std::atoi(argv[1]) : 0;
    const unsigned threads = wanted > 0 ? static_cast<unsigned>(wanted)
                                        : std::max(2U, std::thread::hardware_concurrency());
    UseRuntimeMemory();
    const Surface source(61, 47, 32);
    for (int i = 0; i < 61 * 47; ++i)
        source->SetPixelRGB(i % 61, i / 61, static_cast<unsigned>(i) * 0x00A7C5E3U);
    Picture whole(std::size_t{kWidth} * kHeight);
    Picture strips(whole.size());
    Draw(whole, 1, *source);  // chooses the kernels, touches the memory
    Draw(strips, threads, *source);
    const double one = Draw(whole, 1, *source);
    const double many = Draw(strips, threads, *source);
    std::printf("1 thread %.2f ms, %u threads %.2f ms: %.2f times as fast\n", one * 1e3, threads,
                many * 1e3, one / many);
    if (whole != strips) std::printf("the pictures differ\n");
    return whole == strips ? 0 : 1;
}
