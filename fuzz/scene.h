// The surfaces, host memory and buffers that the operations of one case work on, in fences that are
// looked at when the case ends.
#pragma once

#include <gfx/gfx.h>

#include <array>
#include <optional>

#include "demand.h"
#include "input.h"
#include "support/fenced_memory.h"

namespace fuzz {

inline unsigned RowBytes(unsigned depth, unsigned w) {
    if (depth == 0) return 0;
    if (depth == 1) return (w + 7) / 8;
    return w * (depth <= 8 ? 1U : depth <= 16 ? 2U : 4U);
}

/// The widest surface of a depth that fits into a row of host memory.
inline unsigned WidthWithin(unsigned depth, unsigned rowBytes) {
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
    /// Wide enough for surface 2 in 8 bits, 188 pixels, 43 bits behind the buffer's first column.
    test::FencedMemory& Bits() { return bits_ ? *bits_ : bits_.emplace(32U, 160U); }
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

}  // namespace fuzz
