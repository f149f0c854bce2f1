/** @file
 * The kit in C: text, shapes, pictures and damage, by the rules that gfx/c.h states. Here where the
 * library was built with the kit. */
#ifndef GFX_C_KIT_H
#define GFX_C_KIT_H

#include <gfx/c.h>
#include <gfx/c/kit/damage.h>
#include <gfx/c/kit/pictures.h>
#include <gfx/c/kit/shapes.h>
#ifndef GFX_NO_FONTS
#include <gfx/c/kit/text.h>
#endif

#endif /* GFX_C_KIT_H */
