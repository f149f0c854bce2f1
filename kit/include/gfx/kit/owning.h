/// @file
/// Owners: a surface that returns itself, a clip rectangle that is restored, hooks for hosts that
/// have no wish of their own.
#ifndef GFX_KIT_OWNING_H
#define GFX_KIT_OWNING_H

#include <gfx/kit/export.h>
#include <gfx/surface.h>

#include <utility>

namespace gfx::kit {

/// Makes malloc and free of the C++ runtime the engine's hooks. Call it before the first object; a
/// request that malloc does not serve throws std::bad_alloc.
GFX_KIT_API void UseRuntimeMemory();

/// The owner of a GfxSurface, or of none. Moves, and does not copy. Used like a pointer:
/// `Surface screen(800, 480, 16); screen->RectFill(...)`, and `*screen` wherever a GfxSurface is
/// taken. What a hook throws passes through; nothing is lost then.
class Surface {
public:
    /// Owns nothing.
    Surface() = default;

    /// Zeroed memory of its own. @param w,h  size in pixels. @param depth  0 to 32 bits per pixel.
    /// Owns nothing where the hook delivers null for the surface itself.
    /// @throws as GfxSurface::New and Initialise.
    Surface(unsigned w, unsigned h, unsigned depth) : Surface(GfxSurface::New(depth)) {
        if (surface_ != nullptr) surface_->Initialise(w, h);
    }

    /// Lies over memory of the host's, which must outlive it; see GfxSurface::Initialise.
    /// @param rowBytes  bytes from one row to the next
    static Surface Over(void* pixels, unsigned w, unsigned h, unsigned depth, unsigned rowBytes) {
        Surface made(GfxSurface::New(depth));
        if (made) made->Initialise(w, h, pixels, rowBytes, false);
        return made;
    }

    /// Takes over a surface that GfxSurface::New made; null for none.
    explicit Surface(GfxSurface* surface) : surface_(surface) {}

    /// Takes over what the other one owns.
    Surface(Surface&& other) noexcept : surface_(other.Release()) {}

    /// The same; returns what this one owned. @throws what fn_free throws
    Surface& operator=(Surface&& other) {
        Surface(std::move(other)).Swap(*this);
        return *this;
    }

    /// A surface has one owner.
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    /// Returns the surface. @throws what fn_free throws
    ~Surface() noexcept(false) { GfxSurface::Delete(surface_); }

    GfxSurface* Get() const { return surface_; }         ///< the surface; null for none
    GfxSurface* operator->() const { return surface_; }  ///< the surface, which must exist
    GfxSurface& operator*() const { return *surface_; }  ///< the surface, which must exist
    explicit operator bool() const { return surface_ != nullptr; }  ///< whether it owns one

    /// Gives the surface to the caller, who deletes it.
    GfxSurface* Release() { return std::exchange(surface_, nullptr); }

    /// Exchanges what two owners own.
    void Swap(Surface& other) noexcept { std::swap(surface_, other.surface_); }

private:
    GfxSurface* surface_ = nullptr;
};

/// Narrows a surface's clip rectangle for as long as it lives, and then puts back what was.
/// Scopes may be nested. The surface must live longer and keep its size.
class ClipScope {
public:
    /// @param x,y,w,h  what of the present clip rectangle stays; any values
    ClipScope(GfxSurface& surface, int x, int y, unsigned w, unsigned h) : surface_(surface) {
        surface.GetClipRect(x_, y_, w_, h_);
        const Side across = Common({x_, w_}, {x, w});
        const Side down = Common({y_, h_}, {y, h});
        surface.SetClipRect(across.start, down.start, across.size, down.size);
    }

    /// Puts back the clip rectangle that was.
    ~ClipScope() { surface_.SetClipRect(x_, y_, w_, h_); }

    /// A scope ends once.
    ClipScope(const ClipScope&) = delete;
    ClipScope& operator=(const ClipScope&) = delete;

private:
    struct Side {
        int start;
        unsigned size;
    };

    static Side Common(Side a, Side b) {
        const long long start = a.start > b.start ? a.start : b.start;
        const long long endA = static_cast<long long>(a.start) + a.size;
        const long long endB = static_cast<long long>(b.start) + b.size;
        const long long end = endA < endB ? endA : endB;
        if (end <= start) return {0, 0};
        return {static_cast<int>(start), static_cast<unsigned>(end - start)};
    }

    GfxSurface& surface_;
    int x_ = 0, y_ = 0;
    unsigned w_ = 0, h_ = 0;
};

}  // namespace gfx::kit

#endif  // GFX_KIT_OWNING_H
