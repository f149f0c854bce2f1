// The kit's pictures in C.
#include <gfx/c/kit/pictures.h>
#include <gfx/kit/pictures.h>

#include "kit_objects.h"

using gfx::c::Engine;
using gfx::c::IsNamed;
using gfx::c::On;
using namespace gfx::kit;

static PictureRect InKit(gfx_picture_rect r) { return {r.x, r.y, r.w, r.h}; }

gfx_status gfx_draw_scaled(gfx_surface* target, gfx_picture_rect to, const gfx_surface* source,
                           gfx_picture_rect from, gfx_scaling scaling,
                           gfx_writing writing) noexcept {
    if (source == nullptr) return GFX_NULL_ARGUMENT;
    if (!IsNamed(scaling, Scaling::kArea) || !IsNamed(writing, Writing::kBlend)) {
        return GFX_NO_SUCH_VALUE;
    }
    return On(target, [&](GfxSurface& t) {
        DrawScaled(t, InKit(to), *Engine(source), InKit(from), static_cast<Scaling>(scaling),
                   static_cast<Writing>(writing));
    });
}

gfx_status gfx_draw_oriented(gfx_surface* target, int x, int y, const gfx_surface* source,
                             gfx_picture_rect from, gfx_orientation orientation,
                             gfx_writing writing) noexcept {
    if (source == nullptr) return GFX_NULL_ARGUMENT;
    if (!IsNamed(orientation, Orientation::kMirroredThreeQuarters) ||
        !IsNamed(writing, Writing::kBlend)) {
        return GFX_NO_SUCH_VALUE;
    }
    return On(target, [&](GfxSurface& t) {
        DrawOriented(t, x, y, *Engine(source), InKit(from), static_cast<Orientation>(orientation),
                     static_cast<Writing>(writing));
    });
}

gfx_status gfx_draw_indexed(gfx_surface* target, int x, int y, const gfx_surface* source,
                            gfx_picture_rect from, const uint32_t* colors, int transparent,
                            gfx_writing writing) noexcept {
    if (source == nullptr || colors == nullptr) return GFX_NULL_ARGUMENT;
    if (!IsNamed(writing, Writing::kBlend)) return GFX_NO_SUCH_VALUE;
    return On(target, [&](GfxSurface& t) {
        Palette palette;
        for (int i = 0; i < 256; ++i)
            palette.colors[i] = Color::FromWord(colors[i]);
        palette.transparent = transparent;
        DrawIndexed(t, x, y, *Engine(source), InKit(from), palette, static_cast<Writing>(writing));
    });
}

gfx_status gfx_draw_dithered(gfx_surface* target, int x, int y, const gfx_surface* source,
                             gfx_picture_rect from) noexcept {
    if (source == nullptr) return GFX_NULL_ARGUMENT;
    return On(target, [&](GfxSurface& t) { DrawDithered(t, x, y, *Engine(source), InKit(from)); });
}
