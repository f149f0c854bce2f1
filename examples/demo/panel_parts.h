// The parts of the instrument panel. Each draws itself into its place on the screen.
#pragma once

#include "shapes.h"
#include "text.h"

namespace demo {

class Photograph;

inline constexpr int kScreenWidth = 1024;
inline constexpr int kScreenHeight = 600;

struct Panel {
    GfxSurface& screen;
    Typeface& type;
    const Photograph& mountain;
};

// Places on the screen: margins of 16, gaps of 12, three columns of 280, 432 and 256.
inline constexpr Box kSpeedBox{16, 60, 280, 292};
inline constexpr Box kDriveBox{16, 364, 280, 184};
inline constexpr Box kCameraBox{308, 60, 432, 292};
inline constexpr Box kChartBox{308, 364, 432, 184};
inline constexpr Box kWindBox{752, 60, 256, 292};
inline constexpr Box kCabinBox{752, 364, 256, 184};

void DrawBackdrop(const Panel& panel);
void DrawHeader(const Panel& panel);
void DrawSpeed(const Panel& panel);
void DrawDrive(const Panel& panel);
void DrawCamera(const Panel& panel);
void DrawWindChart(const Panel& panel);
void DrawWind(const Panel& panel);
void DrawCabins(const Panel& panel);
void DrawFooter(const Panel& panel);

}  // namespace demo
