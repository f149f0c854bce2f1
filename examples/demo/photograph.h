// The picture the demo's camera delivers: a view of the mountains, rendered at run time.
#pragma once

#include <vector>

class GfxSurface;

namespace demo {

/// A picture as cameras hand it over: rows of blue, green and red bytes.
class Photograph {
public:
    Photograph(unsigned width, unsigned height);

    unsigned Width() const { return width_; }
    unsigned Height() const { return height_; }

    /// Writes the picture into a surface of depth 16 or 32, its top-left pixel at (x, y).
    void Show(GfxSurface& target, int x, int y) const;

private:
    unsigned width_;
    unsigned height_;
    std::vector<unsigned char> bgr_;
};

}  // namespace demo
