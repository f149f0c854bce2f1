/** @file
 * The C interface: every public operation of the engine as a plain function.
 *
 * The functions are named as the C++ operations, in small letters, and take the same arguments in
 * the same order; what an operation does is written once, at its declaration in gfx/surface.h and
 * gfx/font_cache.h. What C does differently:
 *  - Functions return a gfx_status, but for those that cannot go wrong (gfx_status_text,
 *    gfx_c_version, gfx_use_runtime_memory). Results are written through pointers behind the
 *    arguments, and only when the status is GFX_OK.
 *  - A NULL handle and a NULL place for a result give GFX_NULL_ARGUMENT. Pointers that the engine
 *    lets be null (sources, masks, planes, buffers) may be NULL here with the same meaning.
 *  - A handle is trusted to be NULL or alive. Destroying takes the address of a handle and sets it
 *    to NULL, so that only copies of a handle can be stale.
 *  - No exception comes out. C++ programs without exceptions may therefore use these functions,
 *    and hooks that deliver NULL. A handle is the address of the C++ object: reinterpret_cast turns
 *    one into the other.
 *
 * The structs of this interface keep their size within one major version: they have neither a size
 * to fill in nor room for later. They stand for finished notions; what says more than one of them
 * gets a struct and functions with names of their own, and programs built before notice nothing. */
#ifndef GFX_C_H
#define GFX_C_H

#include <gfx/c/export.h>
#include <gfx/c/memory.h>
#include <gfx/c/status.h>
#include <gfx/c/surface.h>
#include <gfx/version.h>
#ifndef GFX_NO_FONTS
#include <gfx/c/font_cache.h>
#endif

/** The version of these headers, which is the engine's. */
#define GFX_C_VERSION GFX_VERSION

#ifdef __cplusplus
extern "C" {
#endif

/** GFX_C_VERSION of the library that the program runs with, which may be newer. */
GFX_C_API unsigned int gfx_c_version(void) GFX_C_NOEXCEPT;

#ifdef __cplusplus
}
#endif

#endif /* GFX_C_H */
