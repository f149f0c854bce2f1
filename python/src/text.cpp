// The kit's text: Font, measuring, drawing and breaking of strings.
#include <gfx/kit/text.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "arguments.h"
#include "bind.h"
#include "font_cache.h"

namespace py = pybind11;

namespace gfx::python {
namespace {

using Face = std::shared_ptr<FontCache>;

struct Font : Exclusive {
    explicit Font(std::vector<Face> all) : faces(std::move(all)), engine(faces[0]->engine) {
        for (std::size_t i = 1; i < faces.size(); ++i)
            engine.AddFace(faces[i]->engine);
    }

    // Chosen once: a call claims them before it waits for the font.
    const std::vector<Face> faces;
    std::vector<EngineSurface> masks;  // copies, so that nobody draws on them meanwhile
    std::vector<kit::GlyphImage> images;
    kit::Font engine;
};

using Class = py::class_<Font, std::shared_ptr<Font>>;

/// Calls `use` while nobody else uses the font, its faces or the surface.
template <class Use>
auto WithFont(Font& font, Surface* target, Use use) {
    Claim claim({&font, target});
    for (const Face& face : font.faces)
        claim.Add(face.get());
    return Alone(claim, Length::kLong, use);
}

/// How many characters stand in the first bytes of well-formed UTF-8.
std::size_t Characters(std::string_view text, std::size_t bytes) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(bytes),
                      [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

void AddImage(Font& font, char32_t code, Surface& mask, int x, int y, int w, int h, int left,
              int top, int advance) {
    Claim claim({&font, &mask});
    for (const Face& face : font.faces)
        claim.Add(face.get());
    Alone(claim, Length::kLong, [&] {
        const auto wide = static_cast<unsigned>(std::max(w, 0));
        const auto high = static_cast<unsigned>(std::max(h, 0));
        const GfxSurface& given = *mask.engine;
        if (given.Depth() < 2 || given.Depth() > 8 || x < 0 || y < 0 ||
            static_cast<unsigned>(x) + std::uint64_t{wide} > given.DX() ||
            static_cast<unsigned>(y) + std::uint64_t{high} > given.DY()) {
            throw py::value_error("an image lies inside a mask of depth 8");
        }
        EngineSurface copy = NewSurface(8);
        copy->Initialise(wide, high);
        copy->RectCopy(0, 0, wide, high, x, y, &given, false);
        const GfxSurface* const image = copy.get();
        font.masks.push_back(std::move(copy));
        font.images.push_back({code, image, 0, 0, w, h, left, top, advance});
        font.engine.SetImages(font.images.data(), static_cast<int>(font.images.size()));
    });
}

void BindFont(py::module_& module) {
    Class c(module, "Font",
            "What text is set in: up to 8 faces, of which the first with a character draws it.\n"
            "No kerning and no shaping; characters above U+03FF need images.");
    c.def(py::init([](const py::args& given) {
              if (given.empty() || given.size() > kit::Font::kMaxFaces) {
                  throw py::value_error("a font takes 1 to 8 faces");
              }
              std::vector<Face> faces;
              for (const py::handle face : given) {
                  if (!py::isinstance<FontCache>(face)) {
                      throw py::type_error("a face is a FontCache, not " +
                                           std::string(Py_TYPE(face.ptr())->tp_name));
                  }
                  faces.push_back(py::cast<Face>(face));
              }
              return std::make_shared<Font>(std::move(faces));
          }),
          "Text in the faces given, 1 to 8 FontCaches. The line metrics are the first one's.");
    c.def(
        "add_image",
        [](Font& font, Size code, Surface& mask, Whole x, Whole y, Whole w, Whole h, Whole left,
           Whole top,
           Whole advance) { AddImage(font, code.value, mask, x, y, w, h, left, top, advance); },
        py::arg("code"), py::arg("mask"), py::arg("x"), py::arg("y"), py::arg("w"), py::arg("h"),
        py::arg("left"), py::arg("top"), py::arg("advance"),
        "Adds an image, a copy of (x, y, w, h) of a depth-8 mask (0 full ink, 255 none), for a\n"
        "character that no face has. left, top: from the pen to its corner, top upwards.");
    c.def(
        "set_replacement",
        [](Font& font, Size code) {
            WithFont(font, nullptr, [&] { font.engine.SetReplacement(code.value); });
        },
        py::arg("code"), "The character drawn for those that are missing; 0 for none.");
    c.def(
        "set_tracking",
        [](Font& font, Whole pixels) {
            WithFont(font, nullptr, [&] { font.engine.SetTracking(pixels); });
        },
        py::arg("pixels"), "Pixels added between characters.");
    c.def(
        "set_line_metrics",
        [](Font& font, Whole ascent, Whole descent, Whole gap) {
            WithFont(font, nullptr, [&] { font.engine.SetLineMetrics(ascent, descent, gap); });
        },
        py::arg("ascent"), py::arg("descent"), py::arg("gap"),
        "What a line takes above and below its baseline, and the gap to the next.");
    const auto metric = [](int (kit::Font::*read)() const) {
        return [read](Font& font) {
            return WithFont(font, nullptr, [&] { return (font.engine.*read)(); });
        };
    };
    c.def_property_readonly("ascent", metric(&kit::Font::Ascent), "Pixels above the baseline.");
    c.def_property_readonly("descent", metric(&kit::Font::Descent), "Pixels below it.");
    c.def_property_readonly("line_gap", metric(&kit::Font::LineGap), "Pixels between lines.");
    c.def_property_readonly("tracking", metric(&kit::Font::Tracking), "Pixels between characters.");
    c.def_property_readonly("line_height", metric(&kit::Font::LineHeight),
                            "From baseline to baseline.");
    c.def(
        "has",
        [](Font& font, Size code) {
            return WithFont(font, nullptr, [&] { return font.engine.Has(code.value); });
        },
        py::arg("code"), "Whether a face or an image has this character.");
}

void BindEnums(py::module_& module) {
    py::enum_<kit::AlignX>(module, "AlignX", "Where a string lies along its line.")
        .value("LEFT", kit::AlignX::kLeft)
        .value("CENTER", kit::AlignX::kCenter)
        .value("RIGHT", kit::AlignX::kRight);
    py::enum_<kit::AlignY>(module, "AlignY", "Where lines lie in the height of a box.")
        .value("TOP", kit::AlignY::kTop)
        .value("BASELINE", kit::AlignY::kBaseline)
        .value("MIDDLE", kit::AlignY::kMiddle)
        .value("BOTTOM", kit::AlignY::kBottom);
    py::enum_<kit::Turn>(module, "Turn", "Which way the baseline runs.")
        .value("NONE", kit::Turn::kNone)
        .value("UP", kit::Turn::kUp)
        .value("DOWN", kit::Turn::kDown);
}

void BindMeasures(py::module_& module) {
    module.def(
        "measure_string",
        [](Font& font, const std::string& text) {
            return WithFont(font, nullptr, [&] { return kit::MeasureString(font.engine, text); });
        },
        py::arg("font"), py::arg("text"), "The width of a string in pixels.");
    module.def(
        "next_line",
        [](Font& font, const std::string& text, Whole maxWidth) {
            const kit::TextLine line =
                WithFont(font, nullptr, [&] { return kit::NextLine(font.engine, text, maxWidth); });
            return py::make_tuple(Characters(text, line.length), Characters(text, line.next),
                                  line.width);
        },
        py::arg("font"), py::arg("text"), py::arg("max_width"),
        "The first line at most max_width pixels wide, as (length, next, width): its characters\n"
        "without spaces at its end, where the next line begins, its width in pixels.");
    module.def(
        "fit_string",
        [](Font& font, const std::string& text, Whole maxWidth) {
            const kit::TextFit fit = WithFont(
                font, nullptr, [&] { return kit::FitString(font.engine, text, maxWidth); });
            return py::make_tuple(Characters(text, fit.length), fit.width, fit.hasEllipsis);
        },
        py::arg("font"), py::arg("text"), py::arg("max_width"),
        "The longest beginning that fits with an ellipsis, as (length, width, has_ellipsis).");
}

void BindDrawing(py::module_& module) {
    module.def(
        "draw_string",
        [](Surface& target, Font& font, Whole x, Whole y, const std::string& text, Ink color,
           kit::AlignX align, kit::Turn turn) {
            return WithFont(font, &target, [&] {
                return kit::DrawString(*target.engine, font.engine, x, y, text, color.color, align,
                                       turn);
            });
        },
        py::arg("target"), py::arg("font"), py::arg("x"), py::arg("y"), py::arg("text"),
        py::arg("color"), py::arg("align") = kit::AlignX::kLeft, py::arg("turn") = kit::Turn::kNone,
        "Draws a string from a pen position on the baseline and gives its width.");
    module.def(
        "draw_string_in_box",
        [](Surface& target, Font& font, Whole x, Whole y, Whole w, Whole h, const std::string& text,
           Ink color, kit::AlignX alignX, kit::AlignY alignY, bool wrap, bool ellipsis,
           kit::Turn turn) {
            const kit::TextBox box{x, y, w, h};
            const kit::TextStyle style{color.color, alignX, alignY, wrap, ellipsis, turn};
            return WithFont(font, &target, [&] {
                return kit::DrawStringInBox(*target.engine, font.engine, box, text, style);
            });
        },
        py::arg("target"), py::arg("font"), py::arg("x"), py::arg("y"), py::arg("w"), py::arg("h"),
        py::arg("text"), py::arg("color"), py::arg("align_x") = kit::AlignX::kLeft,
        py::arg("align_y") = kit::AlignY::kTop, py::arg("wrap") = false,
        py::arg("ellipsis") = false, py::arg("turn") = kit::Turn::kNone,
        "Sets a text into a box and gives the number of lines drawn. wrap: break lines at the\n"
        "box's width. ellipsis: cut what does not fit; otherwise text may leave the box.");
}

}  // namespace

void BindText(py::module_& module) {
    BindFont(module);
    BindEnums(module);
    BindMeasures(module);
    BindDrawing(module);
}

}  // namespace gfx::python
