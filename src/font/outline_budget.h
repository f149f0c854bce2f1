// How much work an outline may cost. An image is bounded by its size, but not the outline behind
// it: 40 KB of font hold a path that crosses the same few pixels thousands of times.
#ifndef GFX_FONT_OUTLINE_BUDGET_H
#define GFX_FONT_OUTLINE_BUDGET_H

#include <cstdint>

struct FT_Outline_;

namespace gfx {

/// The engine renders a few rows at a time and follows every stretch of the path that crosses them
/// from end to end. So a glyph's work is at most the length of its path in pixels, across and down
/// added, a point counting one more, times the rows to be rendered.
inline constexpr std::uint64_t kMaxOutlineWork = std::uint64_t{1} << 31;

/// The points must lie within the image, which must be small enough to be rendered.
bool IsWithinOutlineBudget(const FT_Outline_& outline, std::uint32_t width, std::uint32_t rows);

}  // namespace gfx

#endif  // GFX_FONT_OUTLINE_BUDGET_H
