// Backdrop, header, footer and the list of cabins.
#include <string>

#include "icons.h"
#include "widgets.h"

namespace demo {
namespace {

void DrawEmblem(const Panel& panel) {
    const Box box{16, 12, 32, 32};
    GlowRounded(panel.screen, box, 8, 8, Fade(kTeal, 0.25));
    const Surface ground = MakePicture(32, 32, [](Point p) {
        const double edge = RoundedBoxDistance(p, {16, 16}, {16, 16}, 8);
        return Fade(Mix(kTeal, kBlue, (p.x + p.y) / 64), Coverage(edge));
    });
    panel.screen.RectBlend(box.x, box.y, 32, 32, 0, 0, ground.Get(), false);
    IconSheet(kBackdrop, Mix(kBackdrop, kTeal, 0.5))
        .Draw(panel.screen, box.x + 8, box.y + 8, Icon::kCabin);
}

void DrawTabs(const Panel& panel) {
    static constexpr const char* kNames[] = {"OVERVIEW", "ROPE", "CABINS", "WEATHER", "LOG"};
    int x = kCameraBox.x + 4;
    for (const char* name : kNames) {
        const bool active = name == kNames[0];
        const int width =
            panel.type.label.Draw(panel.screen, x, 33, active ? kText : kFaintText, name);
        if (active) {
            GlowRounded(panel.screen, {x, 43, width, 3}, 1.5, 7, Fade(kTeal, 0.5));
            FillRounded(panel.screen, {x, 43, width, 3}, 1.5, kTeal);
        }
        x += width + 32;
    }
}

struct Chip {
    Icon icon;
    const char* text;
    Color color;
};

int DrawChip(const Panel& panel, int x, const Chip& chip) {
    const int width = panel.type.body.Width(chip.text) + 46;
    const Box box{x, 560, width, 28};
    FillRounded(panel.screen, box, 14, kCard);
    OutlineRounded(panel.screen, box, 14, kCardEdge);
    IconSheet(chip.color, Mix(kCard, chip.color, 0.5))
        .Draw(panel.screen, x + 12, box.y + 6, chip.icon);
    panel.type.body.Draw(panel.screen, x + 34, box.y + 19, kText, chip.text);
    return width;
}

}  // namespace

void DrawBackdrop(const Panel& panel) {
    Surface weave(32, 4, 4);
    weave->RectFill(0, 0, 4, 4, kBackdrop);
    weave->SetPixelRGB(1, 1, kCard);
    panel.screen.RectCopy(0, 0, kScreenWidth, kScreenHeight, 0, 0, weave.Get(), true);
}

void DrawHeader(const Panel& panel) {
    DrawEmblem(panel);
    panel.type.title.Draw(panel.screen, 60, 27, kText, "Summit Line");
    panel.type.scale.Draw(panel.screen, 60, 43, kSoftText, "Valley station, drive 1");
    DrawTabs(panel);
    const int right = kScreenWidth - 16;
    const int width = panel.type.value.Draw(panel.screen, right, 37, kText, "14:32", Align::kRight);
    panel.type.scale.Draw(panel.screen, right - width - 14, 27, kSoftText, "Saturday",
                          Align::kRight);
    panel.type.scale.Draw(panel.screen, right - width - 14, 41, kFaintText, "12 October",
                          Align::kRight);
}

void DrawCabins(const Panel& panel) {
    struct Cabin {
        const char* name;
        int aboard;
        Color color;
    };
    static constexpr Cabin kCabins[] = {{"Cabin 1", 6, kBlue},
                                        {"Cabin 2", 12, kBlue},
                                        {"Cabin 3", 18, kTeal},
                                        {"Cabin 4", 23, kAmber}};
    DrawCard(panel, kCabinBox, "CABINS");
    panel.type.scale.Draw(panel.screen, kCabinBox.Right() - kCardPadding, kCabinBox.y + 28,
                          kFaintText, "of 24 seats", Align::kRight);
    int y = kCabinBox.y + 60;
    for (const Cabin& cabin : kCabins) {
        IconSheet(cabin.color, Mix(kCard, cabin.color, 0.5))
            .Draw(panel.screen, kCabinBox.x + kCardPadding, y - 13, Icon::kCabin);
        panel.type.body.Draw(panel.screen, kCabinBox.x + 46, y, kText, cabin.name);
        DrawBar(panel, {kCabinBox.x + 110, y - 8, 92, 6}, cabin.aboard / 24.0, cabin.color);
        panel.type.body.Draw(panel.screen, kCabinBox.Right() - kCardPadding, y, kText,
                             std::to_string(cabin.aboard), Align::kRight);
        y += 32;
    }
}

void DrawFooter(const Panel& panel) {
    static constexpr Chip kChips[] = {{Icon::kGear, "Drive ready", kGreen},
                                      {Icon::kShield, "Brakes ready", kGreen},
                                      {Icon::kDoor, "Doors closed", kGreen},
                                      {Icon::kRope, "Rope scan 08:10", kGreen},
                                      {Icon::kWind, "Wind rising, limit at 16 m/s", kAmber}};
    int x = 16;
    for (const Chip& chip : kChips)
        x += DrawChip(panel, x, chip) + 10;
    panel.type.stencil.Draw(panel.screen, kScreenWidth - 16, 578, kFaintText, "Operating day 214",
                            Align::kRight);
}

}  // namespace demo
