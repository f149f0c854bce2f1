// Decodes bytes into drawing operations on four surfaces and runs them. What it demands beyond the
// sanitizers: canary bytes around host memory stay whole, only the hooks' and the library's own
// exceptions come out, and at the end every block has been returned.
//
// Values are taken as a host may pass them, extremes included. Only what a host vouches for is kept
// in bounds: the sizes of its buffers, and surfaces small enough to run thousands of cases a
// second.

#include <gfx/gfx.h>

#include <algorithm>
#include <array>
#include <bit>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "support/fenced_memory.h"
#include "support/hook_ledger.h"

namespace {

/// Reads values from the fuzzer's bytes; 0 once they are used up.
class Input {
public:
    Input(const std::uint8_t* bytes, std::size_t size) : at_(bytes), end_(bytes + size) {}

    bool IsAtEnd() const { return at_ == end_; }
    std::uint8_t Byte() { return IsAtEnd() ? std::uint8_t{0} : *at_++; }

    std::uint32_t Word() {
        std::uint32_t word = 0;
        for (int i = 0; i < 4; ++i)
            word = word << 8 | Byte();
        return word;
    }

    unsigned Below(unsigned limit) { return Byte() % limit; }
    bool Flag() { return (Byte() & 1) != 0; }

    /// Mostly near a surface's edges, sometimes at the edge of the type, sometimes anything.
    int Coordinate() {
        static constexpr int kExtremes[] = {INT_MIN, INT_MIN + 1, -10000, -9999,       9999,
                                            10000,   65535,       65536,  INT_MAX - 1, INT_MAX};
        const unsigned kind = Byte();
        if (kind < 200) return static_cast<int>(kind % 64) - 12;
        if (kind < 240) return kExtremes[kind % std::size(kExtremes)];
        return static_cast<int>(Word());
    }

    unsigned Extent() { return static_cast<unsigned>(Coordinate()); }

