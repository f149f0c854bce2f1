// A font cache of the engine as Python holds it.
#ifndef GFX_PYTHON_FONT_CACHE_H
#define GFX_PYTHON_FONT_CACHE_H

#include <gfx/font_cache.h>
#include <pybind11/pybind11.h>

#include "exclusive.h"

namespace gfx::python {

class FontCache : public Exclusive {
public:
    /// Throws FileNotFoundError and other OSErrors where the file cannot be read, and ValueError
    /// where it is no face that opens. Needs the interpreter's lock.
    void Open(const pybind11::object& path, int emSize, bool smooth);

    GfxFontCache engine;
};

}  // namespace gfx::python

#endif  // GFX_PYTHON_FONT_CACHE_H
