// The operations of Surface on rectangles.
#include "arguments.h"
#include "bind.h"

namespace py = pybind11;

namespace gfx::python {
namespace {

using Plane = GfxSurface::ColorPlane;

const GfxSurface* EngineOf(const Surface* surface) {
    return surface == nullptr ? nullptr : surface->engine.get();
}

void BindFills(SurfaceClass& c) {
    c.def(
        "rect_fill",
        [](Surface& s, Whole x, Whole y, Size w, Size h, Ink color) {
            Alone({&s}, LengthOf(w, h), [&] { s.engine->RectFill(x, y, w, h, color); });
        },
        py::arg("x"), py::arg("y"), py::arg("w"), py::arg("h"), py::arg("color"),
        "Fills a rectangle; 32-bit pixels store the colour's opacity too.");
    c.def(
        "rect_fill_blend",
        [](Surface& s, Whole x, Whole y, Size w, Size h, Ink color, Whole srcX, Whole srcY,
           Surface* mask) {
            Alone({&s, mask}, LengthOf(w, h), [&] {
                if (mask == nullptr) return s.engine->RectFillBlend(x, y, w, h, color);
                s.engine->RectFillBlend(x, y, w, h, color, srcX, srcY, EngineOf(mask));
            });
        },
        py::arg("x"), py::arg("y"), py::arg("w"), py::arg("h"), py::arg("color"),
        py::arg("src_x") = Whole{0}, py::arg("src_y") = Whole{0}, py::arg("mask") = py::none(),
        "Blends a colour into a rectangle, through a mask of transparencies if there is one\n"
        "(depth 8 or 32, 0 opaque). src_x, src_y: the mask's pixel under (x, y).");
}

void BindCopies(SurfaceClass& c) {
    c.def(
        "rect_copy",
        [](Surface& s, Whole x, Whole y, Size w, Size h, Whole srcX, Whole srcY, Surface* src,
           bool tile) {
            Alone({&s, src}, LengthOf(w, h),
                  [&] { s.engine->RectCopy(x, y, w, h, srcX, srcY, EngineOf(src), tile); });
        },
        py::arg("x"), py::arg("y"), py::arg("w"), py::arg("h"), py::arg("src_x") = Whole{0},
        py::arg("src_y") = Whole{0}, py::arg("src") = py::none(), py::arg("tile") = false,
        "Copies a rectangle from a surface of any depth; None is this surface.\n"
        "src_x, src_y: the source's pixel that goes to (x, y). tile: the source repeats.");
    c.def(
        "rect_blend",
        [](Surface& s, Whole x, Whole y, Size w, Size h, Whole srcX, Whole srcY, Surface* src,
           bool tile) {
            Alone({&s, src}, LengthOf(w, h),
                  [&] { s.engine->RectBlend(x, y, w, h, srcX, srcY, EngineOf(src), tile); });
        },
        py::arg("x"), py::arg("y"), py::arg("w"), py::arg("h"), py::arg("src_x") = Whole{0},
        py::arg("src_y") = Whole{0}, py::arg("src") = py::none(), py::arg("tile") = false,
        "Blends a rectangle of a source by each pixel's opacity; otherwise as rect_copy.");
    c.def(
        "rect_blend_alpha",
        [](Surface& s, Whole x, Whole y, Size w, Size h, Whole srcX, Whole srcY,
           double transparency, Surface* src, bool tile) {
            Alone({&s, src}, LengthOf(w, h), [&] {
                s.engine->RectBlendAlpha(x, y, w, h, srcX, srcY, transparency, EngineOf(src), tile);
            });
        },
        py::arg("x"), py::arg("y"), py::arg("w"), py::arg("h"), py::arg("src_x"), py::arg("src_y"),
        py::arg("transparency"), py::arg("src") = py::none(), py::arg("tile") = false,
        "As rect_blend, the source made more transparent first: 0 as it is, 1 invisible.");
}

void BindPlanes(SurfaceClass& c) {
    c.def(
        "rect_extract",
        [](Surface& s, Whole x, Whole y, Size w, Size h, Whole planeX, Whole planeY, Surface& plane,
           Plane which) {
            Alone({&s, &plane}, LengthOf(w, h), [&] {
                s.engine->RectExtract(x, y, w, h, planeX, planeY, plane.engine.get(), which);
            });
        },
        py::arg("x"), py::arg("y"), py::arg("w"), py::arg("h"), py::arg("plane_x"),
        py::arg("plane_y"), py::arg("plane"), py::arg("which"),
        "Copies one byte of every pixel's colour word into a surface of depth 8.");
    c.def(
        "rect_insert",
        [](Surface& s, Whole x, Whole y, Size w, Size h, Whole planeX, Whole planeY, Surface& plane,
           Plane which) {
            Alone({&s, &plane}, LengthOf(w, h), [&] {
                s.engine->RectInsert(x, y, w, h, planeX, planeY, plane.engine.get(), which);
            });
        },
        py::arg("x"), py::arg("y"), py::arg("w"), py::arg("h"), py::arg("plane_x"),
        py::arg("plane_y"), py::arg("plane"), py::arg("which"),
        "Replaces one byte of every pixel's colour word by those of a surface of depth 8.");
}

}  // namespace

void BindRectangles(SurfaceClass& c) {
    py::enum_<Plane>(c, "Plane", "One byte of the colour word; ALPHA counts transparency.")
        .value("ALPHA", Plane::PlaneAlpha)
        .value("RED", Plane::PlaneRed)
        .value("GREEN", Plane::PlaneGreen)
        .value("BLUE", Plane::PlaneBlue);
    BindFills(c);
    BindCopies(c);
    BindPlanes(c);
}

}  // namespace gfx::python
