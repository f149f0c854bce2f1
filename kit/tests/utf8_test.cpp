// The decoder against a model that knows no table: what a code point's bytes are, and nothing else.
#include <gfx/kit/utf8.h>
#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>

namespace test {
namespace {

using gfx::kit::DecodeUtf8;
using gfx::kit::Utf8Code;

/// The shortest form of a code point, if it has one.
std::string Encode(unsigned code) {
    if (code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) return {};
    if (code < 0x80) return {static_cast<char>(code)};
    std::string bytes;
    unsigned trails = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    bytes += static_cast<char>((0xFF00U >> (trails + 1) & 0xFF) | code >> 6 * trails);
    while (trails-- > 0)
        bytes += static_cast<char>(0x80 | (code >> 6 * trails & 0x3F));
    return bytes;
}

/// Every code point's bytes and all their beginnings, as bits in a set over at most three bytes.
class WellFormed {
public:
    WellFormed() : beginnings_(1 << 24) {
        for (unsigned code = 0x80; code <= 0x10FFFF; ++code) {
            const std::string bytes = Encode(code);
            for (std::size_t n = 1; n < bytes.size(); ++n)
                beginnings_[Key(bytes, n)] = true;
        }
    }

    Utf8Code Decode(std::string_view text) const {
        if (text.empty()) return {0xFFFD, 0, false};
        std::size_t n = 1;
        while (n < text.size() && n < 4 && IsBeginning(text, n) && IsTrail(text[n]) &&
               (IsBeginning(text, n + 1) || IsWhole(text, n + 1)))
            ++n;
        if (IsWhole(text, n)) return {CodeOf(text, n), n, true};
        return {0xFFFD, n, false};
    }

private:
    static std::size_t Key(std::string_view text, std::size_t n) {
        std::size_t key = 0;
        for (std::size_t i = 0; i < n; ++i)
            key = key << 8 | static_cast<unsigned char>(text[i]);
        return key;
    }
    static bool IsTrail(char c) { return (c & 0xC0) == 0x80; }
    bool IsBeginning(std::string_view text, std::size_t n) const {
        return n < 4 && beginnings_[Key(text, n)];
    }
    static unsigned CodeOf(std::string_view text, std::size_t n) {
        if (n == 1) return static_cast<unsigned char>(text[0]);
        unsigned code = static_cast<unsigned char>(text[0]) & (0x7FU >> n);
        for (std::size_t i = 1; i < n; ++i)
            code = code << 6 | (static_cast<unsigned char>(text[i]) & 0x3F);
        return code;
    }
    static bool IsWhole(std::string_view text, std::size_t n) {
        return Encode(CodeOf(text, n)) == text.substr(0, n);
    }

    std::vector<bool> beginnings_;
};

void ExpectAsModel(const WellFormed& model, std::string_view text) {
    const Utf8Code got = DecodeUtf8(text);
    const Utf8Code expected = model.Decode(text);
    if (got.code == expected.code && got.length == expected.length &&
        got.isValid == expected.isValid)
        return;
    std::string shown;
    for (const char c : text)
        shown += testing::PrintToString(static_cast<int>(static_cast<unsigned char>(c))) + " ";
    FAIL() << "bytes " << shown << ": code " << unsigned{got.code} << ", length " << got.length
           << "; expected " << unsigned{expected.code} << ", " << expected.length;
}

TEST(Utf8, EverySequenceOfUpToThreeBytesAndManyOfFourDecodeAsTheModelSays) {
    const WellFormed model;
    std::array<char, 4> bytes{};
    ExpectAsModel(model, {});
    for (unsigned i = 0; i < 1U << 24 && !testing::Test::HasFatalFailure(); ++i) {
        bytes = {static_cast<char>(i >> 16), static_cast<char>(i >> 8), static_cast<char>(i), 0};
        if ((i & 0xFFFF) == 0) ExpectAsModel(model, {bytes.data(), 1});
        if ((i & 0xFF) == 0) ExpectAsModel(model, {bytes.data(), 2});
        // Single bytes are settled above; of three only leads of two and more are of interest.
        if ((i >> 16) >= 0xC0) ExpectAsModel(model, {bytes.data(), 3});
    }
    std::mt19937 random(5);
    for (int i = 0; i < 3'000'000 && !testing::Test::HasFatalFailure(); ++i) {
        const unsigned lead = 0xE0 | (random() & 0x1F);
        const unsigned rest = static_cast<unsigned>(random());
        const unsigned trail = i % 8 == 0 ? 0 : 0x808080;  // else nearly none would go on
        const unsigned mask = i % 8 == 0 ? 0xFFFFFF : 0x3F3F3F;
        const unsigned word = (rest & mask) | trail;
        bytes = {static_cast<char>(lead), static_cast<char>(word >> 16),
                 static_cast<char>(word >> 8), static_cast<char>(word)};
        ExpectAsModel(model, {bytes.data(), 4});
    }
}

TEST(Utf8, EveryCodePointComesBackFromItsBytes) {
    for (unsigned code = 0; code <= 0x10FFFF; ++code) {
        const std::string bytes = Encode(code);
        if (bytes.empty()) continue;
        const Utf8Code got = DecodeUtf8(bytes + "x");
        ASSERT_TRUE(got.isValid && got.code == code && got.length == bytes.size()) << code;
    }
}

}  // namespace
}  // namespace test
