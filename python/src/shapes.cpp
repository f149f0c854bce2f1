// The kit's shapes: Canvas, Gradient, Stroke.
#include <gfx/kit/shapes.h>
#include <pybind11/stl.h>

#include <array>
#include <utility>
#include <vector>

#include "arguments.h"
#include "bind.h"

namespace py = pybind11;

namespace gfx::python {

/// What a shape is filled with: a Gradient, or anything that is a colour.
struct Filling {
    kit::Color color;
    const kit::Gradient* gradient = nullptr;

    operator kit::Paint() const {
        return gradient == nullptr ? kit::Paint(color) : kit::Paint(*gradient);
    }
};

}  // namespace gfx::python

namespace pybind11::detail {

template <>
struct type_caster<gfx::python::Filling> {
    bool load(handle given, bool) {
        if (isinstance<gfx::kit::Gradient>(given)) {
            filling.gradient = pybind11::cast<const gfx::kit::Gradient*>(given);
            return true;
        }
        return gfx::python::LoadColor(given, filling.color);
    }
    template <class>
    using cast_op_type = const gfx::python::Filling&;
    operator const gfx::python::Filling&() const { return filling; }
    static constexpr auto name = const_name("Gradient | Color | tuple | str");
    gfx::python::Filling filling;
};

}  // namespace pybind11::detail

namespace gfx::python {
namespace {

using PointPair = std::array<double, 2>;
using RectOfFour = std::array<double, 4>;

kit::Point PointOf(const PointPair& pair) { return {pair[0], pair[1]}; }
kit::FixedRect RectOf(const RectOfFour& r) { return {r[0], r[1], r[2], r[3]}; }

std::vector<kit::Point> PointsOf(const py::object& given) {
    std::vector<kit::Point> points;
    for (const py::handle each : given) {
        try {
            points.push_back(PointOf(py::cast<PointPair>(each)));
        } catch (const py::cast_error&) {
            throw py::type_error("a point is a pair of numbers");
        }
    }
    if (points.size() > 0x7FFFFFFF) throw py::value_error("too many points");
    return points;
}

struct Canvas : Exclusive {
    explicit Canvas(std::shared_ptr<Surface> surface)
        : target(std::move(surface)), engine(*target->engine) {}

