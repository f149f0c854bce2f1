#include <gfx/c.h>

unsigned int gfx_c_version() noexcept { return GFX_C_VERSION; }
