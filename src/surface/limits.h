// The texts of the failed conditions that surfaces throw, as const char*.
#ifndef GFX_SURFACE_LIMITS_H
#define GFX_SURFACE_LIMITS_H

namespace gfx {

inline constexpr const char* kDepthLimit = "bpp < 33";
inline constexpr const char* kLineLimitX = "dx < MAX_LINE_LENGTH";
inline constexpr const char* kLineLimitY = "dy < MAX_LINE_LENGTH";
inline constexpr const char* kWidthLimit = "dx <= INT_MAX";
inline constexpr const char* kHeightLimit = "dy <= INT_MAX";
inline constexpr const char* kPitchLimit = "row <= pitch";

}  // namespace gfx

#endif  // GFX_SURFACE_LIMITS_H
