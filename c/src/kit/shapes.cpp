// Canvas in C.
#include <gfx/kit/shapes.h>

#include "kit_shapes.h"

using gfx::c::IsNamed;
using gfx::c::On;
using namespace gfx::c::kit;
using namespace gfx::kit;

static Canvas* Engine(gfx_canvas* c) { return reinterpret_cast<Canvas*>(c); }

static bool IsStroke(gfx_stroke s) {
    return IsNamed(s.cap, Cap::kSquare) && IsNamed(s.join, Join::kBevel);
}
static Stroke InKit(gfx_stroke s) {
    return {InKit(s.width), static_cast<Cap>(s.cap), static_cast<Join>(s.join),
            InKit(s.miter_limit)};
}

gfx_fixed gfx_fixed_from_pixels(double pixels) noexcept { return Fixed(pixels).Units(); }

gfx_angle gfx_angle_from_degrees(double degrees) noexcept {
    return Angle::Degrees(degrees).Units();
}

gfx_point gfx_on_circle(gfx_point center, gfx_fixed radius, gfx_angle angle) noexcept {
    const Point p = OnCircle(InKit(center), InKit(radius), Angle::FromUnits(angle));
    return {p.x.Units(), p.y.Units()};
}

gfx_status gfx_canvas_new(gfx_surface* target, gfx_canvas** canvas) noexcept {
    if (target == nullptr) return GFX_NULL_ARGUMENT;
    return gfx::c::MakeObject(canvas,
                              [&] { return gfx::c::MakeInHooks<Canvas>(*gfx::c::Engine(target)); });
}

gfx_status gfx_canvas_delete(gfx_canvas** canvas) noexcept {
    return gfx::c::DestroyObject(canvas, gfx::c::DestroyInHooks<Canvas>);
}

gfx_status gfx_canvas_set_target(gfx_canvas* canvas, gfx_surface* target) noexcept {
    if (target == nullptr) return GFX_NULL_ARGUMENT;
    return On(canvas, [&](Canvas& c) { c.SetTarget(*gfx::c::Engine(target)); });
}

gfx_status gfx_canvas_fill_rect(gfx_canvas* canvas, gfx_fixed_rect rect, gfx_paint paint) noexcept {
    return On(canvas, [&](Canvas& c) { c.FillRect(InKit(rect), InKit(paint)); });
}

gfx_status gfx_canvas_fill_round_rect(gfx_canvas* canvas, gfx_fixed_rect rect, gfx_fixed radius,
                                      gfx_paint paint) noexcept {
    return On(canvas,
              [&](Canvas& c) { c.FillRoundRect(InKit(rect), InKit(radius), InKit(paint)); });
}

gfx_status gfx_canvas_outline_round_rect(gfx_canvas* canvas, gfx_fixed_rect rect, gfx_fixed radius,
                                         gfx_fixed width, gfx_paint paint) noexcept {
    return On(canvas, [&](Canvas& c) {
        c.OutlineRoundRect(InKit(rect), InKit(radius), InKit(width), InKit(paint));
    });
}

gfx_status gfx_canvas_fill_circle(gfx_canvas* canvas, gfx_point center, gfx_fixed radius,
                                  gfx_paint paint) noexcept {
    return On(canvas, [&](Canvas& c) { c.FillCircle(InKit(center), InKit(radius), InKit(paint)); });
}

gfx_status gfx_canvas_draw_circle(gfx_canvas* canvas, gfx_point center, gfx_fixed radius,
                                  gfx_fixed width, gfx_paint paint) noexcept {
    return On(canvas, [&](Canvas& c) {
        c.DrawCircle(InKit(center), InKit(radius), InKit(width), InKit(paint));
    });
}

gfx_status gfx_canvas_draw_arc(gfx_canvas* canvas, gfx_point center, gfx_fixed radius,
                               gfx_fixed width, gfx_angle start, gfx_angle sweep, gfx_cap cap,
                               gfx_paint paint) noexcept {
    if (!IsNamed(cap, Cap::kSquare)) return GFX_NO_SUCH_VALUE;
    return On(canvas, [&](Canvas& c) {
        c.DrawArc(InKit(center), InKit(radius), InKit(width), Angle::FromUnits(start),
                  Angle::FromUnits(sweep), static_cast<Cap>(cap), InKit(paint));
    });
}

gfx_status gfx_canvas_fill_polygon(gfx_canvas* canvas, const gfx_point* points, int count,
                                   gfx_fill_rule rule, gfx_paint paint) noexcept {
    if (!IsNamed(rule, FillRule::kEvenOdd)) return GFX_NO_SUCH_VALUE;
    return On(canvas, [&](Canvas& c) {
        const Array<Point> inKit(points, count);
        c.FillPolygon(inKit.Get(), count, static_cast<FillRule>(rule), InKit(paint));
    });
}

gfx_status gfx_canvas_draw_line(gfx_canvas* canvas, gfx_point from, gfx_point to, gfx_stroke stroke,
                                gfx_paint paint) noexcept {
    if (!IsStroke(stroke)) return GFX_NO_SUCH_VALUE;
    return On(canvas,
              [&](Canvas& c) { c.DrawLine(InKit(from), InKit(to), InKit(stroke), InKit(paint)); });
}

gfx_status gfx_canvas_draw_polyline(gfx_canvas* canvas, const gfx_point* points, int count,
                                    bool closed, gfx_stroke stroke, gfx_paint paint) noexcept {
    if (!IsStroke(stroke)) return GFX_NO_SUCH_VALUE;
    return On(canvas, [&](Canvas& c) {
        const Array<Point> inKit(points, count);
        c.DrawPolyline(inKit.Get(), count, closed, InKit(stroke), InKit(paint));
    });
}
