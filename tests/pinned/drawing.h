// A long random drawing that is the same on every machine: every operation, over surfaces of all
// depths and kinds of memory. Its checksum covers every byte that any operation left. Only the
// public interface is used, so one program can run against any build of the shared library.
#pragma once

#include <cstdint>
#include <ostream>

#include "pinned/scene.h"

namespace pinned {

class Drawing {
public:
    explicit Drawing(std::uint64_t seed) : scene_(seed) {}

    /// Runs the next n operations; `log`, if set, receives them as text.
    void Run(unsigned n, std::ostream* log = nullptr);

    /// Of what every operation left so far, and of all surfaces as they are now.
    std::uint64_t Checksum() const { return scene_.ValueOfAll(); }

    /// Of what every operation left so far: cheaper.
    std::uint64_t RunningChecksum() const { return scene_.Value(); }

private:
    Scene scene_;
};

}  // namespace pinned
