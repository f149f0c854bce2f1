// The model's memory, pixels, runs and lines; see model.h.
#include "surface/model.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace test {
namespace {

Word ToChannel(double value) {
    if (std::isnan(value) || value < 0.0) return 0;
    return value > 255.0 ? 255 : static_cast<Word>(value);
}

// Which dots of a dashed line are drawn.
class DashWalk {
public:
    explicit DashWalk(Dashes dashes) : dashes_(dashes) {
        solid_ = dashes.pattern == nullptr || dashes.count == 0 || dashes.pattern[0] == 0;
        if (!solid_) run_ = dashes.pattern[0];
    }
    bool NextIsDrawn() {
        if (solid_) return true;
        while (run_ == 0) {
            if (next_ >= dashes_.count) next_ = 0;
            run_ = dashes_.pattern[next_++];
            on_ = !on_;
        }
        --run_;
        return on_;
    }

private:
    Dashes dashes_;
    bool solid_, on_ = true;
    unsigned run_ = 0;
    int next_ = 1;
};

}  // namespace

Model::Model(unsigned bitsPerPixel) : depth(bitsPerPixel) {
    bytesPerPixel = depth == 0 ? 0 : depth <= 8 ? 1 : depth <= 16 ? 2 : 4;
}

void Model::Initialise(unsigned w, unsigned h) {
    const unsigned rowBytes = (bytesPerPixel * w + 15) / 16 * 16;
    InitialiseOver(w, h, nullptr, depth == 1 ? rowBytes / 8 : rowBytes, true);
    bytes = std::make_shared<std::vector<std::uint8_t>>(std::size_t{pitch} * h);
    hasMemory = true;
}

void Model::InitialiseOver(unsigned w, unsigned h,
                           std::shared_ptr<std::vector<std::uint8_t>> memory, unsigned rowBytes,
                           bool isEmpty) {
    dx = allocDX = w;
    dy = allocDY = h;
    pitch = rowBytes;
    hasMemory = memory != nullptr;
    bytes = std::move(memory);
    ResetClipRect();
    empty = isEmpty;
}

void Model::SetNewSize(unsigned w, unsigned h) {
    if (w > allocDX || h > allocDY) Initialise((w / 16 + 1) * 16, (h / 16 + 1) * 16);
    dx = w;
    dy = h;
}

void Model::OptimiseSize() {
    const unsigned w = (dx / 16 + 1) * 16, h = (dy / 16 + 1) * 16;
    if ((dx < allocDX / 2 || dy < allocDY / 2) && w < allocDX && h < allocDY) Initialise(w, h);
}

void Model::SetClipRect(const Rect& r) {
    const auto limit = [](int at, unsigned size, unsigned whole, std::int64_t& low,
                          std::int64_t& high) {
        low = std::max(at, 0);
        high = std::clamp<std::int64_t>(std::int64_t{at} + size, low,
                                        std::max<std::int64_t>(whole, low));
        if (low >= whole) low = high = 0;
    };
    limit(r.x, r.w, dx, clipX0, clipX1);
    limit(r.y, r.h, dy, clipY0, clipY1);
}

void Model::ResetClipRect() {
    clipX0 = clipY0 = 0;
    clipX1 = dx;
    clipY1 = dy;
}

void Model::Clear() {
    empty = true;
    if (!hasMemory) return;
    const std::size_t size = std::size_t{pitch} * dy;
    const std::size_t row = depth == 1 ? (allocDX + 7) / 8 : allocDX * bytesPerPixel;
    bool areInside = true;
    for (unsigned y = 0; y < dy; ++y)
        areInside &= At(0, y) + row <= size;
    const auto clear = [this](std::size_t at, std::size_t n) {
        std::fill_n(bytes->begin() + static_cast<std::ptrdiff_t>(at), n, std::uint8_t{0});
    };
    if (areInside) return clear(0, size);
    // A smaller size than was laid out, its rows elsewhere in memory: only they are cleared.
    for (unsigned y = 0; y < dy; ++y)
        clear(At(0, y), row);
}

std::size_t Model::At(std::int64_t x, std::int64_t y) const {
    const std::size_t row = RowInMemory(order, static_cast<unsigned>(y), allocDY);
    return row * pitch + static_cast<std::size_t>(x) * bytesPerPixel;
}

Word Model::Load(std::int64_t x, std::int64_t y) const {
    Word unit = 0;
    for (unsigned i = 0; i < bytesPerPixel; ++i)
        unit |= Word{bytes->at(At(x, y) + i)} << (8 * i);
    return unit;
}

void Model::Store(std::int64_t x, std::int64_t y, Word unit) {
    for (unsigned i = 0; i < bytesPerPixel; ++i)
        bytes->at(At(x, y) + i) = static_cast<std::uint8_t>(unit >> (8 * i));
}

Word Model::Read(std::int64_t x, std::int64_t y) const {
    if (!Stores()) return 0;
    const Word unit = Load(x, y);
    if (bytesPerPixel == 4) return unit;
    if (bytesPerPixel == 2) return Unpack565(unit, alpha);
    return (alpha & 0xFF) << 24 | unit * 0x010101;
}

void Model::Write(std::int64_t x, std::int64_t y, Word color) {
    if (!Stores()) return;
    Store(x, y, bytesPerPixel == 4 ? color : bytesPerPixel == 2 ? Pack565(color) : GreyOf(color));
}

void Model::BlendRow(std::int64_t x, std::int64_t y, const std::vector<Word>& row) {
    if (!Stores()) return;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const std::int64_t column = x + static_cast<std::int64_t>(i);
        Store(column, y, BlendStored(bytesPerPixel, Load(column, y), row[i]));
    }
}

