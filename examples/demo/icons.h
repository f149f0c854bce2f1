// Small pictograms, drawn with a colour key.
#pragma once

#include "palette.h"
#include "surface.h"

namespace demo {

enum class Icon { kCabin, kGear, kShield, kDoor, kRope, kWind };

inline constexpr int kIconSize = 16;

/// All icons in one colour side by side on a 16-bit surface; the ground is the key.
class IconSheet {
public:
    /// @param color  the icons. @param shade  their softer parts and round corners.
    IconSheet(Color color, Color shade);

    /// Copies an icon to (x, y), its top-left pixel.
    void Draw(GfxSurface& target, int x, int y, Icon icon) const;

private:
    Surface sheet_;
};

}  // namespace demo