    std::shared_ptr<Surface> target;
    kit::Canvas engine;
};

using Class = py::class_<Canvas, std::shared_ptr<Canvas>>;

/// Scan conversion takes long enough for any shape to let other threads run.
template <class Draw>
void OnCanvas(Canvas& c, Draw draw) {
    Alone({&c, c.target.get()}, Length::kLong, [&] { draw(c.engine); });
}

std::vector<kit::ColorStop> StopsOf(const py::object& given) {
    std::vector<kit::ColorStop> stops;
    for (const py::handle each : given) {
        const auto pair = py::cast<py::sequence>(each);
        if (pair.size() != 2) throw py::value_error("a stop is (at, color)");
        const py::object at = pair[0];
        const py::object color = pair[1];
        kit::ColorStop stop{static_cast<int>(WholeWithin(at.ptr(), 0, 255)), {}};
        if (!LoadColor(color, stop.color)) throw py::type_error("a stop is (at, color)");
        stops.push_back(stop);
    }
    return stops;
}

void BindGradient(py::module_& module) {
    using kit::Gradient;
    py::class_<Gradient>(module, "Gradient",
                         "256 steps of colour along a line or around a point.\n\n"
                         "stops: pairs (at, color), at from 0 to 255 in ascending order.")
        .def_static(
            "linear",
            [](PointPair from, PointPair to, const py::object& given) {
                const auto stops = StopsOf(given);
                return Gradient::Linear(PointOf(from), PointOf(to), stops.data(),
                                        static_cast<int>(stops.size()));
            },
            py::arg("start"), py::arg("end"), py::arg("stops"), "Along the line from start to end.")
        .def_static(
            "radial",
            [](PointPair center, double radius, const py::object& given) {
                const auto stops = StopsOf(given);
                return Gradient::Radial(PointOf(center), radius, stops.data(),
                                        static_cast<int>(stops.size()));
            },
            py::arg("center"), py::arg("radius"), py::arg("stops"),
            "From a centre outwards to a distance.");
}

void BindStroke(py::module_& module) {
    py::enum_<kit::Cap>(module, "Cap", "How a line ends.")
        .value("BUTT", kit::Cap::kButt)
        .value("ROUND", kit::Cap::kRound)
        .value("SQUARE", kit::Cap::kSquare);
    py::enum_<kit::Join>(module, "Join", "How two segments of a line meet.")
        .value("MITER", kit::Join::kMiter)
        .value("ROUND", kit::Join::kRound)
        .value("BEVEL", kit::Join::kBevel);
    py::enum_<kit::FillRule>(module, "FillRule", "Which points a crossing polygon holds.")
        .value("NON_ZERO", kit::FillRule::kNonZero)
        .value("EVEN_ODD", kit::FillRule::kEvenOdd);
    py::class_<kit::Stroke>(module, "Stroke", "How a line is drawn; lengths in pixels.")
        .def(py::init([](double width, kit::Cap cap, kit::Join join, double miterLimit) {
                 return kit::Stroke{width, cap, join, miterLimit};
             }),
             py::arg("width") = 1.0, py::arg("cap") = kit::Cap::kButt,
             py::arg("join") = kit::Join::kMiter, py::arg("miter_limit") = 4.0);
}

void BindRectsAndCircles(Class& c) {
    c.def(
        "fill_rect",
        [](Canvas& self, RectOfFour rect, const Filling& paint) {
            OnCanvas(self, [&](kit::Canvas& k) { k.FillRect(RectOf(rect), paint); });
        },
        py::arg("rect"), py::arg("paint"), "Fills (x, y, w, h).");
    c.def(
        "fill_round_rect",
        [](Canvas& self, RectOfFour rect, double radius, const Filling& paint) {
            OnCanvas(self, [&](kit::Canvas& k) { k.FillRoundRect(RectOf(rect), radius, paint); });
        },
        py::arg("rect"), py::arg("radius"), py::arg("paint"),
        "Fills (x, y, w, h) with round corners.");
    c.def(
        "outline_round_rect",
        [](Canvas& self, RectOfFour rect, double radius, double width, const Filling& paint) {
            OnCanvas(self, [&](kit::Canvas& k) {
                k.OutlineRoundRect(RectOf(rect), radius, width, paint);
            });
        },
        py::arg("rect"), py::arg("radius"), py::arg("width"), py::arg("paint"),
        "Draws such an outline inside of the edge.");
    c.def(
        "fill_circle",
        [](Canvas& self, PointPair center, double radius, const Filling& paint) {
            OnCanvas(self, [&](kit::Canvas& k) { k.FillCircle(PointOf(center), radius, paint); });
        },
        py::arg("center"), py::arg("radius"), py::arg("paint"), "Fills a circle.");
    c.def(
        "draw_circle",
        [](Canvas& self, PointPair center, double radius, double width, const Filling& paint) {
            OnCanvas(self,
                     [&](kit::Canvas& k) { k.DrawCircle(PointOf(center), radius, width, paint); });
        },
        py::arg("center"), py::arg("radius"), py::arg("width"), py::arg("paint"),
        "Draws a circle's line, half of its width on either side.");
    c.def(
        "draw_arc",
        [](Canvas& self, PointPair center, double radius, double width, double start, double sweep,
           const Filling& paint, kit::Cap cap) {
            OnCanvas(self, [&](kit::Canvas& k) {
                k.DrawArc(PointOf(center), radius, width, kit::Angle::Degrees(start),
                          kit::Angle::Degrees(sweep), cap, paint);
            });
        },
        py::arg("center"), py::arg("radius"), py::arg("width"), py::arg("start"), py::arg("sweep"),
        py::arg("paint"), py::arg("cap") = kit::Cap::kButt,
        "Draws a piece of a circle's line; degrees from the top, clockwise.");
}

void BindPoints(Class& c) {
    c.def(
        "fill_polygon",
        [](Canvas& self, const py::object& given, const Filling& paint, kit::FillRule rule) {
            const auto points = PointsOf(given);
            OnCanvas(self, [&](kit::Canvas& k) {
                k.FillPolygon(points.data(), static_cast<int>(points.size()), rule, paint);
            });
        },
        py::arg("points"), py::arg("paint"), py::arg("rule") = kit::FillRule::kNonZero,
        "Fills a polygon, which closes itself.");
    c.def(
        "draw_line",
        [](Canvas& self, PointPair from, PointPair to, const Filling& paint,
           const kit::Stroke& stroke) {
            OnCanvas(self, [&](kit::Canvas& k) {
                k.DrawLine(PointOf(from), PointOf(to), stroke, paint);
            });
        },
        py::arg("start"), py::arg("end"), py::arg("paint"), py::arg("stroke") = kit::Stroke{},
        "Draws a straight line.");
    c.def(
        "draw_polyline",
        [](Canvas& self, const py::object& given, const Filling& paint, const kit::Stroke& stroke,
           bool closed) {
            const auto points = PointsOf(given);
            OnCanvas(self, [&](kit::Canvas& k) {
                k.DrawPolyline(points.data(), static_cast<int>(points.size()), closed, stroke,
                               paint);
            });
        },
        py::arg("points"), py::arg("paint"), py::arg("stroke") = kit::Stroke{},
        py::arg("closed") = false, "Draws a line through points, as one shape.");
}

}  // namespace

void BindShapes(py::module_& module) {
    BindGradient(module);
    BindStroke(module);
    Class c(module, "Canvas",
            "Anti-aliased shapes on one surface. Coordinates are pixels and fractions of them;\n"
            "pixel (x, y) is the square from (x, y) to (x + 1, y + 1).");
    c.def(py::init<std::shared_ptr<Surface>>(), py::arg("target").none(false));
    c.def_readonly("target", &Canvas::target, "The surface drawn on.");
    BindRectsAndCircles(c);
    BindPoints(c);
}

}  // namespace gfx::python
