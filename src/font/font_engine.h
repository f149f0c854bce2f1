// What the font cache asks of the font engine: open a face, read it, load and render one outline.
// The only place that knows the engine; it knows nothing of caches, bands and surfaces, calls no
// hook, and decides no rule of the cache but the reduction of coverage to five levels.
#ifndef GFX_FONT_FONT_ENGINE_H
#define GFX_FONT_FONT_ENGINE_H

#include <cstdint>

#include "font/composite_walk.h"
#include "font/face_file.h"

struct FT_LibraryRec_;
struct FT_FaceRec_;
struct FT_SizeRec_;
struct FT_GlyphSlotRec_;
struct FT_CharMapRec_;

namespace gfx {

using EngineInstance = FT_LibraryRec_*;
using EngineFace = FT_FaceRec_*;
using EngineSize = FT_SizeRec_*;
using EngineGlyph = FT_GlyphSlotRec_*;
using EngineCharMap = FT_CharMapRec_*;

/// A hinted glyph in 1/64 pixel from the pen position, y upwards.
struct GlyphMetrics {
    std::int64_t xMin, yMin, xMax, yMax;  // control box of the outline
    std::int64_t bearingX, bearingY, advance;
};

/// In font units. All 0 for a face that lacks the table a value comes from.
struct FaceProperties {
    std::uint16_t unitsPerEm;
    std::int16_t typoAscender;
    std::int16_t typoDescender;
    std::int16_t typoLineGap;
};

struct SizeMetrics {
    std::uint16_t verticalPixelsPerEm;
};

/// A render buffer. Row 0 is the top row.
struct RasterMap {
    std::uint32_t rows;
    std::uint32_t bytesPerRow;
    std::uint32_t pixelsPerRow;
    std::uint8_t* buffer;
    std::uint32_t byteSize;
    std::uint32_t keptPixels;  // of each row, from the left
};

struct CharMapId {
    std::uint16_t platform;
    std::uint16_t encoding;
};

/// Null when the engine cannot be started. Instances share nothing.
EngineInstance StartEngine();

/// Ends an instance; null is left alone.
void EndEngine(EngineInstance engine);

/// Opens the first face of an open file, which must outlive it. Null when there is none, or none
/// with scalable outlines.
EngineFace OpenEngineFace(EngineInstance engine, FaceFile& file);

/// Closes a face and what was made on it; null is left alone.
void CloseEngineFace(EngineFace face);

/// The glyph container and the size instance that belong to the face and live as long.
EngineGlyph GlyphContainerOf(EngineFace face);
EngineSize SizeInstanceOf(EngineFace face);

FaceProperties ReadFaceProperties(EngineFace face);

/// Finds the tables of a face of TrueType outlines; all 0 for other faces.
OutlineTables FindOutlineTables(EngineFace face, FaceFile& file);

/// Sets the em size in pixels, limited to 1 .. 65535, the range the engine can represent.
void SetCharacterSize(EngineFace face, int emSize);

SizeMetrics ReadSizeMetrics(EngineSize instance);

/// Character maps in the face's own order.
int CountCharMaps(EngineFace face);

/// The IDs of map i; false for a map that the engine made up because the file has none.
bool ReadCharMapId(EngineFace face, int i, CharMapId& id);

/// Makes map i the one that ReadGlyphIndices asks; null when the engine cannot use it.
EngineCharMap SelectCharMap(EngineFace face, int i);

/// Stores the glyph indices of the codes below `count`; entries of unmapped codes stay as they are.
void ReadGlyphIndices(EngineFace face, std::uint32_t* indices, std::uint32_t count);

/// Loads a glyph scaled, and hinted if asked for, into the container. Without an outline the box
/// and the bearings are 0; when nothing could be loaded the advance is 0 too.
GlyphMetrics LoadGlyph(EngineFace face, EngineGlyph container, std::uint32_t glyphIndex,
                       bool isHinted);

/// Whether rendering the loaded outline, whose image has this size, stays within the outline
/// budget.
bool IsOutlineBounded(EngineGlyph container, std::uint32_t width, std::uint32_t rows);

/// Renders the loaded outline so that the point (left, bottom), in whole pixels, is the buffer's
/// bottom left corner. The buffer must be clear. The outline is moved: one render for each load.
/// `isAntialiased`: one byte a pixel, 0x00, 0x40, 0x80, 0xC0 or 0xFF, of the columns that are kept;
/// otherwise one bit a pixel, the most significant first, of the whole image. A failing engine
/// leaves the buffer with some or no ink.
void RenderGlyph(EngineInstance engine, EngineGlyph container, int left, int bottom,
                 bool isAntialiased, const RasterMap& map);

}  // namespace gfx

#endif  // GFX_FONT_FONT_ENGINE_H
