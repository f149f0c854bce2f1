// The border between C and C++: handles become objects, exceptions become statuses.
#ifndef GFX_C_GUARD_H
#define GFX_C_GUARD_H

#include <gfx/c/status.h>
#include <gfx/surface.h>

#include <new>

class GfxFontCache;
struct gfx_font_cache;
struct gfx_surface;

namespace gfx::c {

/// What the allocating hook's adapter throws when the host's function delivers null.
struct NoMemory {};

/// The status of a refusal that the engine throws as this text.
gfx_status StatusOfRefusal(const char* text);

// A handle is the address of the object.
inline GfxSurface* Engine(gfx_surface* s) { return reinterpret_cast<GfxSurface*>(s); }
inline const GfxSurface* Engine(const gfx_surface* s) {
    return reinterpret_cast<const GfxSurface*>(s);
}
inline GfxFontCache* Engine(gfx_font_cache* f) { return reinterpret_cast<GfxFontCache*>(f); }
inline const GfxFontCache* Engine(const gfx_font_cache* f) {
    return reinterpret_cast<const GfxFontCache*>(f);
}

/// Runs an operation and says how it ended.
template <class Operation>
gfx_status Guard(Operation operation) noexcept {
    try {
        operation();
        return GFX_OK;
    } catch (const NoMemory&) {
        return GFX_NO_MEMORY;
    } catch (const std::bad_alloc&) {
        return GFX_NO_MEMORY;
    } catch (const char* text) {
        return StatusOfRefusal(text);
    } catch (...) {
        return GFX_UNKNOWN_EXCEPTION;
    }
}

/// Runs an operation on the object behind a handle.
template <class Handle, class Operation>
gfx_status On(Handle* handle, Operation operation) noexcept {
    if (handle == nullptr) return GFX_NULL_ARGUMENT;
    return Guard([&] { operation(*Engine(handle)); });
}

/// Destroys the object behind *handle, which becomes null.
template <class Handle, class Destroy>
gfx_status DestroyObject(Handle** handle, Destroy destroy) noexcept {
    if (handle == nullptr || *handle == nullptr) return GFX_NULL_ARGUMENT;
    auto* object = Engine(*handle);
    *handle = nullptr;
    return Guard([&] { destroy(object); });
}

/// Makes an object where there are hooks; `make` delivers it or null.
template <class Handle, class Make>
gfx_status MakeObject(Handle** made, Make make) noexcept {
    if (made == nullptr) return GFX_NULL_ARGUMENT;
    if (GfxMemory::fn_alloc == nullptr || GfxMemory::fn_free == nullptr) return GFX_NO_HOOKS;
    Handle* handle = nullptr;
    const gfx_status status = Guard([&] { handle = reinterpret_cast<Handle*>(make()); });
    if (status != GFX_OK) return status;
    if (handle == nullptr) return GFX_NO_MEMORY;
    *made = handle;
    return GFX_OK;
}

}  // namespace gfx::c

#endif  // GFX_C_GUARD_H
