// DamageList in C.
#include <gfx/c/kit/damage.h>
#include <gfx/kit/damage.h>

#include "kit_objects.h"

using gfx::c::On;
using gfx::kit::DamageList;
using gfx::kit::DamageRect;

// Found by the templates of guard.h, as those of the engine's handles are.
static DamageList* Engine(gfx_damage* d) { return reinterpret_cast<DamageList*>(d); }
static const DamageList* Engine(const gfx_damage* d) {
    return reinterpret_cast<const DamageList*>(d);
}

gfx_status gfx_damage_new(unsigned int width, unsigned int height, unsigned int alignX,
                          unsigned int alignY, gfx_damage** damage) noexcept {
    return gfx::c::MakeObject(
        damage, [&] { return gfx::c::MakeInHooks<DamageList>(width, height, alignX, alignY); });
}

gfx_status gfx_damage_delete(gfx_damage** damage) noexcept {
    return gfx::c::DestroyObject(damage, gfx::c::DestroyInHooks<DamageList>);
}

gfx_status gfx_damage_add(gfx_damage* damage, int x, int y, unsigned int w,
                          unsigned int h) noexcept {
    return On(damage, [&](DamageList& d) { d.Add(x, y, w, h); });
}

gfx_status gfx_damage_add_all(gfx_damage* damage) noexcept {
    return On(damage, [](DamageList& d) { d.AddAll(); });
}

gfx_status gfx_damage_count(const gfx_damage* damage, int* count) noexcept {
    if (count == nullptr) return GFX_NULL_ARGUMENT;
    return On(damage, [&](const DamageList& d) { *count = d.Count(); });
}

static gfx_rect InC(const DamageRect& r) {
    return {static_cast<int>(r.x), static_cast<int>(r.y), r.w, r.h};
}

gfx_status gfx_damage_get(const gfx_damage* damage, int i, gfx_rect* rect) noexcept {
    if (damage == nullptr || rect == nullptr) return GFX_NULL_ARGUMENT;
    const DamageList& list = *Engine(damage);
    if (i < 0 || i >= list.Count()) return GFX_NO_SUCH_VALUE;
    *rect = InC(list[i]);
    return GFX_OK;
}

gfx_status gfx_damage_flush(gfx_damage* damage, void (*draw)(void* context, const gfx_rect* rect),
                            void* context) noexcept {
    if (draw == nullptr) return GFX_NULL_ARGUMENT;
    return On(damage, [&](DamageList& d) {
        d.Flush([&](const DamageRect& r) {
            const gfx_rect rect = InC(r);
            draw(context, &rect);
        });
    });
}

gfx_status gfx_damage_clear(gfx_damage* damage) noexcept {
    return On(damage, [](DamageList& d) { d.Clear(); });
}
