/// @file
/// The host's allocation hooks: every block of the library's own memory comes from here.
#ifndef GFX_MEMORY_H
#define GFX_MEMORY_H

#include <gfx/export.h>

#include <cstddef>

/// The process-wide allocation hooks, and the operator new and delete that route through them.
///
/// The host stores all three members before it creates its first object and does not change them
/// while one lives. The library never writes them and keeps nothing besides the blocks it took.
/// A hook may throw at any call: the operation that called it then leaves every object valid and
/// destroyable, and returns no block twice. A hook that throws again while the first
/// exception is still on its way ends the program. A hook must not call back into the library.
class GFX_API GfxMemory {
public:
    /// Opaque context of the host, passed to both hooks as their first argument.
    static void* arg;

    /// Delivers a block of at least `size` bytes, aligned for any object, or throws. Only
    /// GfxSurface::New tests for null; everywhere else null is legal for a size of 0 alone.
    static void* (*fn_alloc)(void* context, unsigned long size);

    /// Takes back a block that fn_alloc delivered. Never called with null. The block counts as
    /// returned even if the hook throws: it is not handed over a second time.
    static void (*fn_free)(void* context, void* block);

    /// One block of `size` bytes from fn_alloc. Throws what the hook throws.
    static void* operator new(std::size_t size);
    static void* operator new[](std::size_t size);  ///< the same for an array

    /// Hands `block` to fn_free; a null block is left alone. Throws what the hook throws.
    static void operator delete(void* block) noexcept(false);
    static void operator delete[](void* block) noexcept(false);  ///< the same for an array
};

#endif  // GFX_MEMORY_H
