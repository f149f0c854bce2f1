// The camera picture with its overlays: the rope with cabins, frames, captions, other cameras.
#include "photograph.h"
#include "widgets.h"

namespace demo {
namespace {

constexpr Color kSteel = 0x202830;
constexpr Point kValley{-30, 286};
constexpr Point kSummit{256, 52};

// Where the rope hangs at a part of its length, 0 in the valley and 1 at the summit.
Point OnRope(double part, double sag) {
    const Point straight{kValley.x + (kSummit.x - kValley.x) * part,
                         kValley.y + (kSummit.y - kValley.y) * part};
    return straight + Point{0, 4 * sag * part * (1 - part)};
}

void DrawRope(GfxSurface& picture, double sag) {
    constexpr int kPieces = 24;
    for (int i = 0; i < kPieces; ++i) {
        const Point a = OnRope(static_cast<double>(i) / kPieces, sag);
        const Point b = OnRope((i + 1.0) / kPieces, sag);
        picture.DrawAALine(static_cast<int>(a.x), static_cast<int>(a.y), static_cast<int>(b.x),
                           static_cast<int>(b.y), kSteel);
    }
}

void DrawCabin(GfxSurface& picture, Point hook, double size, Color color) {
    const Point roof = hook + Point{0, 0.75 * size};
    FillCapsule(picture, hook, roof, 0.05 * size + 0.4, kSteel);
    FillCapsule(picture, hook - Point{0.25 * size, -0.18 * size},
                hook + Point{0.25 * size, -0.18 * size}, 0.06 * size + 0.4, kSteel);
    const Box body{static_cast<int>(roof.x - 0.7 * size), static_cast<int>(roof.y),
                   static_cast<int>(1.4 * size), static_cast<int>(size)};
    FillRounded(picture, body, 0.22 * size, color);
    const Box windows{body.x + static_cast<int>(0.14 * size),
                      body.y + static_cast<int>(0.16 * size),
                      body.w - 2 * static_cast<int>(0.14 * size), static_cast<int>(0.42 * size)};
    FillRounded(picture, windows, 0.1 * size, 0x203040);
    const int third = windows.w / 3;
    for (int i = 1; i < 3; ++i) {
        picture.DrawLine(windows.x + i * third, windows.y, windows.x + i * third,
                         windows.Bottom() - 1, color);
    }
}

void DrawFrame(GfxSurface& picture, Box box, Color color) {
    constexpr int kArm = 8;
    for (const int x : {box.x, box.Right() - 1}) {
        const int inwards = x == box.x ? kArm : -kArm;
        for (const int y : {box.y, box.Bottom() - 1}) {
            const int down = y == box.y ? kArm : -kArm;
            picture.DrawLine(x, y, x + inwards, y, color);
            picture.DrawLine(x, y, x, y + down, color);
        }
    }
}

void DrawScenery(const Panel& panel, GfxSurface& picture) {
    panel.mountain.Show(picture, 0, 0);
    FillRounded(picture, {246, 44, 22, 9}, 2, 0x282828);
    FillRounded(picture, {250, 47, 14, 3}, 1, kAmber);
    DrawRope(picture, 16);
    DrawRope(picture, 22);
    DrawCabin(picture, OnRope(0.80, 16), 7, 0xC83830);
    DrawCabin(picture, OnRope(0.56, 22), 22, 0xD84038);
    const Point cabin = OnRope(0.56, 22);
    const Box frame{static_cast<int>(cabin.x) - 28, static_cast<int>(cabin.y) - 8, 56, 58};
    DrawFrame(picture, frame, kAmber);
    FillRounded(picture, {frame.Right() + 6, frame.y, 72, 34}, 6, Fade(kBackdrop, 0.6));
    panel.type.label.Draw(picture, frame.Right() + 14, frame.y + 14, kAmber, "CABIN 3");
    panel.type.scale.Draw(picture, frame.Right() + 14, frame.y + 27, kText, "18 aboard");
}

void DrawAltitudeTape(const Panel& panel, GfxSurface& picture) {
    const Box tape{350, 14, 68, 200};
    FillRounded(picture, tape, 8, Fade(kBackdrop, 0.6));
    panel.type.stencil.Draw(picture, tape.x + 52, tape.y + tape.h / 2, kText, "ALTITUDE  m",
                            Align::kCenter, Turn::kDown);
    for (int i = 0; i <= 20; ++i) {
        const int y = tape.y + 10 + 9 * i;
        picture.DrawLine(tape.x + 40, y, tape.x + 40 + (i % 5 == 0 ? 8 : 4), y,
                         i % 5 == 0 ? kText : kSoftText);
    }
    static constexpr const char* kHeights[] = {"3200", "2700", "2200", "1700", "1200"};
    for (int i = 0; i < 5; ++i) {
        panel.type.scale.Draw(picture, tape.x + 36, tape.y + 14 + 45 * i, kText, kHeights[i],
                              Align::kRight);
    }
}

// A part of the picture, made smaller, on a surface of another depth.
Surface MakeThumbnail(const GfxSurface& picture, unsigned depth, Box part, Box size) {
    Surface small(depth, static_cast<unsigned>(size.w), static_cast<unsigned>(size.h));
    for (int y = 0; y < size.h; ++y) {
        for (int x = 0; x < size.w; ++x) {
            const double fromX = part.x + (x + 0.5) * part.w / size.w - 0.5;
            const double fromY = part.y + (y + 0.5) * part.h / size.h - 0.5;
            const int column = static_cast<int>(fromX);
            const int row = static_cast<int>(fromY);
            small->SetPixelRGB(x, y,
                               picture.RetPixelMergeRGB(column, row, fromX - column, fromY - row));
        }
    }
    return small;
}

// The camera on view in colour from a 16-bit surface, the others in dimmed grey from 8-bit ones.
void DrawThumbnails(const Panel& panel, GfxSurface& picture) {
    static constexpr Box kParts[] = {{6, 96, 150, 103}, {40, 0, 392, 262}, {230, 110, 150, 100}};
    const Surface whole = MakePicture(kCameraBox.w, kCameraBox.h, [](Point) { return 0u; });
    panel.mountain.Show(*whole, 0, 0);
    for (int i = 0; i < 3; ++i) {
        const Box box{kCameraBox.w - 12 - (3 - i) * 72 + 8, kCameraBox.h - 56, 64, 44};
        const Surface small = MakeThumbnail(*whole, i == 1 ? 16 : 8, kParts[i], box);
        picture.RectFillBlend(box.x - 1, box.y - 1, 66, 46, Fade(kBackdrop, 0.8));
        if (i == 1) {
            picture.RectCopy(box.x, box.y, 64, 44, 0, 0, small.Get(), false);
            OutlineRounded(picture, box.Inset(-2), 3, kTeal);
        } else {
            picture.RectBlendAlpha(box.x, box.y, 64, 44, 0, 0, 0.45, small.Get(), false);
        }
        picture.RectFillBlend(box.x, box.y + 30, 64, 14, Fade(kBackdrop, 0.6));
        const char name[] = {'C', 'A', 'M', ' ', static_cast<char>('1' + i), '\0'};
        panel.type.label.Draw(picture, box.x + 6, box.y + 41, i == 1 ? kText : kSoftText, name);
    }
}

void DrawCaptions(const Panel& panel, GfxSurface& picture) {
    FillRounded(picture, {14, 14, 194, 24}, 12, Fade(kBackdrop, 0.6));
    GlowDisc(picture, {28, 26}, 9, Fade(kCoral, 0.6));
    FillDisc(picture, {28, 26}, 4, kCoral);
    panel.type.label.Draw(picture, 40, 30, kText, "LIVE");
    panel.type.scale.Draw(picture, 82, 30, kSoftText, "Summit, north face");

    const Surface dusk = MakeMask(kCameraBox.w, 84, [](Point p) { return 0.8 * p.y / 84; });
    FillMask(picture, 0, kCameraBox.h - 84, dusk, kBackdrop);
    panel.type.title.Draw(picture, 20, kCameraBox.h - 34, kText, "Clear skies");
    panel.type.body.Draw(picture, 20, kCameraBox.h - 15, kSoftText, "Snow above 1 840 m");
}

}  // namespace

void DrawCamera(const Panel& panel) {
    const unsigned width = kCameraBox.w;
    const unsigned height = kCameraBox.h;
    Surface picture(32, width, height);
    DrawScenery(panel, *picture);
    DrawAltitudeTape(panel, *picture);
    DrawCaptions(panel, *picture);
    DrawThumbnails(panel, *picture);

    // The rounded corners go into the picture's own alpha, and the picture is then blended.
    const Point half{width / 2.0, height / 2.0};
    const Surface corners = MakeMask(width, height, [&](Point p) {
        return Coverage(RoundedBoxDistance(p, half, half, kCardRadius));
    });
    picture->RectInsert(0, 0, width, height, 0, 0, corners.Get(), GfxSurface::PlaneAlpha);
    const Box shadow{kCameraBox.x, kCameraBox.y + 5, kCameraBox.w, kCameraBox.h};
    GlowRounded(panel.screen, shadow, kCardRadius, 12, Fade(0x000000, 0.55));
    panel.screen.RectBlend(kCameraBox.x, kCameraBox.y, width, height, 0, 0, picture.Get(), false);
    OutlineRounded(panel.screen, kCameraBox, kCardRadius, Fade(0xFFFFFF, 0.18));
}

}  // namespace demo
