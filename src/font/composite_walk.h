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

/// Programs run once for each load, and single instructions of theirs go over all points.
inline constexpr unsigned kMaxHintedWork = 1024;  // points of all loads, and for each load besides:
inline constexpr unsigned kLoadWork = 64;

/// Where a face keeps its outlines. Without them (faces of another kind) nothing is composed.
struct OutlineTables {
    std::uint64_t outlines;
    std::uint64_t places;
    bool arePlacesLong;
    bool areProgramsBounded;  // as far as the face as a whole decides it
};

enum class GlyphCost { Refused, Unhinted, Hinted };

/// How a glyph may be loaded: not at all beyond the limits of depth and loads or where the file
/// does not hold it whole, without its programs beyond the limits for these.
GlyphCost CostOfGlyph(FaceFile& file, const OutlineTables& tables, std::uint32_t glyphIndex);

}  // namespace gfx

#endif  // GFX_FONT_COMPOSITE_WALK_H
