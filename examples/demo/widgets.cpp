// Widgets are composed of masked fills for surfaces and smooth lines for marks.
#include "widgets.h"

namespace demo {
namespace {

int Pixel(double v) { return static_cast<int>(std::lround(v)); }

void SmoothLine(GfxSurface& target, Point from, Point to, Color color) {
    target.DrawAALine(Pixel(from.x - 0.5), Pixel(from.y - 0.5), Pixel(to.x - 0.5),
                      Pixel(to.y - 0.5), color);
}

// Light falling on the upper part of a card.
void DrawSheen(const Panel& panel, Box box) {
    const Point half{box.w / 2.0, box.h / 2.0};
    const Surface mask =
        MakeMask(static_cast<unsigned>(box.w), static_cast<unsigned>(box.h), [&](Point p) {
            const double fall = std::max(0.0, 1 - p.y / box.h);
            return fall * fall * Coverage(RoundedBoxDistance(p, half, half, kCardRadius));
        });
    FillMask(panel.screen, box.x, box.y, mask, Fade(0x90B0D0, 0.10));
}

}  // namespace

void DrawCard(const Panel& panel, Box box, std::string_view title) {
    const Box shadow{box.x, box.y + 5, box.w, box.h};
    GlowRounded(panel.screen, shadow, kCardRadius, 12, Fade(0x000000, 0.55));
    FillRounded(panel.screen, box, kCardRadius, kCard);
    DrawSheen(panel, box);
    OutlineRounded(panel.screen, box, kCardRadius, kCardEdge);
    panel.type.label.Draw(panel.screen, box.x + kCardPadding, box.y + 28, kSoftText, title);
}

void DrawReading(const Panel& panel, int x, int y, std::string_view caption, std::string_view value,
                 std::string_view unit) {
    panel.type.label.Draw(panel.screen, x, y, kFaintText, caption);
    const int width = panel.type.reading.Draw(panel.screen, x, y + 20, kText, value);
    panel.type.scale.Draw(panel.screen, x + width + 4, y + 20, kSoftText, unit);
}

void DrawBar(const Panel& panel, Box box, double part, Color color) {
    const double radius = box.h / 2.0;
    FillRounded(panel.screen, box, radius, kTrack);
    const Box filled{box.x, box.y, std::max(box.h, Pixel(box.w * part)), box.h};
    FillRounded(panel.screen, filled, radius, color);
}

void DrawScale(const Panel& panel, const Scale& scale, double value, Color from, Color to) {
    FillArc(panel.screen, scale.center, scale.radius, scale.halfWidth, scale.start, scale.sweep,
            kTrack);
    const double sweep = scale.AngleOf(value) - scale.start;
    const double reach = scale.radius + scale.halfWidth + 16;
    const int left = static_cast<int>(scale.center.x - reach);
    const int top = static_cast<int>(scale.center.y - reach);
    const unsigned size = static_cast<unsigned>(2 * reach) + 2;
    const Point middle = scale.center - Point{static_cast<double>(left), static_cast<double>(top)};
    const Surface arc = MakePicture(size, size, [&](Point p) {
        const Point off = p - middle;
        const double distance = ArcDistance(off, scale.radius, scale.halfWidth, scale.start, sweep);
        double along = std::atan2(off.x, -off.y) * 180 / kPi - scale.start;
        along -= 360 * std::floor((along + 20) / 360);  // the round start lies a little before 0
        const Color color = Mix(from, to, std::clamp(along / sweep, 0.0, 1.0));
        const double glow = 0.30 * std::pow(std::clamp(1 - distance / 15, 0.0, 1.0), 2);
        return Fade(color, std::max(Coverage(distance), glow));
    });
    panel.screen.RectBlend(left, top, size, size, 0, 0, arc.Get(), false);
}

void DrawTicks(const Panel& panel, const Scale& scale, double step, double inner, double outer,
               Color color) {
    const int count = Pixel((scale.highest - scale.lowest) / step);
    for (int i = 0; i <= count; ++i) {
        const double angle = scale.AngleOf(scale.lowest + i * step);
        SmoothLine(panel.screen, OnCircle(scale.center, inner, angle),
                   OnCircle(scale.center, outer, angle), color);
    }
}

void DrawNeedle(const Panel& panel, Point center, double degrees, double from, double to,
                int halfBase, Color color) {
    const Point tip = OnCircle(center, to, degrees);
    const Point base = OnCircle(center, from, degrees);
    FillDisc(panel.screen, base, halfBase, color);
    for (int half = -2 * halfBase; half <= 2 * halfBase; ++half) {  // half pixels leave no gap
        SmoothLine(panel.screen, OnCircle(base, 0.5 * half, degrees + 90), tip, color);
    }
}

}  // namespace demo
