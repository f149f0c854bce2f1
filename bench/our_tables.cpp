// Our tables for older processors, side by side with the shared library. This module holds the
// library's objects a second time, under local symbols, and stores the table it measures.
#include <iterator>

#include "library.h"
#include "surface/rows/row_dispatch.h"

void AddOurTables(bench::Scene* scene, std::vector<bench::Library>* libraries) {
    const char* const names[] = {"gfx-base", "gfx-avx2"};
    const auto choices = gfx::KernelChoices();
    for (std::size_t i = 0; i < choices.size() && i < std::size(names); ++i) {
        if (!choices[i].isRunnable()) break;
        bench::Library library = bench::MakeOurs(*scene, names[i]);
        library.select = [table = &choices[i].kernels] { gfx::activeKernels.store(table); };
        libraries->push_back(library);
    }
}
