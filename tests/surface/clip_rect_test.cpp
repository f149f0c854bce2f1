// The clip rectangle: what SetClipRect makes of any argument, and what GetClipRect tells.
#include <gtest/gtest.h>

#include <array>
#include <climits>

#include "support/probe_surface.h"
#include "surface/model.h"

namespace test {
namespace {

using Corners = std::array<int, 4>;

Corners CornersOf(const ProbeSurface& s) { return {s.clipX0, s.clipY0, s.clipX1, s.clipY1}; }

TEST(ClipRect, SetClipRect_stays_inside_for_every_class_of_argument) {
    static constexpr int kAt[] = {INT_MIN, INT_MIN + 1, -101, -100, -50,         -1,     0,
                                  1,       99,          100,  101,  INT_MAX - 1, INT_MAX};
    static constexpr unsigned kSizes[] = {0,          1,          49,           50,      51,
                                          99,         100,        101,          150,     0x7FFFFFFF,
                                          0x80000000, 0x80000001, UINT_MAX - 1, UINT_MAX};
    for (const unsigned side : {0u, 1u, 100u, 0x7FFFFFFFu}) {
        ProbeSurface s(8);
        Model model(8);
        s.Initialise(side, side, nullptr, 0, false);
        model.InitialiseOver(side, side, nullptr, 0, false);
        for (const int at : kAt) {
            for (const unsigned size : kSizes) {
                s.SetClipRect(at, 0, size, side);
                model.SetClipRect({at, 0, size, side});
                EXPECT_EQ(model.clipX0, s.clipX0) << at << ", " << size << " of " << side;
                EXPECT_EQ(model.clipX1, s.clipX1) << at << ", " << size << " of " << side;
                EXPECT_TRUE(s.clipY0 == 0 && s.clipY1 == static_cast<int>(side));
                s.SetClipRect(0, at, side, size);
                EXPECT_EQ(model.clipX0, s.clipY0) << "row " << at << ", " << size << " of " << side;
                EXPECT_EQ(model.clipX1, s.clipY1) << "row " << at << ", " << size << " of " << side;
            }
        }
    }
}

TEST(ClipRect, SetClipRect_restores_what_GetClipRect_delivered) {
    static constexpr Rect kClips[] = {{0, 0, 40, 30}, {3, 4, 5, 6},   {-9, 2, 20, 99},
                                      {39, 29, 1, 1}, {12, 0, 0, 30}, {90, 5, 3, 3},
                                      {0, 30, 40, 2}, {-5, -5, 2, 2}};
    for (const unsigned w : {40U, 0U}) {
        for (const Rect& clip : kClips) {
            ProbeSurface s(8);
            s.Initialise(w, 30);
            s.SetClipRect(clip.x, clip.y, clip.w, clip.h);
            const Corners before = CornersOf(s);
            int x, y;
            unsigned clipW, clipH;
            s.GetClipRect(x, y, clipW, clipH);
            EXPECT_EQ(s.clipX1, x + static_cast<int>(clipW)) << "clip at " << clip.x;
            EXPECT_EQ(s.clipY1, y + static_cast<int>(clipH)) << "clip at " << clip.y;
            s.ResetClipRect();
            s.SetClipRect(x, y, clipW, clipH);
            EXPECT_EQ(before, CornersOf(s)) << "clip at " << clip.x << ", " << clip.y;
        }
    }
}

}  // namespace
}  // namespace test
