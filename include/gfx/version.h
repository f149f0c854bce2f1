/// @file
/// The version, in the one place where it is written: the build and the packages read it here too.
/// Within one major number a host runs with every library that is not older than its headers.
/// C reads the numbers here too; the function is C++.
#ifndef GFX_VERSION_H
#define GFX_VERSION_H

#include <gfx/export.h>

/// A different one: hosts have to be built anew, and perhaps changed.
#define GFX_VERSION_MAJOR 1
/// A larger one: something was added.
#define GFX_VERSION_MINOR 1
/// A larger one: something was mended or became faster.
#define GFX_VERSION_PATCH 0

/// One number that grows with every version, for comparisons: 10203 is 1.2.3.
#define GFX_VERSION (GFX_VERSION_MAJOR * 10000 + GFX_VERSION_MINOR * 100 + GFX_VERSION_PATCH)

#ifdef __cplusplus
/// GFX_VERSION of the library that the host runs with, which may be newer than these headers.
GFX_API unsigned int GfxVersion();
#endif

#endif  // GFX_VERSION_H
