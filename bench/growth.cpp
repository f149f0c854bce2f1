#include "growth.h"

#include <benchmark/benchmark.h>
#include <gfx/gfx.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace bench {

namespace {

using Surface = std::shared_ptr<GfxSurface>;

constexpr unsigned kMaxSide = 2048;          // 4 million pixels
constexpr unsigned kStride = kMaxSide + 16;  // rows apart by a power of two would share cache sets
constexpr unsigned kLongest = GfxSurface::MAX_LINE_LENGTH - 1;
constexpr unsigned kScreenWidth = 1920, kScreenHeight = 1080;

/// Pixels to draw on or copy from; any alpha byte may occur.
std::uint32_t* Memory() {
    static std::vector<std::uint32_t> words;
    if (words.empty()) {
        words.resize(2 * kStride * kMaxSide + 1024);
        std::uint32_t state = 1;
        for (std::uint32_t& word : words)
            word = state = state * 1664525 + 1013904223;
    }
    return words.data();
}

/// Half a page off: source and target at equal offsets in a page slow copies down.
std::uint32_t* SourceMemory() { return Memory() + kStride * kMaxSide + 528; }

Surface Over(std::uint32_t* memory, unsigned width, unsigned height) {
    Surface surface(GfxSurface::New(32), [](GfxSurface* owned) { GfxSurface::Delete(owned); });
    surface->Initialise(width, height, memory, width * 4, false);
    return surface;
}

void RegisterAreas() {
    for (unsigned side = 1; side <= kMaxSide; side *= 2) {
        const double area = static_cast<double>(side) * side;
        const auto add = [&](const char* series, auto draw) {
            RegisterPlace(series, side * side, area, [side, draw] {
                const Surface to = Over(Memory(), kStride, kMaxSide);
                const Surface from = Over(SourceMemory(), kStride, kMaxSide);
                return [=] { draw(*to, *from, side); };
            });
        };
        add("pixels fill",
            [](GfxSurface& to, GfxSurface&, unsigned n) { to.RectFill(0, 0, n, n, kColor); });
        add("pixels blend", [](GfxSurface& to, GfxSurface&, unsigned n) {
            to.RectFillBlend(0, 0, n, n, kHalfColor);
        });
        add("pixels copy", [](GfxSurface& to, GfxSurface& from, unsigned n) {
            to.RectCopy(0, 0, n, n, 0, 0, &from, false);
        });
    }
}

void RegisterLines() {
    const unsigned height = kLongest / 16 + 2;
    for (unsigned steps : {1u, 10u, 100u, 1000u, kLongest}) {
        for (bool antialias : {false, true}) {
            const char* const series = antialias ? "steps aa" : "steps alias";
            RegisterPlace(series, steps, steps, [=] {
                const Surface to = Over(Memory(), kLongest + 1, height);
                const int x = static_cast<int>(steps), y = x / 16;
                return Work([=] {
                    if (antialias) {
                        to->DrawAALine(0, 0, x, y, kColor);
                    } else {
                        to->DrawLine(0, 0, x, y, kColor);
                    }
                });
            });
        }
    }
}

/// A line of 1,000 steps of which the clip rectangle leaves its middle part.
void RegisterClippedLines() {
    const unsigned side = 1024, steps = 1000;
    for (unsigned percent : {100u, 50u, 20u, 10u, 5u, 2u, 1u}) {
        for (bool antialias : {false, true}) {
            const char* const series = antialias ? "visible aa" : "visible alias";
            RegisterPlace(series, percent, 1, [=] {
                const Surface to = Over(Memory(), side, side);
                const unsigned shown = steps * percent / 100;
                to->SetClipRect(static_cast<int>(steps - shown) / 2, 0, shown, side);
                return Work([=] {
                    if (antialias) {
                        to->DrawAALine(0, 10, steps, 310, kColor);
                    } else {
                        to->DrawLine(0, 10, steps, 310, kColor);
                    }
                });
            });
        }
    }
}

/// 1,024 glyphs a pass, the first n codes in turn, all of them cached.
void RegisterGlyphs(Scene& scene) {
    constexpr unsigned kCodes = 1024;
    for (unsigned count = 1; count <= kCodes; count *= 4) {
        RegisterPlace("glyphs draw", count, kCodes, [&scene, count] {
            const Surface to = Over(Memory(), 1024, 1024);
            const auto cache = std::make_shared<GfxFontCache>();
            cache->OpenFace(scene.FontPath(), 16, true);
            return [=] {
                for (unsigned i = 0; i < kCodes; ++i) {
                    cache->DrawGlyph(static_cast<unsigned short>(i % count), i % 32 * 31,
                                     i / 32 * 31 + 24, kColor, to.get(), 0);
                }
            };
        });
    }
}

/// A second core that draws when told and reports when done.
class Helper {
public:
    explicit Helper(Work draw) : thread_([this, draw] { Serve(draw); }) {}
    ~Helper() {
        Tell(kStop);
        thread_.join();
    }
    Helper(const Helper&) = delete;
    Helper& operator=(const Helper&) = delete;

