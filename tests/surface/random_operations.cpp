// The operations of random drawing: each runs on the library and on the model side by side, on any
// kind of surface: any depth, own, host or shared memory at any alignment, rows in any order, no
// memory.
#include "surface/random_operations.h"

#include <algorithm>
#include <climits>
#include <string>
#include <vector>

#include "support/fenced_memory.h"

namespace test {
namespace {

constexpr int kMonoRows = 200;
constexpr unsigned kMonoRowBytes = 48;

void Fill(World& w) {
    Slot& t = w.Pick();
    const Rect r = w.AnyRect(t);
    const Word c = w.Color();
    const bool blend = w.OneIn(2);
    w.Say(blend ? "RectFillBlend" : "RectFill", w.Name(t), r, c);
    blend ? t.real->RectFillBlend(r.x, r.y, r.w, r.h, c) : t.real->RectFill(r.x, r.y, r.w, r.h, c);
    t.model.Fill(r, c, blend);
}

void FillMasked(World& w) {
    Slot &t = w.Pick(), &m = w.OneIn(2) ? w.PickDepth8() : w.Pick();
    const Rect r = w.AnyRect(t);
    const Point at = w.PartnerOf(r);
    const Word c = w.Color();
    const bool masked = !w.OneIn(20);
    w.Say("RectFillBlend masked", w.Name(t), r, c, at, masked ? w.Name(m) : "null");
    t.real->RectFillBlend(r.x, r.y, r.w, r.h, c, at.x, at.y, masked ? m.real.get() : nullptr);
    t.model.FillMasked(r, c, at, masked ? &m.model : nullptr);
}

void Transfer(World& w) {
    Slot &t = w.Pick(), &s = w.OneIn(3) ? t : w.Pick();
    const GfxSurface* source = &s == &t && w.OneIn(2) ? nullptr : s.real.get();
    const Model* model = source == nullptr ? nullptr : &s.model;
    const Rect r = w.AnyRect(t);
    const Point at = w.PartnerOf(r);
    const double f = w.Number();
    const bool tile = w.OneIn(2);
    const auto mix = static_cast<Mix>(w.Between(0, 2));
    if (w.OneIn(4)) w.TakeKey(t, s);
    static constexpr const char* kNames[] = {"RectCopy", "RectBlend", "RectBlendAlpha"};
    w.Say(kNames[static_cast<int>(mix)], w.Name(t), r, at, f, w.Name(s), tile, t.model.keyed,
          t.model.key);
    if (mix == Mix::kCopy)
        t.real->RectCopy(r.x, r.y, r.w, r.h, at.x, at.y, source, tile);
    else if (mix == Mix::kBlend)
        t.real->RectBlend(r.x, r.y, r.w, r.h, at.x, at.y, source, tile);
    else
        t.real->RectBlendAlpha(r.x, r.y, r.w, r.h, at.x, at.y, f, source, tile);
    t.model.Transfer(r, at, f, model, tile, mix);
}

void MovePlane(World& w) {
    Slot &t = w.Pick(), &p = w.PickDepth8();
    const Rect r = w.AnyRect(t);
    const Point at = w.PartnerOf(r);
    const bool insert = w.OneIn(2), isNull = w.OneIn(30);
    const unsigned which = w.OneIn(8) ? 7 : w.Up(3);
    const auto plane = static_cast<GfxSurface::ColorPlane>(which);
    w.Say(insert ? "RectInsert" : "RectExtract", w.Name(t), r, at, w.Name(p), isNull, which);
    GfxSurface* real = isNull ? nullptr : p.real.get();
    Model* model = isNull ? nullptr : &p.model;
    if (insert) {
        t.real->RectInsert(r.x, r.y, r.w, r.h, at.x, at.y, real, plane);
        t.model.Insert(r, at, model, which);
    } else {
        t.real->RectExtract(r.x, r.y, r.w, r.h, at.x, at.y, real, plane);
        t.model.Extract(r, at, model, which);
    }
}

void ExtractMono(World& w) {
    Slot& t = w.Pick();
    const Rect r = w.AnyRect(t);
    // The host vouches for the buffer: the run must end inside it.
    const auto place = [&](int at) {
        return at < -1000 ? INT_MIN + w.Between(0, 100) : w.Between(-80, 20);
    };
    const Point at{place(r.x), place(r.y)};
    const bool fromAlpha = w.OneIn(2);
    FencedMemory buffer(kMonoRowBytes, kMonoRows, 3, 1);
    std::minstd_rand noise = w.Noise();
    for (std::size_t i = 0; i < buffer.Size(); i += 2)
        buffer.Data()[i] = static_cast<std::uint8_t>(noise() >> 8);
    std::vector<std::uint8_t> expected(buffer.Data(), buffer.Data() + buffer.Size());
    std::uint8_t* real = w.OneIn(30) ? nullptr : buffer.Data();
    const unsigned pitch = w.OneIn(30) ? 0 : buffer.Pitch();
    w.Say(fromAlpha ? "RectExtractMonoAlpha" : "RectExtractMono", w.Name(t), r, at, pitch);
    if (fromAlpha)
        t.real->RectExtractMonoAlpha(r.x, r.y, r.w, r.h, at.x, at.y, real, pitch);
    else
        t.real->RectExtractMono(r.x, r.y, r.w, r.h, at.x, at.y, real, pitch);
    t.model.ExtractMono(r, at, real == nullptr ? nullptr : expected.data(), pitch, fromAlpha);
    w.CompareBytes("mono buffer", expected, buffer.Data());
    w.Expect("mono fence whole", 1, buffer.IsOutsideWhole());
}

void Pixels(World& w) {
    Slot& t = w.Pick();
    for (int i = 0; i < 8; ++i) {
        const Point at{w.Coordinate(), w.Coordinate()};
        const Word c = w.Color();
        const double fx = w.Number(), fy = w.Number();
        w.Say("pixel", w.Name(t), at, c, fx, fy);
        w.Expect("RetPixelRGB", t.model.RetPixel(at.x, at.y), t.real->RetPixelRGB(at.x, at.y));
        w.Expect("RetPixelMergeRGB", t.model.RetPixelMerge(at.x, at.y, fx, fy),
                 t.real->RetPixelMergeRGB(at.x, at.y, fx, fy));
        if (w.OneIn(2)) {
            t.real->SetPixelRGB(at.x, at.y, c);
            t.model.SetPixel(at.x, at.y, c);
        } else {
            t.real->SetPixelRGBBlend(at.x, at.y, c);
            t.model.SetPixelBlend(at.x, at.y, c);
        }
    }
}

// The run's first pixels may lie far outside: its start then points far before the bytes that the
// visible ones are read from, which are exactly as many as needed.
void Run(World& w) {
    Slot& t = w.Pick();
    const Rect r = w.AnyRect(t);
    const Word c = w.Color();
    const bool mono = w.OneIn(2);
    const auto end = static_cast<std::int32_t>(static_cast<Word>(r.x) + r.w);
    const std::int64_t first = std::max<std::int64_t>(r.x, t.model.clipX0) - r.x;
    const std::int64_t last = std::min<std::int64_t>(end, t.model.clipX1) - r.x;
    const std::int64_t from = mono ? first / 8 : 3 * first, to = mono ? (last + 7) / 8 : 3 * last;
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(std::max<std::int64_t>(to - from, 0)));
    std::minstd_rand noise = w.Noise();
    for (std::uint8_t& byte : bytes) {
        const auto value = static_cast<unsigned>(noise());
        byte = static_cast<std::uint8_t>(value % 3 == 0 ? 255 * (value >> 8 & 1) : value >> 8);
    }
    const auto start =
        reinterpret_cast<std::uintptr_t>(bytes.data()) - static_cast<std::uintptr_t>(from);
    const auto* run = w.OneIn(20) ? nullptr : reinterpret_cast<const std::uint8_t*>(start);
    w.Say(mono ? "SetPixelLineMono" : "SetPixelLineBGR24", w.Name(t), r, c, run == nullptr);
    if (mono) {
        t.real->SetPixelLineMono(r.x, r.y, r.w, c, run);
        t.model.RunMono(r.x, r.y, r.w, c, run);
    } else {
        t.real->SetPixelLineBGR24(r.x, r.y, r.w, run);
        t.model.RunBGR24(r.x, r.y, r.w, run);
    }
}

void Line(World& w) {
    Slot& t = w.Pick();
    Point from{w.Coordinate(), w.Coordinate()}, to{w.Coordinate(), w.Coordinate()};
    if (w.OneIn(60)) to = {w.Between(-5000, 5000), w.Between(-5000, 5000)};
    if (w.OneIn(20)) to = from;
    const Word c = w.Color();
    unsigned short pattern[5];
    for (unsigned short& run : pattern)
        run = static_cast<unsigned short>(w.OneIn(5) ? 0 : w.Between(1, 9));
    const Dashes dashes{w.OneIn(3) ? nullptr : pattern, w.Between(-1, 5)};
    const bool isAntiAliased = w.OneIn(2);
    w.Say(isAntiAliased ? "DrawAALine" : "DrawLine", w.Name(t), from, to, c, dashes.count,
          pattern[0], pattern[1], pattern[2], pattern[3], pattern[4], dashes.pattern == nullptr);
    std::string failure;
    try {
        if (dashes.pattern == nullptr && dashes.count > 2)
            isAntiAliased ? t.real->DrawAALine(from.x, from.y, to.x, to.y, c)
                          : t.real->DrawLine(from.x, from.y, to.x, to.y, c);
        else if (isAntiAliased)
            t.real->DrawAALine(from.x, from.y, to.x, to.y, c, dashes.pattern, dashes.count);
        else
            t.real->DrawLine(from.x, from.y, to.x, to.y, c, dashes.pattern, dashes.count);
    } catch (const char* text) {
        failure = text;
    }
    const char* expected = t.model.Line(from, to, c, dashes, isAntiAliased);
    w.Expect("failure is '" + failure + "'", 1, failure == (expected == nullptr ? "" : expected));
}

void Blit(World& w) {
    Slot& t = w.Pick();
    const unsigned x = w.Up(t.model.dx);
    const unsigned y = w.Up(t.model.dy);
    const unsigned width = w.Up(t.model.dx - x);
    const unsigned height = w.Up(t.model.dy - y);
    FencedMemory dest(2 * width, height, w.Up(5), w.Up(7));
    std::vector<std::uint8_t> expected(dest.Data(), dest.Data() + dest.Size());
    const int kind = w.Between(0, 9);
    w.Say("QuickBlt", w.Name(t), x, y, width, height, dest.Pitch(), kind);
    if (kind == 0) t.real->QuickBltTo24(x, y, width, height, dest.Data(), dest.Pitch());
    if (kind == 1) t.real->QuickBltTo32(x, y, width, height, dest.Data(), dest.Pitch());
    if (kind > 1 && kind < 6) t.real->QuickBltTo565(x, y, width, height, dest.Data(), dest.Pitch());
    if (kind > 5) t.real->QuickBltTo555(x, y, width, height, dest.Data(), dest.Pitch());
    if (kind > 1) t.model.Blit(x, y, width, height, expected.data(), dest.Pitch(), kind > 5);
    w.CompareBytes("display memory", expected, dest.Data());
    w.Expect("display fence whole", 1, dest.IsFenceWhole());
}

void SetClip(World& w) {
    Slot& t = w.Pick();
    const Rect r = w.AnyRect(t);
    const bool reset = w.OneIn(2);
    w.Say(reset ? "ResetClipRect" : "SetClipRect", w.Name(t), r);
    if (reset) {
        t.real->ResetClipRect();
        t.model.ResetClipRect();
    } else {
        t.real->SetClipRect(r.x, r.y, r.w, r.h);
        t.model.SetClipRect(r);
    }
}

void SetValues(World& w) {
    Slot& t = w.Pick();
    const Word alpha = w.OneIn(2) ? 0 : w.Color();
    const Word key = w.Color() & (w.OneIn(2) ? 0x00FFFFFF : 0xFFFFFFFF);
    const bool keyed = w.OneIn(2), isEmpty = w.OneIn(2);
    w.Say("SetAlpha, SetTransparent, SetOpaque, SetEmpty", w.Name(t), alpha, key, keyed, isEmpty);
    t.real->SetAlpha(t.model.alpha = alpha);
    t.real->SetEmpty(t.model.empty = isEmpty);
    t.real->SetTransparent(t.model.key = key);
    if (!keyed) t.real->SetOpaque();
    t.model.keyed = keyed;
}

void Resize(World& w) {
    Slot& t = w.Pick();
    const unsigned width = w.Up(75), height = w.Up(75);
    const int kind = w.Between(0, 9);
    w.Say("SetNewSize, OptimiseSize or Clear", w.Name(t), width, height, kind);
    if (kind < 2) t.real->SetNewSize(width, height), t.model.SetNewSize(width, height);
    if (kind == 2) t.real->OptimiseSize(), t.model.OptimiseSize();
    if (kind == 3) t.real->Clear(), t.model.Clear();
    if (kind == 4) w.TakeOwn(t);
    if (kind == 5) w.Replace(t);
    if (kind > 5) w.Noise(t);
}

void (*const kOperations[])(World&) = {Fill,        Fill,     FillMasked, FillMasked, Transfer,
                                       Transfer,    Transfer, Transfer,   MovePlane,  MovePlane,
                                       ExtractMono, Pixels,   Run,        Line,       Line,
                                       Blit,        SetClip,  SetValues,  Resize};

}  // namespace

void DrawAtRandom(World& world) { world.OneOf(kOperations)(world); }

void MoveRunsAtRandom(World& world) {
    static constexpr void (*kMoves[])(World&) = {Run,         Run,     ExtractMono,
                                                 ExtractMono, SetClip, Resize};
    world.OneOf(kMoves)(world);
}

}  // namespace test
