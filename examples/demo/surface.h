// Surface: a GfxSurface that a scope owns.
#pragma once

#include <gfx/surface.h>

#include <cstdint>
#include <new>
#include <utility>

namespace demo {

class Surface {
public:
    Surface(unsigned depth, unsigned width, unsigned height) : surface_(GfxSurface::New(depth)) {
        if (surface_ == nullptr) throw std::bad_alloc();
        Owner guard(surface_);
        surface_->Initialise(width, height);
        guard.surface = nullptr;
    }
    ~Surface() noexcept(false) { GfxSurface::Delete(surface_); }
    Surface(Surface&& other) noexcept : surface_(std::exchange(other.surface_, nullptr)) {}
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;
    Surface& operator=(Surface&&) = delete;

    GfxSurface* Get() const { return surface_; }
    GfxSurface* operator->() const { return surface_; }
    GfxSurface& operator*() const { return *surface_; }

private:
    // Gives the object back when Initialise throws: the destructor above does not run then.
    struct Owner {
        explicit Owner(GfxSurface* s) : surface(s) {}
        ~Owner() noexcept(false) { GfxSurface::Delete(surface); }
        Owner(const Owner&) = delete;
        Owner& operator=(const Owner&) = delete;
        GfxSurface* surface;
    };

    GfxSurface* surface_;
};

/// The colour words of row y of a surface of depth 32.
inline std::uint32_t* Words(const GfxSurface& surface, int y) {
    return static_cast<std::uint32_t*>(surface.Line(y));
}

/// The bytes of row y of a surface of depth 8.
inline std::uint8_t* Bytes(const GfxSurface& surface, int y) {
    return static_cast<std::uint8_t*>(surface.Line(y));
}

}  // namespace demo
