// The engine and the kit as the page's scripts see them. Classes and operations keep their names;
// what takes a pointer to memory takes a Buffer instead, a dash pattern its two lengths.
#include <emscripten/bind.h>
#include <gfx/gfx.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "hooks.h"
#include "panel.h"
#include "pinned_drawing.h"
#include "shapes.h"
#include "view.h"

namespace em = emscripten;

// Scripts destroy a surface as they destroy everything else, by delete().
template <>
void emscripten::internal::raw_destructor<GfxSurface>(GfxSurface* surface) {
    GfxSurface::Delete(surface);
}

namespace {

using Bytes = std::vector<std::uint8_t>;

em::val ViewOf(const Bytes& bytes) {
    return em::val(em::typed_memory_view(bytes.size(), bytes.data()));
}

struct Buffer {
    explicit Buffer(unsigned size) : bytes(size) {}
    em::val View() { return em::val(em::typed_memory_view(bytes.size(), bytes.data())); }
    Bytes bytes;
};

em::val PixelsOf(const GfxSurface& surface, int x, int y, unsigned w, unsigned h) {
    static playground::View view;
    return ViewOf(view.Bytes(surface, x, y, w, h));
}

template <bool kSmooth>
void DrawDashed(GfxSurface& s, int x0, int y0, int x1, int y1, unsigned color, unsigned drawn,
                unsigned skipped) {
    const unsigned short pattern[] = {static_cast<unsigned short>(drawn),
                                      static_cast<unsigned short>(skipped)};
    if (kSmooth)
        s.DrawAALine(x0, y0, x1, y1, color, pattern, 2);
    else
        s.DrawLine(x0, y0, x1, y1, color, pattern, 2);
}

// Where a run or a rectangle would leave the buffer nothing is done.
void WriteBgr24(GfxSurface& s, int x, int y, unsigned n, const Buffer& run) {
    if (n <= run.bytes.size() / 3) s.SetPixelLineBGR24(x, y, n, run.bytes.data());
}

void WriteMono(GfxSurface& s, int x, int y, unsigned n, unsigned color, const Buffer& run,
               unsigned first) {
    if (first <= run.bytes.size() && n <= (run.bytes.size() - first) * 8)
        s.SetPixelLineMono(x, y, n, color, run.bytes.data() + first);
}

template <void (GfxSurface::*kExtract)(int, int, unsigned, unsigned, int, int, unsigned char*,
                                       unsigned)>
void ExtractBits(GfxSurface& s, int x, int y, unsigned w, unsigned h, int bufX, int bufY,
                 Buffer& buffer, unsigned bufPitch) {
    // Clipped, a rectangle reaches no further to the right and down than the surface does.
    const std::int64_t right = std::int64_t{bufX} + s.DX() - std::min(x, 0);
    const std::int64_t bottom = std::int64_t{bufY} + s.DY() - std::min(y, 0);
    const auto size = static_cast<std::int64_t>(buffer.bytes.size());
    const bool fits = right <= std::int64_t{bufPitch} * 8 && bottom * bufPitch <= size;
    if (fits) (s.*kExtract)(x, y, w, h, bufX, bufY, buffer.bytes.data(), bufPitch);
}

template <void (GfxSurface::*kBlit)(unsigned, unsigned, unsigned, unsigned, void*, unsigned) const>
void Blit(const GfxSurface& s, unsigned x, unsigned y, unsigned w, unsigned h, Buffer& dest,
          unsigned destPitch) {
    const bool inside = x <= s.DX() && w <= s.DX() - x && y <= s.DY() && h <= s.DY() - y;
    if (inside && 2 * w <= destPitch && std::size_t{destPitch} * h <= dest.bytes.size())
        (s.*kBlit)(x, y, w, h, dest.bytes.data(), destPitch);
}

void LayOver(GfxSurface& s, unsigned w, unsigned h, Buffer& buffer, unsigned rowBytes) {
    if (std::size_t{rowBytes} * h <= buffer.bytes.size())
        s.Initialise(w, h, buffer.bytes.data(), rowBytes, false);
}

bool OpenFace(GfxFontCache& font, const std::string& path, int emSize, bool smooth) {
    return font.OpenFace(path.c_str(), emSize, smooth);
}

void DrawGlyph(GfxFontCache& font, unsigned short code, int x, int y, unsigned color,
               GfxSurface* target, int angle) {
    font.DrawGlyph(code, static_cast<unsigned>(x), static_cast<unsigned>(y), color, target, angle);
}

template <class... Arguments>
using Member = void (GfxSurface::*)(Arguments...);

}  // namespace

