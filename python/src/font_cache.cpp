// The class FontCache.
#include "font_cache.h"

#include <pybind11/numpy.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "arguments.h"
#include "bind.h"

namespace py = pybind11;

namespace gfx::python {

void FontCache::Open(const py::object& path, int emSize, bool smooth) {
    const py::module_ os = py::module_::import("os");
    const auto name = py::cast<std::string>(py::bytes(os.attr("fsencode")(path)));
    os.attr("stat")(path);  // raises what is wrong with the name
    const bool isOpen =
        Alone({this}, Length::kLong, [&] { return engine.OpenFace(name.c_str(), emSize, smooth); });
    if (isOpen) return;
    if (py::cast<bool>(os.attr("path").attr("isfile")(path)) &&
        !py::cast<bool>(os.attr("access")(path, os.attr("R_OK")))) {
        PyErr_SetObject(PyExc_PermissionError, py::str(path).ptr());
        throw py::error_already_set();
    }
    throw py::value_error("no face that can be opened: " + py::cast<std::string>(py::repr(path)));
}

namespace {

using Geom = GfxFontCache::GlyphGeom;

/// A glyph's image copied out of its band, and its geometry.
struct Glyph {
    Geom geom{};
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> image;
};

Glyph CopyGlyph(GfxFontCache& cache, unsigned short code) {
    Glyph glyph;
    GfxSurface* band = nullptr;
    unsigned short x = 0, y = 0;
    cache.AccessGlyph(code, band, x, y, glyph.geom);
    if (band == nullptr) return glyph;
    const auto within = [](int size, unsigned at, unsigned limit) {
        const int left = at < limit ? static_cast<int>(limit - at) : 0;
        return std::clamp(size, 0, left);
    };
    glyph.width = within(glyph.geom.right - glyph.geom.left, x, band->DX());
    glyph.height = within(glyph.geom.top - glyph.geom.bottom, y, band->DY());
    if (glyph.width == 0 || glyph.height == 0) glyph.width = glyph.height = 0;
    for (int row = 0; row < glyph.height; ++row) {
        const auto* const first = static_cast<const std::uint8_t*>(band->Line(y + row)) + x;
        glyph.image.insert(glyph.image.end(), first, first + glyph.width);
    }
    return glyph;
}

/// A code beyond the cache's 1024 gets what a closed cache gives; so does one beyond 16 bits.
unsigned short Code(const Size& code) {
    return static_cast<unsigned short>(std::min(code.value, 0xFFFFU));
}

using Class = py::class_<FontCache, std::shared_ptr<FontCache>>;

void BindGeom(py::module_& module) {
    py::class_<Geom>(module, "GlyphGeom",
                     "A glyph's geometry in whole pixels from the pen, y upwards.")
        .def_readonly("left", &Geom::left)
        .def_readonly("right", &Geom::right, "Exclusive.")
        .def_readonly("bottom", &Geom::bottom)
        .def_readonly("top", &Geom::top, "Exclusive.")
        .def_readonly("bearing_x", &Geom::bearingX)
        .def_readonly("bearing_y", &Geom::bearingY)
        .def_readonly("advance", &Geom::advance, "How far the pen moves on.");
}

void BindFace(Class& c) {
    c.def(py::init<>(), "A closed cache.");
    c.def(py::init([](const py::object& path, Whole emSize, bool smooth) {
              auto cache = std::make_shared<FontCache>();
              cache->Open(path, emSize, smooth);
              return cache;
          }),
          py::arg("path"), py::arg("em_size"), py::arg("smooth") = true,
          "A cache with a face open, as open_face.");
    c.def(
        "open_face",
        [](FontCache& f, const py::object& path, Whole emSize, bool smooth) {
            f.Open(path, emSize, smooth);
        },
        py::arg("path"), py::arg("em_size"), py::arg("smooth") = true,
        "Opens the first face of a file at a size in pixels. smooth: anti-aliased glyphs, else\n"
        "1-bit ones. Glyphs cached earlier stay. FileNotFoundError, or ValueError for a file\n"
        "that is no face; no face is open then, unless the file was not there at all.");
    c.def(
        "close_face",
        [](FontCache& f) { Alone({&f}, Length::kShort, [&] { f.engine.CloseFace(); }); },
        "Closes the face; no glyph is drawn until one is opened.");
    c.def(
        "has_glyph",
        [](FontCache& f, Size code) {
            return Alone({&f}, Length::kShort, [&] { return f.engine.HasGlyph(code); });
        },
        py::arg("code"), "Whether the open face has a glyph of its own for a code below 1024.");
    const auto metric = [](short (GfxFontCache::*read)() const) {
        return [read](FontCache& f) {
            return Alone({&f}, Length::kShort, [&] { return (f.engine.*read)(); });
        };
    };
    c.def_property_readonly("typo_ascender", metric(&GfxFontCache::TypoAscender),
                            "Pixels above the baseline.");
    c.def_property_readonly("typo_descender", metric(&GfxFontCache::TypoDescender),
                            "Pixels below the baseline, negative for usual faces.");
    c.def_property_readonly("typo_line_gap", metric(&GfxFontCache::TypoLineGap),
                            "Pixels between lines.");
}

void BindGlyphs(Class& c) {
    c.def(
        "access_glyph",
        [](FontCache& f, Size code) {
            const Glyph glyph =
                Alone({&f}, Length::kLong, [&] { return CopyGlyph(f.engine, Code(code)); });
            return py::make_tuple(
                py::array_t<std::uint8_t>({glyph.height, glyph.width}, glyph.image.data()),
                glyph.geom);
        },
        py::arg("code"),
        "A copy of a glyph's image, (height, width) of uint8 with 0 for full ink and 255 for\n"
        "none, and its GlyphGeom.");
    c.def(
        "get_glyph_geometry",
        [](FontCache& f, Size code) {
            Geom geom{};
            Alone({&f}, Length::kShort, [&] { f.engine.GetGlyphGeometry(Code(code), geom); });
            return geom;
        },
        py::arg("code"), "A glyph's geometry; all zero where there is none.");
    c.def(
        "draw_glyph",
        [](FontCache& f, Size code, Whole x, Whole y, Ink color, Surface& target, Whole angle) {
            Alone({&f, &target}, Length::kShort, [&] {
                f.engine.DrawGlyph(Code(code), static_cast<unsigned>(x.value),
                                   static_cast<unsigned>(y.value), color, target.engine.get(),
                                   angle);
            });
        },
        py::arg("code"), py::arg("x"), py::arg("y"), py::arg("color"), py::arg("target"),
        py::arg("angle") = Whole{0},
        "Draws a glyph from a pen position on the baseline. angle: 0, 90 (the baseline runs\n"
        "up) or 270 (down); any other draws nothing.");
}

}  // namespace

void BindFontCache(py::module_& module) {
    BindGeom(module);
    Class c(module, "FontCache",
            "One face at one pixel size, each glyph rendered once. Codes are 0 to 1023.");
    BindFace(c);
    BindGlyphs(c);
}

}  // namespace gfx::python
