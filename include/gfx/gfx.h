// Everything a host needs: the memory hooks, the pixel surface and the font cache.
#ifndef GFX_GFX_H
#define GFX_GFX_H

#include <gfx/font_cache.h>
#include <gfx/memory.h>
#include <gfx/surface.h>

#endif  // GFX_GFX_H
