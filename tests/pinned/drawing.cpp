// The operations of the pinned drawing. A change here changes every pinned checksum.
#include "pinned/drawing.h"

#include <algorithm>
#include <vector>

namespace pinned {
namespace {

void Fill(Scene& s) {
    Slot& to = s.Pick();
    const Rect r = s.AnyRect(*to.canvas);
    const std::uint32_t color = s.Color();
    const bool blend = s.random.OneIn(2);
    s.Say(blend ? "RectFillBlend" : "RectFill", to, r, color);
    if (blend)
        to.canvas->RectFillBlend(r.x, r.y, r.w, r.h, color);
    else
        to.canvas->RectFill(r.x, r.y, r.w, r.h, color);
    s.Fold(to);
}

void FillMasked(Scene& s) {
    Slot& to = s.Pick();
    const Slot& mask = s.random.OneIn(2) ? s.PickDepth8() : s.Pick();
    const Rect r = s.AnyRect(*to.canvas);
    const int x = s.PartnerOf(r.x, mask.canvas->DX());
    const int y = s.PartnerOf(r.y, mask.canvas->DY());
    const std::uint32_t color = s.Color();
    const bool isNull = s.random.OneIn(20);
    s.Say("RectFillBlend masked", to, r, color, x, y, mask, isNull);
    to.canvas->RectFillBlend(r.x, r.y, r.w, r.h, color, x, y, isNull ? nullptr : mask.canvas.get());
    s.Fold(to);
}

void Transfer(Scene& s) {
    Slot& to = s.Pick();
    const Slot& from = s.random.OneIn(3) ? to : s.Pick();
    const Rect r = s.AnyRect(*to.canvas);
    const int x = s.PartnerOf(r.x, from.canvas->DX());
    const int y = s.PartnerOf(r.y, from.canvas->DY());
    const double transparency = s.Number();
    const bool tile = s.random.OneIn(2);
    const bool isNull = s.random.OneIn(2);
    const unsigned kind = s.random.Below(3);
    if (s.random.OneIn(4)) s.TakeKey(*to.canvas, *from.canvas);
    s.Say("RectCopy, RectBlend or RectBlendAlpha", to, r, x, y, from, transparency, tile, kind);
    const GfxSurface* source = &from == &to && isNull ? nullptr : from.canvas.get();
    if (kind == 0) to.canvas->RectCopy(r.x, r.y, r.w, r.h, x, y, source, tile);
    if (kind == 1) to.canvas->RectBlend(r.x, r.y, r.w, r.h, x, y, source, tile);
    if (kind == 2) to.canvas->RectBlendAlpha(r.x, r.y, r.w, r.h, x, y, transparency, source, tile);
    s.Fold(to);
}

void MovePlane(Scene& s) {
    Slot& to = s.Pick();
    Slot& plane = s.PickDepth8();
    const Rect r = s.AnyRect(*to.canvas);
    const int x = s.PartnerOf(r.x, plane.canvas->DX());
    const int y = s.PartnerOf(r.y, plane.canvas->DY());
    const bool insert = s.random.OneIn(2);
    const unsigned which = s.random.Below(6);
    const auto named = static_cast<GfxSurface::ColorPlane>(which);
    s.Say(insert ? "RectInsert" : "RectExtract", to, r, x, y, plane, which);
    if (insert)
        to.canvas->RectInsert(r.x, r.y, r.w, r.h, x, y, plane.canvas.get(), named);
    else
        to.canvas->RectExtract(r.x, r.y, r.w, r.h, x, y, plane.canvas.get(), named);
    s.Fold(insert ? to : plane);
}

/// The corner stays near 0, since the buffer must hold whatever the clip lets through.
void ExtractBits(Scene& s) {
    const Slot& from = s.Pick();
    const int x = s.random.Between(-25, 30);
    const int y = s.random.Between(-25, 30);
    const unsigned w = s.Extent(from.canvas->DX());
    const unsigned h = s.Extent(from.canvas->DY());
    const int bufX = s.random.Between(-80, 20);
    const int bufY = s.random.Between(-40, 10);
    const bool fromAlpha = s.random.OneIn(2);
    s.Say("RectExtractMono or ...Alpha", from, x, y, w, h, bufX, bufY, fromAlpha);
    // The clip rectangle may reach beyond a size that was reduced.
    const unsigned pitch = (from.canvas->allocDX + 64) / 8;
    const std::size_t size = std::size_t{pitch} * (from.canvas->allocDY + 48);
    std::vector<std::uint8_t> buffer(size, s.random.Byte());
    if (fromAlpha)
        from.canvas->RectExtractMonoAlpha(x, y, w, h, bufX, bufY, buffer.data(), pitch);
    else
        from.canvas->RectExtractMono(x, y, w, h, bufX, bufY, buffer.data(), pitch);
    s.Fold(buffer.data(), buffer.size());
}

void Pixels(Scene& s) {
    Slot& to = s.Pick();
    for (unsigned i = 0; i < 8; ++i) {
        const int x = s.Coordinate(to.canvas->DX());
        const int y = s.Coordinate(to.canvas->DY());
        const std::uint32_t color = s.Color();
        const double fx = s.Number();
        const double fy = s.Number();
        const bool blend = s.random.OneIn(2);
        s.Say("RetPixel..., SetPixel...", to, x, y, color, fx, fy, blend);
        const std::uint32_t plain = to.canvas->RetPixelRGB(x, y);
        const std::uint32_t merged = to.canvas->RetPixelMergeRGB(x, y, fx, fy);
        s.Fold(plain);
        s.Fold(merged);
        if (blend)
            to.canvas->SetPixelRGBBlend(x, y, color);
        else
            to.canvas->SetPixelRGB(x, y, color);
    }
    s.Fold(to);
}

void WriteRun(Scene& s) {
    Slot& to = s.Pick();
    const int x = s.Coordinate(to.canvas->DX());
    const int y = s.Coordinate(to.canvas->DY());
    const unsigned n = s.random.Below(to.canvas->DX() + 40);
    const std::uint32_t color = s.Color();
    const bool mono = s.random.OneIn(2);
    s.Say(mono ? "SetPixelLineMono" : "SetPixelLineBGR24", to, x, y, n, color);
    if (mono)
        to.canvas->SetPixelLineMono(x, y, n, color, s.Bytes((n + 7) / 8));
    else
        to.canvas->SetPixelLineBGR24(x, y, n, s.Bytes(std::size_t{3} * n));
    s.Fold(to);
}

int LineEnd(Scene& s, unsigned size, int partner) {
    if (s.random.OneIn(5)) return partner;
    return s.random.OneIn(40) ? s.random.Between(-9000, 9000) : s.Coordinate(size);
}

void Line(Scene& s) {
    Slot& to = s.Pick();
    const int x0 = LineEnd(s, to.canvas->DX(), 0);
    const int y0 = LineEnd(s, to.canvas->DY(), 0);
    const int x1 = LineEnd(s, to.canvas->DX(), x0);
    const int y1 = LineEnd(s, to.canvas->DY(), y0);
    const std::uint32_t color = s.Color();
    const bool smooth = s.random.OneIn(2);
    const bool dashed = s.random.OneIn(2);
    const int count = s.random.Between(-1, 5);
    unsigned short pattern[5];
    for (unsigned short& run : pattern)
        run = static_cast<unsigned short>(s.random.OneIn(5) ? 0 : 1 + s.random.Below(9));
    s.Say(smooth ? "DrawAALine" : "DrawLine", to, x0, y0, x1, y1, color, dashed, count, pattern[0],
          pattern[1], pattern[2], pattern[3], pattern[4]);
    try {
        if (smooth && dashed)
            to.canvas->DrawAALine(x0, y0, x1, y1, color, pattern, count);
        else if (smooth)
            to.canvas->DrawAALine(x0, y0, x1, y1, color);
        else if (dashed)
            to.canvas->DrawLine(x0, y0, x1, y1, color, pattern, count);
        else
            to.canvas->DrawLine(x0, y0, x1, y1, color);
    } catch (const char* text) {
        s.Fold(text);
    }
    s.Fold(to);
}

/// Into display memory of its own, or into the surface's own rows.
void Blit(Scene& s) {
    Slot& from = s.Pick();
    Canvas& c = *from.canvas;
    const unsigned x = s.random.Below(c.DX() + 1);
    const unsigned y = s.random.Below(c.DY() + 1);
    const unsigned w = s.random.Below(c.DX() - x + 1);
    const unsigned h = s.random.Below(c.DY() - y + 1);
    const unsigned gap = s.random.Below(6);
    const bool onto = s.random.OneIn(4) && c.bytesPerPixel >= 2 && c.surface != nullptr;
    const unsigned kind = s.random.Below(8);
    s.Say("QuickBltTo...", from, x, y, w, h, gap, onto, kind);
    const unsigned pitch = onto ? c.Pitch() : 2 * w + gap;
    std::vector<std::uint8_t> display(onto ? 0 : std::size_t{pitch} * h, s.random.Byte());
    void* dest = onto ? c.surface : display.data();
    if (kind == 0) c.QuickBltTo24(x, y, w, h, dest, pitch);
    if (kind == 1) c.QuickBltTo32(x, y, w, h, dest, pitch);
    if (kind >= 2 && kind < 5) c.QuickBltTo565(x, y, w, h, dest, pitch);
    if (kind >= 5) c.QuickBltTo555(x, y, w, h, dest, pitch);
    s.Fold(display.data(), display.size());
    if (onto) s.Fold(from);
}

void SetClip(Scene& s) {
    Slot& to = s.Pick();
    const Rect r = s.AnyRect(*to.canvas);
    const bool reset = !s.random.OneIn(4);
    s.Say(reset ? "ResetClipRect" : "SetClipRect", to, r);
    if (reset)
        to.canvas->ResetClipRect();
    else
        to.canvas->SetClipRect(r.x, r.y, r.w, r.h);
    s.Fold(to);
}

void SetValues(Scene& s) {
    Slot& to = s.Pick();
    const std::uint32_t alpha = s.Color();
    const std::uint32_t key = s.Color();
    const bool keyed = s.random.OneIn(2);
    const bool opaque = s.random.OneIn(2);
    const bool isEmpty = s.random.OneIn(2);
    s.Say("SetAlpha, SetTransparent, SetOpaque, SetEmpty", to, alpha, key, keyed, isEmpty);
    to.canvas->SetAlpha(opaque ? 0 : alpha);
    to.canvas->SetEmpty(isEmpty);
    to.canvas->SetTransparent(key);
    if (!keyed) to.canvas->SetOpaque();
}

/// Surfaces that lie over one block stay there: SetNewSize may leave it, TakeOwn always does.
void Resize(Scene& s) {
    Slot& to = s.Pick();
    const unsigned w = s.random.Below(76);
    const unsigned h = s.random.Below(76);
    const unsigned kind = s.random.Below(20);
    s.Say("SetNewSize, OptimiseSize, Clear or Initialise", to, w, h, kind);
    try {
        if (kind < 4) to.canvas->SetNewSize(w, h);
        if (kind == 4) to.canvas->OptimiseSize();
        if (kind == 5 && to.canvas->DY() == to.canvas->allocDY) to.canvas->Clear();
        if (kind == 6) to.canvas->SetNewSize(w + 0x80000000U, h);
        if (kind == 7) to.canvas->Initialise(w, h + 0x80000000U);
        if (kind == 8) s.TakeOwn(to);
        if (kind >= 9 && kind < 13) s.Replace(to);
        if (kind >= 13) s.FillWithNoise(to);
    } catch (const char* text) {
        s.Fold(text);
    }
    s.Fold(to);
}

}  // namespace

/// Row converters and the dots of lines, as derived surfaces use them; see rows.cpp.
void ConvertRows(Scene& s);
void FillDots(Scene& s);

void Drawing::Run(unsigned n, std::ostream* log) {
    static constexpr void (*kOperations[])(Scene&) = {
        Fill,     Fill,     FillMasked, FillMasked, Transfer,    Transfer, Transfer,    Transfer,
        Transfer, Transfer, MovePlane,  MovePlane,  ExtractBits, Pixels,   WriteRun,    Line,
        Line,     Blit,     SetClip,    SetValues,  Resize,      Resize,   ConvertRows, FillDots};
    scene_.log = log;
    for (; n > 0; --n)
        scene_.random.OneOf(kOperations)(scene_);
}

}  // namespace pinned
