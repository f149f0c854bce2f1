// The glyph table, the bands that hold the images, and the filling of one record. Glyphs are never
// evicted. What is asked of a glyph, and drawn, is decided elsewhere.
#include <gfx/font_cache.h>

#include <algorithm>
#include <cstring>
#include <new>

#include <gfx/surface.h>

#include "font/face_data.h"
#include "font/glyph_geometry.h"
#include "memory/hook_block.h"
#include "memory/on_failure.h"

namespace {

constexpr unsigned kSlotMask = 0xFF;
constexpr unsigned kHeadCodes = 256;  // codes below are stored in the head of their slot
constexpr std::uint32_t kBandSlotStep = 10;
constexpr const char* kNoBand = "band != nullptr";
constexpr const char* kBandLimit = "band < 65536";  // a record numbers its band in 16 bits

/// The memory behind a render buffer's description, for the length of one fill.
class RenderBuffer {
public:
    RenderBuffer(gfx::RasterMap& map, unsigned width, unsigned height, unsigned keptWidth,
                 bool isAntialiased)
        : map_(map), block_(std::uint64_t{height} * gfx::RenderPitch(width)) {
        map.rows = height;
        map.bytesPerRow = gfx::RenderPitch(width);
        map.pixelsPerRow = isAntialiased ? map.bytesPerRow : width;
        map.keptPixels = std::min(map.pixelsPerRow, keptWidth);
        map.byteSize = map.rows * map.bytesPerRow;
        map.buffer = static_cast<std::uint8_t*>(block_.Get());
        if (map.byteSize != 0) std::memset(map.buffer, 0, map.byteSize);
    }
    RenderBuffer(const RenderBuffer&) = delete;
    RenderBuffer& operator=(const RenderBuffer&) = delete;
    ~RenderBuffer() noexcept(false) { map_.buffer = nullptr; }

private:
    gfx::RasterMap& map_;
    gfx::HookBlock block_;
};

/// One bit a pixel becomes one byte: 0 for ink, 255 for none. From right to left, so that no byte
/// is overwritten whose bits are still to be read.
void WidenBits(std::uint8_t* row, unsigned width) {
    for (unsigned c = width; c-- > 0;) {
        const bool isInk = ((row[c / 8] >> (7 - c % 8)) & 1) != 0;
        row[c] = isInk ? 0x00 : 0xFF;
    }
}

/// Turns what the engine rendered into transparencies, one byte a pixel that is kept.
void ConvertToTransparency(const gfx::RasterMap& map, bool isAntialiased) {
    std::uint8_t* const end = map.buffer + map.byteSize;
    if (isAntialiased) {
        std::transform(map.buffer, end, map.buffer,
                       [](std::uint8_t ink) { return static_cast<std::uint8_t>(~ink); });
        return;
    }
    for (std::uint8_t* row = map.buffer; row != end; row += map.bytesPerRow)
        WidenBits(row, map.keptPixels);
}

/// Loads and measures a glyph. One that costs more than the budgets allow has no image.
template <class Face>
GfxFontCache::GlyphGeom LoadAndMeasure(Face& open, std::uint32_t glyphIndex) {
    const gfx::GlyphCost cost = gfx::CostOfGlyph(open.file, open.outlineTables, glyphIndex);
    open.glyphMetrics = {};
    if (cost != gfx::GlyphCost::Refused) {
        const bool isHinted = cost == gfx::GlyphCost::Hinted;
        open.glyphMetrics = gfx::LoadGlyph(open.face, open.glyph, glyphIndex, isHinted);
    }
    const GfxFontCache::GlyphGeom geom = gfx::RoundToPixels(open.glyphMetrics);
    const auto rows = static_cast<unsigned>(geom.top - geom.bottom);
    const auto width = static_cast<unsigned>(geom.right - geom.left);
    return gfx::IsOutlineBounded(open.glyph, width, rows) ? geom : gfx::WithoutImage(geom);
}

}  // namespace

GfxFontCache::GlyphInfo* GfxFontCache::FindGlyphInfo(unsigned short code) {
    if (code >= gfx::kCodeCount) return nullptr;  // 0xFFFF would find a free head
    GlyphInfo* info = &glyphs[code & kSlotMask];
    while (info != nullptr && info->code != code)
        info = info->next;
    return info;
}

