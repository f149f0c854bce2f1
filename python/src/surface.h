// A surface of the engine as Python holds it: with the memory below it and the views above it.
#ifndef GFX_PYTHON_SURFACE_H
#define GFX_PYTHON_SURFACE_H

#include <gfx/surface.h>
#include <pybind11/pybind11.h>

#include <atomic>
#include <memory>
#include <utility>

#include "exclusive.h"

namespace gfx::python {

/// Memory of the host's that a surface lies over.
class Ground;

struct DeleteSurface {
    void operator()(GfxSurface* surface) const { GfxSurface::Delete(surface); }
};

using EngineSurface = std::unique_ptr<GfxSurface, DeleteSurface>;

/// A surface without memory. Throws std::bad_alloc where there is no memory for it.
EngineSurface NewSurface(unsigned depth);

/// Where the pixel memory begins; null without any.
const void* FirstByte(const GfxSurface& surface);

class Surface : public Exclusive {
public:
    Surface(unsigned width, unsigned height, unsigned depth);
    ~Surface();

    /// Lays a surface over an array. @param depth  None: 8, 16 or 32 by the array's items.
    static std::shared_ptr<Surface> Over(const pybind11::object& array,
                                         const pybind11::object& depth);

    /// The pixels as an array that shares their memory and keeps the surface.
    static pybind11::object Pixels(const std::shared_ptr<Surface>& self);

    /// Calls `resize`, which may take the pixel memory away, unless views of it are out.
    template <class Resize>
    void Resized(Resize resize) {
        // Memory that is no longer used is given back last, with the interpreter's lock.
        std::shared_ptr<Ground> former;
        Alone({this}, Length::kLong, [&] {
            RefuseWhileViewed();
            const void* const before = FirstByte(*engine);
            // Whatever happens, a surface that no longer lies over the array must let it go.
            struct Settle {
                Surface& surface;
                const void* before;
                std::shared_ptr<Ground>& former;
                ~Settle() {
                    if (FirstByte(*surface.engine) != before) former.swap(surface.ground_);
                }
            } settle{*this, before, former};
            resize(*engine);
        });
    }

    /// GfxSurface::Clear, but of a window only the rows themselves.
    void Clear();

    EngineSurface engine;

private:
    friend class Lease;

    explicit Surface(EngineSurface made) : engine(std::move(made)) {}
    void RefuseWhileViewed() const;

    std::shared_ptr<Ground> ground_;
    std::atomic<unsigned> views_{0};
};

}  // namespace gfx::python

#endif  // GFX_PYTHON_SURFACE_H
