// The record of an open face. It exists exactly while a face is open; the cache owns it.
#ifndef GFX_FONT_FACE_DATA_H
#define GFX_FONT_FACE_DATA_H

#include <cstdint>

#include <gfx/font_cache.h>

#include "font/face_file.h"
#include "font/font_engine.h"

namespace gfx {

inline constexpr unsigned kCodeCount = 1024;  // codes 0 to 1023; larger ones are never cached

}  // namespace gfx

struct GfxFontCache::FaceData {
    gfx::EngineInstance engine;  // belongs to this face alone, so caches share no state
    gfx::EngineFace face;
    gfx::EngineSize instance;        // belongs to the face
    gfx::EngineGlyph glyph;          // belongs to the face; every load reuses it
    gfx::EngineCharMap charMap;      // null when the face has no Unicode map
    gfx::GlyphMetrics glyphMetrics;  // of the glyph last loaded
    gfx::FaceProperties properties;
    gfx::SizeMetrics instanceMetrics;
    gfx::RasterMap rasterMap;  // its buffer is null outside a fill
    std::uint32_t glyphIndex[gfx::kCodeCount];
    gfx::OutlineTables outlineTables;
    gfx::FaceFile file;
};

#endif  // GFX_FONT_FACE_DATA_H
