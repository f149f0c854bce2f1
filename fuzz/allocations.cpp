// A hook fails at a call that the fuzzer chooses, wherever the sequence of operations then is. The
// operation is run again, and at the end every pixel, size and glyph must be as in a run without a
// failure.
#include <gfx/gfx.h>

#include <array>
#include <cstdint>
#include <vector>

#include "demand.h"
#include "input.h"
#include "support/hook_ledger.h"

namespace {

using fuzz::Input;
using test::HookLedger;

constexpr unsigned kSurfaces = 3;

/// One operation that takes memory, or draws on what has been taken.
struct Step {
    unsigned kind, on, w, h;
    std::uint32_t color;
};

std::vector<Step> StepsOf(Input& input) {
    std::vector<Step> steps;
    while (!input.IsAtEnd()) {
        const unsigned kind = input.Below(7);
        const unsigned on = input.Below(kSurfaces);
        const unsigned w = input.Below(64);
        const unsigned h = input.Below(64);
        const std::uint32_t color = input.Word();
        steps.push_back({kind, on, w, h, color});
    }
    return steps;
}

class Objects {
public:
    Objects() = default;
    Objects(const Objects&) = delete;
    Objects& operator=(const Objects&) = delete;
    ~Objects() noexcept(false) {
        for (GfxSurface*& s : surfaces_)
            GfxSurface::Delete(s);
    }

    void Run(const Step& step) {
        GfxSurface*& s = surfaces_[step.on];
        if (s == nullptr) s = GfxSurface::New(step.color % 33);
        switch (step.kind) {
            case 0:
                return GfxSurface::Delete(s);
            case 1:
                return s->Initialise(step.w, step.h);
            case 2:
                return s->SetNewSize(step.w, step.h);
            case 3:
                return s->DrawLine(0, 0, static_cast<int>(step.w), static_cast<int>(step.h),
                                   step.color);
            case 4:
                return s->DrawAALine(static_cast<int>(step.w), 0, 0, static_cast<int>(step.h),
                                     step.color);
            case 5:
                OpenFace(static_cast<int>(step.w) + 1, (step.color & 1) != 0);
                return;
            default:
                return cache_.DrawGlyph(static_cast<unsigned short>(step.color % 512), step.w,
                                        step.h, step.color | 0x3F, s, 0);
        }
    }

    /// What a host can see of all objects, but whether a surface is known to be empty.
    std::vector<std::uint32_t> Look() {
        std::vector<std::uint32_t> seen;
        for (GfxSurface* s : surfaces_) {
            if (s == nullptr) continue;
            for (const unsigned value : {s->Depth(), s->DX(), s->DY(), s->Pitch()})
                seen.push_back(value);
            for (unsigned y = 0; y < s->DY(); ++y) {
                for (unsigned x = 0; x < s->DX(); ++x)
                    seen.push_back(s->RetPixelRGB(static_cast<int>(x), static_cast<int>(y)));
            }
        }
        for (const short metric :
             {cache_.TypoAscender(), cache_.TypoDescender(), cache_.TypoLineGap()})
            seen.push_back(static_cast<std::uint32_t>(metric));
        return seen;
    }

private:
    void OpenFace(int emSize, bool smooth) {
#ifdef GFX_TEST_FACE
        cache_.OpenFace(GFX_TEST_FACE, emSize, smooth);
#else
        cache_.OpenFace("", emSize, smooth);
#endif
    }

    std::array<GfxSurface*, kSurfaces> surfaces_{};
    GfxFontCache cache_;
};

/// Runs the steps; call `failing` of a hook fails, if it comes, and its step is run again.
std::vector<std::uint32_t> Draw(const std::vector<Step>& steps, unsigned failing) {
    std::vector<std::uint32_t> seen;
    {
        Objects objects;
        HookLedger::ThrowAt(failing);
        for (const Step& step : steps) {
            try {
                objects.Run(step);
            } catch (const test::HookFailure&) {
                objects.Run(step);
            }
        }
        HookLedger::ThrowAt(0);
        seen = objects.Look();
    }
    fuzz::DemandAllReturned();
    return seen;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    HookLedger::Install();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    Input input(bytes, size);
    const unsigned failing = 1 + input.Byte();
    const std::vector<Step> steps = StepsOf(input);
    fuzz::Demand(Draw(steps, failing) == Draw(steps, 0), "a failure left its mark");
    return 0;
}
