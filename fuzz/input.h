// The fuzzer's bytes as values of the kinds that a host may pass.
#pragma once

#include <bit>
#include <climits>
#include <cstdint>
#include <iterator>

namespace fuzz {

/// Reads values from the fuzzer's bytes; 0 once they are used up.
class Input {
public:
    Input(const std::uint8_t* bytes, std::size_t size) : at_(bytes), end_(bytes + size) {}

    bool IsAtEnd() const { return at_ == end_; }
    std::uint8_t Byte() { return IsAtEnd() ? std::uint8_t{0} : *at_++; }

    std::uint32_t Word() {
        std::uint32_t word = 0;
        for (int i = 0; i < 4; ++i)
            word = word << 8 | Byte();
        return word;
    }

    unsigned Below(unsigned limit) { return Byte() % limit; }
    bool Flag() { return (Byte() & 1) != 0; }

    /// Mostly near a surface's edges, sometimes at the edge of the type, sometimes anything.
    int Coordinate() {
        static constexpr int kExtremes[] = {INT_MIN, INT_MIN + 1, -10000, -9999,       9999,
                                            10000,   65535,       65536,  INT_MAX - 1, INT_MAX};
        const unsigned kind = Byte();
        if (kind < 200) return static_cast<int>(kind % 64) - 12;
        if (kind < 240) return kExtremes[kind % std::size(kExtremes)];
        return static_cast<int>(Word());
    }

    unsigned Extent() { return static_cast<unsigned>(Coordinate()); }

    double Real() {
        const unsigned kind = Byte();
        if (kind < 200) return (static_cast<double>(kind) - 50.0) / 64.0;
        return std::bit_cast<double>(std::uint64_t{Word()} << 32 | Word());
    }

private:
    const std::uint8_t* at_;
    const std::uint8_t* end_;
};

}  // namespace fuzz
