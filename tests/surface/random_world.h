// The surfaces of random drawing, each beside its model, and the values that its operations draw
// with, made of a source's choices. Finds the first difference between a surface and its model.
#pragma once

#include <algorithm>
#include <climits>
#include <cstring>
#include <iomanip>
#include <limits>
#include <memory>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/fenced_memory.h"
#include "support/probe_surface.h"
#include "surface/model.h"

namespace test {

inline constexpr const char* kFields[] = {
    " width", " height",    " laid out width", " laid out height", " pitch",
    " empty", " clip left", " clip top",       " clip right",      " clip bottom"};

inline std::ostream& operator<<(std::ostream& out, const Rect& r) {
    return out << r.x << ", " << r.y << ", " << r.w << "u, " << r.h << "u";
}
inline std::ostream& operator<<(std::ostream& out, const Point& p) {
    return out << p.x << ", " << p.y;
}

/// Where the choices of random drawing come from.
class Choices {
public:
    virtual ~Choices() = default;
    virtual int Between(int low, int high) = 0;  ///< both included
};

class SeededChoices : public Choices {
public:
    explicit SeededChoices(unsigned seed) : rng_(seed) {}
    int Between(int low, int high) override {
        return std::uniform_int_distribution<>(low, high)(rng_);
    }

private:
    std::mt19937 rng_;
};

/// A surface of the library and what it should be. Several may lie over one host memory.
struct Slot {
    std::shared_ptr<FencedMemory> host;
    std::unique_ptr<ProbeSurface> real;
    Model model{0};
};

class World {
public:
    explicit World(Choices& choices) : choices_(choices) {
        for (Slot& slot : slots_)
            Replace(slot);
    }

    int Between(int low, int high) { return choices_.Between(low, high); }
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
        const auto order = OneIn(2) ? RowOrder::kTopDown : static_cast<RowOrder>(Up(3));
        slot.real = std::make_unique<OrderedSurface>(bits, order);
        slot.host.reset();
        slot.model = Model(bits);
        slot.model.order = order;
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
        if (OneIn(2) && ShareHost(slot)) return;
        const auto w = Up(70), h = Up(70);
        const unsigned rowBytes = RowBytesOf(slot.model, w);
        auto memory = std::make_shared<FencedMemory>(rowBytes, h, Up(9), Up(7));
        std::shared_ptr<std::vector<std::uint8_t>> bytes;
        if (!OneIn(12)) {
            bytes = std::make_shared<std::vector<std::uint8_t>>(memory->Data(),
                                                                memory->Data() + memory->Size());
        }
        LayOver(slot, memory, bytes, w, h, memory->Pitch());
    }

    /// Lays a surface over memory that another one lies over, in rows of its own length.
    bool ShareHost(Slot& slot) {
        const auto isShareable = [&](const Slot& other) {
            return &other != &slot && other.host != nullptr && other.model.bytes != nullptr &&
                   other.real->surface == other.host->Data() && other.host->Size() != 0;
        };
        const auto found = std::find_if(std::begin(slots_), std::end(slots_), isShareable);
        if (found == std::end(slots_)) return false;
        const Slot& other = *found;
        const unsigned h = 1 + Up(69);
        const auto pitch = static_cast<unsigned>(other.host->Size() / h);
        unsigned w = Up(70);
        while (RowBytesOf(slot.model, w) > pitch)
            w /= 2;
        LayOver(slot, other.host, other.model.bytes, w, h, pitch);
        ++memoriesShared;
        return true;
    }

    void LayOver(Slot& slot, const std::shared_ptr<FencedMemory>& memory,
                 const std::shared_ptr<std::vector<std::uint8_t>>& bytes, unsigned w, unsigned h,
                 unsigned pitch) {
        std::uint8_t* const data = bytes == nullptr ? nullptr : memory->Data();
        const bool isEmpty = OneIn(2);
        Say("Initialise over host", w, h, pitch, data == nullptr, isEmpty);
        slot.real->Initialise(w, h, data, pitch, isEmpty);
        slot.model.InitialiseOver(w, h, bytes, pitch, isEmpty);
        slot.host = memory;
    }

    /// A generator of values that no choice is spent on, seeded by one.
    std::minstd_rand Noise() { return std::minstd_rand(1 + Up(65534)); }

    // The host fills the rows itself; few values, so that keys match and runs repeat.
    void Noise(Slot& slot) {
        Model& m = slot.model;
        if (!m.Stores()) return;
        Word palette[8];
        for (Word& color : palette)
            color = Color();
        std::minstd_rand noise = Noise();
        for (unsigned y = 0; y < m.allocDY; ++y) {
            for (unsigned x = 0; x < m.allocDX; ++x) {
                const auto value = static_cast<Word>(noise());
                const Word fresh = value & 0x100 ? palette[value & 7] : value << 8 ^ value >> 7;
                m.Store(x, y, value & 0x200 ? fresh : m.Load(x / 2, y / 2));
            }
        }
        std::copy(m.bytes->begin(), m.bytes->end(), slot.real->surface);
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
    /// Keeps the first difference.
    void Expect(const std::string& what, Word expected, Word got) {
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
                Expect(name + kFields[i], static_cast<Word>(expected[i]),
                       static_cast<Word>(got[i]));
            if (!difference_.empty()) break;
            if (m.bytes != nullptr) CompareBytes(name, *m.bytes, s.surface);
            if (slot.host != nullptr) Expect(name + " fence whole", 1, slot.host->IsOutsideWhole());
        }
        return difference_;
    }

    void CompareBytes(const std::string& name, const std::vector<std::uint8_t>& expected,
                      const std::uint8_t* got) {
        if (expected.empty() || std::memcmp(expected.data(), got, expected.size()) == 0) return;
        std::size_t at = 0;
        while (expected[at] == got[at])
            ++at;
        Expect(name + " byte " + std::to_string(at), expected[at], got[at]);
    }

    std::set<unsigned> depthsSeen;
    unsigned memoriesShared = 0;

private:
    static unsigned RowBytesOf(const Model& model, unsigned w) {
        return model.depth == 1 ? (w + 7) / 8 : w * model.bytesPerPixel;
    }

    Choices& choices_;
    std::ostringstream log_;
    std::string difference_;
    Slot slots_[4];
};

}  // namespace test
