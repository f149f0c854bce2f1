// Seeded random drawing on the library and on the model side by side: after every operation all
// memory and all fields of all surfaces are compared. Every operation runs on every kind of
// surface: any depth, own or host memory at any alignment, rows from the bottom up, no memory.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstring>
#include <iomanip>
#include <limits>
#include <memory>
#include <random>
#include <set>
#include <sstream>
#include <string>

#include "support/fenced_memory.h"
#include "support/hook_ledger.h"
#include "support/probe_surface.h"
#include "surface/model.h"

namespace test {
namespace {

constexpr unsigned kSeeds = 125;
constexpr unsigned kSteps = 2000;
constexpr const char* kFields[] = {
    " width", " height",    " laid out width", " laid out height", " pitch",
    " empty", " clip left", " clip top",       " clip right",      " clip bottom"};
constexpr int kMonoRows = 200;
constexpr unsigned kMonoRowBytes = 48;

std::ostream& operator<<(std::ostream& out, const Rect& r) {
    return out << r.x << ", " << r.y << ", " << r.w << "u, " << r.h << "u";
}
std::ostream& operator<<(std::ostream& out, const Point& p) { return out << p.x << ", " << p.y; }

// A surface of the library and what it should be.
struct Slot {
    std::unique_ptr<FencedMemory> host;
    std::unique_ptr<ProbeSurface> real;
    Model model{0};
};

class World {
public:
    explicit World(unsigned seed) : rng_(seed) {
        for (Slot& slot : slots_)
            Replace(slot);
    }

    int Between(int low, int high) { return std::uniform_int_distribution<>(low, high)(rng_); }
    unsigned Up(unsigned high) { return static_cast<unsigned>(Between(0, static_cast<int>(high))); }
    bool OneIn(int n) { return Between(1, n) == 1; }
    template <typename T, std::size_t N>
    T OneOf(const T (&values)[N]) {
        return values[Between(0, static_cast<int>(N) - 1)];
    }

