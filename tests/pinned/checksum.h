// A running checksum of bytes and values. Each step is a bijection of the sum so far, so that a
// difference, once folded in, stays.
#pragma once

#include <cstddef>
#include <cstdint>

namespace pinned {

class Checksum {
public:
    std::uint64_t Value() const { return sum_; }

    void Fold(std::uint64_t value) { sum_ = Mix(sum_, value); }

    /// Four lanes at once, which processors multiply in parallel.
    void Fold(const std::uint8_t* bytes, std::size_t n) {
        std::uint64_t lanes[4] = {n, 1, 2, 3};
        std::size_t i = 0;
        for (; i + 32 <= n; i += 32) {
            for (std::size_t lane = 0; lane < 4; ++lane)
                lanes[lane] = Mix(lanes[lane], Load(bytes + i + 8 * lane, 8));
        }
        for (; i < n; i += 8)
            lanes[0] = Mix(lanes[0], Load(bytes + i, n - i < 8 ? n - i : 8));
        for (const std::uint64_t lane : lanes)
            Fold(lane);
    }

private:
    static std::uint64_t Mix(std::uint64_t sum, std::uint64_t value) {
        sum = (sum ^ value) * 0xFF51AFD7ED558CCDU;
        return sum ^ sum >> 32;
    }
    static std::uint64_t Load(const std::uint8_t* bytes, std::size_t n) {
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < n; ++i)
            value |= std::uint64_t{bytes[i]} << 8 * i;
        return value;
    }

    std::uint64_t sum_ = 0;
};

}  // namespace pinned
