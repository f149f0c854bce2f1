// Surface: a GfxSurface that a scope owns.
#pragma once

#include <gfx/surface.h>

#include <cstdint>
#include <new>
#include <utility>

namespace demo {

class Surface {
public:
    // The other constructor comes first, so the destructor runs also when Initialise throws.
    Surface(unsigned depth, unsigned width, unsigned height) : Surface(GfxSurface::New(depth)) {
        if (surface_ == nullptr) throw std::bad_alloc();
        surface_->Initialise(width, height);
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
    explicit Surface(GfxSurface* surface) : surface_(surface) {}

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
