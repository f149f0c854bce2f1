// Runs random drawing, with the fuzzer's bytes as its choices, beside the plain model. After every
// operation all memory and all fields are compared.
#pragma once

#include <cstdint>

#include "demand.h"
#include "input.h"
#include "surface/random_operations.h"

namespace fuzz {

/// The fuzzer's bytes as choices; a wide range takes four of them.
class InputChoices : public test::Choices {
public:
    explicit InputChoices(Input& input) : input_(input) {}

    int Between(int low, int high) override {
        const auto range = static_cast<std::uint32_t>(high) - static_cast<std::uint32_t>(low) + 1;
        const std::uint32_t value = range <= 256 ? input_.Byte() : input_.Word();
        return static_cast<int>(static_cast<std::uint32_t>(low) + value % range);
    }

private:
    Input& input_;
};

template <class Step>
void RunAgainstModel(const std::uint8_t* bytes, std::size_t size, Step step) {
    Input input(bytes, size);
    InputChoices choices(input);
    {
        test::World world(choices);
        while (!input.IsAtEnd()) {
            world.ClearLog();
            step(world);
            const std::string difference = world.Difference();
            Demand(difference.empty(), world.Log() + "\n" + difference);
        }
    }
    DemandAllReturned();
}

}  // namespace fuzz
