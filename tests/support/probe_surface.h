// A surface whose protected fields and operations the tests can reach, as a derived surface can.
#pragma once

#include <gfx/surface.h>

#include <memory>

#include "support/row_order.h"

namespace test {

class ProbeSurface : public GfxSurface {
public:
    explicit ProbeSurface(unsigned bitsPerPixel) : GfxSurface(bitsPerPixel) {}
    ~ProbeSurface() noexcept(false) override = default;

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
    using GfxSurface::pixelShift;
    using GfxSurface::rgbLine;
    using GfxSurface::surface;
    using GfxSurface::transparent;
    using GfxSurface::transparentColor;

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
};

/// A surface that lays its rows in an order of its own.
class OrderedSurface : public ProbeSurface {
public:
    OrderedSurface(unsigned bits, RowOrder order) : ProbeSurface(bits), order_(order) {}

protected:
    void AllocLinesForSurface() override {
        ProbeSurface::AllocLinesForSurface();
        for (unsigned y = 0; lines != nullptr && y < DY(); ++y)
            lines[y] = surface + std::size_t{RowInMemory(order_, y, DY())} * Pitch();
    }

private:
    RowOrder order_;
};

/// Owns a surface made with GfxSurface::New.
struct SurfaceDeleter {
    void operator()(GfxSurface* s) const { GfxSurface::Delete(s); }
};
using SurfacePtr = std::unique_ptr<GfxSurface, SurfaceDeleter>;

inline SurfacePtr MakeSurface(unsigned bitsPerPixel, unsigned w, unsigned h) {
    SurfacePtr made(GfxSurface::New(bitsPerPixel));
    made->Initialise(w, h);
    return made;
}

}  // namespace test
