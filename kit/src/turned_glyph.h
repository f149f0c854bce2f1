// TurnedGlyph: a glyph's mask turned by a quarter, in a surface that one call of drawing keeps.
#ifndef GFX_KIT_SRC_TURNED_GLYPH_H
#define GFX_KIT_SRC_TURNED_GLYPH_H

#include <gfx/surface.h>

#include "glyph_finder.h"

namespace gfx::kit {

class TurnedGlyph {
public:
    TurnedGlyph() = default;
    TurnedGlyph(const TurnedGlyph&) = delete;
    TurnedGlyph& operator=(const TurnedGlyph&) = delete;
    ~TurnedGlyph() noexcept(false) { GfxSurface::Delete(surface_); }

    /// Draws a glyph turned around the pen's pixel. Its image lies inside its mask; masks of other
    /// depths than 8 draw nothing. @throws what a hook throws; nothing is drawn then.
    void Draw(GfxSurface& target, const Glyph& glyph, int x, int y, std::uint32_t word, Turn turn);

private:
    void MakeRoom(unsigned w, unsigned h);
    void Copy(const Glyph& glyph, Turn turn);

    GfxSurface* surface_ = nullptr;
};

}  // namespace gfx::kit

#endif  // GFX_KIT_SRC_TURNED_GLYPH_H