std::vector<Word> Model::ReadRow(std::int64_t x, std::int64_t y, std::int64_t n) const {
    std::vector<Word> row;
    for (std::int64_t i = 0; i < n; ++i)
        row.push_back(Read(x + i, y));
    return row;
}

void Model::SetPixel(std::int64_t x, std::int64_t y, Word color) {
    if (!IsInside(x, y)) return;
    empty = false;
    Write(x, y, color);
}

void Model::SetPixelBlend(std::int64_t x, std::int64_t y, Word color) {
    if (!IsInside(x, y)) return;
    empty = false;
    if (color >> 24 == 0)
        Write(x, y, color);
    else
        BlendRow(x, y, {color});
}

Word Model::RetPixel(std::int64_t x, std::int64_t y) const {
    return IsInside(x, y) ? Read(x, y) : 0;
}

Word Model::RetPixelMerge(int x, int y, double fx, double fy) const {
    const std::int64_t right = std::int64_t{x} + 1, bottom = std::int64_t{y} + 1;
    const bool hasLeft = x >= clipX0 && x < clipX1, hasRight = right >= clipX0 && right < clipX1;
    const bool hasTop = y >= clipY0 && y < clipY1, hasBottom = bottom >= clipY0 && bottom < clipY1;
    if ((!hasLeft && !hasRight) || (!hasTop && !hasBottom)) return 0;
    const auto mix = [](bool hasFirst, double first, bool hasSecond, double second, double f) {
        if (!hasFirst) return second;
        if (!hasSecond) return first;
        return first + (second - first) * f;
    };
    Word result = 0;
    for (unsigned shift = 0; shift < 32; shift += 8) {
        const auto sample = [&](std::int64_t sx, std::int64_t sy) {
            return static_cast<double>(Byte(RetPixel(sx, sy), shift));
        };
        const double l = mix(hasTop, sample(x, y), hasBottom, sample(x, bottom), fy);
        const double r = mix(hasTop, sample(right, y), hasBottom, sample(right, bottom), fy);
        result |= ToChannel(mix(hasLeft, l, hasRight, r, fx)) << shift;
    }
    return result;
}

void Model::RunBGR24(int x, int y, unsigned n, const std::uint8_t* run) {
    const auto end = static_cast<std::int32_t>(static_cast<Word>(x) + n);
    if (y < clipY0 || y >= clipY1 || x >= clipX1 || end <= clipX0) return;
    empty = false;
    if (run == nullptr || bytesPerPixel < 2) return;
    for (std::int64_t j = std::max<std::int64_t>(x, clipX0); j < end && j < clipX1; ++j) {
        const std::uint8_t* bgr = run + 3 * (j - x);
        Write(j, y, Word{bgr[2]} << 16 | Word{bgr[1]} << 8 | bgr[0]);
    }
}

void Model::RunMono(int x, int y, unsigned n, Word color, const std::uint8_t* bits) {
    const auto end = static_cast<std::int32_t>(static_cast<Word>(x) + n);
    if (y < clipY0 || y >= clipY1 || x >= clipX1 || end <= clipX0) return;
    empty = false;
    if (bits == nullptr || bytesPerPixel < 2) return;
    for (std::int64_t j = std::max<std::int64_t>(x, clipX0); j < end && j < clipX1; ++j) {
        if ((bits[(j - x) / 8] & (0x80 >> ((j - x) % 8))) == 0) Write(j, y, color);
    }
}

const char* Model::Line(Point from, Point to, Word color, Dashes dashes, bool isAntiAliased) {
    const std::int64_t extentX = std::llabs(std::int64_t{to.x} - from.x);
    const std::int64_t extentY = std::llabs(std::int64_t{to.y} - from.y);
    const bool alongX = extentX >= extentY;
    if (alongX ? from.x > to.x : from.y > to.y) std::swap(from, to);
    const std::int64_t steps = alongX ? extentX : extentY;
    if (steps == 0) {
        SetPixelBlend(from.x, from.y, color);
        return nullptr;
    }
    if (steps >= 10000) return alongX ? "dx < MAX_LINE_LENGTH" : "dy < MAX_LINE_LENGTH";
    const std::int64_t major = alongX ? from.x : from.y, minor = alongX ? from.y : from.x;
    const auto rise = static_cast<int>((alongX ? to.y : to.x) - minor);
    const std::vector<ModelDot> dots =
        ModelDots(minor, static_cast<unsigned>(steps), rise, isAntiAliased ? 0.0 : 0.5);
    const auto plot = [&](std::int64_t i, std::int64_t at, Word paint) {
        alongX ? SetPixelBlend(major + i, at, paint) : SetPixelBlend(at, major + i, paint);
    };
    const Word a = color >> 24, rgb = color & 0x00FFFFFF, weight = 256 - (a > 127 ? a + 1 : a);
    DashWalk walk(dashes);
    for (std::int64_t i = 0; i <= steps; ++i) {
        const ModelDot& dot = dots[static_cast<std::size_t>(i)];
        if (!walk.NextIsDrawn()) continue;
        if (!isAntiAliased) {
            plot(i, dot.minor, color);
            continue;
        }
        plot(i, dot.minor, (255 - (((255 - dot.fraction) * weight) >> 8)) << 24 | rgb);
        plot(i, dot.minor + 1, (255 - ((dot.fraction * weight) >> 8)) << 24 | rgb);
    }
    return nullptr;
}

}  // namespace test
