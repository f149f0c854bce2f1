// The round instruments: rope speed, drive, and the wind rose.
#include <string>

#include "widgets.h"

namespace demo {
namespace {

// Writes centred on a point rather than on a baseline; `capHeight` is the height of its figures.
void WriteAround(const Panel& panel, Text& text, Point at, int capHeight, Color color,
                 std::string_view words) {
    text.Draw(panel.screen, static_cast<int>(std::lround(at.x)),
              static_cast<int>(std::lround(at.y + capHeight / 2.0)), color, words, Align::kCenter);
}

void NumberScale(const Panel& panel, const Scale& scale, int step, double radius) {
    for (int value = static_cast<int>(scale.lowest); value <= scale.highest; value += step) {
        WriteAround(panel, panel.type.scale, OnCircle(scale.center, radius, scale.AngleOf(value)),
                    8, kSoftText, std::to_string(value));
    }
}

void DrawSmallGauge(const Panel& panel, Point center, std::string_view caption,
                    std::string_view value, std::string_view unit, double part, Color from,
                    Color to) {
    const Scale scale{center, 50, 5, -125, 250, 0, 1};
    DrawTicks(panel, scale, 0.1, 38, 41, kTick);
    DrawScale(panel, scale, part, from, to);
    WriteAround(panel, panel.type.value, center - Point{0, 3}, 18, kText, value);
    WriteAround(panel, panel.type.scale, center + Point{0, 19}, 8, kSoftText, unit);
    WriteAround(panel, panel.type.label, center + Point{0, 54}, 8, kFaintText, caption);
}

void DrawRose(const Panel& panel, const Scale& rose) {
    FillRing(panel.screen, rose.center, rose.radius, rose.halfWidth, kTrack);
    DrawTicks(panel, rose, 10, 76, 81, kTick);
    DrawTicks(panel, rose, 30, 74, 81, kSoftText);
    static constexpr const char* kNames[] = {"N", "E", "S", "W"};
    for (int i = 0; i < 4; ++i) {
        WriteAround(panel, panel.type.label, OnCircle(rose.center, 62, 90 * i), 8,
                    i == 0 ? kCoral : kSoftText, kNames[i]);
    }
}

}  // namespace

void DrawSpeed(const Panel& panel) {
    DrawCard(panel, kSpeedBox, "ROPE SPEED");
    const double speed = 7.4;
    const Scale scale{{156, 214}, 112, 6, -130, 260, 0, 12};
    GlowDisc(panel.screen, scale.center, 104, Fade(kBackdrop, 0.85));
    DrawScale(panel, scale, speed, kBlue, kTeal);
    FillArc(panel.screen, scale.center, 123, 1.5, scale.AngleOf(10), 43.33, kCoral);
    DrawTicks(panel, scale, 0.5, 95, 100, kTick);
    DrawTicks(panel, scale, 2, 91, 100, kSoftText);
    NumberScale(panel, scale, 2, 78);

    const double angle = scale.AngleOf(speed);
    GlowDisc(panel.screen, OnCircle(scale.center, 104, angle), 26, Fade(kTeal, 0.35));
    DrawNeedle(panel, scale.center, angle, 64, 116, 3, kText);

    WriteAround(panel, panel.type.hero, scale.center, 40, kText, "7.4");
    WriteAround(panel, panel.type.body, scale.center + Point{0, 42}, 9, kSoftText, "m/s");
    const int y = kSpeedBox.Bottom() - 38;
    DrawReading(panel, kSpeedBox.x + kCardPadding, y, "SET POINT", "7.5", "m/s");
    DrawReading(panel, kSpeedBox.x + kCardPadding + 88, y, "TRAVEL", "1 284", "m");
    DrawReading(panel, kSpeedBox.x + kCardPadding + 174, y, "ARRIVAL", "2:41", "min");
}

void DrawDrive(const Panel& panel) {
    DrawCard(panel, kDriveBox, "DRIVE");
    const double y = kDriveBox.y + 104;
    DrawSmallGauge(panel, {kDriveBox.x + 76.0, y}, "TORQUE", "68", "%", 0.68, kBlue, kTeal);
    DrawSmallGauge(panel, {kDriveBox.x + 204.0, y}, "GEAR OIL", "81", "°C", 0.81, kTeal, kAmber);
    panel.screen.DrawLine(kDriveBox.x + 140, kDriveBox.y + 56, kDriveBox.x + 140,
                          kDriveBox.Bottom() - 30, kCardEdge);
}

void DrawWind(const Panel& panel) {
    DrawCard(panel, kWindBox, "WIND AT SUMMIT");
    const double from = 292;
    const Scale rose{{880, 204}, 92, 5, 0, 360, 0, 360};
    GlowDisc(panel.screen, rose.center, 86, Fade(kBackdrop, 0.85));
    DrawRose(panel, rose);
    FillArc(panel.screen, rose.center, rose.radius, rose.halfWidth, from - 24, 48,
            Fade(kTeal, 0.45));
    GlowDisc(panel.screen, OnCircle(rose.center, 90, from), 28, Fade(kTeal, 0.45));
    DrawNeedle(panel, rose.center, from, 97, 50, 7, kTeal);

    WriteAround(panel, panel.type.value, rose.center - Point{0, 5}, 18, kText, "9.6");
    WriteAround(panel, panel.type.scale, rose.center + Point{0, 15}, 8, kSoftText, "m/s");
    const int y = kWindBox.Bottom() - 38;
    DrawReading(panel, kWindBox.x + kCardPadding, y, "GUST", "14.2", "m/s");
    DrawReading(panel, kWindBox.x + kCardPadding + 86, y, "AIR", "-4.5", "°C");
    DrawReading(panel, kWindBox.x + kCardPadding + 164, y, "FROM", "292", "°");
}

}  // namespace demo