    void Start() { Tell(kDraw); }
    void Wait() const { state_.wait(kDraw); }

private:
    enum State { kIdle, kDraw, kStop };

    void Tell(State state) {
        state_.store(state);
        state_.notify_all();
    }
    void Serve(const Work& draw) {
        for (;;) {
            state_.wait(kIdle);
            if (state_.load() == kStop) return;
            draw();
            Tell(kIdle);
        }
    }

    std::atomic<State> state_ = kIdle;
    std::thread thread_;
};

/// One picture of 1920 x 1080: whole on one core, or as two strips, each with surfaces of its own
/// over the same memory.
void RegisterStrips() {
    const auto strip = [](unsigned firstRow, unsigned rows, bool fill) {
        const unsigned start = firstRow * kScreenWidth;
        const Surface to = Over(Memory() + start, kScreenWidth, rows);
        const Surface from = Over(SourceMemory() + start, kScreenWidth, rows);
        return Work([=] {
            if (fill) {
                to->RectFill(0, 0, kScreenWidth, rows, kColor);
            } else {
                to->RectBlend(0, 0, kScreenWidth, rows, 0, 0, from.get(), false);
            }
        });
    };
    const double items = static_cast<double>(kScreenWidth) * kScreenHeight;
    for (bool fill : {true, false}) {
        const char* const series = fill ? "cores fill" : "cores over";
        const auto whole = [=] { return strip(0, kScreenHeight, fill); };
        const auto halves = [=] {
            const unsigned half = kScreenHeight / 2;
            const auto helper = std::make_shared<Helper>(strip(half, half, fill));
            return Work([helper, upper = strip(0, half, fill)] {
                helper->Start();
                upper();
                helper->Wait();
            });
        };
        RegisterPlace(series, 1, items, whole, true);
        RegisterPlace(series, 2, items, halves, true);
    }
}

}  // namespace

void RegisterPlace(const std::string& series, unsigned x, double items,
                   const std::function<Work()>& prepare, bool wallClock, double seconds) {
    const std::string name = "growth " + series + " " + std::to_string(x) + "/gfx";
    benchmark::internal::Benchmark* const registered =
        benchmark::RegisterBenchmark(name.c_str(), [prepare, items](benchmark::State& state) {
            const Work pass = prepare();
            pass();
            for (auto _ : state)
                pass();
            state.counters["items"] = items;
        });
    if (wallClock) registered->UseRealTime();
    if (seconds > 0) registered->MinTime(seconds);
}

void RegisterGrowth(Scene& scene) {
    RegisterAreas();
    RegisterWidths();
    RegisterLines();
    RegisterClippedLines();
    RegisterGlyphs(scene);
    RegisterStrips();
}

}  // namespace bench
