// 512-bit vectors, and 256-bit ones for narrow rectangles, with AVX-512 F, BW and VL. The first few
// pixels of a block are moved under a mask.
#ifndef GFX_SURFACE_ROWS_LANES_AVX512_H
#define GFX_SURFACE_ROWS_LANES_AVX512_H

// g++ 12 warns of uninitialised values inside its own header where a conversion has no mask.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <immintrin.h>

#include "surface/rows/lanes.h"
#include "surface/rows/mix_lanes.h"

namespace gfx {
namespace {

inline __mmask64 FirstBytes64(unsigned count) {
    return count >= 64 ? ~__mmask64{0} : (__mmask64{1} << count) - 1;
}
inline __mmask32 FirstBytes32(unsigned count) {
    return static_cast<__mmask32>((std::uint64_t{1} << count) - 1);
}
inline __mmask16 FirstBytes16(unsigned count) {
    return static_cast<__mmask16>((std::uint32_t{1} << count) - 1);
}

struct Register512 {
    static constexpr unsigned kBytes = 64;
    using Raw = __m512i;

    static Raw Load(const std::uint8_t* p) { return _mm512_loadu_si512(p); }
    static Raw Load(const std::uint8_t* p, unsigned count) {
        return _mm512_maskz_loadu_epi8(FirstBytes64(count), p);
    }
    static void Store(std::uint8_t* p, Raw v) { _mm512_storeu_si512(p, v); }
    static void Store(std::uint8_t* p, Raw v, unsigned count) {
        _mm512_mask_storeu_epi8(p, FirstBytes64(count), v);
    }
};

struct MaskedRegister256 {
    static constexpr unsigned kBytes = 32;
    using Raw = __m256i;

    static Raw Load(const std::uint8_t* p) {
        return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
    }
    static Raw Load(const std::uint8_t* p, unsigned count) {
        return _mm256_maskz_loadu_epi8(FirstBytes32(count), p);
    }
    static void Store(std::uint8_t* p, Raw v) {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v);
    }
    static void Store(std::uint8_t* p, Raw v, unsigned count) {
        _mm256_mask_storeu_epi8(p, FirstBytes32(count), v);
    }
};

/// The first `count` of 16 bytes.
inline __m128i Load128(const std::uint8_t* p, unsigned count) {
    return _mm_maskz_loadu_epi8(FirstBytes16(count), p);
}
inline __m128i Load128(const std::uint8_t* p) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
}

struct MaskedLanes256 : BasicLanes<MaskedRegister256> {
    static U16 LoadBytesAsHalves(const std::uint8_t* p, All) {
        return AsHalves(_mm256_cvtepu8_epi16(Load128(p)));
    }
    static U16 LoadBytesAsHalves(const std::uint8_t* p, Some s) {
        return AsHalves(_mm256_cvtepu8_epi16(Load128(p, s.n)));
    }
    static U32 LoadBytesAsWords(const std::uint8_t* p, All) {
        return AsWords(_mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p))));
    }
    static U32 LoadBytesAsWords(const std::uint8_t* p, Some s) {
        return AsWords(_mm256_cvtepu8_epi32(Load128(p, s.n)));
    }
    static U32 LoadHalvesAsWords(const std::uint8_t* p, All) {
        return AsWords(_mm256_cvtepu16_epi32(Load128(p)));
    }
    static U32 LoadHalvesAsWords(const std::uint8_t* p, Some s) {
        return AsWords(_mm256_cvtepu16_epi32(Load128(p, 2 * s.n)));
    }
    /// Halves must not exceed 255.
    static void StoreHalvesAsBytes(std::uint8_t* p, U16 v, All) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(p), _mm256_cvtepi16_epi8(AsRaw(v)));
    }
    static void StoreHalvesAsBytes(std::uint8_t* p, U16 v, Some s) {
        _mm_mask_storeu_epi8(p, FirstBytes16(s.n), _mm256_cvtepi16_epi8(AsRaw(v)));
    }

    /// The low, or high, halves of the words of two blocks, in their order.
    static U16 PackLow(U32 a, U32 b) {
        return AsHalves(
            _mm256_inserti128_si256(_mm256_castsi128_si256(_mm256_cvtepi32_epi16(AsRaw(a))),
                                    _mm256_cvtepi32_epi16(AsRaw(b)), 1));
    }
    static U16 PackHigh(U32 a, U32 b) { return PackLow(a >> 16, b >> 16); }

    /// The high 16 bits of each product.
    static U16 MulHigh(U16 a, U16 b) { return AsHalves(_mm256_mulhi_epu16(AsRaw(a), AsRaw(b))); }

    /// The sums of the products of neighbouring halves, all below 2^15.
    static U32 MulAddPairs(U16 a, U16 b) { return AsWords(_mm256_madd_epi16(AsRaw(a), AsRaw(b))); }

    /// Whether all bytes of two vectors are equal.
    static bool AreEqual(U8 a, U8 b) { return _mm256_cmpneq_epu8_mask(AsRaw(a), AsRaw(b)) == 0; }
};

