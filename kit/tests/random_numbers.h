// Seeded random numbers of 32 bits.
#pragma once

#include <random>

namespace test {

class RandomNumbers {
public:
    explicit RandomNumbers(unsigned seed) : engine_(seed) {}
    unsigned operator()() { return static_cast<unsigned>(engine_()); }

private:
    std::mt19937 engine_;
};

}  // namespace test
