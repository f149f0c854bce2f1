// The measure of a path. See the header.
#include "font/outline_budget.h"

#include <cstdlib>

#include <ft2build.h>
#include FT_OUTLINE_H

namespace gfx {
namespace {

std::uint64_t Distance(const FT_Vector& a, const FT_Vector& b) {
    return static_cast<std::uint64_t>(std::abs(a.x - b.x)) +
           static_cast<std::uint64_t>(std::abs(a.y - b.y));
}

}  // namespace

bool IsWithinOutlineBudget(const FT_Outline& outline, std::uint32_t width, std::uint32_t rows) {
    // No stretch is longer than the image is wide and high: enough for nearly every glyph.
    const auto points = static_cast<std::uint64_t>(outline.n_points);
    if (points * (width + rows + 1) * rows <= kMaxOutlineWork) return true;
    std::uint64_t length = 0;  // in 1/64 pixel
    int first = 0;
    for (int contour = 0; contour < outline.n_contours; ++contour) {
        const int last = outline.contours[contour];
        for (int i = first; i <= last; ++i)
            length += 64 + Distance(outline.points[i], outline.points[i == first ? last : i - 1]);
        first = last + 1;
    }
    return length / 64 * rows <= kMaxOutlineWork;
}

}  // namespace gfx
