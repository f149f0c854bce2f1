// What a measured library offers: a name, and for each row either the work or nothing.
#ifndef GFX_BENCH_LIBRARY_H
#define GFX_BENCH_LIBRARY_H

#include "rows.h"
#include "scene.h"

#include <functional>
#include <string>
#include <vector>

namespace bench {

/// Draws one pass of a row; empty where the library has no such operation.
using Work = std::function<void()>;

struct Library {
    std::string name;
    std::function<Work(const Row&)> make;
    std::function<void()> select = [] {};  ///< called before each run, untimed
};

/// Whether a library is ours with the kernels for an older processor.
inline bool IsOlderTable(const Library& library) { return library.name.starts_with("gfx-"); }

Library MakeLimit(Scene& scene);
Library MakeStretch(Scene& scene);

/// Whether a library only shows what the memory costs and draws no picture worth comparing.
inline bool IsLimit(const Library& library) {
    return library.name == "limit" || library.name == "stretch";
}

Library MakeOurs(Scene& scene, const std::string& name);
Library MakeKit(Scene& scene);
Library MakePixman(Scene& scene);
Library MakeCairo(Scene& scene);
Library MakeSdl(Scene& scene);
Library MakeQt(Scene& scene);
Library MakeImlib(Scene& scene);
Library MakeAgg(Scene& scene);

}  // namespace bench

/// Adds our other tables, each as a library of its own, from objects linked apart from the shared
/// library: nothing from outside may choose a table there.
extern "C" void AddOurTables(bench::Scene* scene, std::vector<bench::Library>* libraries);

#endif  // GFX_BENCH_LIBRARY_H
