#include <gfx/kit/owning.h>

#include <cstdlib>
#include <new>

namespace gfx::kit {
namespace {

void* Take(void*, unsigned long size) {
    void* const block =
        std::malloc(size == 0 ? 1 : size);  // NOLINT(*-no-malloc): that is asked for
    if (block == nullptr) throw std::bad_alloc();
    return block;
}

void Return(void*, void* block) {
    std::free(block);  // NOLINT(*-no-malloc)
}

}  // namespace

void UseRuntimeMemory() {
    GfxMemory::arg = nullptr;
    GfxMemory::fn_alloc = Take;
    GfxMemory::fn_free = Return;
}

}  // namespace gfx::kit
