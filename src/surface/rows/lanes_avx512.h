// 512-bit vectors, and 256-bit ones for narrow rectangles, with AVX-512 F, BW and VL. The first few
// pixels of a block are moved under a mask.
#ifndef GFX_SURFACE_ROWS_LANES_AVX512_H
#define GFX_SURFACE_ROWS_LANES_AVX512_H

// g++ 12 warns of uninitialised values inside its own header where a conversion has no mask.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <immintrin.h>

#include "surface/rows/lanes_avx2.h"
#include "surface/rows/mix_lanes.h"

namespace gfx {
namespace {

struct Register512 {
    static constexpr unsigned kBytes = 64;
    static constexpr bool kHasMasks = true;
    static constexpr bool kHasFastMulHigh = true;
    using Raw = __m512i;

    /// Into a register: g++ would rather load again for each use, which doubles up where blocks
    /// cross cache lines. Blending words takes a sixth less in 32 bits, a tenth below.
    static Raw Load(const std::uint8_t* p) {
        Raw v = _mm512_loadu_si512(p);
        __asm__("" : "+v"(v));
        return v;
    }
    template <unsigned kUnit>
    static Raw Load(const std::uint8_t* p, unsigned n) {
        if constexpr (kUnit == 1) return _mm512_maskz_loadu_epi8(First(n), p);
        if constexpr (kUnit == 2) {
            return _mm512_maskz_loadu_epi16(static_cast<__mmask32>(First(n)), p);
        }
        return _mm512_maskz_loadu_epi32(static_cast<__mmask16>(First(n)), p);
    }
    static void Store(std::uint8_t* p, Raw v) { _mm512_storeu_si512(p, v); }
    template <unsigned kUnit>
    static void StoreUnder(std::uint64_t mask, std::uint8_t* p, Raw v) {
        if constexpr (kUnit == 1) return _mm512_mask_storeu_epi8(p, mask, v);
        if constexpr (kUnit == 2) {
            return _mm512_mask_storeu_epi16(p, static_cast<__mmask32>(mask), v);
        }
        _mm512_mask_storeu_epi32(p, static_cast<__mmask16>(mask), v);
    }
    template <unsigned kUnit>
    static std::uint64_t EqualUnits(Raw a, Raw b) {
        if constexpr (kUnit == 1) return _mm512_cmpeq_epi8_mask(a, b);
        if constexpr (kUnit == 2) return _mm512_cmpeq_epi16_mask(a, b);
        return _mm512_cmpeq_epi32_mask(a, b);
    }
};

/// The first n of 16 bytes.
inline __m128i Load128(const std::uint8_t* p, unsigned n) {
    return _mm_maskz_loadu_epi8(static_cast<__mmask16>(First(n)), p);
}
inline __m128i Load128(const std::uint8_t* p) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
}

struct MaskedRegister256 {
    static constexpr unsigned kBytes = 32;
    static constexpr bool kHasMasks = true;
    static constexpr bool kHasFastMulHigh = true;
    using Raw = __m256i;

    static Raw Load(const std::uint8_t* p) {
        return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
    }
    template <unsigned kUnit>
    static Raw Load(const std::uint8_t* p, unsigned n) {
        if constexpr (kUnit == 1) {
            return _mm256_maskz_loadu_epi8(static_cast<__mmask32>(First(n)), p);
        }
        if constexpr (kUnit == 2) {
            return _mm256_maskz_loadu_epi16(static_cast<__mmask16>(First(n)), p);
        }
        return _mm256_maskz_loadu_epi32(static_cast<__mmask8>(First(n)), p);
    }
    /// Up to 8 bytes, in each half of the register.
    static Raw LoadEightTwice(const std::uint8_t* p, All) {
        return _mm256_set1_epi64x(LoadAs<long long>(p));
    }
    static Raw LoadEightTwice(const std::uint8_t* p, Some s) {
        return _mm256_broadcastq_epi64(Load128(p, s.n));
    }
    static void Store(std::uint8_t* p, Raw v) {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v);
    }
    template <unsigned kUnit>
    static void StoreUnder(std::uint64_t mask, std::uint8_t* p, Raw v) {
        if constexpr (kUnit == 1) {
            return _mm256_mask_storeu_epi8(p, static_cast<__mmask32>(mask), v);
        }
        if constexpr (kUnit == 2) {
            return _mm256_mask_storeu_epi16(p, static_cast<__mmask16>(mask), v);
        }
        _mm256_mask_storeu_epi32(p, static_cast<__mmask8>(mask), v);
    }
    template <unsigned kUnit>
    static std::uint64_t EqualUnits(Raw a, Raw b) {
        if constexpr (kUnit == 1) return _mm256_cmpeq_epi8_mask(a, b);
        if constexpr (kUnit == 2) return _mm256_cmpeq_epi16_mask(a, b);
        return _mm256_cmpeq_epi32_mask(a, b);
    }
};

