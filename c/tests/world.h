// Objects that every operation can be tried on, and hooks in C that fail on demand.
#pragma once

#include <gfx/c/kit.h>
#include <gfx/gfx.h>

#include <cstdint>
#include <cstdlib>
#include <map>
#include <vector>

namespace test {

/// The hooks' context: live blocks, and how many allocations are left until one delivers null.
struct Blocks {
    std::map<void*, unsigned long> live;
    long untilNull = -1;  ///< counts down; below 0 never
    int faults = 0;       ///< blocks returned that were not live

    static void* Allocate(void* context, unsigned long size) {
        auto& blocks = *static_cast<Blocks*>(context);
        if (blocks.untilNull >= 0 && blocks.untilNull-- == 0) return nullptr;
        void* block = std::calloc(size + 1, 1);
        blocks.live[block] = size;
        return block;
    }
    static void Release(void* context, void* block) {
        auto& blocks = *static_cast<Blocks*>(context);
        if (blocks.live.erase(block) == 0) {
            ++blocks.faults;
            return;
        }
        std::free(block);
    }
};

/// A surface, a source with alphas, a mask and a font cache, seen from both sides, with buffers
/// that operations write to and the results that they deliver.
struct World {
    static constexpr unsigned kWidth = 40;
    static constexpr unsigned kHeight = 30;

    GfxSurface* surface = GfxSurface::New(32);
    GfxSurface* source = GfxSurface::New(32);
    GfxSurface* mask = GfxSurface::New(8);
    GfxFontCache* font = new GfxFontCache;
    gfx_surface* cSurface = reinterpret_cast<gfx_surface*>(surface);
    gfx_surface* cSource = reinterpret_cast<gfx_surface*>(source);
    gfx_surface* cMask = reinterpret_cast<gfx_surface*>(mask);
    gfx_font_cache* cFont = reinterpret_cast<gfx_font_cache*>(font);
    gfx_canvas* cCanvas = nullptr;
    gfx_font* cTextFont = nullptr;
    gfx_damage* cDamage = nullptr;
    std::vector<unsigned char> buffer = std::vector<unsigned char>(4 * kWidth * kHeight);
    std::vector<std::uint32_t> results;

    World() {
        surface->Initialise(kWidth, kHeight);
        source->Initialise(23, 17);
        mask->Initialise(19, 13);
        Scatter(*surface, 5);
        Scatter(*source, 6);
        Scatter(*mask, 7);
        surface->SetClipRect(1, 2, 36, 25);
        for (std::size_t i = 0; i < buffer.size(); ++i)
            buffer[i] = Random(i);
        font->OpenFace(GFX_TEST_FACE, 14, true);
        gfx_canvas_new(cSurface, &cCanvas);
        gfx_font_new(cFont, &cTextFont);
        gfx_damage_new(kWidth, kHeight, 4, 2, &cDamage);
    }
    ~World() {
        gfx_canvas_delete(&cCanvas);
        gfx_font_delete(&cTextFont);
        gfx_damage_delete(&cDamage);
        GfxSurface::Delete(surface);
        GfxSurface::Delete(source);
        GfxSurface::Delete(mask);
        delete font;
    }
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    template <class... Values>
    void Record(Values... values) {
        (results.push_back(static_cast<std::uint32_t>(values)), ...);
    }

    /// All that an operation may have changed and a host can see.
    std::vector<std::uint32_t> State() const {
        std::vector<std::uint32_t> state = results;
        state.insert(state.end(), buffer.begin(), buffer.end());
        for (const GfxSurface* s : {surface, source, mask}) {
            int x, y;
            unsigned w, h;
            s->GetClipRect(x, y, w, h);
            state.insert(state.end(), {s->DX(), s->DY(), s->Alpha(), s->Pitch(), s->IsEmpty()});
            state.insert(state.end(), {static_cast<unsigned>(x), static_cast<unsigned>(y), w, h});
            for (unsigned row = 0; row < s->DY() && s->Line(0) != nullptr; ++row) {
                const auto* bytes = static_cast<unsigned char*>(s->Line(static_cast<int>(row)));
                state.insert(state.end(), bytes, bytes + s->DX() * s->Depth() / 8);
            }
        }
        state.push_back(font->HasGlyph('A'));
        state.push_back(static_cast<std::uint32_t>(font->TypoAscender()));
        return state;
    }

private:
    static unsigned char Random(std::size_t i) {
        return static_cast<unsigned char>((i * 2654435761U + 12345U) >> 11);
    }
    static void Scatter(GfxSurface& s, unsigned seed) {
        for (unsigned y = 0; y < s.DY(); ++y) {
            auto* row = static_cast<unsigned char*>(s.Line(static_cast<int>(y)));
            for (unsigned i = 0; i < s.DX() * s.Depth() / 8; ++i)
                row[i] = Random(seed + 977 * y + i);
        }
    }
};

/// Takes and returns what an object or an array in C stands in.
struct Block {
    explicit Block(std::size_t size) : block(GfxMemory::operator new(size)) {}
    ~Block() noexcept(false) { GfxMemory::operator delete(block); }
    Block(const Block&) = delete;
    void* block;
};

/// One function in C and the operation that it stands for.
struct Pair {
    const char* name;
    gfx_status (*inC)(World& w);
    void (*inCpp)(World& w);
};

extern const std::vector<Pair> kEnginePairs;
extern const std::vector<Pair> kKitPairs;
extern const std::vector<Pair> kDamagePairs;

/// All lists.
inline std::vector<Pair> AllPairs() {
    std::vector<Pair> all = kEnginePairs;
    all.insert(all.end(), kKitPairs.begin(), kKitPairs.end());
    all.insert(all.end(), kDamagePairs.begin(), kDamagePairs.end());
    return all;
}

}  // namespace test
