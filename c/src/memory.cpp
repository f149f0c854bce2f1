// The host's C functions as hooks of the engine. The engine's context is the host's struct itself,
// so nothing is kept here.
#include <gfx/c.h>

#include <cstdlib>

#include "guard.h"

namespace {

void* Allocate(void* hooks, unsigned long size) {
    const auto* h = static_cast<const gfx_memory_hooks*>(hooks);
    void* block = h->allocate(h->context, size);
    // Null is legal for a size of 0, which needs no memory.
    if (block == nullptr && size != 0) throw gfx::c::NoMemory();
    return block;
}

void Release(void* hooks, void* block) {
    const auto* h = static_cast<const gfx_memory_hooks*>(hooks);
    h->release(h->context, block);
}

// NOLINTBEGIN(*-no-malloc): that is what they are for
void* AllocateFromRuntime(void*, unsigned long size) { return std::malloc(size); }

void ReleaseToRuntime(void*, void* block) { std::free(block); }
// NOLINTEND(*-no-malloc)

constexpr gfx_memory_hooks kRuntimeMemory = {nullptr, AllocateFromRuntime, ReleaseToRuntime};

}  // namespace

gfx_status gfx_set_memory_hooks(const gfx_memory_hooks* hooks) noexcept {
    if (hooks == nullptr || hooks->allocate == nullptr || hooks->release == nullptr) {
        return GFX_NULL_ARGUMENT;
    }
    // The engine hands the context back as it is; nothing writes to it.
    GfxMemory::arg = const_cast<gfx_memory_hooks*>(hooks);  // NOLINT(*-const-cast)
    GfxMemory::fn_alloc = Allocate;
    GfxMemory::fn_free = Release;
    return GFX_OK;
}

void gfx_use_runtime_memory() noexcept { gfx_set_memory_hooks(&kRuntimeMemory); }
