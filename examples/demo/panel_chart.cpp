// The course of the wind over the day, measured up to now and forecast beyond.
#include <string>

#include "terrain.h"
#include "widgets.h"

namespace demo {
namespace {

constexpr Box kPlot{356, 412, 349, 100};
constexpr double kTopValue = 20;
constexpr int kStep = 6;  // columns from one reading to the next
constexpr int kNow = 41 * kStep;

double WindAt(int column) {
    const double t = column / 348.0;
    const double gusts = LayeredNoise(column * 0.045 + 3.1, 7.7, 4) - 0.47;
    return 3.6 + 8.5 * t * t * t + 1.8 * std::sin(7.5 * t + 0.4) + 3.6 * t + 8.5 * gusts;
}

int RowOf(double value) {
    return kPlot.Bottom() - 1 - static_cast<int>(std::lround(value * (kPlot.h - 1) / kTopValue));
}

void DrawGridLines(const Panel& panel) {
    static constexpr unsigned short kDots[] = {1, 3};
    for (int value = 0; value <= 20; value += 5) {
        const int y = RowOf(value);
        panel.screen.DrawLine(kPlot.x, y, kPlot.Right() - 1, y, value == 0 ? kTick : kGrid,
                              value == 0 ? nullptr : kDots, 2);
        if (value % 10 == 0) {
            panel.type.scale.Draw(panel.screen, kPlot.x - 8, y + 4, kSoftText,
                                  std::to_string(value), Align::kRight);
        }
    }
    panel.type.stencil.Draw(panel.screen, kChartBox.x + 28, RowOf(15), kSoftText, "m/s",
                            Align::kCenter, Turn::kUp);
    for (int hour = 6; hour <= 18; hour += 2) {
        const int x = kPlot.x + (hour - 6) * (kPlot.w - 1) / 12;
        panel.screen.DrawLine(x, kPlot.Bottom(), x, kPlot.Bottom() + 3, kTick);
        const std::string name = (hour < 10 ? "0" : "") + std::to_string(hour) + ":00";
        panel.type.scale.Draw(panel.screen, x, kPlot.Bottom() + 18, kFaintText, name,
                              Align::kCenter);
    }
}

// Slanting lines over the forecast: a tile with a colour key in place of its ground.
void DrawForecastGround(const Panel& panel) {
    constexpr Color kKey = 0xFF00FF;
    Surface tile(32, 8, 8);
    tile->RectFill(0, 0, 8, 8, kKey);
    tile->DrawLine(0, 7, 7, 0, Mix(kCard, kGrid, 0.6));
    panel.screen.SetTransparent(kKey);
    panel.screen.RectCopy(kPlot.x + kNow, kPlot.y, kPlot.w - kNow, kPlot.h - 1, 0, 0, tile.Get(),
                          true);
    panel.screen.SetOpaque();
    panel.type.stencil.Draw(panel.screen, kPlot.Right() + 8, kPlot.y + kPlot.h / 2, kFaintText,
                            "FORECAST", Align::kCenter, Turn::kDown);
}

// The ground under the curve, strongest along the curve itself.
void DrawArea(const Panel& panel) {
    const Surface area = MakePicture(kNow, kPlot.h, [](Point p) {
        const int reading = static_cast<int>(p.x) / kStep * kStep;
        const double part = (p.x - 0.5 - reading) / kStep;
        const double row =
            RowOf(WindAt(reading)) * (1 - part) + RowOf(WindAt(reading + kStep)) * part;
        const double below = p.y - (row - kPlot.y);
        return Fade(kTeal, below < 0 ? 0.0 : 0.42 * std::max(0.0, 1 - below / (kPlot.h * 0.75)));
    });
    panel.screen.RectBlend(kPlot.x, kPlot.y, kNow, kPlot.h - 1, 0, 0, area.Get(), false);
}

void DrawCurve(const Panel& panel) {
    static constexpr unsigned short kDash[] = {4, 2};
    for (int column = 0; column + kStep < kPlot.w; column += kStep) {
        const int y0 = RowOf(WindAt(column));
        const int y1 = RowOf(WindAt(column + kStep));
        const int x = kPlot.x + column;
        if (column < kNow) {
            panel.screen.DrawAALine(x, y0, x + kStep, y1, kTeal);
            panel.screen.DrawAALine(x, y0 - 1, x + kStep, y1 - 1, kTeal);
        } else {
            panel.screen.DrawAALine(x, y0, x + kStep, y1, kText, kDash, 2);
        }
    }
}

void DrawLimit(const Panel& panel) {
    static constexpr unsigned short kDash[] = {6, 4};
    const int y = RowOf(16);
    panel.screen.DrawLine(kPlot.x, y, kPlot.Right() - 1, y, kAmber, kDash, 2);
    panel.type.label.Draw(panel.screen, kPlot.x + 6, y - 5, kAmber, "LIMIT 16");
}

void DrawNow(const Panel& panel) {
    const int x = kPlot.x + kNow;
    const int y = RowOf(WindAt(kNow));
    panel.screen.DrawLine(x, kPlot.y, x, kPlot.Bottom() - 1, Fade(kText, 0.45));
    GlowDisc(panel.screen, {x + 0.5, y + 0.0}, 16, Fade(kTeal, 0.6));
    FillDisc(panel.screen, {x + 0.5, y + 0.0}, 4.5, kCard);
    FillDisc(panel.screen, {x + 0.5, y + 0.0}, 3.2, kText);
}

void DrawLegend(const Panel& panel) {
    const int y = kChartBox.y + 28;
    const int x = kChartBox.Right() - kCardPadding;
    const int width =
        panel.type.scale.Draw(panel.screen, x, y, kSoftText, "ten-minute mean", Align::kRight);
    FillCapsule(panel.screen, {x - width - 20.0, y - 3.5}, {x - width - 8.0, y - 3.5}, 1.5, kTeal);
}

}  // namespace

void DrawWindChart(const Panel& panel) {
    DrawCard(panel, kChartBox, "WIND AT TOWER 3");
    DrawLegend(panel);
    DrawForecastGround(panel);
    DrawGridLines(panel);
    DrawArea(panel);
    DrawLimit(panel);
    DrawCurve(panel);
    DrawNow(panel);
}

}  // namespace demo
