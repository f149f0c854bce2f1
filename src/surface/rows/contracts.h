// What a set of vectors and a format over it must offer to the row kernels. One that lacks a member
// does not compile. Unnamed namespace: see pixel_format.h.
#ifndef GFX_SURFACE_ROWS_CONTRACTS_H
#define GFX_SURFACE_ROWS_CONTRACTS_H

#include <concepts>
#include <cstdint>
#include <type_traits>

#include "surface/rows/mix_lanes.h"
#include "surface/rows/raw_pixels.h"

namespace gfx {
namespace {

/// Moves between memory and registers, of pixels that `Count` names; see lanes.h.
template <class L, class Count>
concept MovesPixels = requires(const std::uint8_t* from, std::uint8_t* to, Count count,
                               typename L::Raw raw, typename L::U16 halves) {
    // Pixels of 1, 2 or 4 bytes; BasicLanes makes moves of bytes, halves and words of these.
    { L::template Load<1>(from, count) } -> std::same_as<typename L::Raw>;
    L::template Store<1>(to, raw, count);

    // Bytes as halves, and halves up to 255 as bytes.
    { L::LoadBytesAsHalves(from, count) } -> std::same_as<typename L::U16>;
    L::StoreHalvesAsBytes(to, halves, count);

    // A byte a word: as the upper byte of both of its halves, and as all of its bytes.
    { L::LoadBytesAsUpper(from, count) } -> std::same_as<typename L::U16>;
    { L::LoadBytesFourTimes(from, count) } -> std::same_as<typename L::U32>;
};

/// A set of vectors: registers of kBytes as bytes U8, 16-bit halves U16, 32-bit words U32, or as
/// the intrinsics take them, Raw. Operators on the former three wrap.
template <class L>
concept Vectors = requires(typename L::U8 bytes, typename L::U16 halves, typename L::U32 words,
                           typename L::Raw raw, std::uint32_t value) {
    requires sizeof(typename L::Raw) == L::kBytes;
    requires L::kHalves == L::kBytes / 2 && L::kWords == L::kBytes / 4;

    // Whether rows shorter than a block can be moved, and whether they are moved under masks.
    requires std::same_as<decltype(L::kTakesShortRows), const bool>;
    requires std::same_as<decltype(L::kHasMasks), const bool>;

    // Whether MulHigh is one instruction.
    requires std::same_as<decltype(L::kHasFastMulHigh), const bool>;

    // The value in each half, or word.
    { L::SplatHalf(value) } -> std::same_as<typename L::U16>;
    { L::SplatWord(value) } -> std::same_as<typename L::U32>;

    // All bits set in units of 1, 2 or 4 bytes that are equal, none in others.
    { L::template EqualUnits<1>(raw, raw) } -> std::same_as<typename L::U8>;

    // The low, or high, halves of the words of two registers, in their order.
    { L::PackLow(words, words) } -> std::same_as<typename L::U16>;
    { L::PackHigh(words, words) } -> std::same_as<typename L::U16>;

    // Words of pairs of halves, the lower of the first register, the upper of the second: the
    // first half of these words, and the second.
    { L::InterleaveFirst(halves, halves) } -> std::same_as<typename L::U32>;
    { L::InterleaveSecond(halves, halves) } -> std::same_as<typename L::U32>;

    // The high 16 bits of each product.
    { L::MulHigh(halves, halves) } -> std::same_as<typename L::U16>;

    // The sums of the products of neighbouring halves, all below 2^15.
    { L::MulAddPairs(halves, halves) } -> std::same_as<typename L::U32>;

    // The top byte of each word as the upper byte of both of its halves:
    // [TT...... ........ ........ ........] to [TT...... 00000000 TT...... 00000000]
    { L::TopBytes(words) } -> std::same_as<typename L::U16>;

    // Whether the top byte of each word is 0, and whether each is 255.
    { L::AreTopBytesZero(words) } -> std::same_as<bool>;
    { L::AreTopBytesFull(words) } -> std::same_as<bool>;

    // Of each half the upper byte of the first, and the lower one of the second less the first.
    { L::WithLowerDifference(halves, halves) } -> std::same_as<typename L::U16>;

    // The sums, byte by byte, of the latter two, but the top byte of each word of the first.
    { L::AddBelowTop(words, words, words) } -> std::same_as<typename L::U32>;

    // May be missing: Indices() counts halves from 0, Lookup(table, indices) and Lookup(low,
    // high, indices) give each half's entry in a table of one register or two.
}
&&MovesPixels<L, All> &&
    (!L::kTakesShortRows ||
     MovesPixels<L, std::conditional_t<L::kHasMasks, Some, Ends<L::kBytes / 4>>>);

/// How a format mixes under weights of either kind.
template <class F, class Weights>
concept Mixes = requires(typename F::Block old, typename F::Colors colors, Weights weights) {
    { F::Mix(old, colors, weights) } -> std::same_as<typename F::Block>;
};

/// A format over a set of vectors: `Format` has the same rules for one pixel (pixel_format.h).
template <class F, class L>
concept FormatOverVectors = requires(const std::uint8_t* from, std::uint8_t* to,
                                     typename F::Block block, typename F::Words words,
                                     std::uint32_t color, typename F::Format::Unit unit) {
    // One pixel: as it is stored, and made from and turned into a colour word.
    requires std::unsigned_integral<decltype(unit)>;
    { F::Format::FromRgb(color) } -> std::same_as<std::uint32_t>;
    { F::Format::ToRgb(color, color) } -> std::same_as<std::uint32_t>;
    { F::Format::Mix(color, color, color) } -> std::same_as<std::uint32_t>;

    // A block of kPixels pixels in the form that Mix takes.
    requires F::kPixels >
    0;
    { F::Load(from, All{}) } -> std::same_as<typename F::Block>;
    F::Store(to, block, All{});

    // As many colour words, and pixels made of them.
    { F::LoadWords(from, All{}) } -> std::same_as<typename F::Words>;
    { F::FromWords(words) } -> std::same_as<typename F::Block>;

    // All bits set in pixels whose word equals a key.
    { F::Matches(words, color) } -> std::same_as<typename F::Block>;

    // Alphas, of words or from a row of bytes: in the upper bytes of halves, nothing below.
    { F::AlphasOf(words) } -> std::same_as<typename F::Alphas>;
    { F::LoadMask(from, All{}) } -> std::same_as<typename F::Alphas>;

    // Colours as Mix takes them: of words, or the same for all pixels.
    { F::ColorsOf(words) } -> std::same_as<typename F::Colors>;
    { F::SplatColor(color) } -> std::same_as<typename F::Colors>;
    requires Mixes<F, OldWeights<typename F::Alphas>>;
    requires Mixes<F, ColorWeights<typename F::Alphas>>;

    // One colour of one alpha, blended into a whole register of pixels as they are stored. Its
    // share of each sum, colour * (256 - weight), is the same for all of them.
    requires std::constructible_from<typename F::Solid, std::uint32_t>;
    requires requires(const typename F::Solid solid, typename L::Raw raw) {
        L::AsRaw(solid.Blend(reinterpret_cast<typename F::Block>(raw)));
    };

    // Pixels as colour words of an alpha, in blocks of their own size.
    requires F::Expanded::kPixels >
    0;
    F::Expanded::Store(to, F::Expand(from, color, All{}), All{});
};

}  // namespace
}  // namespace gfx

#endif  // GFX_SURFACE_ROWS_CONTRACTS_H
