// A host of the library in C++14: draws with every kind of operation, on surfaces of its own and of
// a derived kind, and prints checksums of the pixels. Each host that is built from this file, in
// whatever way it came by the library, prints the same. Usage: host [TrueType face file]
#include <gfx/gfx.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

static_assert(__cplusplus == 201402L, "the oldest supported language version");

namespace {

int liveBlocks = 0;

void* Alloc(void*, unsigned long size) {
    ++liveBlocks;
    return std::malloc(size == 0 ? 1 : size);
}

void Free(void*, void* block) {
    --liveBlocks;
    std::free(block);
}

/// FNV-1a over 64 bits.
class Checksum {
public:
    void Add(const void* bytes, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i)
            value_ = (value_ ^ static_cast<const unsigned char*>(bytes)[i]) * 0x100000001B3u;
    }
    void Add(const GfxSurface& s) {
        const unsigned bytes = s.Depth() <= 8 ? 1 : s.Depth() <= 16 ? 2 : 4;
        for (unsigned y = 0; y < s.DY(); ++y)
            Add(s.Line(static_cast<int>(y)), s.DX() * bytes);
    }
    void Print(const char* name) const {
        std::printf("%s %016llx\n", name, static_cast<unsigned long long>(value_));
    }

private:
    std::uint64_t value_ = 0xCBF29CE484222325u;
};

/// Overrides all four operations that a derived surface may: its memory is a part of itself, its
/// rows stand upside down, and nothing of it comes from the hooks.
class OwnRows : public GfxSurface {
public:
    explicit OwnRows(unsigned bits) : GfxSurface(bits) {}
    ~OwnRows() noexcept(false) override { OwnRows::FreeSurfaceAndLines(); }

    /// A line along x by the library's own recurrence; an offset that is no number counts as 0.
    void AddDots(Checksum& sum, double offset) {
        ComputeLineDotsDX(0, 5, 31, 17, offset);
        for (int i = 0; i <= 31; ++i) {
            sum.Add(&dots[i].minor, sizeof dots[i].minor);
            sum.Add(&dots[i].fraction, sizeof dots[i].fraction);
        }
    }

    static int calls[4];

protected:
    void AllocSurface() override {
        ++calls[0];
        surface = pixels_;
    }
    void AllocLinesForSurface() override {
        ++calls[1];
        for (unsigned y = 0; y < dy; ++y)
            rows_[y] = pixels_ + (dy - 1 - y) * pitch;
        lines = rows_;
        rgbLine = words_;
    }
    void AllocDotsBuffer() override {
        ++calls[2];
        dots = static_cast<LineDot*>(std::calloc(MAX_LINE_LENGTH, sizeof *dots));
    }
    void FreeSurfaceAndLines() override {
        ++calls[3];
        std::free(dots);
        dots = nullptr;
        lines = nullptr;
        rgbLine = nullptr;
        surface = nullptr;
    }

private:
    std::uint8_t pixels_[64 * 64 * 4] = {};
    std::uint8_t* rows_[64];
    std::uint32_t words_[64];
};

int OwnRows::calls[4] = {};

void Draw(GfxSurface* s, const GfxSurface* tile, const GfxSurface* mask) {
    const unsigned short dashes[] = {5, 3};
    s->RectFill(-3, -3, 50, 40, 0x00C08040u);
    s->RectFillBlend(7, 5, 30, 50, 0x602050F0u);
    s->RectFillBlend(0, 0, 33, 33, 0x0010E020u, 1, 2, mask);
    s->RectCopy(20, 9, 41, 31, 3, 1, tile, true);
    s->RectBlend(2, 30, 60, 17, 0, 0, tile, true);
    s->RectBlendAlpha(11, 40, 40, 20, 5, 5, 0.37, tile, true);
    s->RectInsert(3, 50, 30, 8, 0, 0, mask, GfxSurface::PlaneRed);
    s->DrawLine(-5, 3, 70, 59, 0x00FFFFFFu);
    s->DrawLine(60, 2, 1, 50, 0x00FF00FFu, dashes, 2);
    s->DrawAALine(-20, 61, 90, 7, 0x2000FFFFu);
    s->DrawAALine(30, -9, 41, 80, 0x00FFFF00u, dashes, 2);
}

#if !defined(GFX_NO_FONTS)
void AddText(Checksum& sum, const char* face) {
    GfxSurface* s = GfxSurface::New(32);
    s->Initialise(64, 64);
    GfxFontCache cache;
    const bool isOpen = cache.OpenFace(face, 19, true);
    unsigned x = 2;
    for (const char* c = "gfx 14"; *c != 0; ++c) {
        GfxFontCache::GlyphGeom geom = {};
        const auto code = static_cast<unsigned short>(*c);
        cache.GetGlyphGeometry(code, geom);
        cache.DrawGlyph(code, x, 40, 0x00FFFFFFu, s, 0);
        x += static_cast<unsigned>(geom.advance);
    }
    sum.Add(&isOpen, sizeof isOpen);
    sum.Add(*s);
    GfxSurface::Delete(s);
}
#endif

}  // namespace

int main(int count, char** words) {
    GfxMemory::fn_alloc = Alloc;
    GfxMemory::fn_free = Free;

    Checksum pixels;
    for (unsigned depth = 8; depth <= 32; depth *= 2) {
        GfxSurface* s = GfxSurface::New(depth);
        GfxSurface* tile = GfxSurface::New(32);
        GfxSurface* mask = GfxSurface::New(8);
        GfxSurface* own = new OwnRows(depth);
        s->Initialise(64, 64);
        tile->Initialise(13, 11);
        mask->Initialise(9, 7);
        own->Initialise(64, 64);
        for (int i = 0; i < 13 * 11; ++i)
            tile->SetPixelRGB(i % 13, i / 13, 0x9E3779B9u * static_cast<unsigned>(i + 1));
        for (int i = 0; i < 9 * 7; ++i)
            mask->SetPixelRGB(i % 9, i / 9, 0x00010101u * (static_cast<unsigned>(i) * 37 % 256));
        Draw(s, tile, mask);
        Draw(own, s, mask);
        own->RectBlendAlpha(0, 0, 20, 20, 0, 0, std::strtod("nan", nullptr), tile, true);
        static_cast<OwnRows*>(own)->AddDots(pixels, 0.3);
        static_cast<OwnRows*>(own)->AddDots(pixels, std::strtod("nan", nullptr));
        pixels.Add(*s);
        pixels.Add(*own);
        GfxSurface::Delete(s);
        GfxSurface::Delete(tile);
        GfxSurface::Delete(mask);
        GfxSurface::Delete(own);
    }
    pixels.Print("pixels");
#if !defined(GFX_NO_FONTS)
    Checksum text;
    AddText(text, count > 1 ? words[1] : "");
    text.Print("text");
#else
    static_cast<void>(count);
    static_cast<void>(words);
#endif

    const unsigned version = GfxVersion();
    std::printf("version %u.%u.%u\n", version / 10000, version / 100 % 100, version % 100);

    // Three surfaces: each got memory and a dots buffer once, and returned them before the first
    // pixel and at its end.
    const int* calls = OwnRows::calls;
    if (calls[0] != 3 || calls[1] != 3 || calls[2] != 3 || calls[3] != 6 || liveBlocks != 0 ||
        version != GFX_VERSION) {
        std::printf("overridden operations called %d %d %d %d times, blocks left %d, headers %d\n",
                    calls[0], calls[1], calls[2], calls[3], liveBlocks, GFX_VERSION);
        return 1;
    }
    return 0;
}