/// A mask of bytes that repeats four bits, one for each byte of a word. Hidden from clang, which
/// would turn operations under masks into moves under masks, and load the mask anew for each.
inline __mmask64 BytesOfWords(std::uint64_t bits) {
    __mmask64 mask = bits * 0x1111111111111111U;
#if defined(__clang__)
    __asm__("" : "+Yk"(mask));
#endif
    return mask;
}
inline constexpr std::uint64_t kLowerOfHalves = 0x5;
inline constexpr std::uint64_t kBelowTop = 0x7;

struct MaskedLanes256 : Avx2Lanes<MaskedRegister256> {
    static U16 LoadBytesAsHalves(const std::uint8_t* p, All) {
        return AsHalves(_mm256_cvtepu8_epi16(Load128(p)));
    }
    static U16 LoadBytesAsHalves(const std::uint8_t* p, Some s) {
        return AsHalves(_mm256_cvtepu8_epi16(Load128(p, s.n)));
    }
    /// Halves must not exceed 255.
    static void StoreHalvesAsBytes(std::uint8_t* p, U16 v, All) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(p), _mm256_cvtepi16_epi8(AsRaw(v)));
    }
    static void StoreHalvesAsBytes(std::uint8_t* p, U16 v, Some s) {
        _mm_mask_storeu_epi8(p, static_cast<__mmask16>(First(s.n)), _mm256_cvtepi16_epi8(AsRaw(v)));
    }

    /// The low, or high, halves of the words of two blocks, in their order.
    static U16 PackLow(U32 a, U32 b) {
        return AsHalves(
            _mm256_inserti128_si256(_mm256_castsi128_si256(_mm256_cvtepi32_epi16(AsRaw(a))),
                                    _mm256_cvtepi32_epi16(AsRaw(b)), 1));
    }
    static U16 PackHigh(U32 a, U32 b) { return PackLow(a >> 16, b >> 16); }

    static U16 WithLowerDifference(U16 v, U16 of) {
        const auto mask = static_cast<__mmask32>(BytesOfWords(kLowerOfHalves));
        return AsHalves(_mm256_mask_sub_epi8(AsRaw(v), mask, AsRaw(of), AsRaw(v)));
    }
    static U32 AddBelowTop(U32 old, U32 a, U32 b) {
        const auto mask = static_cast<__mmask32>(BytesOfWords(kBelowTop));
        return AsWords(_mm256_mask_add_epi8(AsRaw(old), mask, AsRaw(a), AsRaw(b)));
    }
};

struct Lanes512 : BasicLanes<Register512> {
    static U16 LoadBytesAsHalves(const std::uint8_t* p, All) {
        return AsHalves(_mm512_cvtepu8_epi16(MaskedRegister256::Load(p)));
    }
    static U16 LoadBytesAsHalves(const std::uint8_t* p, Some s) {
        return AsHalves(_mm512_cvtepu8_epi16(MaskedRegister256::Load<1>(p, s.n)));
    }
    template <class Count>
    static U16 LoadBytesAsUpper(const std::uint8_t* p, Count count) {
        return AsHalves(
            Shuffle(LoadInQuarters(p, count), WordIndices() * 0x01000100U + 0x00800080U));
    }
    template <class Count>
    static U32 LoadBytesFourTimes(const std::uint8_t* p, Count count) {
        return AsWords(Shuffle(LoadInQuarters(p, count), WordIndices() * 0x01010101U));
    }
    static U16 TopBytes(U32 words) {
        return AsHalves(Shuffle(AsRaw(words), WordIndices() * 0x04000400U + 0x03800380U));
    }
    static U16 WithLowerDifference(U16 v, U16 of) {
        return AsHalves(
            _mm512_mask_sub_epi8(AsRaw(v), BytesOfWords(kLowerOfHalves), AsRaw(of), AsRaw(v)));
    }
    static U32 AddBelowTop(U32 old, U32 a, U32 b) {
        return AsWords(
            _mm512_mask_add_epi8(AsRaw(old), BytesOfWords(kBelowTop), AsRaw(a), AsRaw(b)));
    }
    static void StoreHalvesAsBytes(std::uint8_t* p, U16 v, All) {
        MaskedRegister256::Store(p, _mm512_cvtepi16_epi8(AsRaw(v)));
    }
    static void StoreHalvesAsBytes(std::uint8_t* p, U16 v, Some s) {
        MaskedRegister256::StoreUnder<1>(First(s.n), p, _mm512_cvtepi16_epi8(AsRaw(v)));
    }

