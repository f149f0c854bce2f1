// The cache as an object: its life, the open face, the character map and the metrics. Knows
// nothing of glyph images.
#include <gfx/font_cache.h>

#include <algorithm>
#include <cstring>
#include <new>

#include <gfx/surface.h>

#include "font/face_data.h"
#include "memory/hook_block.h"
#include "memory/on_failure.h"

namespace {

constexpr std::uint16_t kBandWidth = 64;  // pixels; many glyphs of usual sizes to one surface

/// A private copy of the path, as the engine gets it: in a network path, which begins with two
/// slashes, every slash becomes a backslash.
gfx::HookBlock CopyPath(const char* path) {
    const std::size_t size = std::strlen(path) + 1;
    gfx::HookBlock block(size);
    auto* const copy = static_cast<char*>(block.Get());
    std::memcpy(copy, path, size);
    if (path[0] == '/' && path[1] == '/') std::replace(copy, copy + size, '/', '\\');
    return gfx::HookBlock::Adopt(block.Release());
}

/// A height in font units at the given em size: half is added and the sum truncated toward zero.
std::int16_t ScaleToPixels(int value, unsigned unitsPerEm, int emSize) {
    if (unitsPerEm == 0) return 0;
    const double scaled = static_cast<double>(value) / unitsPerEm * emSize + 0.5;
    return static_cast<std::int16_t>(std::clamp(scaled, -32768.0, 32767.0));
}

/// Frees every band from `next` on; goes on with the others when the hook throws at one.
struct BandSweep {
    GfxSurface** bands;
    std::uint32_t count;
    std::uint32_t next = 0;

    void Run() {
        while (next < count)
            GfxSurface::Delete(bands[next++]);
    }
    ~BandSweep() noexcept(false) {
        struct Rest {
            BandSweep& sweep;
            ~Rest() noexcept(false) { sweep.Run(); }
        } rest{*this};
        Run();
    }
};

}  // namespace

GfxFontCache::GfxFontCache()
    : bands(nullptr),
      bandCount(0),
      currentBand(0),
      currentX(0),
      bandWidth(0),
      bandHeight(0),
      typoAscender(0),
      typoDescender(0),
      typoLineGap(0),
      faceData(nullptr),
      size(0),
      antialias(false) {}

GfxFontCache::~GfxFontCache() noexcept(false) {
    // Read from the bottom up: what leaves the scope first is released first, and everything else
    // still is when a hook throws. The members follow: the records release their chains.
    const auto slots = gfx::HookBlock::Adopt(bands);
    const BandSweep sweep{bands, bandCount};
    CloseFace();
}

bool GfxFontCache::OpenFace(const char* path, int emSize, bool smooth) {
    gfx::OnFailure close([this] { CloseFace(); });  // also on every return of false
    if (path == nullptr) return false;
    {
        const gfx::HookBlock pathCopy = CopyPath(path);
        CloseFace();
        gfx::HookBlock block(sizeof(FaceData));
        faceData = ::new (block.Get()) FaceData{};
        block.Release();
        size = emSize;
        antialias = smooth;
        if (!faceData->file.Open(static_cast<char*>(pathCopy.Get()))) return false;
    }
    FaceData& open = *faceData;
    open.engine = gfx::StartEngine();
    if (open.engine == nullptr) return false;
    open.face = gfx::OpenEngineFace(open.engine, open.file);
    if (open.face == nullptr) return false;
    open.properties = gfx::ReadFaceProperties(open.face);
    open.glyph = gfx::GlyphContainerOf(open.face);
    open.instance = gfx::SizeInstanceOf(open.face);
    if (open.glyph == nullptr || open.instance == nullptr) return false;
    open.outlineTables = gfx::FindOutlineTables(open.face, open.file);
    gfx::SetCharacterSize(open.face, emSize);
    open.instanceMetrics = gfx::ReadSizeMetrics(open.instance);
    bandWidth = kBandWidth;
    bandHeight = open.instanceMetrics.verticalPixelsPerEm;

    const gfx::FaceProperties& face = open.properties;
    typoAscender = ScaleToPixels(face.typoAscender, face.unitsPerEm, emSize);
    typoDescender = ScaleToPixels(-face.typoDescender, face.unitsPerEm, emSize);
    typoLineGap = ScaleToPixels(face.typoLineGap, face.unitsPerEm, emSize);
    CharToUnicode();
    close.Dismiss();
    return true;
}

void GfxFontCache::CloseFace() {
    if (faceData == nullptr) return;
    const auto block = gfx::HookBlock::Adopt(faceData);
    gfx::CloseEngineFace(faceData->face);
    gfx::EndEngine(faceData->engine);
    faceData->file.Close();
    faceData = nullptr;
}

void GfxFontCache::CharToUnicode() {
    if (faceData == nullptr) return;
    FaceData& open = *faceData;
    const int count = gfx::CountCharMaps(open.face);
    for (int i = 0; i < count && open.charMap == nullptr; ++i) {
        gfx::CharMapId id = {};
        if (!gfx::ReadCharMapId(open.face, i, id)) continue;
        const bool isWindowsUnicode = id.platform == 3 && id.encoding == 1;
        const bool isUnicodeDefault = id.platform == 0 && id.encoding == 0;
        if (isWindowsUnicode || isUnicodeDefault) open.charMap = gfx::SelectCharMap(open.face, i);
    }
    if (open.charMap == nullptr) return;
    gfx::ReadGlyphIndices(open.face, open.glyphIndex, gfx::kCodeCount);
}

bool GfxFontCache::HasGlyph(unsigned int code) const {
    return faceData != nullptr && code < gfx::kCodeCount && faceData->glyphIndex[code] != 0;
}

short GfxFontCache::TypoDescender() const {
    return static_cast<short>(-int{typoDescender});  // in 16 bits: -32768 stays as it is
}
