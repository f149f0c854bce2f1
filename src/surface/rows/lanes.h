// What every set of vector wrappers shares: how many of a block's pixels a load or store touches,
// and moving a few bytes to and from a register without reading or writing beyond them.
//
// A block is one vector register's worth of pixels. Wrappers take `All` for a whole block and
// `Some` for the first n pixels of one; pixels beyond n read as 0 and are not written.
//
// Unnamed namespace: see pixel_format.h.
#ifndef GFX_SURFACE_ROWS_LANES_H
#define GFX_SURFACE_ROWS_LANES_H

#include <cstdint>
#include <cstring>

namespace gfx {
namespace {

struct All {};
struct Some {
    unsigned n;
};

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

/// Up to 16 bytes as two halves, the first byte lowest.
struct Bytes16 {
    std::uint64_t low, high;
};

/// The first `count` bytes (0 to 15), the others 0: two loads that may overlap, since a copy
/// through memory would stall on the wide load that follows the narrow stores.
inline Bytes16 LoadFew(const std::uint8_t* p, unsigned count) {
    if (count > 8) {
        return {LoadAs<std::uint64_t>(p),
                LoadAs<std::uint64_t>(p + count - 8) >> (8 * (16 - count))};
    }
    if (count == 8) return {LoadAs<std::uint64_t>(p), 0};
    if (count >= 4) {
        const std::uint64_t last = LoadAs<std::uint32_t>(p + count - 4);
        return {LoadAs<std::uint32_t>(p) | last << (8 * (count - 4)), 0};
    }
    if (count >= 2) {
        const std::uint64_t last = LoadAs<std::uint16_t>(p + count - 2);
        return {LoadAs<std::uint16_t>(p) | last << (8 * (count - 2)), 0};
    }
    return {count == 1 ? std::uint64_t{*p} : 0, 0};
}

/// Stores the first `count` bytes (0 to 15), in the same way.
inline void StoreFew(std::uint8_t* p, Bytes16 bytes, unsigned count) {
    if (count > 8) {
        StoreAs<std::uint64_t>(p, bytes.low);
        StoreAs<std::uint64_t>(p + count - 8,
                               bytes.low >> (8 * (count - 8)) | bytes.high << (8 * (16 - count)));
    } else if (count == 8) {
        StoreAs<std::uint64_t>(p, bytes.low);
    } else if (count >= 4) {
        StoreAs<std::uint32_t>(p, bytes.low);
        StoreAs<std::uint32_t>(p + count - 4, bytes.low >> (8 * (count - 4)));
    } else if (count >= 2) {
        StoreAs<std::uint16_t>(p, bytes.low);
        StoreAs<std::uint16_t>(p + count - 2, bytes.low >> (8 * (count - 2)));
    } else if (count == 1) {
        StoreAs<std::uint8_t>(p, bytes.low);
    }
}

/// The vector types of a register, and plain loads and stores of bytes, 16-bit halves and 32-bit
/// words. Arithmetic on the types is the compiler's own; it wraps. `Register` moves all of its
/// bytes, or the first few units of 1, 2 or 4 of them, between memory and the intrinsics' type.
template <class Register>
struct BasicLanes {
    static constexpr unsigned kBytes = Register::kBytes;
    static constexpr unsigned kHalves = kBytes / 2;
    static constexpr unsigned kWords = kBytes / 4;
    typedef std::uint8_t U8 __attribute__((vector_size(kBytes)));
    typedef std::uint16_t U16 __attribute__((vector_size(kBytes)));
    typedef std::uint32_t U32 __attribute__((vector_size(kBytes)));
    using Raw = typename Register::Raw;

    static U16 SplatHalf(std::uint32_t value) { return U16{} + static_cast<std::uint16_t>(value); }
    static U32 SplatWord(std::uint32_t value) { return U32{} + value; }

    static U8 LoadBytes(const std::uint8_t* p, All) { return AsBytes(Register::Load(p)); }
    static U8 LoadBytes(const std::uint8_t* p, Some s) {
        return AsBytes(Register::template Load<1>(p, s.n));
    }
    static U16 LoadHalves(const std::uint8_t* p, All) { return AsHalves(Register::Load(p)); }
    static U16 LoadHalves(const std::uint8_t* p, Some s) {
        return AsHalves(Register::template Load<2>(p, s.n));
    }
    static U32 LoadWords(const std::uint8_t* p, All) { return AsWords(Register::Load(p)); }
    static U32 LoadWords(const std::uint8_t* p, Some s) {
        return AsWords(Register::template Load<4>(p, s.n));
    }

    static void StoreBytes(std::uint8_t* p, U8 v, All) { Register::Store(p, AsRaw(v)); }
    static void StoreBytes(std::uint8_t* p, U8 v, Some s) {
        Register::template Store<1>(p, AsRaw(v), s.n);
    }
    static void StoreHalves(std::uint8_t* p, U16 v, All) { Register::Store(p, AsRaw(v)); }
    static void StoreHalves(std::uint8_t* p, U16 v, Some s) {
        Register::template Store<2>(p, AsRaw(v), s.n);
    }
    static void StoreWords(std::uint8_t* p, U32 v, All) { Register::Store(p, AsRaw(v)); }
    static void StoreWords(std::uint8_t* p, U32 v, Some s) {
        Register::template Store<4>(p, AsRaw(v), s.n);
    }

    /// The lower half of each word, whose upper one is 0, in both of its halves.
    static U16 InBothHalves(U32 words) { return AsHalves(words | words << 16); }

    /// The old pixels where the fresh ones equal the key.
    template <class Vector>
    static Vector KeepKeyed(Vector old, Vector fresh, Vector key) {
        const auto isKey = reinterpret_cast<Vector>(fresh == key);
        return (old & isKey) | (fresh & ~isKey);
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
