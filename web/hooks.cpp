#include "hooks.h"

#include <gfx/memory.h>

#include <cstdlib>
#include <new>

namespace playground {
namespace {

void* Allocate(void*, unsigned long size) {
    void* const block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}

void Release(void*, void* block) { std::free(block); }

}  // namespace

void InstallHooks() {
    GfxMemory::fn_alloc = Allocate;
    GfxMemory::fn_free = Release;
}

}  // namespace playground
