// 512-bit vectors with AVX-512 F, BW and VL for rows longer than a block, and 256-bit ones that
// move the pixels of shorter rows under masks: wider ones would meet the end of a cache line too
// often.
#ifndef GFX_SURFACE_ROWS_LANES_AVX512_H
#define GFX_SURFACE_ROWS_LANES_AVX512_H

// g++ 12 warns of uninitialised values inside its own header where a conversion has no mask.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wuninitialized"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <immintrin.h>

#include "surface/rows/lanes_avx2.h"

namespace gfx {
namespace {

/// Loads and stores of 32 bytes, or of the first few units of these.
struct MaskedRegister256 {
    static constexpr unsigned kBytes = 32;
    static constexpr bool kTakesShortRows = true;
    static constexpr bool kHasMasks = true;
    static constexpr bool kHasFastMulHigh = true;
    using Raw = __m256i;

    static Raw Load(const std::uint8_t* p) { return Register256::Load(p); }
    static void Store(std::uint8_t* p, Raw v) { Register256::Store(p, v); }

    template <unsigned kUnit>
    static Raw LoadFirst(const std::uint8_t* p, unsigned n) {
        static_assert(kUnit == 1 || kUnit == 2 || kUnit == 4);
        if constexpr (kUnit == 1) return _mm256_maskz_loadu_epi8(First<__mmask32>(n), p);
        if constexpr (kUnit == 2) return _mm256_maskz_loadu_epi16(First<__mmask16>(n), p);
        if constexpr (kUnit == 4) return _mm256_maskz_loadu_epi32(First<__mmask8>(n), p);
    }
    template <unsigned kUnit>
    static void StoreFirst(std::uint8_t* p, unsigned n, Raw v) {
        static_assert(kUnit == 1 || kUnit == 2 || kUnit == 4);
        if constexpr (kUnit == 1) _mm256_mask_storeu_epi8(p, First<__mmask32>(n), v);
        if constexpr (kUnit == 2) _mm256_mask_storeu_epi16(p, First<__mmask16>(n), v);
        if constexpr (kUnit == 4) _mm256_mask_storeu_epi32(p, First<__mmask8>(n), v);
    }

    static __m128i LoadHalf(const std::uint8_t* p, All) { return Register128::Load(p); }
    static __m128i LoadHalf(const std::uint8_t* p, Some some) {
        return _mm_maskz_loadu_epi8(First<__mmask16>(some.n), p);
    }
    static void StoreHalf(std::uint8_t* p, __m128i v, All) { Register128::Store(p, v); }
    static void StoreHalf(std::uint8_t* p, __m128i v, Some some) {
        _mm_mask_storeu_epi8(p, First<__mmask16>(some.n), v);
    }

private:
    /// The lowest n bits.
    template <class Mask>
    static Mask First(unsigned n) {
        return static_cast<Mask>((std::uint64_t{1} << n) - 1);
    }
};

struct MaskedLanes256 : Avx2Lanes<MaskedRegister256> {
    static U16 PackLow(U32 a, U32 b) { return Gather(a, b, 0); }
    static U16 PackHigh(U32 a, U32 b) { return Gather(a, b, 1); }

private:
    /// The halves start, start + 2, ... of a register pair.
    static U16 Gather(U32 a, U32 b, std::uint32_t start) {
        const U16 evens = {0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30};
        const U16 indices = evens + static_cast<std::uint16_t>(start);
        return AsHalves(_mm256_permutex2var_epi16(AsRaw(a), AsRaw(indices), AsRaw(b)));
    }
};

struct Register512 {
    static constexpr unsigned kBytes = 64;
    static constexpr bool kTakesShortRows = false;
    static constexpr bool kHasMasks = false;
    static constexpr bool kHasFastMulHigh = true;
    using Raw = __m512i;

