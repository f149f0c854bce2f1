/** @file
 * What the functions of the C interface answer. */
#ifndef GFX_C_STATUS_H
#define GFX_C_STATUS_H

#include <gfx/c/export.h>

#ifdef __cplusplus
extern "C" {
#endif

/** The outcome of a call. 0 is success; later versions may add values at the end. A call that is
 * not GFX_OK has left its objects as the engine's headers say for one that throws, and has written
 * to none of its results. */
typedef enum gfx_status {
    GFX_OK = 0,
    GFX_NULL_ARGUMENT,    /**< a handle or the place for a result is NULL; nothing was done */
    GFX_NO_HOOKS,         /**< an object was asked for before the memory hooks were set */
    GFX_NO_MEMORY,        /**< the allocating hook delivered NULL */
    GFX_NO_FACE,          /**< the font file cannot be opened: GfxFontCache::OpenFace is false */
    GFX_NO_SUCH_VALUE,    /**< an enumeration or a list has nothing by this number */
    GFX_TOO_MANY_FACES,   /**< a font has as many faces as it takes */
    GFX_DEPTH_REFUSED,    /**< the engine's "bpp < 33" */
    GFX_WIDTH_REFUSED,    /**< the engine's "dx <= INT_MAX" */
    GFX_HEIGHT_REFUSED,   /**< the engine's "dy <= INT_MAX" */
    GFX_PITCH_REFUSED,    /**< the engine's "row <= pitch" */
    GFX_SIZE_REFUSED,     /**< the engine's "size <= ULONG_MAX" */
    GFX_LINE_TOO_WIDE,    /**< the engine's "dx < MAX_LINE_LENGTH" */
    GFX_LINE_TOO_TALL,    /**< the engine's "dy < MAX_LINE_LENGTH" */
    GFX_UNKNOWN_EXCEPTION /**< a C++ hook, set past this interface, threw something of its own */
} gfx_status;

/** What a status says, in English; for a refusal of the engine exactly the text that it throws. The
 * text lives as long as the library. Never NULL, also for numbers that are no status. */
GFX_C_API const char* gfx_status_text(gfx_status status) GFX_C_NOEXCEPT;

#ifdef __cplusplus
}
#endif

#endif /* GFX_C_STATUS_H */
