// The font engine behind plain functions. See the header.
#include "font/font_engine.h"

#include <algorithm>

#include <ft2build.h>
#include FT_ADVANCES_H
#include FT_DRIVER_H
#include FT_FREETYPE_H
#include FT_MODULE_H
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H

#include "font/outline_budget.h"

namespace gfx {
namespace {

// Outlines only, with the hinting the engine thinks best: no embedded bitmaps. Colour layers are
// left out because they are not asked for.
constexpr FT_Int32 kLoadFlags = FT_LOAD_DEFAULT | FT_LOAD_NO_BITMAP;
constexpr int kDotsPerInch = 72;  // a point is a pixel
constexpr int kMaxEmSize = 0xFFFF;
// No face in use that was looked at needs a quarter of these.
constexpr unsigned kMaxStack = 8192;
constexpr unsigned kMaxTwilightPoints = 1024;
constexpr unsigned kMaxFunctions = 1024;
constexpr FT_ULong kMaxProgram = 16384;  // bytes

constexpr FT_ULong kFunctionsTag = FT_MAKE_TAG('f', 'p', 'g', 'm');
constexpr FT_ULong kPreparationTag = FT_MAKE_TAG('p', 'r', 'e', 'p');
constexpr FT_ULong kOutlineTag = FT_MAKE_TAG('g', 'l', 'y', 'f');
constexpr FT_ULong kPlacesTag = FT_MAKE_TAG('l', 'o', 'c', 'a');

/// The nearest of the five steps 0x00, 0x40, 0x80, 0xC0 and 0xFF, of equal distances the upper one.
/// Arithmetic within bytes and no table, so that whole images go through vectors of bytes.
std::uint8_t NearestOfFive(std::uint8_t coverage) {
    const auto step = static_cast<std::uint8_t>(static_cast<std::uint8_t>(coverage + 32) & 0xC0);
    return coverage < 0xE0 ? step : 0xFF;
}

/// Asks for a table's first byte and sees where the file is read: of several tables of one name the
/// engine knows best which one counts.
bool FindTable(EngineFace face, const FaceFile& file, FT_ULong tag, std::uint64_t& offset) {
    FT_Byte first = 0;
    FT_ULong length = 1;
    if (FT_Load_Sfnt_Table(face, tag, 0, &first, &length) != 0) return false;
    offset = file.lastOffset;
    return true;
}

/// The length of a table, 0 without it.
FT_ULong TableLength(EngineFace face, FT_ULong tag) {
    FT_ULong length = 0;
    return FT_Load_Sfnt_Table(face, tag, 0, nullptr, &length) == 0 ? length : 0;
}

/// The engine stops a program after a million instructions, but one of them may go over all of
/// this.
bool AreProgramsBounded(EngineFace face) {
    const auto* needs = static_cast<const TT_MaxProfile*>(FT_Get_Sfnt_Table(face, FT_SFNT_MAXP));
    return needs != nullptr && needs->maxStackElements <= kMaxStack &&
           needs->maxTwilightPoints <= kMaxTwilightPoints &&
           needs->maxFunctionDefs <= kMaxFunctions &&
           TableLength(face, kFunctionsTag) <= kMaxProgram &&
           TableLength(face, kPreparationTag) <= kMaxProgram;
}

/// Whether the engine's scale, 1/64 pixels to a font unit with 16 bits of fraction, fits its 32
/// bits.
bool IsScaleBounded(EngineFace face) {
    return std::int64_t{face->size->metrics.x_ppem} < std::int64_t{face->units_per_EM} * 512;
}

/// The advance in 1/64 pixel where the engine cannot scale it.
std::int64_t WideAdvance(EngineFace face, std::uint32_t glyphIndex) {
    FT_Fixed units = 0;
    if (face->units_per_EM == 0) return 0;
    if (FT_Get_Advance(face, glyphIndex, FT_LOAD_NO_SCALE, &units) != 0) return 0;
    return std::int64_t{units} * face->size->metrics.x_ppem * 64 / face->units_per_EM;
}

}  // namespace

EngineInstance StartEngine() {
    FT_Library engine = nullptr;
    if (FT_Init_FreeType(&engine) != 0) return nullptr;
    // The engine lets an environment variable choose how glyphs are hinted; glyphs must not depend
    // on it. A driver that does not know a property refuses the call and has the one way only.
    FT_UInt interpreter = TT_INTERPRETER_VERSION_40;
    FT_Property_Set(engine, "truetype", "interpreter-version", &interpreter);
    FT_UInt outlineHinting = FT_HINTING_ADOBE;
    FT_Bool isUndarkened = 1;
    for (const char* driver : {"cff", "type1", "t1cid", "autofitter"}) {
        FT_Property_Set(engine, driver, "hinting-engine", &outlineHinting);
        FT_Property_Set(engine, driver, "no-stem-darkening", &isUndarkened);
    }
    return engine;
}

void EndEngine(EngineInstance engine) {
    if (engine != nullptr) FT_Done_FreeType(engine);
}

EngineFace OpenEngineFace(EngineInstance engine, FaceFile& file) {
    FT_Open_Args arguments = {};
    arguments.flags = FT_OPEN_STREAM | FT_OPEN_DRIVER;
    arguments.stream = &file.stream;
    FT_Face face = nullptr;
    // By name: the engine's own search would end with formats that unpack what they find.
    for (const char* driver : {"truetype", "cff"}) {
        arguments.driver = FT_Get_Module(engine, driver);
        if (FT_Open_Face(engine, &arguments, 0, &face) == 0) break;
        face = nullptr;
    }
    if (face == nullptr || FT_IS_SCALABLE(face)) return face;
    FT_Done_Face(face);
    return nullptr;
}

void CloseEngineFace(EngineFace face) {
    if (face != nullptr) FT_Done_Face(face);
}

EngineGlyph GlyphContainerOf(EngineFace face) { return face->glyph; }

EngineSize SizeInstanceOf(EngineFace face) { return face->size; }

FaceProperties ReadFaceProperties(EngineFace face) {
    FaceProperties properties = {};
    const auto* head = static_cast<const TT_Header*>(FT_Get_Sfnt_Table(face, FT_SFNT_HEAD));
    const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
    if (head != nullptr) properties.unitsPerEm = head->Units_Per_EM;
    if (os2 != nullptr) {
        properties.typoAscender = os2->sTypoAscender;
        properties.typoDescender = os2->sTypoDescender;
        properties.typoLineGap = os2->sTypoLineGap;
    }
    return properties;
}

OutlineTables FindOutlineTables(EngineFace face, FaceFile& file) {
    OutlineTables tables = {};
    const auto* head = static_cast<const TT_Header*>(FT_Get_Sfnt_Table(face, FT_SFNT_HEAD));
    if (head == nullptr || !FindTable(face, file, kOutlineTag, tables.outlines)) return {};
    if (!FindTable(face, file, kPlacesTag, tables.places)) return {};
    tables.arePlacesLong = head->Index_To_Loc_Format != 0;
    tables.areProgramsBounded = AreProgramsBounded(face);
    return tables;
}

void SetCharacterSize(EngineFace face, int emSize) {
    const FT_F26Dot6 size = FT_F26Dot6{std::clamp(emSize, 1, kMaxEmSize)} * 64;
    FT_Set_Char_Size(face, size, size, kDotsPerInch, kDotsPerInch);
}

SizeMetrics ReadSizeMetrics(EngineSize instance) { return {instance->metrics.y_ppem}; }

int CountCharMaps(EngineFace face) { return face->num_charmaps; }

bool ReadCharMapId(EngineFace face, int i, CharMapId& id) {
    const FT_CharMap map = face->charmaps[i];
    // A map without a format was put together from glyph names; it is listed as a Unicode map but
    // the file does not have it.
    if (FT_IS_SFNT(face) && FT_Get_CMap_Format(map) < 0) return false;
    id = {map->platform_id, map->encoding_id};
    return true;
}

EngineCharMap SelectCharMap(EngineFace face, int i) {
    return FT_Set_Charmap(face, face->charmaps[i]) == 0 ? face->charmap : nullptr;
}

// From mapped code to mapped code, which is faster than asking for every one.
void ReadGlyphIndices(EngineFace face, std::uint32_t* indices, std::uint32_t count) {
    FT_UInt index = 0;
    FT_ULong code = FT_Get_First_Char(face, &index);
    while (index != 0 && code < count) {
        indices[code] = index;
        code = FT_Get_Next_Char(face, code, &index);
    }
}

GlyphMetrics LoadGlyph(EngineFace face, EngineGlyph container, std::uint32_t glyphIndex,
                       bool isHinted) {
    GlyphMetrics metrics = {};
    if (!IsScaleBounded(face)) {
        metrics.advance = WideAdvance(face, glyphIndex);
        return metrics;
    }
    const FT_Int32 flags = isHinted ? kLoadFlags : kLoadFlags | FT_LOAD_NO_HINTING;
    if (FT_Load_Glyph(face, glyphIndex, flags) != 0) return metrics;
    metrics.advance = container->metrics.horiAdvance;
    if (container->format != FT_GLYPH_FORMAT_OUTLINE) return metrics;
    FT_BBox box = {};
    FT_Outline_Get_CBox(&container->outline, &box);
    metrics.xMin = box.xMin;
    metrics.yMin = box.yMin;
    metrics.xMax = box.xMax;
    metrics.yMax = box.yMax;
    metrics.bearingX = container->metrics.horiBearingX;
    metrics.bearingY = container->metrics.horiBearingY;
    return metrics;
}

bool IsOutlineBounded(EngineGlyph container, std::uint32_t width, std::uint32_t rows) {
    return rows == 0 || container->format != FT_GLYPH_FORMAT_OUTLINE ||
           IsWithinOutlineBudget(container->outline, width, rows);
}

void RenderGlyph(EngineInstance engine, EngineGlyph container, int left, int bottom,
                 bool isAntialiased, const RasterMap& map) {
    FT_Outline_Translate(&container->outline, FT_Pos{-left} * 64, FT_Pos{-bottom} * 64);
    FT_Bitmap bitmap = {};
    bitmap.rows = map.rows;
    // Only columns are cut, and only anti-aliased ones. The engine leaves out curves above and
    // below what it renders, and what follows such a curve then begins 1/256 pixel off; 1-bit
    // glyphs differ in a few pixels when they are cut anywhere.
    bitmap.width = isAntialiased ? map.keptPixels : map.pixelsPerRow;
    bitmap.pitch = static_cast<int>(map.bytesPerRow);
    bitmap.buffer = map.buffer;
    bitmap.num_grays = isAntialiased ? 256 : 2;
    bitmap.pixel_mode = isAntialiased ? FT_PIXEL_MODE_GRAY : FT_PIXEL_MODE_MONO;
    FT_Outline_Get_Bitmap(engine, &container->outline, &bitmap);
    if (isAntialiased)
        std::transform(map.buffer, map.buffer + map.byteSize, map.buffer, NearestOfFive);
}

}  // namespace gfx
