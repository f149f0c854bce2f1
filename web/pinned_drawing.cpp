#include "pinned_drawing.h"

#include <cinttypes>
#include <cstdio>

#include "pinned/drawing.h"

namespace playground {

PinnedDrawing::PinnedDrawing() : drawing_(std::make_unique<pinned::Drawing>(1)) {}

PinnedDrawing::~PinnedDrawing() = default;

void PinnedDrawing::Run(unsigned n) { drawing_->Run(n); }

std::string PinnedDrawing::Checksum() const {
    char digits[17];
    std::snprintf(digits, sizeof digits, "%016" PRIx64, drawing_->Checksum());
    return digits;
}

}  // namespace playground
