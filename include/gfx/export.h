// Marks what the shared library exports. Everything without GFX_API stays inside it; GFX_INTERNAL
// marks a type that is nested in an exported class and stays inside all the same.
#ifndef GFX_EXPORT_H
#define GFX_EXPORT_H

#if defined(GFX_STATIC)
#define GFX_API
#define GFX_INTERNAL
#elif defined(_WIN32) && defined(GFX_BUILDING)
#define GFX_API __declspec(dllexport)
#define GFX_INTERNAL
#elif defined(_WIN32)
#define GFX_API __declspec(dllimport)
#define GFX_INTERNAL
#else
#define GFX_API __attribute__((visibility("default")))
#define GFX_INTERNAL __attribute__((visibility("hidden")))
#endif

#endif  // GFX_EXPORT_H
