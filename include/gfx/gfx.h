/// @file
/// Everything a host needs: the memory hooks, the pixel surface, the font cache and the version.
/// Build and packages of a library without fonts define GFX_NO_FONTS for their hosts.
#ifndef GFX_GFX_H
#define GFX_GFX_H

#if !defined(GFX_NO_FONTS)
#include <gfx/font_cache.h>
#endif
#include <gfx/memory.h>
#include <gfx/surface.h>
#include <gfx/version.h>

#endif  // GFX_GFX_H
