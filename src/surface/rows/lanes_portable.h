// 128-bit vectors in the compiler's own vector types alone: what processors without a header of
// their own get. On 64-bit Arm these come out as NEON instructions.
#ifndef GFX_SURFACE_ROWS_LANES_PORTABLE_H
#define GFX_SURFACE_ROWS_LANES_PORTABLE_H

#include "surface/rows/lanes.h"

namespace gfx {
namespace {

typedef std::uint64_t TwoWords64 __attribute__((vector_size(16)));

struct PortableRegister {
    static constexpr unsigned kBytes = 16;
    static constexpr bool kTakesShortRows = true;
    static constexpr bool kHasMasks = false;
    static constexpr bool kHasFastMulHigh = false;
    using Raw = TwoWords64;

    static Raw Load(const std::uint8_t* p) { return LoadAs<Raw>(p); }
    template <unsigned kRun>
    static Raw LoadTwo(const std::uint8_t* first, const std::uint8_t* last) {
        if constexpr (kRun == 8) {
            return Raw{LoadAs<std::uint64_t>(first), LoadAs<std::uint64_t>(last)};
        } else {
            return Raw{LoadRuns<kRun>(first, last), 0};
        }
    }
    static void Store(std::uint8_t* p, Raw v) { std::memcpy(p, &v, sizeof v); }
    template <unsigned kRun>
    static void StoreTwo(std::uint8_t* first, std::uint8_t* last, Raw v) {
        if constexpr (kRun == 8) {
            StoreAs<std::uint64_t>(first, v[0]);
            StoreAs<std::uint64_t>(last, v[1]);
        } else {
            StoreRuns<kRun>(first, last, v[0]);
        }
    }
};

struct PortableLanes : BasicLanes<PortableRegister> {
    static U16 LoadBytesAsHalves(const std::uint8_t* p, All) {
        return WidenBytes(Raw{LoadAs<std::uint64_t>(p), 0});
    }
    template <unsigned k>
    static U16 LoadBytesAsHalves(const std::uint8_t* p, Ends<k> ends) {
        return WidenBytes(Load<1>(p, ends));
    }
    template <class Count>
    static U16 LoadBytesAsUpper(const std::uint8_t* p, Count count) {
        const U16 halves = WidenBytes(LoadFour(p, count)) << 8;
        return __builtin_shufflevector(halves, halves, 0, 0, 1, 1, 2, 2, 3, 3);
    }
    template <class Count>
    static U32 LoadBytesFourTimes(const std::uint8_t* p, Count count) {
        const U8 bytes = AsBytes(LoadFour(p, count));
        return AsWords(
            __builtin_shufflevector(bytes, bytes, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3));
    }
    static void StoreHalvesAsBytes(std::uint8_t* p, U16 v, All) {
        StoreAs<std::uint64_t>(p, AsRaw(NarrowHalves(v))[0]);
    }
    template <unsigned k>
    static void StoreHalvesAsBytes(std::uint8_t* p, U16 v, Ends<k> ends) {
        Store<1>(p, AsRaw(NarrowHalves(v)), ends);
    }

    static U16 PackLow(U32 a, U32 b) {
        return __builtin_shufflevector(AsHalves(a), AsHalves(b), 0, 2, 4, 6, 8, 10, 12, 14);
    }
    static U16 PackHigh(U32 a, U32 b) {
        return __builtin_shufflevector(AsHalves(a), AsHalves(b), 1, 3, 5, 7, 9, 11, 13, 15);
    }

    static U32 InterleaveFirst(U16 low, U16 high) {
        return AsWords(__builtin_shufflevector(low, high, 0, 8, 1, 9, 2, 10, 3, 11));
    }
    static U32 InterleaveSecond(U16 low, U16 high) {
        return AsWords(__builtin_shufflevector(low, high, 4, 12, 5, 13, 6, 14, 7, 15));
    }
    static U16 MulHigh(U16 a, U16 b) {
        const U32 even = EvenHalves(a) * EvenHalves(b);
        const U32 odd = (AsWords(a) >> 16) * (AsWords(b) >> 16);
        return AsHalves((even >> 16) | (odd & 0xFFFF0000U));
    }
    static U32 MulAddPairs(U16 a, U16 b) {
        return EvenHalves(a) * EvenHalves(b) + (AsWords(a) >> 16) * (AsWords(b) >> 16);
    }

    static bool AreTopBytesZero(U32 words) {
        const Raw tops = AsRaw(words & 0xFF000000U);
        return (tops[0] | tops[1]) == 0;
    }
    static bool AreTopBytesFull(U32 words) { return AreTopBytesZero(~words); }

    /// The two lowest halves, four times each.
    static U16 RepeatTwoHalves(U16 v) {
        return __builtin_shufflevector(v, v, 0, 0, 0, 0, 1, 1, 1, 1);
    }

    /// The eight lowest bytes as halves, and halves up to 255 as the eight lowest bytes.
    static U16 WidenLowBytes(U8 v) { return WidenBytes(AsRaw(v)); }
    static U8 NarrowHalves(U16 v) {
        return __builtin_shufflevector(AsBytes(v), AsBytes(v), 0, 2, 4, 6, 8, 10, 12, 14, 0, 2, 4,
                                       6, 8, 10, 12, 14);
    }

private:
    static U32 EvenHalves(U16 v) { return AsWords(v) & 0xFFFFU; }
    static U16 WidenBytes(Raw v) {
        return AsHalves(__builtin_shufflevector(AsBytes(v), U8{}, 0, 16, 1, 16, 2, 16, 3, 16, 4, 16,
                                                5, 16, 6, 16, 7, 16));
    }
    static Raw LoadFour(const std::uint8_t* p, All) { return Raw{LoadAs<std::uint32_t>(p), 0}; }
    template <unsigned k>
    static Raw LoadFour(const std::uint8_t* p, Ends<k> ends) {
        return Load<1>(p, ends);
    }
};

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_LANES_PORTABLE_H