    int Coordinate() {
        static constexpr int kFar[] = {INT_MIN, INT_MIN + 1,  -1000000000, -70000,
                                       70000,   INT_MAX - 70, INT_MAX - 1, INT_MAX};
        return OneIn(40) ? OneOf(kFar) : Between(-25, 85);
    }
    unsigned Size() {
        static constexpr unsigned kFar[] = {0x7FFFFFB0, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
        return OneIn(40) ? OneOf(kFar) : Up(70);
    }
    Rect AnyRect(const Slot& on) {
        if (OneIn(8)) return {0, 0, on.model.dx, on.model.dy};
        Rect r{Coordinate(), Coordinate(), Size(), Size()};
        // Far away on the left, and wide enough to reach the surface.
        if (OneIn(30)) r.x = INT_MIN + Between(0, 50), r.w = 0x80000000u + Size();
        if (OneIn(30)) r.y = INT_MIN + Between(0, 50), r.h = 0x80000000u + Size();
        return r;
    }
    int PartnerOf(int at) {
        if (at < -1000 && !OneIn(4)) return INT_MIN + Between(0, 120);
        return OneIn(4) ? 0 : Coordinate();
    }
    Point PartnerOf(const Rect& r) { return {PartnerOf(r.x), PartnerOf(r.y)}; }

    Word Color() {
        static constexpr Word kPalette[] = {0x00FF00FF, 0x00FFFFFF, 0x00000000, 0x40808080};
        static constexpr Word kAlphas[] = {0, 0, 255, 127, 128, 1, 254};
        if (OneIn(4)) return OneOf(kPalette);
        const Word rgb = static_cast<Word>(Between(0, 0xFFFFFF));
        return rgb | (OneIn(3) ? static_cast<Word>(Between(0, 255)) : OneOf(kAlphas)) << 24;
    }
    double Number() {
        static constexpr double kOdd[] = {0.0,
                                          1.0,
                                          0.5,
                                          -0.5,
                                          -1e300,
                                          1e300,
                                          -3.7,
                                          2.0,
                                          -255.0,
                                          -1000.0,
                                          0.25,
                                          std::numeric_limits<double>::infinity(),
                                          -std::numeric_limits<double>::infinity(),
                                          std::numeric_limits<double>::quiet_NaN()};
        return OneIn(3) ? OneOf(kOdd) : Between(-300, 1300) / 1000.0;
    }

    Slot& Pick() { return slots_[Between(0, 3)]; }
    Slot& PickDepth8() {
        for (Slot& slot : slots_)
            if (slot.model.depth == 8 && !OneIn(3)) return slot;
        return Pick();
    }

    void Replace(Slot& slot) {
        static constexpr unsigned kUsual[] = {8, 8, 16, 32, 32};
        const unsigned bits = OneIn(2) ? OneOf(kUsual) : Up(32);
        depthsSeen.insert(bits);
        const bool bottomUp = OneIn(5);
        slot.real.reset(bottomUp ? new BottomUpSurface(bits) : new ProbeSurface(bits));
        slot.host.reset();
        slot.model = Model(bits);
        slot.model.bottomUp = bottomUp;
        OneIn(2) ? LayOverHost(slot) : TakeOwn(slot);
        Noise(slot);
    }

    void TakeOwn(Slot& slot) {
        const auto w = Up(70), h = Up(70);
        Say("Initialise", w, h);
        slot.real->Initialise(w, h);
        slot.model.Initialise(w, h);
    }

    void LayOverHost(Slot& slot) {
        const auto w = Up(70), h = Up(70);
        const unsigned rowBytes =
            slot.model.depth == 1 ? (w + 7) / 8 : w * slot.model.bytesPerPixel;
        auto memory = std::make_unique<FencedMemory>(rowBytes, h, Up(9), Up(7));
        std::uint8_t* data = OneIn(12) ? nullptr : memory->Data();
        const bool isEmpty = OneIn(2);
        Say("Initialise over host", w, h, memory->Pitch(), data == nullptr, isEmpty);
        slot.real->Initialise(w, h, data, memory->Pitch(), isEmpty);
        slot.model.InitialiseOver(w, h, data, memory->Pitch(), isEmpty);
        slot.host = std::move(memory);
    }

    // The host fills the rows itself; few values, so that keys match and runs repeat.
    void Noise(Slot& slot) {
        Model& m = slot.model;
        if (!m.Stores()) return;
        for (unsigned y = 0; y < m.allocDY; ++y) {
            for (unsigned x = 0; x < m.allocDX; ++x)
                m.Store(x, y, OneIn(2) ? Color() : m.Load(x / 2, y / 2));
        }
        std::copy(m.bytes.begin(), m.bytes.end(), slot.real->surface);
    }

    // A key that some source pixel has, or misses by its alpha alone.
    void TakeKey(Slot& target, const Slot& source) {
        const Model& from = source.model;
        if (!from.Stores() || from.dx == 0 || from.dy == 0) return;
        const Word found = from.Read(Up(from.dx - 1), Up(from.dy - 1));
        target.model.key = found ^ (OneIn(3) ? 0x01000000 : 0);
        target.model.keyed = true;
        target.real->SetTransparent(target.model.key);
    }

    void ClearLog() { log_.str(""); }
    std::string Log() const { return log_.str(); }
    template <typename... T>
    void Say(const char* name, const T&... values) {
        log_ << name << "(";
        const char* comma = "";
        (((log_ << comma << std::setprecision(17) << values), comma = ", "), ...);
        log_ << ") ";
    }
    std::string Name(const Slot& slot) const {
        std::ostringstream out;
        out << "surface " << &slot - slots_ << " (depth " << slot.model.depth << ", "
            << slot.model.dx << "x" << slot.model.dy << ", clip " << slot.model.clipX0 << " "
            << slot.model.clipY0 << " " << slot.model.clipX1 << " " << slot.model.clipY1 << ")";
        return out.str();
    }
    void Fail(const std::string& what, Word expected, Word got) {
        if (!difference_.empty() || expected == got) return;
        std::ostringstream out;
        out << what << ": expected 0x" << std::hex << expected << ", got 0x" << got;
        difference_ = out.str();
    }

    std::string Difference() {
        for (Slot& slot : slots_) {
            Model& m = slot.model;
            ProbeSurface& s = *slot.real;
            const std::string name = Name(slot);
            const std::int64_t expected[] = {m.dx,    m.dy,     m.allocDX, m.allocDY, m.pitch,
                                             m.empty, m.clipX0, m.clipY0,  m.clipX1,  m.clipY1};
            const std::int64_t got[] = {s.DX(),      s.DY(),   s.allocDX, s.allocDY, s.Pitch(),
                                        s.IsEmpty(), s.clipX0, s.clipY0,  s.clipX1,  s.clipY1};
            for (std::size_t i = 0; i < std::size(kFields); ++i)
                Fail(name + kFields[i], static_cast<Word>(expected[i]), static_cast<Word>(got[i]));
            if (!difference_.empty()) break;
            CompareBytes(name, m.bytes, s.surface);
            if (slot.host != nullptr) Fail(name + " fence whole", 1, slot.host->IsOutsideWhole());
        }
        return difference_;
    }

    void CompareBytes(const std::string& name, const std::vector<std::uint8_t>& expected,
                      const std::uint8_t* got) {
        if (expected.empty() || std::memcmp(expected.data(), got, expected.size()) == 0) return;
        std::size_t at = 0;
        while (expected[at] == got[at])
            ++at;
        Fail(name + " byte " + std::to_string(at), expected[at], got[at]);
    }

    std::set<unsigned> depthsSeen;

private:
    std::mt19937 rng_;
    std::ostringstream log_;
    std::string difference_;
    Slot slots_[4];
};

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
    for (std::size_t i = 0; i < buffer.Size(); i += 2)
        buffer.Data()[i] = static_cast<std::uint8_t>(w.Between(0, 255));
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
    w.Fail("mono fence whole", 1, buffer.IsOutsideWhole());
}

void Pixels(World& w) {
    Slot& t = w.Pick();
    for (int i = 0; i < 8; ++i) {
        const Point at{w.Coordinate(), w.Coordinate()};
        const Word c = w.Color();
        const double fx = w.Number(), fy = w.Number();
        w.Say("pixel", w.Name(t), at, c, fx, fy);
        w.Fail("RetPixelRGB", t.model.RetPixel(at.x, at.y), t.real->RetPixelRGB(at.x, at.y));
        w.Fail("RetPixelMergeRGB", t.model.RetPixelMerge(at.x, at.y, fx, fy),
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
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>(w.OneIn(3) ? 255 * w.Between(0, 1) : w.Between(0, 255));
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
    const bool smooth = w.OneIn(2);
    w.Say(smooth ? "DrawAALine" : "DrawLine", w.Name(t), from, to, c, dashes.count, pattern[0],
          pattern[1], pattern[2], pattern[3], pattern[4], dashes.pattern == nullptr);
    std::string failure;
    try {
        if (dashes.pattern == nullptr && dashes.count > 2)
            smooth ? t.real->DrawAALine(from.x, from.y, to.x, to.y, c)
                   : t.real->DrawLine(from.x, from.y, to.x, to.y, c);
        else if (smooth)
            t.real->DrawAALine(from.x, from.y, to.x, to.y, c, dashes.pattern, dashes.count);
        else
            t.real->DrawLine(from.x, from.y, to.x, to.y, c, dashes.pattern, dashes.count);
    } catch (const char* text) {
        failure = text;
    }
    const char* expected = t.model.Line(from, to, c, dashes, smooth);
    w.Fail("failure is '" + failure + "'", 1, failure == (expected == nullptr ? "" : expected));
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
    w.Fail("display fence whole", 1, dest.IsFenceWhole());
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

TEST(RandomDrawing, Leaves_every_byte_as_the_model_says) {
    std::set<unsigned> depthsSeen;
    for (unsigned seed = 1; seed <= kSeeds; ++seed) {
        LedgerCheck ledger;
        World world(seed);
        for (unsigned step = 0; step < kSteps; ++step) {
            world.ClearLog();
            world.OneOf(kOperations)(world);
            const std::string difference = world.Difference();
            ASSERT_EQ("", difference)
                << "seed " << seed << ", step " << step << ": " << world.Log();
        }
        depthsSeen.merge(world.depthsSeen);
    }
    EXPECT_EQ(33u, depthsSeen.size()) << "not every depth was drawn on";
}

}  // namespace
}  // namespace test
