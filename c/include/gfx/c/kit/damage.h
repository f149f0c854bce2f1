/** @file
 * The kit's DamageList in C; see gfx/kit/damage.h. */
#ifndef GFX_C_KIT_DAMAGE_H
#define GFX_C_KIT_DAMAGE_H

#include <gfx/c/surface.h>

#ifdef __cplusplus
extern "C" {
#endif

/** A gfx::kit::DamageList, in memory from the hooks. */
typedef struct gfx_damage gfx_damage;

/** Makes an empty list. @param align_x,align_y  1, or what the bus takes; 0 counts as 1. */
GFX_C_API gfx_status gfx_damage_new(unsigned int width, unsigned int height, unsigned int align_x,
                                    unsigned int align_y, gfx_damage** damage) GFX_C_NOEXCEPT;
/** Destroys *damage and sets it to NULL. */
GFX_C_API gfx_status gfx_damage_delete(gfx_damage** damage) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_damage_add(gfx_damage* damage, int x, int y, unsigned int w,
                                    unsigned int h) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_damage_add_all(gfx_damage* damage) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_damage_count(const gfx_damage* damage, int* count) GFX_C_NOEXCEPT;
/** A rectangle of the list. GFX_NO_SUCH_VALUE unless `i` is 0 to the count - 1. */
GFX_C_API gfx_status gfx_damage_get(const gfx_damage* damage, int i, gfx_rect* rect) GFX_C_NOEXCEPT;
/** Hands every rectangle to `draw` and leaves the list empty. */
GFX_C_API gfx_status gfx_damage_flush(gfx_damage* damage,
                                      void (*draw)(void* context, const gfx_rect* rect),
                                      void* context) GFX_C_NOEXCEPT;
GFX_C_API gfx_status gfx_damage_clear(gfx_damage* damage) GFX_C_NOEXCEPT;

#ifdef __cplusplus
}
#endif

#endif /* GFX_C_KIT_DAMAGE_H */
