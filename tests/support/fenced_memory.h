// Host memory for a surface with canary bytes before, after and between the rows: a write outside
// the rows' pixels shows up in IsFenceWhole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace test {

class FencedMemory {
public:
    /// h rows of rowBytes bytes, `gap` canary bytes behind each row, the first row `offset` bytes
    /// off alignment. The rows' own bytes start as 0.
    FencedMemory(std::size_t rowBytes, std::size_t h, std::size_t gap = 5, std::size_t offset = 0)
        : rowBytes_(rowBytes),
          h_(h),
          pitch_(rowBytes + gap),
          start_(kGuard + offset),
          bytes_(start_ + pitch_ * h + kGuard, kCanary) {
        for (std::size_t y = 0; y < h; ++y) {
            for (std::size_t i = 0; i < rowBytes; ++i)
                Row(y)[i] = 0;
        }
    }

    std::uint8_t* Data() { return bytes_.data() + start_; }
    std::uint8_t* Row(std::size_t y) { return Data() + y * pitch_; }
    const std::uint8_t* Row(std::size_t y) const { return bytes_.data() + start_ + y * pitch_; }
    unsigned Pitch() const { return static_cast<unsigned>(pitch_); }
    std::size_t Size() const { return pitch_ * h_; }  ///< all rows with their gaps

    /// As IsFenceWhole, but the gaps between the rows may have changed.
    bool IsOutsideWhole() const {
        for (std::size_t i = 0; i < bytes_.size(); ++i) {
            const bool inside = i >= start_ && i < start_ + pitch_ * h_;
            if (!inside && bytes_[i] != kCanary) return false;
        }
        return true;
    }

    bool IsFenceWhole() const {
        for (std::size_t i = 0; i < bytes_.size(); ++i) {
            const bool inside =
                i >= start_ && i < start_ + pitch_ * h_ && (i - start_) % pitch_ < rowBytes_;
            if (!inside && bytes_[i] != kCanary) return false;
        }
        return true;
    }

private:
    static constexpr std::size_t kGuard = 64;
    static constexpr std::uint8_t kCanary = 0xC7;

    std::size_t rowBytes_;
    std::size_t h_;
    std::size_t pitch_;
    std::size_t start_;
    std::vector<std::uint8_t> bytes_;
};

}  // namespace test
