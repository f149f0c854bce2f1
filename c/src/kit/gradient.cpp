// Gradient in C.
#include "kit_shapes.h"

using namespace gfx::c::kit;
using gfx::kit::ColorStop;
using gfx::kit::Gradient;

static Gradient* Engine(gfx_gradient* g) { return reinterpret_cast<Gradient*>(g); }

gfx_status gfx_gradient_new_linear(gfx_point from, gfx_point to, const gfx_color_stop* stops,
                                   int count, gfx_gradient** gradient) noexcept {
    return gfx::c::MakeObject(gradient, [&] {
        const Array<ColorStop> inKit(stops, count);
        return gfx::c::MakeInHooks<Gradient>(
            Gradient::Linear(InKit(from), InKit(to), inKit.Get(), count));
    });
}

gfx_status gfx_gradient_new_radial(gfx_point center, gfx_fixed radius, const gfx_color_stop* stops,
                                   int count, gfx_gradient** gradient) noexcept {
    return gfx::c::MakeObject(gradient, [&] {
        const Array<ColorStop> inKit(stops, count);
        return gfx::c::MakeInHooks<Gradient>(
            Gradient::Radial(InKit(center), InKit(radius), inKit.Get(), count));
    });
}

gfx_status gfx_gradient_delete(gfx_gradient** gradient) noexcept {
    return gfx::c::DestroyObject(gradient, gfx::c::DestroyInHooks<Gradient>);
}
