// The version that this library was built as.
#include <gfx/version.h>

unsigned int GfxVersion() { return GFX_VERSION; }
