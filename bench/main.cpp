// Registers every row with every library and runs them in turn.
//
//   gfx_bench                    measures (all options of the benchmark library work)
//   gfx_bench --check [REGEX]    draws each row once and compares mean colours instead
#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
#include <vector>

#include "check.h"
#include "growth.h"
#include "library.h"

namespace bench {

namespace {

std::vector<Library> AllLibraries(Scene& scene) {
    std::vector<Library> libraries = {MakeOurs(scene, "gfx"), MakeKit(scene)};
    AddOurTables(&scene, &libraries);
    libraries.push_back(MakeLimit(scene));
    libraries.push_back(MakeStretch(scene));
#if defined(GFX_BENCH_PIXMAN)
    libraries.push_back(MakePixman(scene));
#endif
#if defined(GFX_BENCH_CAIRO)
    libraries.push_back(MakeCairo(scene));
#endif
#if defined(GFX_BENCH_SDL)
    libraries.push_back(MakeSdl(scene));
#endif
#if defined(GFX_BENCH_QT)
    libraries.push_back(MakeQt(scene));
#endif
#if defined(GFX_BENCH_IMLIB)
    libraries.push_back(MakeImlib(scene));
#endif
#if defined(GFX_BENCH_AGG)
    libraries.push_back(MakeAgg(scene));
#endif
    return libraries;
}

/// What the report needs to know about a row: suite, group, unit, and how wide a rectangle lies.
std::string LabelOf(const Row& row) {
    const char* const suite = row.suite == Suite::kMain       ? "main"
                              : row.suite == Suite::kPictures ? "pictures"
                              : row.suite == Suite::kPitch    ? "pitch"
                                                              : "kit";
    const char* const layout = row.FullWidth() ? "full" : row.Scattered() ? "small" : "inside";
    return std::string(suite) + ";" + row.group + ";" + row.unit + ";" + layout;
}

void Run(benchmark::State& state, Scene& scene, const Row& row, const Library& library,
         const Work& work) {
    scene.ResetTarget(row);
    library.select();
    work();  // warms caches: the run before this one drew something else
    for (auto _ : state) {
        work();
        benchmark::ClobberMemory();
    }
    state.counters["items"] = row.items;
    state.SetLabel(LabelOf(row));
}

void Register(Scene& scene, const std::vector<Library>& libraries) {
    for (const Row& row : AllRows()) {
        for (const Library& library : libraries) {
            if (row.suite != Suite::kMain && IsOlderTable(library)) continue;  // only checked
            const Work work = library.make(row);
            if (!work) continue;
            // Of the whole process: Qt spreads large areas over threads of its own.
            benchmark::RegisterBenchmark((row.name + "/" + library.name).c_str(),
                                         [&scene, row, library, work](benchmark::State& state) {
                                             Run(state, scene, row, library, work);
                                         })
                ->MeasureProcessCPUTime();
        }
    }
}

}  // namespace

int Main(int argc, char** argv) {
    Scene scene;
    const std::vector<Library> libraries = AllLibraries(scene);
    if (argc > 1 && std::strcmp(argv[1], "--check") == 0) {
        return CheckSums(scene, libraries, argc > 2 ? argv[2] : "") == 0 ? 0 : 1;
    }
    Register(scene, libraries);
    RegisterGrowth(scene);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::ClearRegisteredBenchmarks();
    return 0;
}

}  // namespace bench

int main(int argc, char** argv) { return bench::Main(argc, argv); }
