/** @file
 * The memory hooks as C functions. See gfx/memory.h for when they are called. */
#ifndef GFX_C_MEMORY_H
#define GFX_C_MEMORY_H

#include <gfx/c/status.h>

#ifdef __cplusplus
extern "C" {
#endif

/** Where all memory of the library comes from. Neither function may call back into the library, nor
 * leave by longjmp or an exception. */
typedef struct gfx_memory_hooks {
    void* context; /**< handed to both functions */
    /** Delivers at least `size` bytes, aligned for any object, or NULL: the call that needed them
     * then answers GFX_NO_MEMORY. */
    void* (*allocate)(void* context, unsigned long size);
    /** Takes back what `allocate` delivered; never NULL. */
    void (*release)(void* context, void* block);
} gfx_memory_hooks;

/** Sets the process-wide hooks, before the first object is made and while none lives.
 * @param hooks  kept by its address: it has to stay where it is, unchanged, while objects live.
 *               GFX_NULL_ARGUMENT if it or one of its functions is NULL. */
GFX_C_API gfx_status gfx_set_memory_hooks(const gfx_memory_hooks* hooks) GFX_C_NOEXCEPT;

/** Sets hooks that take memory from malloc and return it to free. */
GFX_C_API void gfx_use_runtime_memory(void) GFX_C_NOEXCEPT;

#ifdef __cplusplus
}
#endif

#endif /* GFX_C_MEMORY_H */
