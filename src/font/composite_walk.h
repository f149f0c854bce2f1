// Whether a glyph that is put together from others may be loaded. The font engine loads the parts
// of a composite by calling itself, as deep and as often as the face says: a few hundred bytes of
// font can ask for ten million loads. So the parts are counted first, without recursion.
#ifndef GFX_FONT_COMPOSITE_WALK_H
#define GFX_FONT_COMPOSITE_WALK_H

#include <cstdint>

#include "font/face_file.h"

namespace gfx {

inline constexpr unsigned kMaxPartDepth = 32;   // composites within composites
inline constexpr unsigned kMaxGlyphLoads = 64;  // parts at every depth, the glyph itself included

/// Where a face keeps its outlines. Without them (faces of another kind) nothing is composed.
struct OutlineTables {
    std::uint64_t outlines;
    std::uint64_t places;
    bool arePlacesLong;
};

/// Whether the engine comes to an end within the limits above. A glyph that the file does not hold
/// whole is none that does.
bool IsCompositionBounded(FaceFile& file, const OutlineTables& tables, std::uint32_t glyphIndex);

}  // namespace gfx

#endif  // GFX_FONT_COMPOSITE_WALK_H
