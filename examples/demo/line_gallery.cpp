// Lines at all slopes: plain, dashed and anti-aliased, opaque and translucent, whole and clipped.
#include <array>
#include <functional>

#include "picture_file.h"
#include "pictures.h"
#include "shapes.h"
#include "text.h"

namespace demo {
namespace {

constexpr int kWidth = 1000;
constexpr int kHeight = 772;
constexpr int kMargin = 40;
constexpr int kCellWidth = 293;
constexpr int kGap = 20;
constexpr int kTop = 112;
constexpr int kCellHeight = 310;

struct Cell {
    GfxSurface& target;
    Point center;
};

// Colours around the circle, dark enough for paper.
Color Spectrum(double degrees) {
    static constexpr std::array<Color, 6> kStops{0xC83838, 0xC88018, 0x389848,
                                                 0x108898, 0x3058C0, 0x8838A8};
    const double position = degrees / 60;
    const auto stop = static_cast<std::size_t>(position) % kStops.size();
    return Mix(kStops[stop], kStops[(stop + 1) % kStops.size()], position - std::floor(position));
}

using Stroke = std::function<void(int x0, int y0, int x1, int y1, Color color)>;

void Fan(Point center, double from, double to, int stepDegrees, double opacity,
         const Stroke& stroke) {
    const auto pixel = [](double v) { return static_cast<int>(std::lround(v)); };
    for (int degrees = 0; degrees < 360; degrees += stepDegrees) {
        const Point inner = OnCircle(center, from, degrees);
        const Point outer = OnCircle(center, to, degrees);
        stroke(pixel(inner.x), pixel(inner.y), pixel(outer.x), pixel(outer.y),
               Fade(Spectrum(degrees), opacity));
    }
}

Stroke Plain(GfxSurface& target) {
    return [&](int x0, int y0, int x1, int y1, Color c) { target.DrawLine(x0, y0, x1, y1, c); };
}

Stroke Smooth(GfxSurface& target) {
    return [&](int x0, int y0, int x1, int y1, Color c) { target.DrawAALine(x0, y0, x1, y1, c); };
}

void PlainFan(Cell cell) { Fan(cell.center, 14, 112, 5, 1, Plain(cell.target)); }

void SmoothFan(Cell cell) { Fan(cell.center, 14, 112, 5, 1, Smooth(cell.target)); }

void DashedFan(Cell cell) {
    static constexpr unsigned short kDash[] = {8, 4};
    static constexpr unsigned short kDots[] = {1, 3};
    static constexpr unsigned short kDashDot[] = {12, 3, 2, 3};
    Fan(cell.center, 14, 50, 5, 1, [&](int x0, int y0, int x1, int y1, Color c) {
        cell.target.DrawLine(x0, y0, x1, y1, c, kDots, 2);
    });
    Fan(cell.center, 54, 80, 5, 1, [&](int x0, int y0, int x1, int y1, Color c) {
        cell.target.DrawLine(x0, y0, x1, y1, c, kDash, 2);
    });
    Fan(cell.center, 84, 112, 5, 1, [&](int x0, int y0, int x1, int y1, Color c) {
        cell.target.DrawLine(x0, y0, x1, y1, c, kDashDot, 4);
    });
}

void SmoothDashedFan(Cell cell) {
    static constexpr unsigned short kDash[] = {9, 5};
    Fan(cell.center, 14, 108, 5, 1, [&](int x0, int y0, int x1, int y1, Color c) {
        cell.target.DrawAALine(x0, y0, x1, y1, c, kDash, 2);
    });
}

// Plain lines on the left and smooth ones on the right, weaker from ring to ring.
void TranslucentFan(Cell cell) {
    const int x = static_cast<int>(cell.center.x);
    const int y = static_cast<int>(cell.center.y);
    for (int stripe = -112; stripe < 112; stripe += 32) {
        cell.target.RectFill(x - 130, y + stripe, 260, 16, Mix(kPaper, kPaperLine, 0.5));
    }
    for (const bool smooth : {false, true}) {
        cell.target.SetClipRect(smooth ? x : x - 120, y - 120, 120, 240);
        const Stroke stroke = smooth ? Smooth(cell.target) : Plain(cell.target);
        Fan(cell.center, 14, 44, 5, 0.9, stroke);
        Fan(cell.center, 48, 78, 5, 0.55, stroke);
        Fan(cell.center, 82, 112, 5, 0.25, stroke);
    }
    cell.target.ResetClipRect();
}

void ClippedFan(Cell cell) {
    const int x = static_cast<int>(cell.center.x) - 86;
    const int y = static_cast<int>(cell.center.y) - 64;
    Fan(cell.center, 14, 112, 5, 0.14, Smooth(cell.target));
    cell.target.RectFill(x, y, 172, 128, 0xFFFFFF);
    cell.target.SetClipRect(x, y, 172, 128);
    Fan(cell.center, 14, 112, 5, 1, Smooth(cell.target));
    cell.target.ResetClipRect();
    cell.target.DrawLine(x - 1, y - 1, x + 172, y - 1, kPaperInk);
    cell.target.DrawLine(x - 1, y + 128, x + 172, y + 128, kPaperInk);
    cell.target.DrawLine(x - 1, y - 1, x - 1, y + 128, kPaperInk);
    cell.target.DrawLine(x + 172, y - 1, x + 172, y + 128, kPaperInk);
}

struct Exhibit {
    const char* title;
    const char* note;
    void (*draw)(Cell);
};

constexpr Exhibit kExhibits[] = {
    {"PLAIN", "72 slopes, one pixel a step", PlainFan},
    {"DASHED", "dots 1-3, dashes 8-4, dash-dot 12-3-2-3", DashedFan},
    {"ANTI-ALIASED", "two pixels share each step", SmoothFan},
    {"ANTI-ALIASED AND DASHED", "dashes 9-5, counted from the left or upper end", SmoothDashedFan},
    {"TRANSLUCENT", "90, 55 and 25 %; left plain, right smooth", TranslucentFan},
    {"CLIPPED", "whole fan faint, inside the frame full", ClippedFan},
};

void DrawExhibit(GfxSurface& target, Typeface& type, int index, const Exhibit& exhibit) {
    const int x = kMargin + index % 3 * (kCellWidth + kGap);
    const int y = kTop + index / 3 * (kCellHeight + kGap);
    target.DrawLine(x, y, x + kCellWidth - 1, y, kPaperInk);
    type.label.Draw(target, x, y + 20, kPaperInk, exhibit.title);
    type.scale.Draw(target, x, y + 36, kPaperFaint, exhibit.note);
    exhibit.draw({target, {x + kCellWidth / 2.0 - 0.5, y + 174.0}});
}

}  // namespace

void DrawLineGallery(const Studio& studio) {
    Surface sheet(32, kWidth, kHeight);
    sheet->RectFill(0, 0, kWidth, kHeight, kPaper);
    studio.type.headline.Draw(*sheet, kMargin, 62, kPaperInk, "Lines");
    studio.type.body.Draw(*sheet, kMargin, 88, kPaperFaint,
                          "Every fan turns through the full circle, five degrees at a time.");
    int index = 0;
    for (const Exhibit& exhibit : kExhibits)
        DrawExhibit(*sheet, studio.type, index++, exhibit);

    const std::string path = studio.PathOf("lines.png");
    WritePicture(path, *sheet);
    Studio::Report(path, "lines at all slopes, from a 32-bit surface");
}

}  // namespace demo