GfxFontCache::GlyphInfo* GfxFontCache::NewGlyphInfo(unsigned short code) {
    if (code >= gfx::kCodeCount) return nullptr;
    GlyphInfo* info = &glyphs[code & kSlotMask];
    if (code >= kHeadCodes) {
        while (info->next != nullptr)
            info = info->next;
        gfx::HookBlock block(sizeof(GlyphInfo));
        info->next = ::new (block.Get()) GlyphInfo;
        block.Release();
        info = info->next;
    }
    info->code = code;
    return info;
}

GfxFontCache::GlyphInfo* GfxFontCache::ObtainGlyphInfo(unsigned short code) {
    if (faceData == nullptr) return nullptr;
    GlyphInfo* const known = FindGlyphInfo(code);
    if (known != nullptr) return known;
    GlyphInfo* const made = NewGlyphInfo(code);
    if (made == nullptr) return nullptr;
    // An unfinished glyph leaves the table, so that the next request tries again.
    gfx::OnFailure takeBack([this, made] {
        GlyphInfo* before = &glyphs[made->code & kSlotMask];
        made->code = 0xFFFF;
        if (before == made) return;
        while (before->next != made)
            before = before->next;
        before->next = nullptr;
        const auto block = gfx::HookBlock::Adopt(made);
    });
    FillGlyphInfo(made);
    takeBack.Dismiss();
    return made;
}

void GfxFontCache::GrowBands() {
    const std::uint32_t grown = bandCount + kBandSlotStep;
    gfx::HookBlock block(std::uint64_t{grown} * sizeof(GfxSurface*));
    auto** const slots = static_cast<GfxSurface**>(block.Get());
    std::copy(bands, bands + bandCount, slots);
    std::fill(slots + bandCount, slots + grown, nullptr);
    const auto old = gfx::HookBlock::Adopt(bands);
    bands = static_cast<GfxSurface**>(block.Release());
    bandCount = grown;
}

void GfxFontCache::NewBand() {
    GfxSurface* band = GfxSurface::New(8);
    if (band == nullptr) throw kNoBand;  // New alone lets the hook deliver nothing
    gfx::OnFailure drop([&band] { GfxSurface::Delete(band); });
    band->Initialise(bandWidth, bandHeight);
    std::uint32_t slot = 1;
    if (bands == nullptr) GrowBands();
    while (bands[slot] != nullptr) {
        if (++slot == bandCount) GrowBands();
    }
    if (slot > UINT16_MAX) throw kBandLimit;
    drop.Dismiss();
    bands[slot] = band;
    currentX = 0;
    currentBand = static_cast<std::uint16_t>(slot);
}

void GfxFontCache::NewGlyphInBand(unsigned short imageWidth, unsigned short& x,
                                  unsigned short& band) {
    if (currentBand == 0) NewBand();
    if (currentX + imageWidth > bandWidth) NewBand();
    band = currentBand;
    x = currentX;
    currentX = static_cast<std::uint16_t>(currentX + imageWidth);
}

void GfxFontCache::FillGlyphInfo(GlyphInfo* info) {
    if (faceData == nullptr || info == nullptr || info->code >= gfx::kCodeCount) return;
    FaceData& open = *faceData;
    const GlyphGeom geom = LoadAndMeasure(open, open.glyphIndex[info->code]);
    const auto width = static_cast<std::uint16_t>(geom.right - geom.left);
    const auto height = static_cast<std::uint16_t>(geom.top - geom.bottom);
    unsigned short bandX = 0;
    unsigned short band = 0;
    // Columns of an image whose scratch memory failed to be released are the next one's.
    gfx::OnFailure giveBack([&] { currentX = band == 0 ? currentX : bandX; });
    {
        // Any band that the image may go to.
        const unsigned keptWidth =
            currentBand == 0 ? bandWidth : std::max<unsigned>(bandWidth, bands[currentBand]->DX());
        const RenderBuffer buffer(open.rasterMap, width, height, keptWidth, antialias);
        const gfx::RasterMap& map = open.rasterMap;
        if (map.byteSize != 0) {
            gfx::RenderGlyph(open.engine, open.glyph, geom.left, geom.bottom, antialias, map);
            ConvertToTransparency(map, antialias);
        }
        GfxSurface image(8);
        image.Initialise(width, height, map.buffer, map.bytesPerRow, false);
        NewGlyphInBand(width, bandX, band);
        bands[band]->RectCopy(bandX, 0, width, height, 0, 0, &image, true);
    }
    giveBack.Dismiss();
    // Only now: a record keeps its old values until its glyph is finished.
    info->bandX = bandX;
    info->bandY = 0;
    info->width = width;
    info->height = height;
    info->band = band;
    info->geom = geom;
}
