// Random integers that are the same on every machine: no distribution of the standard library,
// whose results differ between its implementations. Callers draw each value into a variable of its
// own, since the order of evaluation within one argument list differs between compilers.
#pragma once

#include <cstddef>
#include <cstdint>

namespace pinned {

class Generator {
public:
    explicit Generator(std::uint64_t seed) : state_(seed) {}

    /// 64 bits by a counter whose bits are mixed well; any seed will do.
    std::uint64_t Bits() {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t z = state_;
        z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9U;
        z = (z ^ z >> 27) * 0x94D049BB133111EBU;
        return z ^ z >> 31;
    }
    std::uint32_t Word() { return static_cast<std::uint32_t>(Bits() >> 32); }
    std::uint8_t Byte() { return static_cast<std::uint8_t>(Bits() >> 56); }

    /// 0 to limit - 1.
    std::uint32_t Below(std::uint32_t limit) {
        return static_cast<std::uint32_t>(std::uint64_t{Word()} * limit >> 32);
    }
    int Between(int low, int high) {
        return low + static_cast<int>(Below(static_cast<std::uint32_t>(high - low) + 1));
    }
    bool OneIn(std::uint32_t n) { return Below(n) == 0; }
    template <class T, std::size_t N>
    T OneOf(const T (&values)[N]) {
        return values[Below(N)];
    }

private:
    std::uint64_t state_;
};

}  // namespace pinned