    static U16 PackLow(U32 a, U32 b) { return Gather(a, b, 0); }
    static U16 PackHigh(U32 a, U32 b) { return Gather(a, b, 1); }
    static U32 InterleaveFirst(U16 low, U16 high) { return Interleave(low, high, 0x0020); }
    static U32 InterleaveSecond(U16 low, U16 high) { return Interleave(low, high, 0x0030); }
    static U16 MulHigh(U16 a, U16 b) { return AsHalves(_mm512_mulhi_epu16(AsRaw(a), AsRaw(b))); }
    static U32 MulAddPairs(U16 a, U16 b) { return AsWords(_mm512_madd_epi16(AsRaw(a), AsRaw(b))); }
    static bool AreTopBytesZero(U32 words) {
        return _mm512_test_epi32_mask(AsRaw(words),
                                      _mm512_set1_epi32(static_cast<int>(0xFF000000))) == 0;
    }
    static bool AreTopBytesFull(U32 words) {
        return _mm512_cmplt_epu32_mask(AsRaw(words),
                                       _mm512_set1_epi32(static_cast<int>(0xFF000000))) == 0;
    }

    static U16 Indices() {
        return U16{0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14, 15,
                   16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31};
    }

    /// Each half's entry in a table of 32 halves, or of 64 in two registers; higher bits of an
    /// index do not count.
    static U16 Lookup(U16 table, U16 index) {
        return AsHalves(_mm512_permutexvar_epi16(AsRaw(index), AsRaw(table)));
    }
    static U16 Lookup(U16 low, U16 high, U16 index) {
        return AsHalves(_mm512_permutex2var_epi16(AsRaw(low), AsRaw(index), AsRaw(high)));
    }

private:
    static U32 WordIndices() { return U32{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}; }
    static __m512i Shuffle(__m512i bytes, U32 places) {
        return _mm512_shuffle_epi8(bytes, AsRaw(places));
    }
    /// Up to 16 bytes, in each quarter of the register.
    static __m512i LoadInQuarters(const std::uint8_t* p, All) {
        return _mm512_broadcast_i32x4(Load128(p));
    }
    static __m512i LoadInQuarters(const std::uint8_t* p, Some s) {
        return _mm512_broadcast_i32x4(Load128(p, s.n));
    }

    /// The halves start, start + 2, ... of a register pair.
    static U16 Gather(U32 a, U32 b, std::uint32_t start) {
        const U16 even = {0,  2,  4,  6,  8,  10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30,
                          32, 34, 36, 38, 40, 42, 44, 46, 48, 50, 52, 54, 56, 58, 60, 62};
        const U16 indices = even + static_cast<std::uint16_t>(start);
        return AsHalves(_mm512_permutex2var_epi16(AsRaw(a), AsRaw(indices), AsRaw(b)));
    }

    /// Half i of a register pair becomes the lower half of word i, half 32 + i its upper half; the
    /// second register's words begin 16 halves later.
    static U32 Interleave(U16 low, U16 high, unsigned highStart) {
        const U32 indices = (WordIndices() + (highStart - 32)) | (WordIndices() + highStart) << 16;
        return AsWords(_mm512_permutex2var_epi16(AsRaw(low), AsRaw(indices), AsRaw(high)));
    }
};

/// The words beside a 256-bit register of halves fit one 512-bit register, which packs at once.
template <>
struct WordPair<MaskedLanes256> {
    static constexpr unsigned kPixels = MaskedLanes256::kHalves;
    Lanes512::U32 words;

    template <class Count>
    static WordPair Load(const std::uint8_t* p, Count count) {
        return {Lanes512::LoadWords(p, count)};
    }

    bool AreOpaque() const { return Lanes512::AreTopBytesZero(words); }
    bool AreInvisible() const { return Lanes512::AreTopBytesFull(words); }

    MaskedLanes256::U16 Low() const { return Pack(words); }
    MaskedLanes256::U16 High() const { return Pack(words >> 16); }
    template <class Rule>
    WordPair Map(Rule rule) const {
        return {rule(Lanes512{}, words)};
    }

    static WordPair Interleave(MaskedLanes256::U16 low, MaskedLanes256::U16 high) {
        return {Widen(low) | Widen(high) << 16};
    }
    template <class Count>
    static void Store(std::uint8_t* p, const WordPair& pair, Count count) {
        Lanes512::StoreWords(p, pair.words, count);
    }

private:
    static Lanes512::U32 Widen(MaskedLanes256::U16 v) {
        return Lanes512::AsWords(_mm512_cvtepu16_epi32(MaskedLanes256::AsRaw(v)));
    }
    static MaskedLanes256::U16 Pack(Lanes512::U32 v) {
        return MaskedLanes256::AsHalves(_mm512_cvtepi32_epi16(Lanes512::AsRaw(v)));
    }
};

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_LANES_AVX512_H
