// The three hooks and the operators that route through them.
#include <gfx/memory.h>

#include "memory/hook_block.h"

void* GfxMemory::arg = nullptr;
void* (*GfxMemory::fn_alloc)(void* context, unsigned long size) = nullptr;
void (*GfxMemory::fn_free)(void* context, void* block) = nullptr;

void* GfxMemory::operator new(std::size_t size) { return gfx::TakeBlock(size); }
void* GfxMemory::operator new[](std::size_t size) { return gfx::TakeBlock(size); }
void GfxMemory::operator delete(void* block) noexcept(false) { gfx::ReturnBlock(block); }
void GfxMemory::operator delete[](void* block) noexcept(false) { gfx::ReturnBlock(block); }
