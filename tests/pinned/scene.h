// The surfaces of the pinned drawing and the random arguments of its operations. Everything that
// an operation leaves in memory, and every value that comes back, goes into one checksum.
#pragma once

#include <iomanip>
#include <memory>
#include <ostream>
#include <vector>

#include "pinned/canvas.h"
#include "pinned/checksum.h"
#include "pinned/generator.h"

namespace pinned {

struct Rect {
    int x, y;
    unsigned w, h;
};

/// One surface. Several may lie over one block of host memory.
struct Slot {
    std::shared_ptr<std::vector<std::uint8_t>> block;
    std::unique_ptr<Canvas> canvas;
};

class Scene {
public:
    explicit Scene(std::uint64_t seed);

    Generator random;
    std::ostream* log = nullptr;  ///< receives the operations as text, if set

    Slot& Pick() { return slots_[random.Below(kSlots)]; }
    Slot& PickDepth8();

    /// Mostly near 0 .. size, sometimes at the edges of the type.
    int Coordinate(unsigned size);
    unsigned Extent(unsigned size);
    Rect AnyRect(const Canvas& on);
    /// A coordinate beside `at`: where `at` lies far to the left, often one that brings it back.
    int PartnerOf(int at, unsigned size);
    std::uint32_t Color();
    double Number();

    /// n random bytes, the same ones again and again.
    const std::uint8_t* Bytes(std::size_t n);

    /// Makes the slot's surface anew: any depth, any memory, any order of rows.
    void Replace(Slot& slot);
    void TakeOwn(Slot& slot);
    /// The host writes pixels: runs of invisible, opaque, equal and any colour words.
    void FillWithNoise(Slot& slot);
    /// A colour key that some pixel has, or misses by its alpha alone.
    void TakeKey(Canvas& target, const Canvas& source);

    void Fold(std::uint64_t value) { sum_.Fold(value); }
    void Fold(const std::uint8_t* bytes, std::size_t n) { sum_.Fold(bytes, n); }
    void Fold(const char* text);
    void Fold(const Slot& slot);  ///< fields and memory
    std::uint64_t Value() const { return sum_.Value(); }
    /// The sum so far with everything that all surfaces hold.
    std::uint64_t ValueOfAll() const;

    template <class... T>
    void Say(const char* name, const T&... values) {
        if (log == nullptr) return;
        *log << name << std::setprecision(17);
        ((*log << ' ', Print(values)), ...);
        *log << '\n';
    }

private:
    static constexpr unsigned kSlots = 7;

    template <class T>
    void Print(const T& value) {
        *log << value;
    }
    void Print(const Rect& r) { *log << r.x << ' ' << r.y << ' ' << r.w << ' ' << r.h; }
    void Print(const Slot& slot);

    unsigned Side();
    void LayOverOwnBlock(Slot& slot);
    void LayOverBlockOf(Slot& slot, const Slot& other);

    Slot slots_[kSlots];
    std::vector<std::uint8_t> bytes_;
    Checksum sum_;
};

}  // namespace pinned
