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

}  // namespace
#endif

unsigned RunnableTables(const RowKernels* (&tables)[kMaxTables]) {
    unsigned count = 0;
    tables[count++] = &kRowKernelsBaseline;
#if defined(GFX_X86_KERNELS)
    unsigned eax = 0;
    unsigned ebx = 0;
    unsigned ecx = 0;
    unsigned edx = 0;
    if (__get_cpuid(1, &eax, &ebx, &ecx, &edx) == 0 || !HasAll(ecx, kOsxsave)) return count;
    const unsigned states = EnabledStates();
    if (__get_cpuid_count(7, 0, &eax, &ebx, &ecx, &edx) == 0) return count;
    if (!HasAll(ebx, kAvx2) || !HasAll(states, kYmmState)) return count;
    tables[count++] = &kRowKernelsAvx2;
    if (!HasAll(ebx, kAvx512) || !HasAll(states, kZmmState)) return count;
    tables[count++] = &kRowKernelsAvx512;
#endif
    return count;
}

#if defined(GFX_X86_KERNELS)
namespace {

const RowKernels& ChooseKernels() {
    const RowKernels* tables[kMaxTables];
    const RowKernels* const best = tables[RunnableTables(tables) - 1];
    activeKernels.store(best, std::memory_order_relaxed);
    return *best;
}

/// A kernel that chooses the table and passes its call on: one for each entry of each format.
template <PixelFormat kFormat, auto kEntry>
struct FirstUse;

template <PixelFormat kFormat, class Result, class... Args,
          Result (*FormatKernels::*kEntry)(Args...)>
struct FirstUse<kFormat, kEntry> {
    static Result Call(Args... args) { return (ChooseKernels()[kFormat].*kEntry)(args...); }
};

template <PixelFormat kFormat>
constexpr FormatKernels FirstUseKernels() {
    return {
        .fill = FirstUse<kFormat, &FormatKernels::fill>::Call,
        .blendColor = FirstUse<kFormat, &FormatKernels::blendColor>::Call,
        .blendMask8 = FirstUse<kFormat, &FormatKernels::blendMask8>::Call,
        .blendMask32 = FirstUse<kFormat, &FormatKernels::blendMask32>::Call,
        .copy = FirstUse<kFormat, &FormatKernels::copy>::Call,
        .copyKeyed = FirstUse<kFormat, &FormatKernels::copyKeyed>::Call,
        .toWords = FirstUse<kFormat, &FormatKernels::toWords>::Call,
        .fromWords = FirstUse<kFormat, &FormatKernels::fromWords>::Call,
        .fromWordsKeyed = FirstUse<kFormat, &FormatKernels::fromWordsKeyed>::Call,
        .blendWords = FirstUse<kFormat, &FormatKernels::blendWords>::Call,
        .blendWordsScaled = FirstUse<kFormat, &FormatKernels::blendWordsScaled>::Call,
        .toDisplay555 = FirstUse<kFormat, &FormatKernels::toDisplay555>::Call,
    };
}

constinit const RowKernels kFirstUse = {
    "not chosen yet",
    {FirstUseKernels<PixelFormat::None>(), FirstUseKernels<PixelFormat::Grey8>(),
     FirstUseKernels<PixelFormat::Rgb565>(), FirstUseKernels<PixelFormat::Color32>()},
    [](std::uint8_t* words, std::size_t n, std::uint32_t k) {
        ChooseKernels().scaleAlpha(words, n, k);
    }};

}  // namespace

constinit std::atomic<const RowKernels*> activeKernels{&kFirstUse};
#else
// Nothing to choose from.
constinit std::atomic<const RowKernels*> activeKernels{&kRowKernelsBaseline};
#endif

}  // namespace gfx
