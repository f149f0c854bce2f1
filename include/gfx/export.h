/// @file
/// Marks what the shared library exports. Everything without GFX_API stays inside it.
#ifndef GFX_EXPORT_H
#define GFX_EXPORT_H

#if defined(GFX_STATIC)
#define GFX_API
#elif defined(_WIN32) && defined(GFX_BUILDING)
#define GFX_API __declspec(dllexport)
#elif defined(_WIN32)
#define GFX_API __declspec(dllimport)
#else
#define GFX_API __attribute__((visibility("default")))
#endif

#endif  // GFX_EXPORT_H
