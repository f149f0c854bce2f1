// Decodes bytes into drawing operations on four surfaces and runs them. What it demands beyond the
// sanitizers: canary bytes around host memory stay whole, only the hooks' and the library's own
// exceptions come out, and at the end every block has been returned.
//
// Values are taken as a host may pass them, extremes included. Only what a host vouches for is kept
// in bounds: the sizes of its buffers, and surfaces small enough to run thousands of cases a
// second.
#include <gfx/gfx.h>

#include <algorithm>
#include <cstdint>

#include "input.h"
#include "scene.h"
#include "support/hook_ledger.h"

namespace {

using fuzz::Input;
using fuzz::RowBytes;
using fuzz::Scene;

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
    fuzz::DemandAllReturned();
    return 0;
}
