// The class Color.
#include <cstdio>

#include "arguments.h"
#include "bind.h"

namespace py = pybind11;

namespace gfx::python {
namespace {

using kit::Color;

struct Channel {
    unsigned value = 0;
    explicit Channel(Size given) : value(given) {
        if (value > 255) throw py::value_error(std::to_string(value) + " is not from 0 to 255");
    }
};

std::string Text(const Color& c) {
    char text[48];
    std::snprintf(text, sizeof text, "Color(%u, %u, %u, %u)", c.Red(), c.Green(), c.Blue(),
                  c.Opacity());
    return text;
}

}  // namespace

void BindColor(py::module_& module) {
    py::class_<Color> c(module, "Color",
                        "Red, green, blue and opacity, 0 to 255 each; opacity 255 is opaque.");
    c.def(py::init([](Size r, Size g, Size b, Size opacity) {
              return Color::Rgba(Channel(r).value, Channel(g).value, Channel(b).value,
                                 Channel(opacity).value);
          }),
          py::arg("red"), py::arg("green"), py::arg("blue"), py::arg("opacity") = Size{255});
    c.def_static(
        "of", [](Ink ink) { return ink.color; }, py::arg("color"),
        "The Color that a tuple or a string means wherever a colour is taken.");
    c.def_static(
        "from_word", [](Size word) { return Color::FromWord(word); }, py::arg("word"),
        "The colour of an engine's word, whose top byte counts transparency.");
    c.def_static(
        "from_argb", [](Size argb) { return Color::FromArgb(argb); }, py::arg("argb"),
        "The colour of the usual 0xAARRGGBB, whose top byte counts opacity.");
    c.def_property_readonly("red", &Color::Red);
    c.def_property_readonly("green", &Color::Green);
    c.def_property_readonly("blue", &Color::Blue);
    c.def_property_readonly("opacity", &Color::Opacity, "0 invisible to 255 opaque.");
    c.def_property_readonly("word", &Color::Word, "The engine's word, as `pixels` has it.");
    c.def_property_readonly("argb", &Color::Argb, "The usual 0xAARRGGBB.");
    c.def(
        "with_opacity",
        [](const Color& color, Size opacity) { return color.WithOpacity(Channel(opacity).value); },
        py::arg("opacity"), "The same channels under another opacity.");
    c.def(
        "faded", [](const Color& color, Size share) { return color.Faded(share); },
        py::arg("share"), "The opacity times share / 255, rounded to nearest.");
    c.def(
        "mix", [](const Color& from, Ink to, Size share) { return Mix(from, to.color, share); },
        py::arg("to"), py::arg("share"), "The colour share / 256 of the way to another.");
    c.def("__iter__", [](const Color& color) {
        return py::iter(py::make_tuple(color.Red(), color.Green(), color.Blue(), color.Opacity()));
    });
    c.def("__eq__", [](const Color& a, const py::object& b) {
        return py::isinstance<Color>(b) && a == py::cast<Color>(b);
    });
    c.def("__hash__", [](const Color& color) { return color.Word(); });
    c.def("__repr__", &Text);
}

}  // namespace gfx::python
