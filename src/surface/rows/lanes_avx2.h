// 256-bit vectors with AVX2.
#ifndef GFX_SURFACE_ROWS_LANES_AVX2_H
#define GFX_SURFACE_ROWS_LANES_AVX2_H

#include <immintrin.h>

#include "surface/rows/lanes_sse2.h"

namespace gfx {
namespace {

/// Loads and stores of 32 bytes, or of two runs of up to 16. Masked stores of AVX2 know no units
/// below words and are slow on some processors.
struct Register256 {
    static constexpr unsigned kBytes = 32;
    static constexpr bool kTakesShortRows = true;
    static constexpr bool kHasMasks = false;
    static constexpr bool kHasFastMulHigh = true;
    using Raw = __m256i;

    static __m256i Load(const std::uint8_t* p) {
        return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
    }
    template <unsigned kRun>
    static __m256i LoadTwo(const std::uint8_t* first, const std::uint8_t* last) {
        if constexpr (kRun == 16) {
            return _mm256_set_m128i(Register128::Load(last), Register128::Load(first));
        } else {
            return _mm256_zextsi128_si256(Register128::LoadTwo<kRun>(first, last));
        }
    }
    static void Store(std::uint8_t* p, __m256i v) {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v);
    }
    template <unsigned kRun>
    static void StoreTwo(std::uint8_t* first, std::uint8_t* last, __m256i v) {
        const __m128i low = _mm256_castsi256_si128(v);
        if constexpr (kRun == 16) {
            Register128::Store(first, low);
            Register128::Store(last, _mm256_extracti128_si256(v, 1));
        } else {
            Register128::StoreTwo<kRun>(first, last, low);
        }
    }

    /// Up to 16 bytes.
    template <class Count>
    static __m128i LoadHalf(const std::uint8_t* p, Count count) {
        return Lanes128::Load<1>(p, count);
    }
    template <class Count>
    static void StoreHalf(std::uint8_t* p, __m128i v, Count count) {
        Lanes128::Store<1>(p, v, count);
    }
};

template <class Register>
struct Avx2Lanes : BasicLanes<Register> {
    using Base = BasicLanes<Register>;
    using Base::AsHalves, Base::AsRaw, Base::AsWords, Base::SplatHalf, Base::SplatWord;
    using typename Base::U16, typename Base::U32;

    template <class Count>
    static U16 LoadBytesAsHalves(const std::uint8_t* p, Count count) {
        return AsHalves(_mm256_cvtepu8_epi16(Register::LoadHalf(p, count)));
    }
    template <class Count>
    static U16 LoadBytesAsUpper(const std::uint8_t* p, Count count) {
        return AsHalves(
            Shuffle(LoadEightTwice(p, count), WordIndices() * 0x01000100U + 0x00800080U));
    }
    template <class Count>
    static U32 LoadBytesFourTimes(const std::uint8_t* p, Count count) {
        return AsWords(Shuffle(LoadEightTwice(p, count), WordIndices() * 0x01010101U));
    }
    template <class Count>
    static void StoreHalvesAsBytes(std::uint8_t* p, U16 v, Count count) {
        Register::StoreHalf(p, NarrowHalves(v), count);
    }

    static U16 TopBytes(U32 words) {
        return AsHalves(Shuffle(AsRaw(words), WordIndices() * 0x04000400U + 0x03800380U));
    }
    static U16 WithLowerDifference(U16 v, U16 of) {
        return AsHalves(_mm256_blendv_epi8(AsRaw(of - v), AsRaw(v), AsRaw(SplatHalf(0xFF00))));
    }
    static U32 AddBelowTop(U32 old, U32 a, U32 b) {
        const __m256i sums = _mm256_add_epi8(AsRaw(a), AsRaw(b));
        return AsWords(_mm256_blendv_epi8(sums, AsRaw(old), Tops()));
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
    static bool AreTopBytesZero(U32 words) { return _mm256_testz_si256(AsRaw(words), Tops()) != 0; }
    static bool AreTopBytesFull(U32 words) { return _mm256_testc_si256(AsRaw(words), Tops()) != 0; }

private:
    static __m256i Tops() { return AsRaw(SplatWord(0xFF000000U)); }
    static U32 WordIndices() { return U32{0, 1, 2, 3, 4, 5, 6, 7}; }
    static __m256i Shuffle(__m256i bytes, U32 places) {
        return _mm256_shuffle_epi8(bytes, AsRaw(places));
    }
    /// Up to 8 bytes, in each half of the register.
    static __m256i LoadEightTwice(const std::uint8_t* p, All) {
        return _mm256_set1_epi64x(LoadAs<long long>(p));
    }
    template <class Count>
    static __m256i LoadEightTwice(const std::uint8_t* p, Count count) {
        return _mm256_broadcastq_epi64(Register::LoadHalf(p, count));
    }
    // AVX2 packs each half of the register by itself: the quarters come out as 0, 2, 1, 3.
    static U16 InOrder(__m256i v) { return AsHalves(_mm256_permute4x64_epi64(v, 0xD8)); }
    static __m128i NarrowHalves(U16 v) {
        const __m256i packed = _mm256_packus_epi16(AsRaw(v), AsRaw(v));
        return _mm256_castsi256_si128(_mm256_permute4x64_epi64(packed, 0xD8));
    }
};

using Lanes256 = Avx2Lanes<Register256>;

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_LANES_AVX2_H