struct Lanes512 : BasicLanes<Register512> {
    static U16 LoadBytesAsHalves(const std::uint8_t* p, All) {
        return AsHalves(_mm512_cvtepu8_epi16(MaskedRegister256::Load(p)));
    }
    static U16 LoadBytesAsHalves(const std::uint8_t* p, Some s) {
        return AsHalves(_mm512_cvtepu8_epi16(MaskedRegister256::Load(p, s.n)));
    }
    static U32 LoadBytesAsWords(const std::uint8_t* p, All) {
        return AsWords(_mm512_cvtepu8_epi32(Load128(p)));
    }
    static U32 LoadBytesAsWords(const std::uint8_t* p, Some s) {
        return AsWords(_mm512_cvtepu8_epi32(Load128(p, s.n)));
    }
    static U32 LoadHalvesAsWords(const std::uint8_t* p, All) {
        return AsWords(_mm512_cvtepu16_epi32(MaskedRegister256::Load(p)));
    }
    static U32 LoadHalvesAsWords(const std::uint8_t* p, Some s) {
        return AsWords(_mm512_cvtepu16_epi32(MaskedRegister256::Load(p, 2 * s.n)));
    }
    static void StoreHalvesAsBytes(std::uint8_t* p, U16 v, All) {
        MaskedRegister256::Store(p, _mm512_cvtepi16_epi8(AsRaw(v)));
    }
    static void StoreHalvesAsBytes(std::uint8_t* p, U16 v, Some s) {
        MaskedRegister256::Store(p, _mm512_cvtepi16_epi8(AsRaw(v)), s.n);
    }

    static U16 PackLow(U32 a, U32 b) {
        return AsHalves(_mm512_inserti64x4(_mm512_castsi256_si512(_mm512_cvtepi32_epi16(AsRaw(a))),
                                           _mm512_cvtepi32_epi16(AsRaw(b)), 1));
    }
    static U16 PackHigh(U32 a, U32 b) { return PackLow(a >> 16, b >> 16); }
    static U16 MulHigh(U16 a, U16 b) { return AsHalves(_mm512_mulhi_epu16(AsRaw(a), AsRaw(b))); }
    static U32 MulAddPairs(U16 a, U16 b) { return AsWords(_mm512_madd_epi16(AsRaw(a), AsRaw(b))); }
    static bool AreEqual(U8 a, U8 b) { return _mm512_cmpneq_epu8_mask(AsRaw(a), AsRaw(b)) == 0; }
};

/// The words beside a 256-bit register of halves fit one 512-bit register, which packs at once.
template <>
struct WordPair<MaskedLanes256> {
    Lanes512::U32 words;

    template <class Count>
    static WordPair Load(const std::uint8_t* p, Count count) {
        return {Lanes512::LoadWords(p, count)};
    }

    MaskedLanes256::U16 Low() const { return Pack(words); }
    MaskedLanes256::U16 High() const { return Pack(words >> 16); }
    template <class Rule>
    MaskedLanes256::U16 Map(Rule rule) const {
        return Pack(rule(Lanes512{}, words));
    }

private:
    static MaskedLanes256::U16 Pack(Lanes512::U32 v) {
        return MaskedLanes256::AsHalves(_mm512_cvtepi32_epi16(Lanes512::AsRaw(v)));
    }
};

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_LANES_AVX512_H
