/** @file
 * Marks what the shared library gfx-c exports. GFX_STATIC, which builds of static libraries pass
 * on, holds for it as for the engine. */
#ifndef GFX_C_EXPORT_H
#define GFX_C_EXPORT_H

#if defined(GFX_STATIC)
#define GFX_C_API
#elif defined(_WIN32) && defined(GFX_C_BUILDING)
#define GFX_C_API __declspec(dllexport)
#elif defined(_WIN32)
#define GFX_C_API __declspec(dllimport)
#else
#define GFX_C_API __attribute__((visibility("default")))
#endif

/** No exception leaves a function: C++ callers may rely on it, with exceptions turned off too. */
#if defined(__cplusplus)
#define GFX_C_NOEXCEPT noexcept
#else
#define GFX_C_NOEXCEPT
#endif

#endif /* GFX_C_EXPORT_H */