    /// Into a register: g++ would rather load again for each use, which doubles up where blocks
    /// cross cache lines.
    static Raw Load(const std::uint8_t* p) {
        Raw v = _mm512_loadu_si512(p);
        __asm__("" : "+v"(v));
        return v;
    }
    static void Store(std::uint8_t* p, Raw v) { _mm512_storeu_si512(p, v); }
};

struct Lanes512 : BasicLanes<Register512> {
    static U16 LoadBytesAsHalves(const std::uint8_t* p, All) {
        return AsHalves(_mm512_cvtepu8_epi16(Register256::Load(p)));
    }
    static U16 LoadBytesAsUpper(const std::uint8_t* p, All) {
        return AsHalves(Shuffle(LoadInQuarters(p), WordIndices() * 0x01000100U + 0x00800080U));
    }
    static U32 LoadBytesFourTimes(const std::uint8_t* p, All) {
        return AsWords(Shuffle(LoadInQuarters(p), WordIndices() * 0x01010101U));
    }
    static void StoreHalvesAsBytes(std::uint8_t* p, U16 v, All) {
        Register256::Store(p, _mm512_cvtepi16_epi8(AsRaw(v)));
    }

    static U16 TopBytes(U32 words) {
        return AsHalves(Shuffle(AsRaw(words), WordIndices() * 0x04000400U + 0x03800380U));
    }
    static U16 WithLowerDifference(U16 v, U16 of) {
        return AsHalves(_mm512_mask_sub_epi8(AsRaw(v), BytesOfWords(0b0101), AsRaw(of), AsRaw(v)));
    }
    static U32 AddBelowTop(U32 old, U32 a, U32 b) {
        return AsWords(_mm512_mask_add_epi8(AsRaw(old), BytesOfWords(0b0111), AsRaw(a), AsRaw(b)));
    }

    static U16 PackLow(U32 a, U32 b) { return Gather(a, b, 0); }
    static U16 PackHigh(U32 a, U32 b) { return Gather(a, b, 1); }
    static U32 InterleaveFirst(U16 low, U16 high) { return Interleave(low, high, 0x0020); }
    static U32 InterleaveSecond(U16 low, U16 high) { return Interleave(low, high, 0x0030); }
    static U16 MulHigh(U16 a, U16 b) { return AsHalves(_mm512_mulhi_epu16(AsRaw(a), AsRaw(b))); }
    static U32 MulAddPairs(U16 a, U16 b) { return AsWords(_mm512_madd_epi16(AsRaw(a), AsRaw(b))); }
    static bool AreTopBytesZero(U32 words) {
        return _mm512_test_epi32_mask(AsRaw(words), AsRaw(SplatWord(0xFF000000U))) == 0;
    }
    static bool AreTopBytesFull(U32 words) {
        return _mm512_cmplt_epu32_mask(AsRaw(words), AsRaw(SplatWord(0xFF000000U))) == 0;
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
    /// 16 bytes, in each quarter of the register.
    static __m512i LoadInQuarters(const std::uint8_t* p) {
        return _mm512_broadcast_i32x4(Register128::Load(p));
    }

    /// A mask of bytes that repeats four bits, one for each byte of a word. Hidden from clang,
    /// which would turn operations under masks into moves under masks, and load the mask anew for
    /// each.
    static __mmask64 BytesOfWords(std::uint64_t bits) {
        __mmask64 mask = bits * 0x1111111111111111U;
#if defined(__clang__)
        __asm__("" : "+Yk"(mask));
#endif
        return mask;
    }

    /// The halves start, start + 2, ... of a register pair.
    static U16 Gather(U32 a, U32 b, std::uint32_t start) {
        const U16 indices = Indices() * 2 + static_cast<std::uint16_t>(start);
        return AsHalves(_mm512_permutex2var_epi16(AsRaw(a), AsRaw(indices), AsRaw(b)));
    }

    /// Half i of a register pair becomes the lower half of word i, half 32 + i its upper half; the
    /// second register's words begin 16 halves later.
    static U32 Interleave(U16 low, U16 high, unsigned highStart) {
        const U32 indices = (WordIndices() + (highStart - 32)) | (WordIndices() + highStart) << 16;
        return AsWords(_mm512_permutex2var_epi16(AsRaw(low), AsRaw(indices), AsRaw(high)));
    }
};

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_LANES_AVX512_H
