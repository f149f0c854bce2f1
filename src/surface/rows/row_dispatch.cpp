// Asks the processor, and the system's support for its wide registers, by cpuid and xgetbv: the
// compiler's own query adds a constructor to the shared library, and the intrinsic for xgetbv wants
// a compiler flag that would let this file use what it is asking about.
#include "surface/rows/row_dispatch.h"

#if defined(GFX_X86_KERNELS)
#include <cpuid.h>
#endif

namespace gfx {

#if defined(GFX_X86_KERNELS)
namespace {

constexpr unsigned kOsxsave = 1U << 27;                       // leaf 1, ecx
constexpr unsigned kAvx2 = 1U << 5;                           // leaf 7, ebx
constexpr unsigned kAvx512 = 1U << 16 | 1U << 30 | 1U << 31;  // leaf 7, ebx: F, BW, VL
constexpr unsigned kYmmState = 0x06;                          // xcr0: SSE and AVX state
constexpr unsigned kZmmState = kYmmState | 0xE0;              // and the three of AVX-512

unsigned EnabledStates() {
    unsigned low = 0;
    unsigned high = 0;
    __asm__("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
    return low;
}

bool HasAll(unsigned value, unsigned bits) { return (value & bits) == bits; }

/// Whether processor and system have these instructions (leaf 7, ebx) and registers (xcr0).
bool Has(unsigned instructions, unsigned states) {
    unsigned eax = 0;
    unsigned ebx = 0;
    unsigned ecx = 0;
    unsigned edx = 0;
    if (__get_cpuid(1, &eax, &ebx, &ecx, &edx) == 0 || !HasAll(ecx, kOsxsave)) return false;
    if (!HasAll(EnabledStates(), states)) return false;
    return __get_cpuid_count(7, 0, &eax, &ebx, &ecx, &edx) != 0 && HasAll(ebx, instructions);
}

}  // namespace
#endif

namespace {

constexpr KernelChoice kChoices[] = {
    {kRowKernelsBaseline, [] { return true; }},
#if defined(GFX_X86_KERNELS)
    {kRowKernelsAvx2, [] { return Has(kAvx2, kYmmState); }},
    {kRowKernelsAvx512, [] { return Has(kAvx2 | kAvx512, kZmmState); }},
#endif
};

}  // namespace

constinit std::atomic<const RowKernels*> activeKernels{nullptr};

std::span<const KernelChoice> KernelChoices() { return kChoices; }

const RowKernels& ChooseKernels() {
    const RowKernels* best = &kRowKernelsBaseline;
    for (const KernelChoice& choice : kChoices) {
        if (choice.isRunnable()) best = &choice.kernels;
    }
    activeKernels.store(best, std::memory_order_relaxed);
    return *best;
}

}  // namespace gfx
