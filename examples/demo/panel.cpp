// The instrument panel of a cableway: composed on a 32-bit surface, shown by two kinds of display.
#include "panel_parts.h"
#include "picture_file.h"
#include "pictures.h"

namespace demo {
namespace {

void Compose(const Panel& panel) {
    DrawBackdrop(panel);
    DrawHeader(panel);
    DrawSpeed(panel);
    DrawDrive(panel);
    DrawCamera(panel);
    DrawWindChart(panel);
    DrawWind(panel);
    DrawCabins(panel);
    DrawFooter(panel);
}

void Show(const Studio& studio, const GfxSurface& screen, Display display, const char* name,
          const char* content) {
    Surface grained(32, kScreenWidth, kScreenHeight);
    grained->RectCopy(0, 0, kScreenWidth, kScreenHeight, 0, 0, &screen, false);
    Dither(*grained, display);
    const std::string path = studio.PathOf(name);
    WriteDisplayPicture(path, *grained, display);
    Studio::Report(path, content);
}

}  // namespace

void DrawPanel(const Studio& studio) {
    Surface screen(32, kScreenWidth, kScreenHeight);
    Compose({*screen, studio.type, studio.mountain});
    Show(studio, *screen, Display::k565, "panel-565.png",
         "an instrument panel, from 5-6-5 display memory");
    Show(studio, *screen, Display::k555, "panel-555.png",
         "the same panel, from 5-5-5 display memory");
}

}  // namespace demo
