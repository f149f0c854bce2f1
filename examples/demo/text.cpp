// Decodes UTF-8 as far as the font cache reaches (two bytes: U+0000 to U+07FF) and walks the pen.
#include "text.h"

#include <stdexcept>

namespace demo {
namespace {

unsigned short NextCode(std::string_view& rest) {
    const auto lead = static_cast<unsigned char>(rest[0]);
    if (lead < 0x80 || rest.size() < 2) {
        rest.remove_prefix(1);
        return lead;
    }
    const auto trail = static_cast<unsigned char>(rest[1]);
    rest.remove_prefix(2);
    return static_cast<unsigned short>((lead & 0x1F) << 6 | (trail & 0x3F));
}

}  // namespace

Text::Text(const std::string& face, int emSize, bool smooth, int tracking) : tracking_(tracking) {
    if (!cache_.OpenFace(face.c_str(), emSize, smooth)) {
        throw std::runtime_error("cannot open the face " + face);
    }
}

int Text::Advance(unsigned short code) {
    GfxFontCache::GlyphGeom geom;
    cache_.GetGlyphGeometry(code, geom);
    return geom.advance + tracking_;
}

int Text::Width(std::string_view text) {
    int width = text.empty() ? 0 : -tracking_;
    while (!text.empty())
        width += Advance(NextCode(text));
    return width;
}

int Text::Draw(GfxSurface& target, int x, int y, Color color, std::string_view text, Align align,
               Turn turn) {
    const int width = Width(text);
    int along = align == Align::kLeft ? 0 : align == Align::kCenter ? -width / 2 : -width;
    while (!text.empty()) {
        const unsigned short code = NextCode(text);
        const int penX = turn == Turn::kNone ? x + along : x;
        const int penY = turn == Turn::kUp ? y - along : turn == Turn::kDown ? y + along : y;
        cache_.DrawGlyph(code, static_cast<unsigned>(penX), static_cast<unsigned>(penY), color,
                         &target, static_cast<int>(turn));
        along += Advance(code);
    }
    return width;
}

Typeface::Typeface(const std::string& regular, const std::string& bold)
    : hero(regular, 52, true),
      headline(bold, 30, true),
      title(bold, 18, true),
      value(regular, 24, true),
      reading(regular, 17, true),
      body(regular, 13, true),
      label(bold, 10, true, 1),
      scale(regular, 11, true),
      stencil(regular, 11, false, 1) {}

}  // namespace demo
