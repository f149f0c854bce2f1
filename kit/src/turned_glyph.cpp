// Upwards, pixel (column, row) of an image goes to (row, width - 1 - column); downwards to
// (height - 1 - row, column).
#include "turned_glyph.h"

#include <algorithm>

namespace gfx::kit {

void TurnedGlyph::MakeRoom(unsigned w, unsigned h) {
    if (surface_ == nullptr) surface_ = GfxSurface::New(8);
    if (surface_ == nullptr) throw "no memory for a surface";
    if (surface_->DX() >= w && surface_->DY() >= h) return;
    surface_->Initialise(std::max({w, surface_->DX(), 32U}), std::max({h, surface_->DY(), 32U}));
}

void TurnedGlyph::Copy(const Glyph& glyph, Turn turn) {
    for (int row = 0; row < glyph.h; ++row) {
        const auto* const from =
            static_cast<const std::uint8_t*>(glyph.mask->Line(glyph.y + row)) + glyph.x;
        const int x = turn == Turn::kUp ? row : glyph.h - 1 - row;
        for (int column = 0; column < glyph.w; ++column) {
            const int y = turn == Turn::kUp ? glyph.w - 1 - column : column;
            static_cast<std::uint8_t*>(surface_->Line(y))[x] = from[column];
        }
    }
}

void TurnedGlyph::Draw(GfxSurface& target, const Glyph& glyph, int x, int y, std::uint32_t word,
                       Turn turn) {
    if (glyph.mask->Depth() != 8 || glyph.mask->Line(0) == nullptr) return;
    const auto w = static_cast<unsigned>(glyph.w);
    const auto h = static_cast<unsigned>(glyph.h);
    MakeRoom(h, w);
    Copy(glyph, turn);
    const std::int64_t top = glyph.top;
    const std::int64_t left = glyph.left;
    const std::int64_t cornerX = turn == Turn::kUp ? x - top : x + top - (glyph.h - 1);
    const std::int64_t cornerY = turn == Turn::kUp ? y - left - (glyph.w - 1) : y + left;
    target.RectFillBlend(Saturated(cornerX), Saturated(cornerY), h, w, word, 0, 0, surface_);
}

}  // namespace gfx::kit
