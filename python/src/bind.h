// The parts that the module is put together from.
#ifndef GFX_PYTHON_BIND_H
#define GFX_PYTHON_BIND_H

#include <pybind11/pybind11.h>

#include <memory>

#include "surface.h"

namespace gfx::python {

using SurfaceClass = pybind11::class_<Surface, std::shared_ptr<Surface>>;

void BindColor(pybind11::module_& module);
void BindLease(pybind11::module_& module);
void BindSurface(pybind11::module_& module);
void BindRectangles(SurfaceClass& surface);
void BindLinesAndBits(SurfaceClass& surface);
void BindFontCache(pybind11::module_& module);
void BindShapes(pybind11::module_& module);
void BindText(pybind11::module_& module);

}  // namespace gfx::python

#endif  // GFX_PYTHON_BIND_H
