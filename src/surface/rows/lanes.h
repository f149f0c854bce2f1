// What every set of vector wrappers shares: which of a row's pixels a block holds, and moving a few
// bytes to and from a register without reading or writing beyond them.
//
// A block is one vector register's worth of pixels. Wrappers take `All` for a whole block and, for
// a row shorter than a block, `Some` where they move under masks, else `Ends`. Lanes without a
// pixel have any value and are not stored. What a set of wrappers must offer, and what each member
// means, stands in contracts.h.
//
// Unnamed namespace: see pixel_format.h.
#ifndef GFX_SURFACE_ROWS_LANES_H
#define GFX_SURFACE_ROWS_LANES_H

#include <cstdint>
#include <cstring>

namespace gfx {
namespace {

struct All {};

/// The first n pixels, at least one.
struct Some {
    unsigned n;
};

/// The first k and the last k of n pixels, side by side: k <= n <= 2 k, so that they hold all of
/// them. What stands in both comes out the same in both, since a pixel's result depends on nothing
/// but that pixel. Two plain moves each way, where cutting a block off at n takes shifts and a
/// branch for each size.
template <unsigned k>
struct Ends {
    unsigned n;

    /// The place of the last k pixels of `kUnit` bytes.
    template <unsigned kUnit, class Byte>
    Byte* Last(Byte* p) const {
        return p + std::size_t{kUnit} * (n - k);
    }
};

template <unsigned kPixels, class Use>
inline auto UseEnds(unsigned n, Use use) {
    constexpr unsigned kHalf = kPixels / 2;
    if constexpr (kHalf > 1) {
        if (n < kHalf) return UseEnds<kHalf>(n, use);
    }
    return use(Ends<kHalf>{n});
}

/// Calls use(count) for the n pixels, 0 < n <= kPixels, of a row that one block holds.
template <class L, unsigned kPixels, class Use>
inline auto UseOneBlock(unsigned n, Use use) {
    if constexpr (L::kHasMasks) {
        return use(Some{n});
    } else {
        return n < kPixels ? UseEnds<kPixels>(n, use) : use(All{});
    }
}

template <class T>
inline T LoadAs(const std::uint8_t* p) {
    T value;
    std::memcpy(&value, p, sizeof value);
    return value;
}

template <class T>
inline void StoreAs(std::uint8_t* p, std::uint64_t value) {
    const auto narrowed = static_cast<T>(value);
    std::memcpy(p, &narrowed, sizeof narrowed);
}

/// The unsigned integer of 1, 2 or 4 bytes.
template <unsigned kBytes>
struct UintOf;
template <>
struct UintOf<1> {
    using Type = std::uint8_t;
};
template <>
struct UintOf<2> {
    using Type = std::uint16_t;
};
template <>
struct UintOf<4> {
    using Type = std::uint32_t;
};

/// Two runs of up to 4 bytes side by side, the first lowest.
template <unsigned kRun>
inline std::uint64_t LoadRuns(const std::uint8_t* first, const std::uint8_t* last) {
    using Run = typename UintOf<kRun>::Type;
    return LoadAs<Run>(first) | std::uint64_t{LoadAs<Run>(last)} << (8 * kRun);
}

template <unsigned kRun>
inline void StoreRuns(std::uint8_t* first, std::uint8_t* last, std::uint64_t runs) {
    using Run = typename UintOf<kRun>::Type;
    StoreAs<Run>(first, runs);
    StoreAs<Run>(last, runs >> (8 * kRun));
}

/// The vector types of a register, and plain loads and stores of bytes, 16-bit halves and 32-bit
/// words. Arithmetic on the types is the compiler's own; it wraps. `Register` moves all of its
/// bytes, and a few units or two runs of them, between memory and the intrinsics' type.
template <class Register>
struct BasicLanes {
    static constexpr unsigned kBytes = Register::kBytes;
    static constexpr unsigned kHalves = kBytes / 2;
    static constexpr unsigned kWords = kBytes / 4;
    static constexpr bool kTakesShortRows = Register::kTakesShortRows;
    static constexpr bool kHasMasks = Register::kHasMasks;
    static constexpr bool kHasFastMulHigh = Register::kHasFastMulHigh;
    typedef std::uint8_t U8 __attribute__((vector_size(kBytes)));
    typedef std::uint16_t U16 __attribute__((vector_size(kBytes)));
    typedef std::uint32_t U32 __attribute__((vector_size(kBytes)));
    typedef std::uint64_t U64 __attribute__((vector_size(kBytes)));
    using Raw = typename Register::Raw;

