#include "view.h"

#include <cstddef>
#include <cstring>

namespace playground {

const std::vector<std::uint8_t>& View::Bytes(const GfxSurface& surface, int x, int y, unsigned w,
                                             unsigned h) {
    if (words_ == nullptr) words_ = GfxSurface::New(32);
    words_->Initialise(w, h);
    words_->RectCopy(0, 0, w, h, x, y, &surface, false);
    bytes_.resize(std::size_t{4} * w * h);
    std::uint8_t* to = bytes_.data();
    for (unsigned row = 0; row < h; ++row) {
        const auto* from = static_cast<const std::uint8_t*>(words_->Line(static_cast<int>(row)));
        for (unsigned column = 0; column < w; ++column, from += 4, to += 4) {
            to[0] = from[2];
            to[1] = from[1];
            to[2] = from[0];
            to[3] = 255;
        }
    }
    return bytes_;
}

std::uint32_t StoredPixel(const GfxSurface& surface, int x, int y) {
    if (x < 0 || y < 0) return 0;
    const auto column = static_cast<unsigned>(x);
    if (column >= surface.DX() || static_cast<unsigned>(y) >= surface.DY()) return 0;
    const unsigned bytes = surface.Depth() > 16 ? 4 : surface.Depth() > 8 ? 2 : 1;
    const auto* row = static_cast<const std::uint8_t*>(surface.Line(y));
    std::uint32_t stored = 0;
    if (row != nullptr) std::memcpy(&stored, row + std::size_t{column} * bytes, bytes);
    return stored;
}

}  // namespace playground
