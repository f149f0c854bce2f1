// 128-bit vectors with SSE2, which every x86-64 processor has.
#ifndef GFX_SURFACE_ROWS_LANES_SSE2_H
#define GFX_SURFACE_ROWS_LANES_SSE2_H

#include <emmintrin.h>

#include "surface/rows/lanes.h"

namespace gfx {
namespace {

/// Loads and stores of 16 bytes, or of two runs of up to 8.
struct Register128 {
    static constexpr unsigned kBytes = 16;
    static constexpr bool kTakesShortRows = true;
    static constexpr bool kHasMasks = false;
    static constexpr bool kHasFastMulHigh = true;
    using Raw = __m128i;

    static __m128i Load(const std::uint8_t* p) {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    }
    static __m128i LoadLow(const std::uint8_t* p) {
        return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p));
    }
    static __m128i LoadWord(const std::uint8_t* p) {
        return _mm_cvtsi32_si128(static_cast<int>(LoadAs<std::uint32_t>(p)));
    }
    template <unsigned kRun>
    static __m128i LoadTwo(const std::uint8_t* first, const std::uint8_t* last) {
        if constexpr (kRun == 8) {
            return _mm_unpacklo_epi64(LoadLow(first), LoadLow(last));
        } else if constexpr (kRun == 4) {
            return _mm_unpacklo_epi32(LoadWord(first), LoadWord(last));
        } else {
            return _mm_cvtsi64_si128(static_cast<long long>(LoadRuns<kRun>(first, last)));
        }
    }
    static void Store(std::uint8_t* p, __m128i v) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v);
    }
    static void StoreLow(std::uint8_t* p, __m128i v) {
        _mm_storel_epi64(reinterpret_cast<__m128i*>(p), v);
    }
    template <unsigned kRun>
    static void StoreTwo(std::uint8_t* first, std::uint8_t* last, __m128i v) {
        if constexpr (kRun == 8) {
            StoreLow(first, v);
            StoreLow(last, _mm_unpackhi_epi64(v, v));
        } else {
            StoreRuns<kRun>(first, last, static_cast<std::uint64_t>(_mm_cvtsi128_si64(v)));
        }
    }
};

struct Lanes128 : BasicLanes<Register128> {
    static U16 LoadBytesAsHalves(const std::uint8_t* p, All) {
        return AsHalves(WidenBytes(Register128::LoadLow(p)));
    }
    template <unsigned k>
    static U16 LoadBytesAsHalves(const std::uint8_t* p, Ends<k> ends) {
        return AsHalves(WidenBytes(Load<1>(p, ends)));
    }
    template <class Count>
    static U16 LoadBytesAsUpper(const std::uint8_t* p, Count count) {
        return AsHalves(Double16(_mm_unpacklo_epi8(_mm_setzero_si128(), LoadFour(p, count))));
    }
    template <class Count>
    static U32 LoadBytesFourTimes(const std::uint8_t* p, Count count) {
        const __m128i bytes = LoadFour(p, count);
        return AsWords(Double16(_mm_unpacklo_epi8(bytes, bytes)));
    }
    static void StoreHalvesAsBytes(std::uint8_t* p, U16 v, All) {
        Register128::StoreLow(p, _mm_packus_epi16(AsRaw(v), AsRaw(v)));
    }
    template <unsigned k>
    static void StoreHalvesAsBytes(std::uint8_t* p, U16 v, Ends<k> ends) {
        Store<1>(p, _mm_packus_epi16(AsRaw(v), AsRaw(v)), ends);
    }

    /// There is no unsigned packing of words before SSE4.1: halves sign-extended to words pack
    /// unchanged.
    static U16 PackLow(U32 a, U32 b) {
        return AsHalves(_mm_packs_epi32(_mm_srai_epi32(_mm_slli_epi32(AsRaw(a), 16), 16),
                                        _mm_srai_epi32(_mm_slli_epi32(AsRaw(b), 16), 16)));
    }
    static U16 PackHigh(U32 a, U32 b) {
        return AsHalves(
            _mm_packs_epi32(_mm_srai_epi32(AsRaw(a), 16), _mm_srai_epi32(AsRaw(b), 16)));
    }

    static U32 InterleaveFirst(U16 low, U16 high) {
        return AsWords(_mm_unpacklo_epi16(AsRaw(low), AsRaw(high)));
    }
    static U32 InterleaveSecond(U16 low, U16 high) {
        return AsWords(_mm_unpackhi_epi16(AsRaw(low), AsRaw(high)));
    }
    static U16 MulHigh(U16 a, U16 b) { return AsHalves(_mm_mulhi_epu16(AsRaw(a), AsRaw(b))); }
    static U32 MulAddPairs(U16 a, U16 b) { return AsWords(_mm_madd_epi16(AsRaw(a), AsRaw(b))); }

    static bool AreTopBytesZero(U32 words) {
        return (_mm_movemask_epi8(_mm_cmpeq_epi8(AsRaw(words), _mm_setzero_si128())) & 0x8888) ==
               0x8888;
    }
    static bool AreTopBytesFull(U32 words) {
        return (_mm_movemask_epi8(_mm_cmpeq_epi8(AsRaw(words), _mm_set1_epi8(-1))) & 0x8888) ==
               0x8888;
    }

    /// The two lowest halves, four times each.
    static U16 RepeatTwoHalves(U16 v) {
        return AsHalves(_mm_shuffle_epi32(_mm_unpacklo_epi16(AsRaw(v), AsRaw(v)), 0x50));
    }

    /// The eight lowest bytes as halves, and halves up to 255 as the eight lowest bytes.
    static U16 WidenLowBytes(U8 v) { return AsHalves(WidenBytes(AsRaw(v))); }
    static U8 NarrowHalves(U16 v) { return AsBytes(_mm_packus_epi16(AsRaw(v), AsRaw(v))); }

private:
    static __m128i WidenBytes(__m128i v) { return _mm_unpacklo_epi8(v, _mm_setzero_si128()); }
    static __m128i Double16(__m128i v) { return _mm_unpacklo_epi16(v, v); }
    static __m128i LoadFour(const std::uint8_t* p, All) { return Register128::LoadWord(p); }
    template <unsigned k>
    static __m128i LoadFour(const std::uint8_t* p, Ends<k> ends) {
        return Load<1>(p, ends);
    }
};

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_LANES_SSE2_H
