// 256-bit vectors with AVX2.
#ifndef GFX_SURFACE_ROWS_LANES_AVX2_H
#define GFX_SURFACE_ROWS_LANES_AVX2_H

#include <immintrin.h>

#include "surface/rows/lanes_sse2.h"

namespace gfx {
namespace {

/// Loads and stores of 32 bytes, or of the first few. Masked stores of AVX2 know no units below
/// words and are slow on some processors: the few go as halves of the register.
struct Register256 {
    static constexpr unsigned kBytes = 32;
    using Raw = __m256i;

    static __m256i Load(const std::uint8_t* p) {
        return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
    }
    template <unsigned kUnit>
    static __m256i Load(const std::uint8_t* p, unsigned n) {
        constexpr unsigned kHalf = 16 / kUnit;
        if (n < kHalf) return _mm256_zextsi128_si256(Register128::Load<kUnit>(p, n));
        return _mm256_set_m128i(Register128::Load<kUnit>(p + 16, n - kHalf), Register128::Load(p));
    }
    static void Store(std::uint8_t* p, __m256i v) {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v);
    }
    template <unsigned kUnit>
    static void Store(std::uint8_t* p, __m256i v, unsigned n) {
        constexpr unsigned kHalf = 16 / kUnit;
        if (n < kHalf) return Register128::Store<kUnit>(p, _mm256_castsi256_si128(v), n);
        Register128::Store(p, _mm256_castsi256_si128(v));
        Register128::Store<kUnit>(p + 16, _mm256_extracti128_si256(v, 1), n - kHalf);
    }
};

struct Lanes256 : BasicLanes<Register256> {
    static U16 LoadBytesAsHalves(const std::uint8_t* p, All) {
        return AsHalves(_mm256_cvtepu8_epi16(Register128::Load(p)));
    }
    static U16 LoadBytesAsHalves(const std::uint8_t* p, Some s) {
        return AsHalves(_mm256_cvtepu8_epi16(Register128::Load<1>(p, s.n)));
    }
    static U32 LoadBytesAsWords(const std::uint8_t* p, All) {
        return AsWords(_mm256_cvtepu8_epi32(Register128::LoadLow(p)));
    }
    static U32 LoadBytesAsWords(const std::uint8_t* p, Some s) {
        return AsWords(_mm256_cvtepu8_epi32(Register128::Load<1>(p, s.n)));
    }
    static void StoreHalvesAsBytes(std::uint8_t* p, U16 v, All) {
        Register128::Store(p, NarrowHalves(v));
    }
    static void StoreHalvesAsBytes(std::uint8_t* p, U16 v, Some s) {
        Register128::Store<1>(p, NarrowHalves(v), s.n);
    }

    static U16 PackLow(U32 a, U32 b) {
        const __m256i low = _mm256_set1_epi32(0xFFFF);
        return InOrder(
            _mm256_packus_epi32(_mm256_and_si256(AsRaw(a), low), _mm256_and_si256(AsRaw(b), low)));
    }
    static U16 PackHigh(U32 a, U32 b) {
        return InOrder(
            _mm256_packus_epi32(_mm256_srli_epi32(AsRaw(a), 16), _mm256_srli_epi32(AsRaw(b), 16)));
    }
    static U32 InterleaveFirst(U16 low, U16 high) {
        return AsWords(_mm256_permute2x128_si256(_mm256_unpacklo_epi16(AsRaw(low), AsRaw(high)),
                                                 _mm256_unpackhi_epi16(AsRaw(low), AsRaw(high)),
                                                 0x20));
    }
    static U32 InterleaveSecond(U16 low, U16 high) {
        return AsWords(_mm256_permute2x128_si256(_mm256_unpacklo_epi16(AsRaw(low), AsRaw(high)),
                                                 _mm256_unpackhi_epi16(AsRaw(low), AsRaw(high)),
                                                 0x31));
    }
    static U16 MulHigh(U16 a, U16 b) { return AsHalves(_mm256_mulhi_epu16(AsRaw(a), AsRaw(b))); }
    static U32 MulAddPairs(U16 a, U16 b) { return AsWords(_mm256_madd_epi16(AsRaw(a), AsRaw(b))); }
    static bool AreEqual(U8 a, U8 b) {
        return _mm256_movemask_epi8(_mm256_cmpeq_epi8(AsRaw(a), AsRaw(b))) == -1;
    }

private:
    // AVX2 packs each half of the register by itself: the quarters come out as 0, 2, 1, 3.
    static U16 InOrder(__m256i v) { return AsHalves(_mm256_permute4x64_epi64(v, 0xD8)); }
    static __m128i NarrowHalves(U16 v) {
        const __m256i packed = _mm256_packus_epi16(AsRaw(v), AsRaw(v));
        return _mm256_castsi256_si128(_mm256_permute4x64_epi64(packed, 0xD8));
    }
};

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_LANES_AVX2_H