EMSCRIPTEN_BINDINGS(engine) {
    playground::InstallHooks();
    using S = GfxSurface;
    const auto raw = em::allow_raw_pointers();
    em::enum_<S::ColorPlane>("ColorPlane")
        .value("PlaneAlpha", S::PlaneAlpha)
        .value("PlaneRed", S::PlaneRed)
        .value("PlaneGreen", S::PlaneGreen)
        .value("PlaneBlue", S::PlaneBlue);
    em::class_<S>("GfxSurface")
        .class_function("New", &S::New, raw)
        .function("Initialise", static_cast<Member<unsigned, unsigned>>(&S::Initialise))
        .function("InitialiseOver", &LayOver)
        .function("SetNewSize", &S::SetNewSize)
        .function("OptimiseSize", &S::OptimiseSize)
        .function("SetClipRect", &S::SetClipRect)
        .function("ResetClipRect", &S::ResetClipRect)
        .function("Clear", &S::Clear)
        .function("DX", &S::DX)
        .function("DY", &S::DY)
        .function("Depth", &S::Depth)
        .function("SetAlpha", &S::SetAlpha)
        .function("SetTransparent", &S::SetTransparent)
        .function("SetOpaque", &S::SetOpaque)
        .function("SetPixelRGB", &S::SetPixelRGB)
        .function("SetPixelRGBBlend", &S::SetPixelRGBBlend)
        .function("RetPixelRGB", &S::RetPixelRGB)
        .function("RetPixelMergeRGB", &S::RetPixelMergeRGB)
        .function("SetPixelLineBGR24", &WriteBgr24)
        .function("SetPixelLineMono", &WriteMono)
        .function("RectFill", &S::RectFill)
        .function("RectFillBlend",
                  static_cast<Member<int, int, unsigned, unsigned, unsigned>>(&S::RectFillBlend))
        .function("RectFillBlend",
                  static_cast<Member<int, int, unsigned, unsigned, unsigned, int, int, const S*>>(
                      &S::RectFillBlend),
                  raw)
        .function("RectCopy", &S::RectCopy, raw)
        .function("RectBlend", &S::RectBlend, raw)
        .function("RectBlendAlpha", &S::RectBlendAlpha, raw)
        .function("RectExtract", &S::RectExtract, raw)
        .function("RectInsert", &S::RectInsert, raw)
        .function("RectExtractMono", &ExtractBits<&S::RectExtractMono>)
        .function("RectExtractMonoAlpha", &ExtractBits<&S::RectExtractMonoAlpha>)
        .function("DrawLine", static_cast<Member<int, int, int, int, unsigned>>(&S::DrawLine))
        .function("DrawLine", &DrawDashed<false>)
        .function("DrawAALine", static_cast<Member<int, int, int, int, unsigned>>(&S::DrawAALine))
        .function("DrawAALine", &DrawDashed<true>)
        .function("QuickBltTo565", &Blit<&S::QuickBltTo565>)
        .function("QuickBltTo555", &Blit<&S::QuickBltTo555>)
        .function("QuickBltTo24", &Blit<&S::QuickBltTo24>)
        .function("QuickBltTo32", &Blit<&S::QuickBltTo32>);
    em::class_<GfxFontCache>("GfxFontCache")
        .constructor<>()
        .function("OpenFace", &OpenFace)
        .function("TypoAscender", &GfxFontCache::TypoAscender)
        .function("DrawGlyph", &DrawGlyph, raw);
}

EMSCRIPTEN_BINDINGS(kit) {
    using playground::Shapes;
    em::class_<Shapes>("Canvas")
        .constructor<GfxSurface&>()
        .function("FillRect", &Shapes::FillRect)
        .function("FillRoundRect", &Shapes::FillRoundRect)
        .function("OutlineRoundRect", &Shapes::OutlineRoundRect)
        .function("FillCircle", &Shapes::FillCircle)
        .function("DrawCircle", &Shapes::DrawCircle)
        .function("DrawArc", &Shapes::DrawArc)
        .function("DrawLine", &Shapes::DrawLine)
        .function("FillGradient", &Shapes::FillGradient)
        .function("FillGlow", &Shapes::FillGlow);
    em::function("DrawString", &playground::WriteString);
}

EMSCRIPTEN_BINDINGS(page) {
    using playground::Panel;
    using playground::PinnedDrawing;
    em::class_<Buffer>("Buffer").constructor<unsigned>().function("View", &Buffer::View);
    em::function("PixelsOf", &PixelsOf);
    em::function("StoredPixel", &playground::StoredPixel);
    em::class_<PinnedDrawing>("PinnedDrawing")
        .constructor<>()
        .function("Run", &PinnedDrawing::Run)
        .function("Checksum", &PinnedDrawing::Checksum);
    em::value_object<playground::Box>("Box")
        .field("x", &playground::Box::x)
        .field("y", &playground::Box::y)
        .field("w", &playground::Box::w)
        .field("h", &playground::Box::h);
    em::class_<Panel>("Panel")
        .constructor<>()
        .function("Screen", &Panel::Screen, em::allow_raw_pointers())
        .function("Advance", &Panel::Advance)
        .function("DamageCount", &Panel::DamageCount)
        .function("Damage", &Panel::Damage);
}
