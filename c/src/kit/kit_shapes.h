// Lengths, points, paints of C as the kit's.
#ifndef GFX_C_KIT_SHAPES_INSIDE_H
#define GFX_C_KIT_SHAPES_INSIDE_H

#include <gfx/c/kit/shapes.h>
#include <gfx/kit/paint.h>

#include <cstddef>

#include "kit_objects.h"

namespace gfx::c::kit {

inline gfx::kit::Fixed InKit(gfx_fixed units) { return gfx::kit::Fixed::FromUnits(units); }
inline gfx::kit::Point InKit(gfx_point p) { return {InKit(p.x), InKit(p.y)}; }
inline gfx::kit::FixedRect InKit(gfx_fixed_rect r) {
    return {InKit(r.x), InKit(r.y), InKit(r.w), InKit(r.h)};
}
inline gfx::kit::ColorStop InKit(gfx_color_stop s) {
    return {s.at, gfx::kit::Color::FromWord(s.color)};
}
inline gfx::kit::Paint InKit(gfx_paint p) {
    if (p.gradient == nullptr) return gfx::kit::Color::FromWord(p.color);
    return *reinterpret_cast<const gfx::kit::Gradient*>(p.gradient);
}

/// An array of C as the kit's, in memory from the hooks; null where that one is null or empty.
template <class Element>
class Array {
public:
    template <class InC>
    Array(const InC* elements, int count) {
        if (elements == nullptr || count <= 0) return;
        const auto n = static_cast<std::size_t>(count);
        elements_ = static_cast<Element*>(GfxMemory::operator new(n * sizeof(Element)));
        for (std::size_t i = 0; i < n; ++i)
            ::new (elements_ + i) Element(InKit(elements[i]));
    }
    ~Array() noexcept(false) { GfxMemory::operator delete(elements_); }
    Array(const Array&) = delete;
    Array& operator=(const Array&) = delete;

    const Element* Get() const { return elements_; }

private:
    Element* elements_ = nullptr;
};

}  // namespace gfx::c::kit

#endif  // GFX_C_KIT_SHAPES_INSIDE_H
