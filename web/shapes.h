// The kit's shapes and text with plain numbers for arguments, as sliders give them.
#pragma once

#include <gfx/font_cache.h>
#include <gfx/kit/shapes.h>
#include <gfx/surface.h>

#include <string>

namespace playground {

/// A canvas. Lengths are pixels, angles whole degrees clockwise from the top, colours words of the
/// engine, caps 0 butt, 1 round, 2 square.
class Shapes {
public:
    explicit Shapes(GfxSurface& target) : canvas_(target) {}

    void FillRect(double x, double y, double w, double h, unsigned color);
    void FillRoundRect(double x, double y, double w, double h, double radius, unsigned color);
    void OutlineRoundRect(double x, double y, double w, double h, double radius, double width,
                          unsigned color);
    void FillCircle(double x, double y, double radius, unsigned color);
    void DrawCircle(double x, double y, double radius, double width, unsigned color);
    void DrawArc(double x, double y, double radius, double width, int start, int sweep, int cap,
                 unsigned color);
    void DrawLine(double x0, double y0, double x1, double y1, double width, int cap,
                  unsigned color);

    /// A rectangle filled from its left to its right edge with a gradient of two colours.
    void FillGradient(double x, double y, double w, double h, unsigned from, unsigned to);

    /// A circle filled from its centre to its edge.
    void FillGlow(double x, double y, double radius, unsigned from, unsigned to);

private:
    gfx::kit::Canvas canvas_;
};

/// The kit's DrawString: align 0 left, 1 centre, 2 right; turn 0 none, 1 up, 2 down.
int WriteString(GfxSurface& target, GfxFontCache& font, int x, int y, const std::string& text,
                unsigned color, int align, int turn);

}  // namespace playground
