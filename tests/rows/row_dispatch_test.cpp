// Which table is chosen, against what the compiler's own query says of the processor.
#include "surface/rows/row_dispatch.h"

#include <gtest/gtest.h>

#include <string>

namespace test {
namespace {

#if defined(__x86_64__)
bool ProcessorHas(const std::string& table) {
    if (table == "avx2") return __builtin_cpu_supports("avx2") != 0;
    if (table == "avx512") {
        return __builtin_cpu_supports("avx512f") != 0 && __builtin_cpu_supports("avx512bw") != 0 &&
               __builtin_cpu_supports("avx512vl") != 0;
    }
    return true;
}
#else
bool ProcessorHas(const std::string&) { return true; }
#endif

TEST(RowDispatch, Takes_the_last_table_that_the_processor_can_run) {
    const gfx::RowKernels* best = nullptr;
    for (const gfx::KernelChoice& choice : gfx::KernelChoices()) {
        EXPECT_EQ(ProcessorHas(choice.kernels.name), choice.isRunnable()) << choice.kernels.name;
        if (ProcessorHas(choice.kernels.name)) best = &choice.kernels;
    }
    EXPECT_EQ(best, &gfx::ChooseKernels());
    EXPECT_EQ(best, &gfx::Kernels());
}

}  // namespace
}  // namespace test
