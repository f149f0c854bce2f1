// The recurrence that defines a line's dots, written out once for all tests: a position as pixel
// and fraction, carried from step to step in double precision.
#pragma once

#include <cstdint>

namespace test {

struct ModelDot {
    std::int64_t minor;
    unsigned fraction;
};

class LineRecurrence {
public:
    /// Starts at pixel `minor` and a fraction of 0..1; `rise` pixels over all `steps`.
    LineRecurrence(std::int64_t minor, double fraction, unsigned steps, int rise)
        : minor_(minor),
          fraction_(fraction),
          slope_(static_cast<double>(rise) / static_cast<double>(steps)) {}

    ModelDot Next() {
        const ModelDot dot{minor_, static_cast<unsigned>(static_cast<int>(fraction_ * 255.99))};
        fraction_ += slope_;
        if (slope_ >= 0.0 && fraction_ >= 0.9999) {
            ++minor_;
            fraction_ -= 1.0;
        } else if (slope_ < 0.0 && fraction_ < 0.0) {
            --minor_;
            fraction_ += 1.0;
        }
        return dot;
    }

private:
    std::int64_t minor_;
    double fraction_;
    double slope_;
};

}  // namespace test
