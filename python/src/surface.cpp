// The class Surface: its making, size, state and pixels.
#include "surface.h"

#include "arguments.h"
#include "bind.h"

namespace py = pybind11;

namespace gfx::python {
namespace {

using Held = std::shared_ptr<Surface>;

/// A property's reader that waits for the call under way on another thread.
template <class Value>
auto Reader(Value (GfxSurface::*read)() const) {
    return [read](Surface& s) {
        return Alone({&s}, Length::kShort, [&] { return (s.engine.get()->*read)(); });
    };
}

template <class Change>
void Quickly(Surface& s, Change change) {
    Alone({&s}, Length::kShort, [&] { change(*s.engine); });
}

void BindSize(SurfaceClass& c) {
    c.def(
        py::init([](Size w, Size h, Size depth) { return std::make_shared<Surface>(w, h, depth); }),
        py::arg("width"), py::arg("height"), py::arg("depth") = Size{32},
        "A cleared surface. depth is 0 to 32: 2 to 8 stores one grey byte a pixel, 9 to 16 a\n"
        "5-6-5 word, 17 to 32 a colour word whose top byte counts transparency.");
    c.def_static("over", &Surface::Over, py::arg("array"), py::arg("depth") = py::none(),
                 "A surface over an array's own memory, which it keeps: (height, width) of uint8,\n"
                 "uint16 or uint32, or (height, width, 4) of uint8, blue first. Rows may be\n"
                 "further apart than they are long. depth chooses among those of that item size.");
    c.def_property_readonly("width", Reader(&GfxSurface::DX), "Width in pixels.");
    c.def_property_readonly("height", Reader(&GfxSurface::DY), "Height in pixels.");
    c.def_property_readonly("depth", Reader(&GfxSurface::Depth), "Bits per pixel, 0 to 32.");
    c.def_property_readonly("pitch", Reader(&GfxSurface::Pitch), "Bytes from row to row.");
    c.def_property_readonly(
        "pixels", &Surface::Pixels,
        "The pixels as a NumPy array (height, width) that shares their memory: uint8, uint16 or\n"
        "uint32 by depth; of depth 1 (height, bytes of a row). It keeps the surface, which\n"
        "cannot be resized meanwhile. Writing through it while another thread draws is a race.");
    c.def(
        "__array__",
        [](const Held& s, const py::object& type) {
            const py::object pixels = Surface::Pixels(s);
            return type.is_none() ? pixels : pixels.attr("astype")(type, py::arg("copy") = false);
        },
        py::arg("dtype") = py::none(), "`pixels`, for numpy.asarray.");
    c.def(
        "initialise",
        [](Surface& s, Size w, Size h) {
            s.Resized([&](GfxSurface& engine) { engine.Initialise(w, h); });
        },
        py::arg("w"), py::arg("h"),
        "Takes zeroed memory of its own and resets the clip rectangle.");
    c.def(
        "set_new_size",
        [](Surface& s, Size w, Size h) {
            s.Resized([&](GfxSurface& engine) { engine.SetNewSize(w, h); });
        },
        py::arg("w"), py::arg("h"),
        "Changes the size. Content and clip rectangle stay while the allocation is large enough;\n"
        "else it is initialised with each side rounded up to the next larger multiple of 16.");
    c.def(
        "optimise_size",
        [](Surface& s) { s.Resized([](GfxSurface& engine) { engine.OptimiseSize(); }); },
        "Takes a smaller allocation, losing the content, when a side fell below half of it.");
    c.def("clear", &Surface::Clear, "Zeroes all pixels and sets `empty`.");
}

void BindState(SurfaceClass& c) {
    c.def_property(
        "empty", Reader(&GfxSurface::IsEmpty),
        [](Surface& s, bool empty) { Quickly(s, [&](GfxSurface& e) { e.SetEmpty(empty); }); },
        "Whether the content is known to be all zero. The library never reads this flag.");
    c.def_property(
        "alpha", Reader(&GfxSurface::Alpha),
        [](Surface& s, Size alpha) { Quickly(s, [&](GfxSurface& e) { e.SetAlpha(alpha); }); },
        "The transparency with which 8- and 16-bit pixels are read: 0 opaque, 255 invisible.");
    c.def(
        "set_transparent",
        [](Surface& s, Ink color) { Quickly(s, [&](GfxSurface& e) { e.SetTransparent(color); }); },
        py::arg("color"),
        "Colour key: rect_copy into this surface skips source pixels of exactly this colour.");
    c.def(
        "set_opaque", [](Surface& s) { Quickly(s, [](GfxSurface& e) { e.SetOpaque(); }); },
        "Turns the colour key off.");
    c.def(
        "set_clip_rect",
        [](Surface& s, Whole x, Whole y, Size w, Size h) {
            Quickly(s, [&](GfxSurface& e) { e.SetClipRect(x, y, w, h); });
        },
        py::arg("x"), py::arg("y"), py::arg("w"), py::arg("h"),
        "Limits drawing and reading to what lies inside the surface of this rectangle.");
    c.def(
        "get_clip_rect",
        [](Surface& s) {
            int x = 0, y = 0;
            unsigned w = 0, h = 0;
            Quickly(s, [&](GfxSurface& e) { e.GetClipRect(x, y, w, h); });
            return py::make_tuple(x, y, w, h);
        },
        "The clip rectangle as (x, y, w, h).");
    c.def(
        "reset_clip_rect", [](Surface& s) { Quickly(s, [](GfxSurface& e) { e.ResetClipRect(); }); },
        "Sets the clip rectangle to the whole surface.");
}

void BindPixels(SurfaceClass& c) {
    c.def(
        "set_pixel_rgb",
        [](Surface& s, Whole x, Whole y, Ink color) {
            Quickly(s, [&](GfxSurface& e) { e.SetPixelRGB(x, y, color); });
        },
        py::arg("x"), py::arg("y"), py::arg("color"),
        "Stores a colour in a pixel; only 32-bit pixels store its opacity.");
    c.def(
        "set_pixel_rgb_blend",
        [](Surface& s, Whole x, Whole y, Ink color) {
            Quickly(s, [&](GfxSurface& e) { e.SetPixelRGBBlend(x, y, color); });
        },
        py::arg("x"), py::arg("y"), py::arg("color"), "Blends a colour into a pixel.");
    c.def(
        "ret_pixel_rgb",
        [](Surface& s, Whole x, Whole y) {
            return kit::Color::FromWord(Alone({&s}, Length::kShort, [&] {
                return static_cast<std::uint32_t>(s.engine->RetPixelRGB(x, y));
            }));
        },
        py::arg("x"), py::arg("y"), "A pixel's colour; word 0 outside the clip rectangle.");
    c.def(
        "ret_pixel_merge_rgb",
        [](Surface& s, Whole x, Whole y, double fx, double fy) {
            return kit::Color::FromWord(Alone({&s}, Length::kShort, [&] {
                return static_cast<std::uint32_t>(s.engine->RetPixelMergeRGB(x, y, fx, fy));
            }));
        },
        py::arg("x"), py::arg("y"), py::arg("fx"), py::arg("fy"),
        "The colour at (x + fx, y + fy), interpolated between four pixels.");
    c.def(
        "set_pixel_line_bgr24",
        [](Surface& s, Whole x, Whole y, const py::object& bgr) {
            const HostBytes bytes(bgr, HostBytes::Access::kRead);
            if (bytes.Length() % 3 != 0 || bytes.Length() / 3 > 0x7FFFFFFF) {
                throw py::value_error("bgr holds three bytes a pixel, not " +
                                      std::to_string(bytes.Length()) + " bytes");
            }
            const auto n = static_cast<unsigned>(bytes.Length() / 3);
            Quickly(s, [&](GfxSurface& e) { e.SetPixelLineBGR24(x, y, n, bytes.Data()); });
        },
        py::arg("x"), py::arg("y"), py::arg("bgr"),
        "Writes pixels of blue, green, red bytes into row y; 16- and 32-bit surfaces only.");
    c.def(
        "set_pixel_line_mono",
        [](Surface& s, Whole x, Whole y, Size n, Ink color, const py::object& bits) {
            const HostBytes bytes(bits, HostBytes::Access::kRead);
            if ((std::uint64_t{n} + 7) / 8 > bytes.Length()) {
                throw py::value_error("bits holds fewer than n bits");
            }
            Quickly(s, [&](GfxSurface& e) { e.SetPixelLineMono(x, y, n, color, bytes.Data()); });
        },
        py::arg("x"), py::arg("y"), py::arg("n"), py::arg("color"), py::arg("bits"),
        "Paints those of n pixels of row y whose bit is 0, the most significant bit first.");
}

}  // namespace

void BindSurface(py::module_& module) {
    BindLease(module);
    SurfaceClass c(module, "Surface",
                   "A rectangle of pixels and every drawing operation on it.\n\n"
                   "Drawing is clipped to the clip rectangle. Colours are (r, g, b),\n"
                   "(r, g, b, opacity), \"#rrggbb\", \"#rrggbbaa\" or a Color. Calls of several\n"
                   "threads on one surface wait for each other; long ones let others run.");
    BindSize(c);
    BindState(c);
    BindPixels(c);
    BindRectangles(c);
    BindLinesAndBits(c);
}

}  // namespace gfx::python