    static U16 SplatHalf(std::uint32_t value) { return U16{} + static_cast<std::uint16_t>(value); }
    static U32 SplatWord(std::uint32_t value) { return U32{} + value; }

    template <unsigned kUnit>
    static Raw Load(const std::uint8_t* p, All) {
        return Register::Load(p);
    }
    template <unsigned kUnit, unsigned k>
    static Raw Load(const std::uint8_t* p, Ends<k> ends) {
        return Register::template LoadTwo<kUnit * k>(p, ends.template Last<kUnit>(p));
    }
    template <unsigned kUnit>
    static Raw Load(const std::uint8_t* p, Some some) {
        return Register::template LoadFirst<kUnit>(p, some.n);
    }
    template <unsigned kUnit>
    static void Store(std::uint8_t* p, Raw v, All) {
        Register::Store(p, v);
    }
    template <unsigned kUnit, unsigned k>
    static void Store(std::uint8_t* p, Raw v, Ends<k> ends) {
        Register::template StoreTwo<kUnit * k>(p, ends.template Last<kUnit>(p), v);
    }

    template <unsigned kUnit>
    static void Store(std::uint8_t* p, Raw v, Some some) {
        Register::template StoreFirst<kUnit>(p, some.n, v);
    }

    template <class Count>
    static U8 LoadBytes(const std::uint8_t* p, Count count) {
        return AsBytes(Load<1>(p, count));
    }
    template <class Count>
    static U16 LoadHalves(const std::uint8_t* p, Count count) {
        return AsHalves(Load<2>(p, count));
    }
    template <class Count>
    static U32 LoadWords(const std::uint8_t* p, Count count) {
        return AsWords(Load<4>(p, count));
    }
    template <class Count>
    static void StoreBytes(std::uint8_t* p, U8 v, Count count) {
        Store<1>(p, AsRaw(v), count);
    }
    template <class Count>
    static void StoreHalves(std::uint8_t* p, U16 v, Count count) {
        Store<2>(p, AsRaw(v), count);
    }
    template <class Count>
    static void StoreWords(std::uint8_t* p, U32 v, Count count) {
        Store<4>(p, AsRaw(v), count);
    }

    template <unsigned kUnit>
    static U8 EqualUnits(Raw a, Raw b) {
        static_assert(kUnit == 1 || kUnit == 2 || kUnit == 4);
        if constexpr (kUnit == 1) return AsBytes(AsBytes(a) == AsBytes(b));
        if constexpr (kUnit == 2) return AsBytes(AsHalves(a) == AsHalves(b));
        if constexpr (kUnit == 4) return AsBytes(AsWords(a) == AsWords(b));
    }

    static U16 TopBytes(U32 words) {
        const U32 tops = words & 0xFF000000U;
        return AsHalves(tops | tops >> 16);
    }
    static U16 WithLowerDifference(U16 v, U16 of) { return (v & 0xFF00) | ((of - v) & 0x00FF); }
    static U32 AddBelowTop(U32 old, U32 a, U32 b) {
        return (AsWords(AsBytes(a) + AsBytes(b)) & 0x00FFFFFFU) | (old & 0xFF000000U);
    }

    template <class Vector>
    static Raw AsRaw(Vector v) {
        return reinterpret_cast<Raw>(v);
    }
    template <class Vector>
    static U8 AsBytes(Vector v) {
        return reinterpret_cast<U8>(v);
    }
    template <class Vector>
    static U16 AsHalves(Vector v) {
        return reinterpret_cast<U16>(v);
    }
    template <class Vector>
    static U32 AsWords(Vector v) {
        return reinterpret_cast<U32>(v);
    }
};

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_LANES_H
