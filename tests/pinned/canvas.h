// A surface as a host may derive one: its fields within reach, and its rows laid out in one of
// several ways, some of which share memory.
#pragma once

#include <gfx/surface.h>

#include <algorithm>

namespace pinned {

enum class Rows : unsigned {
    Plain,     ///< one behind the other, a pitch apart
    BottomUp,  ///< the last row first in memory
    Twice,     ///< each piece of memory is two rows
    Close      ///< `distance` bytes apart, so that they overlap
};

class Canvas : public GfxSurface {
public:
    Canvas(unsigned bitsPerPixel, Rows rows, unsigned distance)
        : GfxSurface(bitsPerPixel), rows_(rows), distance_(distance) {}
    ~Canvas() noexcept(false) override = default;

    using GfxSurface::allocDX;
    using GfxSurface::allocDY;
    using GfxSurface::bytesPerPixel;
    using GfxSurface::clipX0;
    using GfxSurface::clipX1;
    using GfxSurface::clipY0;
    using GfxSurface::clipY1;
    using GfxSurface::dots;
    using GfxSurface::lines;
    using GfxSurface::ownsSurface;
    using GfxSurface::surface;

    using GfxSurface::AllocDotsBuffer;
    using GfxSurface::BlendWithRGB;
    using GfxSurface::CombineRGBAlpha;
    using GfxSurface::ComputeLineDotsDX;
    using GfxSurface::ComputeLineDotsDY;
    using GfxSurface::ConvertFromRGB;
    using GfxSurface::ConvertTileToRGB;
    using GfxSurface::ConvertToRGB;
    using GfxSurface::ExtractFromRGB;
    using GfxSurface::ExtractMonoAlphaFromRGB;
    using GfxSurface::ExtractMonoFromRGB;
    using GfxSurface::InsertIntoRGB;
    using GfxSurface::InsertMonoIntoRGB;

protected:
    void AllocLinesForSurface() override {
        GfxSurface::AllocLinesForSurface();
        if (lines == nullptr) return;
        if (rows_ == Rows::BottomUp) std::reverse(lines, lines + DY());
        for (unsigned y = 0; y < DY(); ++y) {
            if (rows_ == Rows::Twice) lines[y] = surface + y / 2 * Pitch();
            if (rows_ == Rows::Close) lines[y] = surface + y * std::min(distance_, Pitch());
        }
    }

private:
    Rows rows_;
    unsigned distance_;
};

}  // namespace pinned
