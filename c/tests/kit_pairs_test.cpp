// Each function of the kit's shapes, pictures and text in C beside what it stands for in C++.
#include <gfx/kit/pictures.h>
#include <gfx/kit/shapes.h>
#include <gfx/kit/text.h>

#include "world.h"

namespace test {
namespace {

using namespace gfx::kit;

constexpr std::uint32_t kInk = 0x40AA5511;
constexpr const char* kText = "Ag, wide-open h\u00E4user\nnext";
constexpr gfx_paint kPaint = {nullptr, kInk};
constexpr gfx_fixed_rect kRect = {700, 900, 5000, 3000};
constexpr gfx_point kPoints[] = {{900, 1000}, {8000, 2500}, {2600, 6100}, {2000, 900}};
constexpr gfx_color_stop kStops[] = {{0, 0x00FF0000}, {90, 0x8000FF00}, {255, 0x000000FF}};
constexpr gfx_stroke kStroke = {640, GFX_CAP_ROUND, GFX_JOIN_BEVEL, 1024};
constexpr gfx_picture_rect kFrom = {2, 3, 15, 11};

Fixed U(int units) { return Fixed::FromUnits(units); }
Color Ink() { return Color::FromWord(kInk); }
FixedRect Rect() { return {U(700), U(900), U(5000), U(3000)}; }
const Point kCorners[] = {
    {U(900), U(1000)}, {U(8000), U(2500)}, {U(2600), U(6100)}, {U(2000), U(900)}};
const ColorStop kColors[] = {{0, Color::FromWord(0x00FF0000)},
                             {90, Color::FromWord(0x8000FF00)},
                             {255, Color::FromWord(0x000000FF)}};
Stroke Line() { return {U(640), Cap::kRound, Join::kBevel, U(1024)}; }

// Made and drawn with, then deleted.
gfx_status DrawGradient(World& w, gfx_status made, gfx_gradient* gradient) {
    if (made != GFX_OK) return made;
    const gfx_status status = gfx_canvas_fill_rect(w.cCanvas, kRect, {gradient, 0});
    gfx_gradient_delete(&gradient);
    return status;
}

void DrawGradient(World& w, const Gradient& gradient) {
    { Block stops(1); }
    Block object(1);
    Canvas(*w.surface).FillRect(Rect(), gradient);
}

gfx_status Measured(World& w, gfx_status status) {
    int width = 0;
    if (status != GFX_OK) return status;
    status = gfx_measure_string(w.cTextFont, kText, GFX_WHOLE_TEXT, &width);
    if (status == GFX_OK) w.Record(width);
    return status;
}

}  // namespace

#define ON_CANVAS(nameInC, nameInCpp, argumentsInC, ...)                                    \
    {                                                                                       \
        "gfx_canvas_" #nameInC, [](World& w) { return gfx_canvas_##nameInC argumentsInC; }, \
            [](World& w) { Canvas(*w.surface).nameInCpp(__VA_ARGS__); }                     \
    }
#define C w.cCanvas

const std::vector<Pair> kKitPairs = {
    ON_CANVAS(fill_rect, FillRect, (C, kRect, kPaint), Rect(), Ink()),
    ON_CANVAS(fill_round_rect, FillRoundRect, (C, kRect, 600, kPaint), Rect(), U(600), Ink()),
    ON_CANVAS(outline_round_rect, OutlineRoundRect, (C, kRect, 600, 300, kPaint), Rect(), U(600),
              U(300), Ink()),
    ON_CANVAS(fill_circle, FillCircle, (C, kPoints[1], 1700, kPaint), kCorners[1], U(1700), Ink()),
    ON_CANVAS(draw_circle, DrawCircle, (C, kPoints[1], 1700, 500, kPaint), kCorners[1], U(1700),
              U(500), Ink()),
    ON_CANVAS(draw_arc, DrawArc,
              (C, kPoints[1], 1700, 500, 1 << 20, 5 << 20, GFX_CAP_SQUARE, kPaint), kCorners[1],
              U(1700), U(500), Angle::FromUnits(1 << 20), Angle::FromUnits(5 << 20), Cap::kSquare,
              Ink()),
    ON_CANVAS(draw_line, DrawLine, (C, kPoints[0], kPoints[1], kStroke, kPaint), kCorners[0],
              kCorners[1], Line(), Ink()),
    {"gfx_canvas_fill_polygon",
     [](World& w) { return gfx_canvas_fill_polygon(C, kPoints, 4, GFX_FILL_EVEN_ODD, kPaint); },
     [](World& w) {
         Block corners(1);
         Canvas(*w.surface).FillPolygon(kCorners, 4, FillRule::kEvenOdd, Ink());
     }},
    {"gfx_canvas_draw_polyline",
     [](World& w) { return gfx_canvas_draw_polyline(C, kPoints, 4, true, kStroke, kPaint); },
     [](World& w) {
         Block corners(1);
         Canvas(*w.surface).DrawPolyline(kCorners, 4, true, Line(), Ink());
     }},
    {"gfx_canvas_new",
     [](World& w) {
         gfx_canvas* canvas = nullptr;
         const gfx_status status = gfx_canvas_new(w.cSurface, &canvas);
         return status == GFX_OK ? gfx_canvas_delete(&canvas) : status;
     },
     [](World&) { Block object(1); }},
    {"gfx_canvas_delete", [](World& w) { return gfx_canvas_delete(&C); }, [](World&) {}},
    {"gfx_canvas_set_target",
     [](World& w) {
         const gfx_status status = gfx_canvas_set_target(C, w.cSource);
         return status == GFX_OK ? gfx_canvas_fill_rect(C, kRect, kPaint) : status;
     },
     [](World& w) { Canvas(*w.source).FillRect(Rect(), Ink()); }},
    {"gfx_gradient_new_linear",
     [](World& w) {
         gfx_gradient* g = nullptr;
         const gfx_status made = gfx_gradient_new_linear(kPoints[0], kPoints[1], kStops, 3,
                                                         C == nullptr ? nullptr : &g);
         return DrawGradient(w, made, g);
     },
     [](World& w) { DrawGradient(w, Gradient::Linear(kCorners[0], kCorners[1], kColors, 3)); }},
    {"gfx_gradient_new_radial",
     [](World& w) {
         gfx_gradient* g = nullptr;
         const gfx_status made =
             gfx_gradient_new_radial(kPoints[1], 2100, kStops, 3, C == nullptr ? nullptr : &g);
         return DrawGradient(w, made, g);
     },
     [](World& w) { DrawGradient(w, Gradient::Radial(kCorners[1], U(2100), kColors, 3)); }},
    {"gfx_gradient_delete",
     [](World& w) {
         gfx_gradient* g = nullptr;
         if (C != nullptr) {
             const gfx_status made = gfx_gradient_new_radial(kPoints[1], 2100, kStops, 3, &g);
             if (made != GFX_OK) return made;
         }
         return gfx_gradient_delete(&g);
     },
     [](World&) {
         { Block stops(1); }
         Block object(1);
     }},
    {"gfx_draw_scaled",
     [](World& w) {
         return gfx_draw_scaled(w.cSurface, {4, 5, 29, 19}, w.cSource, kFrom, GFX_SCALING_AREA,
                                GFX_WRITING_BLEND);
     },
     [](World& w) {
         DrawScaled(*w.surface, {4, 5, 29, 19}, *w.source, {2, 3, 15, 11}, Scaling::kArea,
                    Writing::kBlend);
     }},
    {"gfx_draw_oriented",
     [](World& w) {
         return gfx_draw_oriented(w.cSurface, 4, 7, w.cSource, kFrom, GFX_MIRRORED_QUARTER,
                                  GFX_WRITING_BLEND);
     },
     [](World& w) {
         DrawOriented(*w.surface, 4, 7, *w.source, {2, 3, 15, 11}, Orientation::kMirroredQuarter,
                      Writing::kBlend);
     }},
    {"gfx_draw_indexed",
     [](World& w) {
         std::uint32_t colors[256];
         for (std::uint32_t i = 0; i < 256; ++i)
             colors[i] = i * 0x01030507;
         return gfx_draw_indexed(w.cSurface, 4, 7, w.cMask, {1, 2, 9, 8}, colors, 77,
                                 GFX_WRITING_BLEND);
     },
     [](World& w) {
         Palette palette;
         for (std::uint32_t i = 0; i < 256; ++i)
             palette.colors[i] = Color::FromWord(i * 0x01030507);
         palette.transparent = 77;
         DrawIndexed(*w.surface, 4, 7, *w.mask, {1, 2, 9, 8}, palette, Writing::kBlend);
     }},
    {"gfx_draw_dithered",
     [](World& w) { return gfx_draw_dithered(w.cSurface, 4, 7, w.cSource, kFrom); },
     [](World& w) {
         DrawDithered(*w.surface, 4, 7, *w.source, {2, 3, 15, 11});
     }},
    {"gfx_font_new",
     [](World& w) {
         gfx_font* font = nullptr;
         const gfx_status status = gfx_font_new(w.cFont, &font);
         return status == GFX_OK ? gfx_font_delete(&font) : status;
     },
     [](World&) { Block object(1); }},
    {"gfx_font_delete", [](World& w) { return gfx_font_delete(&w.cTextFont); }, [](World&) {}},
    {"gfx_font_add_face",
     [](World& w) {
         for (int i = 0; i < 7; ++i) {
             const gfx_status status = gfx_font_add_face(w.cTextFont, w.cFont);
             if (status != GFX_OK) return status;
         }
         w.Record(gfx_font_add_face(w.cTextFont, w.cFont) == GFX_TOO_MANY_FACES);
         return GFX_OK;
     },
     [](World& w) { w.Record(true); }},
    {"gfx_font_set_replacement",
     [](World& w) { return Measured(w, gfx_font_set_replacement(w.cTextFont, 'W')); },
     [](World& w) {
         Font font(*w.font);
         font.SetReplacement('W');
         w.Record(MeasureString(font, kText));
     }},
    {"gfx_font_set_tracking",
     [](World& w) { return Measured(w, gfx_font_set_tracking(w.cTextFont, 3)); },
     [](World& w) {
         Font font(*w.font);
         font.SetTracking(3);
         w.Record(MeasureString(font, kText));
     }},
    {"gfx_font_set_line_metrics",
     [](World& w) {
         const gfx_status status = gfx_font_set_line_metrics(w.cTextFont, {11, 4, 2});
         gfx_line_metrics m{};
         gfx_font_line_metrics(w.cTextFont, &m);
         if (status == GFX_OK) w.Record(m.ascent, m.descent, m.gap);
         return status;
     },
     [](World& w) { w.Record(11, 4, 2); }},
    {"gfx_font_line_metrics",
     [](World& w) {
         gfx_line_metrics m{};
         const gfx_status status = gfx_font_line_metrics(w.cTextFont, &m);
         if (status == GFX_OK) w.Record(m.ascent, m.descent, m.gap);
         return status;
     },
     [](World& w) {
         const Font font(*w.font);
         w.Record(font.Ascent(), font.Descent(), font.LineGap());
     }},
    {"gfx_font_has",
     [](World& w) {
         bool has = false;
         const gfx_status status = gfx_font_has(w.cTextFont, 0xE4, &has);
         if (status == GFX_OK) w.Record(has);
         return status;
     },
     [](World& w) { w.Record(Font(*w.font).Has(0xE4)); }},
    {"gfx_measure_string", [](World& w) { return Measured(w, GFX_OK); },
     [](World& w) { w.Record(MeasureString(Font(*w.font), kText)); }},
    {"gfx_draw_string",
     [](World& w) {
         int width = 0;
         const gfx_status status = gfx_draw_string(w.cSurface, w.cTextFont, 17, 21, kText, 5, kInk,
                                                   GFX_ALIGN_CENTER, GFX_TURN_UP, &width);
         if (status == GFX_OK) w.Record(width);
         return status;
     },
     [](World& w) {
         w.Record(DrawString(*w.surface, Font(*w.font), 17, 21, std::string_view(kText, 5), Ink(),
                             AlignX::kCenter, Turn::kUp));
     }},
    {"gfx_next_line",
     [](World& w) {
         gfx_text_line l{};
         const gfx_status status = gfx_next_line(w.cTextFont, kText, GFX_WHOLE_TEXT, 70, &l);
         if (status == GFX_OK) w.Record(l.length, l.next, l.width);
         return status;
     },
     [](World& w) {
         const TextLine l = NextLine(Font(*w.font), kText, 70);
         w.Record(l.length, l.next, l.width);
     }},
    {"gfx_fit_string",
     [](World& w) {
         gfx_text_fit f{};
         const gfx_status status = gfx_fit_string(w.cTextFont, kText, GFX_WHOLE_TEXT, 70, &f);
         if (status == GFX_OK) w.Record(f.length, f.width, f.has_ellipsis);
         return status;
     },
     [](World& w) {
         const TextFit f = FitString(Font(*w.font), kText, 70);
         w.Record(f.length, f.width, f.hasEllipsis);
     }},
    {"gfx_draw_string_in_box",
     [](World& w) {
         int lines = 0;
         const gfx_text_style style = {kInk, GFX_ALIGN_RIGHT, GFX_ALIGN_MIDDLE, GFX_TURN_NONE, true,
                                       true};
         const gfx_status status = gfx_draw_string_in_box(w.cSurface, w.cTextFont, {2, 3, 33, 25},
                                                          kText, GFX_WHOLE_TEXT, style, &lines);
         if (status == GFX_OK) w.Record(lines);
         return status;
     },
     [](World& w) {
         TextStyle style;
         style.color = Ink();
         style.alignX = AlignX::kRight;
         style.alignY = AlignY::kMiddle;
         style.wrap = style.ellipsis = true;
         w.Record(DrawStringInBox(*w.surface, Font(*w.font), {2, 3, 33, 25}, kText, style));
     }},
};

}  // namespace test
