// The model's operations on rectangles; see model.h.
#include <algorithm>
#include <limits>

#include "surface/model.h"

namespace test {
namespace {

constexpr std::int64_t kIntMax = std::numeric_limits<std::int32_t>::max();

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

void PutBit(std::uint8_t* row, std::int64_t bit, bool on) {
    const auto mask = static_cast<std::uint8_t>(0x80 >> (bit % 8));
    row[bit / 8] = static_cast<std::uint8_t>(on ? row[bit / 8] | mask : row[bit / 8] & ~mask);
}

}  // namespace

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