    double Real() {
        const unsigned kind = Byte();
        if (kind < 200) return (static_cast<double>(kind) - 50.0) / 64.0;
        return std::bit_cast<double>(std::uint64_t{Word()} << 32 | Word());
    }

private:
    const std::uint8_t* at_;
    const std::uint8_t* end_;
};

void Demand(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

unsigned RowBytes(unsigned depth, unsigned w) {
    if (depth == 0) return 0;
    if (depth == 1) return (w + 7) / 8;
    return w * (depth <= 8 ? 1U : depth <= 16 ? 2U : 4U);
}

/// The widest surface of a depth that fits into a row of host memory.
unsigned WidthWithin(unsigned depth, unsigned rowBytes) {
    if (depth <= 1) return rowBytes * depth * 8;
    return rowBytes / RowBytes(depth, 1);
}

/// Surfaces 0 and 1 lie over host memory of their own, 2 over the memory of 0 in another depth, 3
/// has memory from the hooks.
class Scene {
public:
    explicit Scene(Input& input) : input_(input) {
        for (unsigned i = 0; i < 2; ++i)
            LayOverHostMemory(i);
        const unsigned depth = input_.Below(33);
        surfaces_[2] = GfxSurface::New(depth);
        surfaces_[2]->Initialise(WidthWithin(depth, hostRowBytes_[0]), hostRows_[0],
                                 memory_[0]->Data(), memory_[0]->Pitch(), false);
        surfaces_[3] = GfxSurface::New(input_.Below(33));
        surfaces_[3]->Initialise(input_.Below(48), input_.Below(48));
    }

    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    ~Scene() noexcept(false) {
        cache_.reset();
        for (GfxSurface*& s : surfaces_)
            GfxSurface::Delete(s);
        for (const auto& memory : memory_) {
            Demand(memory->IsFenceWhole(), "a surface wrote outside its rows");
        }
        Demand(!run_ || run_->IsFenceWhole(), "a source run was written");
        Demand(!bits_ || bits_->IsFenceWhole(), "bits were written outside their buffer");
        Demand(!display_ || display_->IsFenceWhole(), "a blit wrote outside display memory");
    }

    Input& In() { return input_; }
    GfxSurface& Any() { return *surfaces_[input_.Below(4)]; }
    GfxSurface* AnyOrNull() {
        const unsigned i = input_.Below(5);
        return i == 4 ? nullptr : surfaces_[i];
    }

    /// Clear zeroes the gaps between rows as well: only for surfaces that have none.
    void Clear() {
        GfxSurface& s = Any();
        const unsigned own = RowBytes(s.Depth(), s.DX());
        if (s.Pitch() == own || &s == surfaces_[3]) s.Clear();
    }

    // Made at first use: most cases need few of them, and making them costs more than drawing.
    GfxFontCache& Cache() {
        if (!cache_) cache_.emplace();
        return *cache_;
    }
    test::FencedMemory& Run() { return run_ ? *run_ : run_.emplace(3 * kRunPixels, 1U); }
    test::FencedMemory& Bits() { return bits_ ? *bits_ : bits_.emplace(24U, 160U); }
    test::FencedMemory& Display() {
        return display_ ? *display_ : display_.emplace(2 * kDisplaySide, kDisplaySide, 3U, 1U);
    }

    static constexpr unsigned kRunPixels = 96;
    static constexpr unsigned kDisplaySide = 48;

private:
    void LayOverHostMemory(unsigned i) {
        const unsigned depth = input_.Below(33);
        const unsigned w = input_.Below(48);
        const unsigned h = input_.Below(48);
        hostRowBytes_[i] = RowBytes(depth, w);
        hostRows_[i] = h;
        memory_[i].emplace(hostRowBytes_[i], h, input_.Below(7), input_.Below(4));
        surfaces_[i] = GfxSurface::New(depth);
        surfaces_[i]->Initialise(w, h, memory_[i]->Data(), memory_[i]->Pitch(), input_.Flag());
    }

    Input& input_;
    std::array<std::optional<test::FencedMemory>, 2> memory_;
    std::array<unsigned, 2> hostRowBytes_{};
    std::array<unsigned, 2> hostRows_{};
    std::array<GfxSurface*, 4> surfaces_{};
    std::optional<GfxFontCache> cache_;
    std::optional<test::FencedMemory> run_;
    std::optional<test::FencedMemory> bits_;
    std::optional<test::FencedMemory> display_;
};

struct Rect {
    int x, y;
    unsigned w, h;
};

Rect AnyRect(Input& in) { return {in.Coordinate(), in.Coordinate(), in.Extent(), in.Extent()}; }

// One function an operation, arguments read in order.

void SetClip(Scene& scene, Input& in) {
    GfxSurface& s = scene.Any();
    const Rect r = AnyRect(in);
    s.SetClipRect(r.x, r.y, r.w, r.h);
}

void SetState(Scene& scene, Input& in) {
    GfxSurface& s = scene.Any();
    switch (in.Below(5)) {
        case 0:
            s.SetAlpha(in.Word());
            break;
        case 1:
            s.SetTransparent(in.Word());
            break;
        case 2:
            s.SetOpaque();
            break;
        case 3:
            s.SetEmpty(in.Flag());
            break;
        default:
            s.ResetClipRect();
            break;
    }
}

/// Sizes a case can afford, sizes that are refused, and no memory at all.
void Resize(Scene& scene, Input& in) {
    GfxSurface& s = scene.Any();
    const unsigned w = in.Below(100);
    const unsigned h = in.Below(100);
    switch (in.Below(5)) {
        case 0:
            s.SetNewSize(w, h);
            break;
        case 1:
            s.OptimiseSize();
            break;
        case 2:
            s.Initialise(w, h);
            break;
        case 3:
            s.Initialise(w, h, nullptr, RowBytes(s.Depth(), w), in.Flag());
            break;
        default:
            s.SetNewSize(0x80000000U + w, h + 1);
            break;
    }
}

void Clear(Scene& scene, Input&) { scene.Clear(); }

void FailHook(Scene&, Input& in) { test::HookLedger::ThrowAt(in.Below(6)); }

void Pixels(Scene& scene, Input& in) {
    GfxSurface& s = scene.Any();
    const int x = in.Coordinate();
    const int y = in.Coordinate();
    const std::uint32_t color = in.Word();
    s.SetPixelRGB(x, y, color);
    s.SetPixelRGBBlend(y, x, color);
    const double fx = in.Real();
    s.SetPixelRGB(1, 1, s.RetPixelMergeRGB(x, y, fx, in.Real()) ^ s.RetPixelRGB(x, y));
}

void RunOfBgr24(Scene& scene, Input& in) {
    GfxSurface& s = scene.Any();
    const int x = in.Coordinate();
    const int y = in.Coordinate();
    const unsigned n = in.Below(Scene::kRunPixels + 1);
    s.SetPixelLineBGR24(x, y, n, in.Below(16) == 0 ? nullptr : scene.Run().Data());
}

void RunOfBits(Scene& scene, Input& in) {
    GfxSurface& s = scene.Any();
    const int x = in.Coordinate();
    const int y = in.Coordinate();
    const unsigned n = in.Below(Scene::kRunPixels + 1);
    s.SetPixelLineMono(x, y, n, in.Word(), in.Below(16) == 0 ? nullptr : scene.Run().Data());
}

void Fill(Scene& scene, Input& in) {
    GfxSurface& s = scene.Any();
    const Rect r = AnyRect(in);
    s.RectFill(r.x, r.y, r.w, r.h, in.Word());
}

void FillBlend(Scene& scene, Input& in) {
    GfxSurface& s = scene.Any();
    const Rect r = AnyRect(in);
    s.RectFillBlend(r.x, r.y, r.w, r.h, in.Word());
}

void FillMasked(Scene& scene, Input& in) {
    GfxSurface& s = scene.Any();
    const Rect r = AnyRect(in);
    const std::uint32_t color = in.Word();
    const int srcX = in.Coordinate();
    const int srcY = in.Coordinate();
    s.RectFillBlend(r.x, r.y, r.w, r.h, color, srcX, srcY, scene.AnyOrNull());
}

void CopyOrBlend(Scene& scene, Input& in) {
    GfxSurface& s = scene.Any();
    const GfxSurface* src = scene.AnyOrNull();
    const Rect r = AnyRect(in);
    const int srcX = in.Coordinate();
    const int srcY = in.Coordinate();
    const bool tile = in.Flag();
    switch (in.Below(3)) {
        case 0:
            s.RectCopy(r.x, r.y, r.w, r.h, srcX, srcY, src, tile);
            break;
        case 1:
            s.RectBlend(r.x, r.y, r.w, r.h, srcX, srcY, src, tile);
            break;
        default:
            s.RectBlendAlpha(r.x, r.y, r.w, r.h, srcX, srcY, in.Real(), src, tile);
            break;
    }
}

void Planes(Scene& scene, Input& in) {
    GfxSurface& s = scene.Any();
    GfxSurface* plane = scene.AnyOrNull();
    const Rect r = AnyRect(in);
    const int planeX = in.Coordinate();
    const int planeY = in.Coordinate();
    const auto which = static_cast<GfxSurface::ColorPlane>(in.Below(6));
    if (in.Flag()) {
        s.RectExtract(r.x, r.y, r.w, r.h, planeX, planeY, plane, which);
    } else {
        s.RectInsert(r.x, r.y, r.w, r.h, planeX, planeY, plane, which);
    }
}

/// The rectangle's corner and the buffer's stay close to 0, since the buffer must hold whatever the
/// clip lets through; the extent is free.
void ExtractBits(Scene& scene, Input& in) {
    GfxSurface& s = scene.Any();
    const int x = static_cast<int>(in.Below(24)) - 12;
    const int y = static_cast<int>(in.Below(24)) - 12;
    const unsigned w = in.Extent();
    const unsigned h = in.Extent();
    const int bufX = static_cast<int>(in.Below(64)) - 32;
    const int bufY = static_cast<int>(in.Below(64)) - 32;
    unsigned char* buffer = in.Below(16) == 0 ? nullptr : scene.Bits().Data();
    const unsigned pitch = in.Below(16) == 0 ? 0 : scene.Bits().Pitch();
    if (in.Flag()) {
        s.RectExtractMono(x, y, w, h, bufX, bufY, buffer, pitch);
    } else {
        s.RectExtractMonoAlpha(x, y, w, h, bufX, bufY, buffer, pitch);
    }
}

void Line(Scene& scene, Input& in) {
    static constexpr unsigned short kPattern[] = {3, 1, 0, 7, 1, 1, 65535, 2};
    GfxSurface& s = scene.Any();
    const int x0 = in.Coordinate();
    const int y0 = in.Coordinate();
    const int x1 = in.Coordinate();
    const int y1 = in.Coordinate();
    const std::uint32_t color = in.Word();
    const unsigned first = in.Below(8);
    const int count = in.Below(8) == 0 ? in.Coordinate() : static_cast<int>(8 - first);
    const int safeCount = count > static_cast<int>(8 - first) ? 1 : count;
    switch (in.Below(4)) {
        case 0:
            s.DrawLine(x0, y0, x1, y1, color);
            break;
        case 1:
            s.DrawAALine(x0, y0, x1, y1, color);
            break;
        case 2:
            s.DrawLine(x0, y0, x1, y1, color, kPattern + first, safeCount);
            break;
        default:
            s.DrawAALine(x0, y0, x1, y1, color, kPattern + first, safeCount);
            break;
    }
}

/// The rectangle is trusted to lie inside the surface.
void Blit(Scene& scene, Input& in) {
    GfxSurface& s = scene.Any();
    if (s.DX() == 0 || s.DY() == 0 || s.Line(0) == nullptr) return;
    const unsigned x = in.Below(s.DX());
    const unsigned y = in.Below(s.DY());
    const unsigned w = in.Below(std::min(s.DX() - x, Scene::kDisplaySide) + 1);
    const unsigned h = in.Below(std::min(s.DY() - y, Scene::kDisplaySide) + 1);
    void* dest = scene.Display().Data();
    const unsigned pitch = scene.Display().Pitch();
    switch (in.Below(4)) {
        case 0:
            s.QuickBltTo565(x, y, w, h, dest, pitch);
            break;
        case 1:
            s.QuickBltTo555(x, y, w, h, dest, pitch);
            break;
        case 2:
            s.QuickBltTo24(x, y, w, h, dest, pitch);
            break;
        default:
            s.QuickBltTo32(x, y, w, h, dest, pitch);
            break;
    }
}

void OpenFace(Scene& scene, Input& in) {
#ifdef GFX_TEST_FACE
    const int emSize = static_cast<int>(in.Below(80)) - 4;
    scene.Cache().OpenFace(GFX_TEST_FACE, emSize, in.Flag());
#else
    scene.Cache().OpenFace("", in.Coordinate(), in.Flag());
#endif
}

void Glyph(Scene& scene, Input& in) {
    static constexpr int kAngles[] = {0, 0, 90, 270, 45};
    const auto code = static_cast<unsigned short>(in.Below(8) * 150 + in.Byte());
    const unsigned x = in.Extent();
    const unsigned y = in.Extent();
    const std::uint32_t color = in.Word();
    GfxSurface* target = scene.AnyOrNull();
    scene.Cache().DrawGlyph(code, x, y, color, target, kAngles[in.Below(5)]);
}

using Operation = void (*)(Scene&, Input&);
constexpr Operation kOperations[] = {
    SetClip,   SetState,   Resize,      Clear,  FailHook,    Pixels, RunOfBgr24, RunOfBits, Fill,
    FillBlend, FillMasked, CopyOrBlend, Planes, ExtractBits, Line,   Blit,       OpenFace,  Glyph,
};

void RunOperations(Scene& scene, Input& input) {
    while (!input.IsAtEnd()) {
        const Operation operation = kOperations[input.Below(std::size(kOperations))];
        try {
            operation(scene, input);
        } catch (const char*) {  // a size or length beyond the limits
        } catch (const test::HookFailure&) {
        }
    }
    test::HookLedger::ThrowAt(0);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    test::HookLedger::Install();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    Input input(bytes, size);
    {
        Scene scene(input);
        RunOperations(scene, input);
    }
    Demand(test::HookLedger::LiveBlocks() == 0, "blocks were not returned");
    Demand(test::HookLedger::Faults() == 0, "a foreign or damaged block was returned");
    return 0;
}
