// The module: the engine's hooks, its failures as Python's, and what it is put together from.
#include <gfx/memory.h>
#include <gfx/version.h>
#include <pybind11/pybind11.h>

#include <cstdlib>
#include <new>

#include "bind.h"

namespace py = pybind11;

namespace {

void* TakeBlock(void*, unsigned long size) {
    void* const block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}

void ReturnBlock(void*, void* block) { std::free(block); }

/// A process that has the engine already has hooks, which blocks in use depend on.
void SetHooks() {
    if (GfxMemory::fn_alloc != nullptr) return;
    GfxMemory::fn_free = ReturnBlock;
    GfxMemory::fn_alloc = TakeBlock;
}

void TranslateFailures() {
    py::register_exception_translator([](std::exception_ptr failure) {
        try {
            if (failure) std::rethrow_exception(failure);
        } catch (const char* text) {
            PyErr_SetString(PyExc_ValueError, text);
        }
    });
}

}  // namespace

PYBIND11_MODULE(_gfx, module) {
    using namespace gfx::python;
    SetHooks();
    TranslateFailures();
    // The classes are found in the package, and say so.
    const py::object name = module.attr("__name__");
    module.attr("__name__") = "gfx";
    BindColor(module);
    BindSurface(module);
    BindFontCache(module);
    BindShapes(module);
    BindText(module);
    module.attr("__name__") = name;
}
