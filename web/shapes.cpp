#include "shapes.h"

#include <gfx/kit/text.h>

namespace playground {
namespace {

using namespace gfx::kit;

Color Ink(unsigned word) { return Color::FromWord(word); }

}  // namespace

void Shapes::FillRect(double x, double y, double w, double h, unsigned color) {
    canvas_.FillRect({x, y, w, h}, Ink(color));
}

void Shapes::FillRoundRect(double x, double y, double w, double h, double radius, unsigned color) {
    canvas_.FillRoundRect({x, y, w, h}, radius, Ink(color));
}

void Shapes::OutlineRoundRect(double x, double y, double w, double h, double radius, double width,
                              unsigned color) {
    canvas_.OutlineRoundRect({x, y, w, h}, radius, width, Ink(color));
}

void Shapes::FillCircle(double x, double y, double radius, unsigned color) {
    canvas_.FillCircle({x, y}, radius, Ink(color));
}

void Shapes::DrawCircle(double x, double y, double radius, double width, unsigned color) {
    canvas_.DrawCircle({x, y}, radius, width, Ink(color));
}

void Shapes::DrawArc(double x, double y, double radius, double width, int start, int sweep, int cap,
                     unsigned color) {
    canvas_.DrawArc({x, y}, radius, width, Angle::Degrees(start), Angle::Degrees(sweep),
                    static_cast<Cap>(cap), Ink(color));
}

void Shapes::DrawLine(double x0, double y0, double x1, double y1, double width, int cap,
                      unsigned color) {
    Stroke stroke;
    stroke.width = width;
    stroke.cap = static_cast<Cap>(cap);
    canvas_.DrawLine({x0, y0}, {x1, y1}, stroke, Ink(color));
}

void Shapes::FillGradient(double x, double y, double w, double h, unsigned from, unsigned to) {
    const Gradient gradient = Gradient::Linear({x, y}, {x + w, y}, Ink(from), Ink(to));
    canvas_.FillRect({x, y, w, h}, gradient);
}

void Shapes::FillGlow(double x, double y, double radius, unsigned from, unsigned to) {
    const Gradient gradient = Gradient::Radial({x, y}, radius, Ink(from), Ink(to));
    canvas_.FillCircle({x, y}, radius, gradient);
}

int WriteString(GfxSurface& target, GfxFontCache& font, int x, int y, const std::string& text,
                unsigned color, int align, int turn) {
    return DrawString(target, Font(font), x, y, text, Ink(color), static_cast<AlignX>(align),
                      static_cast<Turn>(turn));
}

}  // namespace playground
