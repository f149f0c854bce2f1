// The shortest way from a letter to a screen: a 16-bit surface, one glyph, display memory.
#include <stdexcept>

#include "picture_file.h"
#include "pictures.h"
#include "surface.h"
#include "text.h"

namespace demo {
namespace {

constexpr unsigned kGround = 0xF0F4F0;  // a light grey that 5-6-5 pixels give back without a tint

}  // namespace

void DrawLetter(const Studio& studio) {
    GfxFontCache cache;
    if (!cache.OpenFace(studio.regularFace.c_str(), 44, true)) {
        throw std::runtime_error("cannot open the face " + studio.regularFace);
    }
    Surface surface(16, 200, 80);
    surface->RectFill(0, 0, 200, 80, kGround);
    cache.DrawGlyph(0x41, 100, 50, 0x00FF0000, surface.Get(), 0);

    const std::string path = studio.PathOf("letter.png");
    WriteDisplayPicture(path, *surface, Display::k565);
    Studio::Report(path, "one glyph on a 16-bit surface, from 5-6-5 display memory");
}

}  // namespace demo
