// The parts of the panel: rope speed, wind chart, wind rose, cabins on the rope, clock.
#include <gfx/kit/text.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <string_view>

#include "panel.h"

namespace playground {
namespace {

using namespace gfx::kit;

// Channels in steps of 8, those of five bits, so that flat areas come out flat.
constexpr Color kGround = Color::FromRgb(0x081018);
constexpr Color kCard = Color::FromRgb(0x101820);
constexpr Color kCardEdge = Color::FromRgb(0x283038);
constexpr Color kTrack = Color::FromRgb(0x283038);
constexpr Color kTick = Color::FromRgb(0x586878);
constexpr Color kText = Color::FromRgb(0xF8FCF8);
constexpr Color kSoft = Color::FromRgb(0xB0B8C8);
constexpr Color kTeal = Color::FromRgb(0x30D0C0);
constexpr Color kBlue = Color::FromRgb(0x48A0F8);
constexpr Color kAmber = Color::FromRgb(0xF8B040);

constexpr Box kSpeedCard{10, 40, 178, 222};
constexpr Box kChartCard{198, 40, 272, 122};
constexpr Box kRoseCard{198, 172, 104, 90};
constexpr Box kRopeCard{312, 172, 158, 90};
constexpr Box kPlot{222, 68, 236, 80};
constexpr Box kSpeedText{52, 128, 92, 44};
constexpr Box kClock{400, 8, 70, 26};
constexpr Box kRose{215, 182, 70, 70};

const Point kDial{99, 158};
constexpr int kDialRadius = 74;
constexpr int kNeedleBase = 56;
constexpr int kNeedleTip = 84;
const Point kRoseCenter{250, 217};
constexpr int kRoseRadius = 26;
const Point kValley{330, 238};
const Point kSummit{452, 200};
constexpr double kLimit = 13;

double AngleOf(double speed) { return -130 + 260 * std::clamp(speed, 0.0, 12.0) / 12; }

FixedRect RectOf(const Box& box) { return {box.x, box.y, box.w, box.h}; }

void Write(const Pen& pen, GfxFontCache& face, int x, int y, std::string_view text, Color color,
           AlignX align, int tracking = 0) {
    Font font(face);
    font.SetTracking(tracking);
    DrawString(pen.surface, font, x, y, text, color, align);
}

/// The box around points, with a margin.
Box Around(const Point* points, int count, int margin) {
    int left = kPanelWidth, top = kPanelHeight, right = 0, bottom = 0;
    for (int i = 0; i < count; ++i) {
        left = std::min(left, points[i].x.Units() / 256 - margin);
        top = std::min(top, points[i].y.Units() / 256 - margin);
        right = std::max(right, points[i].x.Units() / 256 + margin + 1);
        bottom = std::max(bottom, points[i].y.Units() / 256 + margin + 1);
    }
    left = std::max(left, 0);
    top = std::max(top, 0);
    return {left, top, std::min(right, kPanelWidth) - left, std::min(bottom, kPanelHeight) - top};
}

void DrawCard(const Pen& pen, const Box& box, const char* title) {
    const Gradient light =
        Gradient::Linear({box.x, box.y}, {box.x, box.y + box.h}, Color::FromRgb(0x182430), kCard);
    pen.canvas.FillRoundRect(RectOf(box), 9, light);
    pen.canvas.OutlineRoundRect(RectOf(box), 9, 1, kCardEdge);
    Write(pen, pen.faces.label, box.x + 12, box.y + 18, title, kSoft, AlignX::kLeft, 1);
}

// The dial's ring is of pieces that are lit or not: a longer arc has other corners, and its edge
// would change by a shade all along, far outside of what is drawn anew.
constexpr int kPieces = 65;

void DrawPiece(const Pen& pen, int i, Color color) {
    pen.canvas.DrawArc(kDial, kDialRadius, 9, Angle::Degrees(-130 + 4 * i), Angle::Degrees(3),
                       Cap::kButt, color);
}

void DrawDialScale(const Pen& pen) {
    for (int i = 0; i < kPieces; ++i)
        DrawPiece(pen, i, kTrack);
    for (int value = 0; value <= 12; ++value) {
        const Angle angle = Angle::Degrees(AngleOf(value));
        const bool isEven = value % 2 == 0;
        pen.canvas.DrawLine(OnCircle(kDial, isEven ? 58 : 61, angle), OnCircle(kDial, 65, angle),
                            {1.2}, isEven ? kSoft : kTick);
        if (!isEven) continue;
        const Point at = OnCircle(kDial, 48, angle);
        Write(pen, pen.faces.label, at.x.Units() / 256, at.y.Units() / 256 + 4,
              std::to_string(value), kSoft, AlignX::kCenter);
    }
}

void DrawPlotGround(const Pen& pen) {
    static constexpr unsigned short kDots[] = {1, 3};
    for (int value = 0; value <= 16; value += 8) {
        const int y = kPlot.y + kPlot.h - 1 - value * (kPlot.h - 1) / 16;
        pen.surface.DrawLine(kPlot.x, y, kPlot.x + kPlot.w - 1, y, kTick.Word(),
                             value == 0 ? nullptr : kDots, 2);
        Write(pen, pen.faces.label, kPlot.x - 5, y + 4, std::to_string(value), kSoft,
              AlignX::kRight);
    }
}

void DrawRoseGround(const Pen& pen) {
    pen.canvas.DrawCircle(kRoseCenter, kRoseRadius, 4, kTrack);
    static constexpr const char* kNames[] = {"N", "E", "S", "W"};
    for (int i = 0; i < 4; ++i) {
        const Point at = OnCircle(kRoseCenter, kRoseRadius + 11, Angle::Degrees(90 * i));
        Write(pen, pen.faces.label, at.x.Units() / 256, at.y.Units() / 256 + 4, kNames[i],
              i == 0 ? kAmber : kSoft, AlignX::kCenter);
    }
}

std::string Text(const char* format, double value) {
    char text[32];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

void DrawSpeed(const Pen& pen, const Readings& now) {
    const double angle = AngleOf(now.speed);
    for (int i = 0; i < kPieces && -130 + 4 * i < angle; ++i)
        DrawPiece(pen, i, Mix(kBlue, kTeal, static_cast<unsigned>(256 * i / kPieces)));
    const Point needle[] = {OnCircle(kDial, kNeedleTip, Angle::Degrees(angle)),
                            OnCircle(kDial, kNeedleBase, Angle::Degrees(angle - 4)),
                            OnCircle(kDial, kNeedleBase, Angle::Degrees(angle + 4))};
    pen.canvas.FillPolygon(needle, 3, FillRule::kNonZero, kText);
    Write(pen, pen.faces.hero, 99, 168, Text("%.1f", now.speed), kText, AlignX::kCenter);
}

void DamageSpeed(const Readings& before, const Readings& now, std::vector<Box>& boxes) {
    const double first = AngleOf(before.speed);
    const double last = AngleOf(now.speed);
    Point points[8];
    for (int i = 0; i < 4; ++i) {
        const Angle angle = Angle::Degrees(first + (last - first) * i / 3);
        points[2 * i] = OnCircle(kDial, kNeedleBase, angle);
        points[2 * i + 1] = OnCircle(kDial, kNeedleTip, angle);
    }
    if (first != last) boxes.push_back(Around(points, 8, 6));
    if (Text("%.1f", before.speed) != Text("%.1f", now.speed)) boxes.push_back(kSpeedText);
}

int RowOf(double wind) {
    return kPlot.y + kPlot.h - 1 - static_cast<int>(std::lround(wind * (kPlot.h - 1) / 16));
}

void DrawChart(const Pen& pen, const Readings& now) {
    constexpr int kStep = 4;
    constexpr int kColumns = kPlot.w / kStep;
    Point points[kColumns + 2];
    for (int i = 0; i < kColumns; ++i) {
        points[i] = {kPlot.x + i * kStep, RowOf(WindAt(now.sample - (kColumns - 1 - i)))};
    }
    const int right = kPlot.x + (kColumns - 1) * kStep;
    points[kColumns] = {right, kPlot.y + kPlot.h};
    points[kColumns + 1] = {kPlot.x, kPlot.y + kPlot.h};
    const Gradient fade = Gradient::Linear({kPlot.x, kPlot.y + 10}, {kPlot.x, kPlot.y + kPlot.h},
                                           kTeal.WithOpacity(130), kTeal.WithOpacity(0));
    pen.canvas.FillPolygon(points, kColumns + 2, FillRule::kNonZero, fade);
    Stroke stroke;
    stroke.width = 1.6;
    stroke.join = Join::kRound;
    pen.canvas.DrawPolyline(points, kColumns, false, stroke, kTeal);
    pen.canvas.FillCircle(points[kColumns - 1], 3.5, kText);
    static constexpr unsigned short kDash[] = {6, 4};
    pen.surface.DrawLine(kPlot.x, RowOf(kLimit), kPlot.x + kPlot.w - 1, RowOf(kLimit),
                         kAmber.Word(), kDash, 2);
    Write(pen, pen.faces.body, kPlot.x + kPlot.w, kPlot.y - 10, Text("%.1f m/s", now.wind),
          now.wind > kLimit ? kAmber : kText, AlignX::kRight);
}

void DamageChart(const Readings& before, const Readings& now, std::vector<Box>& boxes) {
    if (before.sample != now.sample) boxes.push_back({kPlot.x - 3, 44, kPlot.w + 7, 108});
}

void DrawRose(const Pen& pen, const Readings& now) {
    const Angle angle = Angle::Degrees(now.from);
    pen.canvas.DrawArc(kRoseCenter, kRoseRadius, 4, Angle::Degrees(now.from - 22),
                       Angle::Degrees(44), Cap::kRound, kTeal);
    const Point needle[] = {OnCircle(kRoseCenter, kRoseRadius - 9, angle),
                            OnCircle(kRoseCenter, kRoseRadius + 5, Angle::Degrees(now.from - 12)),
                            OnCircle(kRoseCenter, kRoseRadius + 5, Angle::Degrees(now.from + 12))};
    pen.canvas.FillPolygon(needle, 3, FillRule::kNonZero, kText);
    Write(pen, pen.faces.body, 250, 222, std::to_string(now.from), kText, AlignX::kCenter);
}

void DamageRose(const Readings& before, const Readings& now, std::vector<Box>& boxes) {
    if (before.from != now.from) boxes.push_back(kRose);
}

Point CabinAt(double way) {
    const double x = kValley.x.Units() + (kSummit.x.Units() - kValley.x.Units()) * way;
    const double y = kValley.y.Units() + (kSummit.y.Units() - kValley.y.Units()) * way;
    return {x / 256, y / 256};
}

void DrawCabins(const Pen& pen, const Readings& now) {
    for (const double way : now.cabin) {
        const Point at = CabinAt(way);
        pen.canvas.DrawLine(at, {at.x, at.y + 6}, {1.5}, kSoft);
        pen.canvas.FillRoundRect({at.x - 7, at.y + 5, 14, 10}, 3, kAmber);
        pen.canvas.FillRect({at.x - 5, at.y + 7, 10, 3}, kCard);
    }
}

void DamageCabins(const Readings& before, const Readings& now, std::vector<Box>& boxes) {
    for (std::size_t i = 0; i < now.cabin.size(); ++i) {
        const Point points[] = {CabinAt(before.cabin[i]), CabinAt(now.cabin[i])};
        const bool isNear = now.cabin[i] > before.cabin[i];
        if (isNear) boxes.push_back(Around(points, 2, 16));
        for (int end = 0; end < 2 && !isNear; ++end)
            boxes.push_back(Around(points + end, 1, 16));
    }
}

void DrawClock(const Pen& pen, const Readings& now) {
    const int minutes = 14 * 60 + 32 + now.seconds / 60;
    char text[16];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", minutes / 60 % 24, minutes % 60,
                  now.seconds % 60);
    Write(pen, pen.faces.body, 468, 26, text, kText, AlignX::kRight);
}

void DamageClock(const Readings& before, const Readings& now, std::vector<Box>& boxes) {
    if (before.seconds != now.seconds) boxes.push_back(kClock);
}

}  // namespace

const std::array<Part, kPartCount> kParts{{{kSpeedCard, DrawSpeed, DamageSpeed},
                                           {kChartCard, DrawChart, DamageChart},
                                           {kRoseCard, DrawRose, DamageRose},
                                           {kRopeCard, DrawCabins, DamageCabins},
                                           {kClock, DrawClock, DamageClock}}};

Faces::Faces() {
    label.OpenFace("DejaVuSans.ttf", 10, true);
    body.OpenFace("DejaVuSans.ttf", 14, true);
    value.OpenFace("DejaVuSans.ttf", 16, true);
    hero.OpenFace("DejaVuSans.ttf", 34, true);
}

void DrawBackdrop(const Pen& pen) {
    pen.surface.RectFill(0, 0, kPanelWidth, kPanelHeight, kGround.Word());
    const Gradient emblem = Gradient::Linear({12, 8}, {36, 32}, kTeal, kBlue);
    pen.canvas.FillRoundRect({12, 8, 24, 24}, 6, emblem);
    pen.canvas.DrawLine({16, 24}, {32, 16}, {1.5}, kGround);
    pen.canvas.FillRoundRect({20, 21, 9, 7}, 2, kGround);
    Write(pen, pen.faces.value, 46, 26, "Summit Line", kText, AlignX::kLeft);
    DrawCard(pen, kSpeedCard, "ROPE SPEED");
    DrawCard(pen, kChartCard, "WIND");
    DrawCard(pen, kRoseCard, "");
    DrawCard(pen, kRopeCard, "CABINS");
    DrawDialScale(pen);
    Write(pen, pen.faces.body, 99, 194, "m/s", kSoft, AlignX::kCenter);
    Write(pen, pen.faces.label, 99, 244, "SET POINT 7.5", kSoft, AlignX::kCenter, 1);
    DrawPlotGround(pen);
    DrawRoseGround(pen);
    pen.canvas.DrawLine(kValley, kSummit, {1.2}, kTick);
    pen.canvas.FillCircle(kValley, 4, kTick);
    pen.canvas.FillCircle(kSummit, 4, kTick);
}

}  // namespace playground
