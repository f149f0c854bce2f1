/// @file
/// Marks what the kit's shared library exports. GFX_STATIC, which builds of static libraries pass
/// on, holds for both libraries.
#ifndef GFX_KIT_EXPORT_H
#define GFX_KIT_EXPORT_H

#if defined(GFX_STATIC)
#define GFX_KIT_API
#elif defined(_WIN32) && defined(GFX_KIT_BUILDING)
#define GFX_KIT_API __declspec(dllexport)
#elif defined(_WIN32)
#define GFX_KIT_API __declspec(dllimport)
#else
#define GFX_KIT_API __attribute__((visibility("default")))
#endif

/// What surrounds drawing in a host: owners, shapes, text, pictures, displays. Made from the
/// engine's public interface alone.
namespace gfx::kit {}

#endif  // GFX_KIT_EXPORT_H
