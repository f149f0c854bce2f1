// The model's rules; see model.h.
#include "surface/model.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace test {
namespace {

constexpr std::int64_t kIntMax = std::numeric_limits<std::int32_t>::max();

Word Byte(Word word, unsigned shift) { return (word >> shift) & 0xFF; }

// One axis of a rectangle, and where it begins in a second surface.
struct Span {
    std::int64_t at, size, partner;

    void CutBefore() {
        if (partner >= 0) return;
        at -= partner;
        size += partner;
        partner = 0;
    }
    void CutBehind(std::int64_t end) { size = std::min(size, end - partner); }
    void CutTo(std::int64_t end) {
        CutBefore();
        CutBehind(end);
    }
    bool IsEmpty() const { return size <= 0; }
};

Span Clip(int at, unsigned size, int partner, std::int64_t low, std::int64_t high) {
    const std::int64_t end = std::int64_t{at} + size;
    if (end > kIntMax) return {at, 0, partner};
    const std::int64_t first = std::max<std::int64_t>(at, low);
    return {first, std::min(end, high) - first, partner + (first - at)};
}

std::int64_t Wrap(std::int64_t at, std::int64_t size) { return (at % size + size) % size; }

struct Plane {
    unsigned shift;
    Word keep;
};

Plane PlaneOf(unsigned which) {
    if (which > 3) return {0, 0xFFFFFFFF};
    const unsigned shift = 24 - 8 * which;
    return {shift, ~(Word{0xFF} << shift)};
}

Word ToChannel(double value) {
    if (std::isnan(value) || value < 0.0) return 0;
    return value > 255.0 ? 255 : static_cast<Word>(value);
}

void PutBit(std::uint8_t* row, std::int64_t bit, bool on) {
    const auto mask = static_cast<std::uint8_t>(0x80 >> (bit % 8));
    row[bit / 8] = static_cast<std::uint8_t>(on ? row[bit / 8] | mask : row[bit / 8] & ~mask);
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

Word GreyOf(Word color) {
    return ((Byte(color, 16) + 2 * Byte(color, 8)) * 307 + Byte(color, 0) * 103) / 1024;
}

Word Pack565(Word color) {
    return Byte(color, 16) / 8 * 2048 + Byte(color, 8) / 4 * 32 + Byte(color, 0) / 8;
}

Word Unpack565(Word pixel, Word alpha) {
    const Word r = pixel / 2048, g = pixel / 32 % 64, b = pixel % 32;
    return (alpha & 0xFF) << 24 | (r * 8 + r / 4) << 16 | (g * 4 + g / 16) << 8 | (b * 8 + b / 4);
}

Word BlendStored(unsigned bytesPerPixel, Word stored, Word color) {
    const Word a = color >> 24;
    if (a == 255) return stored;
    const Word old = a > 127 ? a + 1 : a;
    const auto mix = [&](Word was, Word with) {
        return a == 0 ? with : (was * old + with * (256 - old)) / 256;
    };
    if (bytesPerPixel == 1) return mix(stored, GreyOf(color));
    const Word was = bytesPerPixel == 2 ? Unpack565(stored, 0) : stored;
    const Word mixed = mix(Byte(was, 16), Byte(color, 16)) << 16 |
                       mix(Byte(was, 8), Byte(color, 8)) << 8 | mix(Byte(was, 0), Byte(color, 0));
    return bytesPerPixel == 2 ? Pack565(mixed) : (stored & 0xFF000000) | mixed;
}

Word MaskedAlpha(Word colorAlpha, Word mask) {
    return 255 - static_cast<Word>(std::lround((255 - colorAlpha) * (255 - mask) / 255.0));
}

Word ScaledAlpha(double transparency, Word alpha) {
    double f = std::isnan(transparency) ? 0.0 : transparency;
    if (f > 1.0) f = 1.0;
    const auto k = static_cast<Word>(std::min(256.0 * (1.0 - f) + 0.5, 65536.0));
    return 255 - std::min<Word>(255, ((255 - alpha) * k) >> 8);
}

bool IsLight(Word color) { return GreyOf(color) > 128; }

std::vector<ModelDot> ModelDots(std::int64_t start, unsigned steps, int rise, double offset) {
    const double e = std::isnan(offset) ? 0.0 : offset;
    std::int64_t p = start;
    double f = e;
    if (e < 0) {
        const auto k = static_cast<std::int64_t>(-e);
        p = start - (k + 1);
        f = e + static_cast<double>(k) + 1;
    } else if (e >= 1.0) {
        const auto k = static_cast<std::int64_t>(e);
        p = start + k;
        f = e - static_cast<double>(k);
    }
    const double slope = static_cast<double>(rise) / static_cast<double>(steps);
    std::vector<ModelDot> dots;
    for (unsigned i = 0; i < steps; ++i) {
        dots.push_back({p, static_cast<unsigned>(f * 255.99)});
        f += slope;
        if (slope >= 0 && f >= 0.9999) {
            p += 1;
            f -= 1.0;
        } else if (slope < 0 && f < 0.0) {
            p -= 1;
            f += 1.0;
        }
    }
    dots.push_back({p, static_cast<unsigned>(f * 255.99)});
    return dots;
}

Model::Model(unsigned bitsPerPixel) : depth(bitsPerPixel) {
    bytesPerPixel = depth == 0 ? 0 : depth <= 8 ? 1 : depth <= 16 ? 2 : 4;
}

void Model::Initialise(unsigned w, unsigned h) {
    const unsigned rowBytes = (bytesPerPixel * w + 15) / 16 * 16;
    InitialiseOver(w, h, nullptr, depth == 1 ? rowBytes / 8 : rowBytes, true);
    bytes.assign(std::size_t{pitch} * h, 0);
    hasMemory = true;
}

void Model::InitialiseOver(unsigned w, unsigned h, const std::uint8_t* memory, unsigned rowBytes,
                           bool isEmpty) {
    dx = allocDX = w;
    dy = allocDY = h;
    pitch = rowBytes;
    hasMemory = memory != nullptr;
    bytes.clear();
    if (hasMemory) bytes.assign(memory, memory + std::size_t{pitch} * h);
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
    if (hasMemory) std::fill_n(bytes.begin(), std::size_t{pitch} * dy, std::uint8_t{0});
    empty = true;
}

std::size_t Model::At(std::int64_t x, std::int64_t y) const {
    const std::int64_t row = bottomUp ? allocDY - 1 - y : y;
    return static_cast<std::size_t>(row * pitch + x * bytesPerPixel);
}

Word Model::Load(std::int64_t x, std::int64_t y) const {
    Word unit = 0;
    for (unsigned i = 0; i < bytesPerPixel; ++i)
        unit |= Word{bytes.at(At(x, y) + i)} << (8 * i);
    return unit;
}

void Model::Store(std::int64_t x, std::int64_t y, Word unit) {
    for (unsigned i = 0; i < bytesPerPixel; ++i)
        bytes.at(At(x, y) + i) = static_cast<std::uint8_t>(unit >> (8 * i));
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

void Model::Fill(const Rect& r, Word color, bool blend) {
    const Span h = Clip(r.x, r.w, 0, clipX0, clipX1), v = Clip(r.y, r.h, 0, clipY0, clipY1);
    if (h.IsEmpty() || v.IsEmpty()) return;
    for (std::int64_t y = v.at; y < v.at + v.size; ++y) {
        for (std::int64_t x = h.at; x < h.at + h.size; ++x)
            blend ? SetPixelBlend(x, y, color) : SetPixel(x, y, color);
    }
}

void Model::FillMasked(const Rect& r, Word color, Point at, const Model* mask) {
    if (mask == nullptr) return Fill(r, color, false);
    Span h = Clip(r.x, r.w, at.x, clipX0, clipX1), v = Clip(r.y, r.h, at.y, clipY0, clipY1);
    if (mask->dx == 0 || mask->dy == 0) return;
    h.CutBehind(mask->dx);
    v.CutBehind(mask->dy);
    if (h.IsEmpty() || v.IsEmpty()) return;
    empty = false;
    if (!mask->Stores() || (mask->depth != 8 && mask->depth != 32)) return;
    for (std::int64_t j = 0; j < v.size; ++j) {
        std::vector<Word> row;
        for (std::int64_t i = 0; i < h.size; ++i) {
            const Word unit =
                mask->Load(Wrap(h.partner + i, mask->dx), Wrap(v.partner + j, mask->dy));
            const Word m = mask->depth == 8 ? unit : unit >> 24;
            row.push_back(MaskedAlpha(color >> 24, m) << 24 | (color & 0x00FFFFFF));
        }
        BlendRow(h.at, v.at + j, row);
    }
}

void Model::Transfer(const Rect& r, Point at, double transparency, const Model* source, bool tile,
                     Mix mix) {
    const Model& src = source == nullptr ? *this : *source;
    Span h = Clip(r.x, r.w, at.x, clipX0, clipX1), v = Clip(r.y, r.h, at.y, clipY0, clipY1);
    if (src.dx == 0 || src.dy == 0) return;
    if (tile) {
        h.partner = Wrap(h.partner, src.dx);
        v.partner = Wrap(v.partner, src.dy);
    } else {
        h.CutTo(src.dx);
        v.CutTo(src.dy);
    }
    if (h.IsEmpty() || v.IsEmpty()) return;
    empty = false;
    if (!src.Stores()) return;
    const bool wraps = h.partner + h.size > src.dx || v.partner + v.size > src.dy;
    const bool bottomFirst =
        !wraps && &src == this && v.partner < v.at && v.at < v.partner + v.size;
    for (std::int64_t step = 0; step < v.size; ++step) {
        const std::int64_t j = bottomFirst ? v.size - 1 - step : step;
        std::vector<Word> row;
        for (std::int64_t i = 0; i < h.size; ++i)
            row.push_back(src.Read(Wrap(h.partner + i, src.dx), Wrap(v.partner + j, src.dy)));
        for (std::int64_t i = 0; mix == Mix::kCopy && i < h.size; ++i) {
            const Word color = row[static_cast<std::size_t>(i)];
            if (!keyed || color != key) Write(h.at + i, v.at + j, color);
        }
        if (mix == Mix::kCopy) continue;
        for (Word& color : row) {
            if (mix == Mix::kBlendScaled)
                color = ScaledAlpha(transparency, color >> 24) << 24 | (color & 0x00FFFFFF);
        }
        BlendRow(h.at, v.at + j, row);
    }
}

void Model::Extract(const Rect& r, Point at, Model* plane, unsigned which) const {
    if (plane == nullptr || plane->depth != 8) return;
    Span h = Clip(r.x, r.w, at.x, clipX0, clipX1), v = Clip(r.y, r.h, at.y, clipY0, clipY1);
    h.CutTo(plane->dx);
    v.CutTo(plane->dy);
    if (h.IsEmpty() || v.IsEmpty()) return;
    plane->empty = false;
    if (!Stores() || !plane->Stores()) return;
    for (std::int64_t j = 0; j < v.size; ++j) {
        const std::vector<Word> row = ReadRow(h.at, v.at + j, h.size);
        for (std::int64_t i = 0; i < h.size; ++i) {
            const Word color = row[static_cast<std::size_t>(i)];
            plane->Store(h.partner + i, v.partner + j, Byte(color, PlaneOf(which).shift));
        }
    }
}

void Model::Insert(const Rect& r, Point at, const Model* plane, unsigned which) {
    if (plane == nullptr || plane->depth != 8) return;
    Span h = Clip(r.x, r.w, at.x, clipX0, clipX1), v = Clip(r.y, r.h, at.y, clipY0, clipY1);
    h.CutTo(plane->dx);
    v.CutTo(plane->dy);
    if (h.IsEmpty() || v.IsEmpty()) return;
    empty = false;
    if (!plane->Stores()) return;
    for (std::int64_t j = 0; j < v.size; ++j) {
        std::vector<Word> row = ReadRow(h.at, v.at + j, h.size);
        for (std::int64_t i = 0; i < h.size; ++i) {
            Word& color = row[static_cast<std::size_t>(i)];
            color = (color & PlaneOf(which).keep) | plane->Load(h.partner + i, v.partner + j)
                                                        << PlaneOf(which).shift;
        }
        for (std::int64_t i = 0; i < h.size; ++i)
            Write(h.at + i, v.at + j, row[static_cast<std::size_t>(i)]);
    }
}

void Model::ExtractMono(const Rect& r, Point at, std::uint8_t* buffer, unsigned bufPitch,
                        bool fromAlpha) const {
    if (buffer == nullptr || bufPitch == 0 || !Stores()) return;
    Span h = Clip(r.x, r.w, at.x, clipX0, clipX1), v = Clip(r.y, r.h, at.y, clipY0, clipY1);
    h.CutBefore();
    v.CutBefore();
    if (h.IsEmpty() || v.IsEmpty()) return;
    for (std::int64_t j = 0; j < v.size; ++j) {
        std::uint8_t* row = buffer + (v.partner + j) * bufPitch;
        if (fromAlpha)
            std::fill(row + h.partner / 8, row + (h.partner + h.size + 7) / 8, std::uint8_t{0});
        for (std::int64_t i = 0; i < h.size; ++i) {
            const Word color = Read(h.at + i, v.at + j);
            const bool opaque = color >> 24 < 128;
            if (fromAlpha || opaque)
                PutBit(row, h.partner + i, fromAlpha ? opaque : IsLight(color));
        }
    }
}

const char* Model::Line(Point from, Point to, Word color, Dashes dashes, bool smooth) {
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
        ModelDots(minor, static_cast<unsigned>(steps), rise, smooth ? 0.0 : 0.5);
    const auto plot = [&](std::int64_t i, std::int64_t at, Word paint) {
        alongX ? SetPixelBlend(major + i, at, paint) : SetPixelBlend(at, major + i, paint);
    };
    const Word a = color >> 24, rgb = color & 0x00FFFFFF, weight = 256 - (a > 127 ? a + 1 : a);
    DashWalk walk(dashes);
    for (std::int64_t i = 0; i <= steps; ++i) {
        const ModelDot& dot = dots[static_cast<std::size_t>(i)];
        if (!walk.NextIsDrawn()) continue;
        if (!smooth) {
            plot(i, dot.minor, color);
            continue;
        }
        plot(i, dot.minor, (255 - (((255 - dot.fraction) * weight) >> 8)) << 24 | rgb);
        plot(i, dot.minor + 1, (255 - ((dot.fraction * weight) >> 8)) << 24 | rgb);
    }
    return nullptr;
}

void Model::Blit(unsigned x, unsigned y, unsigned w, unsigned h, std::uint8_t* dest,
                 unsigned destPitch, bool to555) const {
    if (!Stores() || bytesPerPixel == 1) return;
    for (unsigned j = 0; j < h; ++j) {
        for (unsigned i = 0; i < w; ++i) {
            const Word unit = Load(x + i, y + j);
            Word word = bytesPerPixel == 4 ? Pack565(unit) : unit;
            if (to555) word = word / 2048 * 1024 + word / 64 % 32 * 32 + word % 32;
            dest[std::size_t{j} * destPitch + 2 * i] = static_cast<std::uint8_t>(word);
            dest[std::size_t{j} * destPitch + 2 * i + 1] = static_cast<std::uint8_t>(word >> 8);
        }
    }
}

}  // namespace test
