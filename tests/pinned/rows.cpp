// The operations of the pinned drawing that only derived surfaces reach: row converters, and the
// dots of lines.
#include <vector>

#include "pinned/scene.h"

namespace pinned {
namespace {

/// One pixel row, the words and bytes that it is turned into, and the columns it is about.
struct RowCase {
    Canvas& canvas;
    GfxSurface::MemoryPtr pixels{};
    std::vector<std::uint32_t> words{};
    std::vector<std::uint8_t> bytes{};
    unsigned x = 0;
    unsigned n = 0;

    GfxSurface::MemoryPtr Words() {
        GfxSurface::MemoryPtr p{};
        p.ptr32 = words.data();
        return p;
    }
    GfxSurface::MemoryPtr Bytes() {
        GfxSurface::MemoryPtr p{};
        p.ptr8 = bytes.data();
        return p;
    }
};

void WordsAlone(Scene& s, RowCase& row, unsigned kind) {
    const double transparency = s.Number();
    const unsigned shift = 8 * s.random.Below(5);
    const std::uint32_t keep = s.random.Word();
    const Canvas& c = row.canvas;
    s.Say("words alone", transparency, shift, keep);
    if (kind == 0) c.CombineRGBAlpha(transparency, row.Words(), row.n);
    if (kind == 1) c.ExtractFromRGB(row.Words(), row.Bytes(), row.x, row.n, shift);
    if (kind == 2) c.InsertIntoRGB(row.Bytes(), row.Words(), row.x, row.n, shift, keep);
    if (kind == 3) c.ExtractMonoFromRGB(row.Words(), row.bytes.data(), row.x, row.n);
    if (kind == 4) c.ExtractMonoAlphaFromRGB(row.Words(), row.bytes.data(), row.x, row.n);
    if (kind == 5) c.InsertMonoIntoRGB(row.bytes.data(), row.Words(), row.x, row.n);
}

void WordsAndPixels(Scene& s, RowCase& row, unsigned kind) {
    const std::uint32_t key = row.words[s.random.Below(row.n)];
    const Canvas& c = row.canvas;
    s.Say("words and pixels", key);
    if (kind == 6) c.ConvertToRGB(row.pixels, row.Words(), row.x, row.n);
    if (kind == 7) c.ConvertTileToRGB(row.pixels, row.Words(), row.x, 2 * row.n);
    if (kind == 8) c.ConvertFromRGB(row.Words(), row.pixels, row.x, row.n);
    if (kind == 9) c.ConvertFromRGB(row.Words(), row.pixels, row.x, row.n, key);
    if (kind == 10) c.BlendWithRGB(row.Words(), row.pixels, row.x, row.n);
}

}  // namespace

void ConvertRows(Scene& s) {
    Slot& slot = s.Pick();
    Canvas& c = *slot.canvas;
    if (c.DX() == 0 || c.DY() == 0 || c.lines == nullptr) return;
    RowCase row{.canvas = c};
    row.pixels.ptr8 = c.lines[s.random.Below(c.DY())];
    row.x = s.random.Below(c.DX());
    row.n = 1 + s.random.Below(c.DX() - row.x);
    row.words.resize(2 * row.n);
    row.bytes.resize(c.DX());
    for (std::uint32_t& word : row.words)
        word = s.Color();
    for (std::uint8_t& byte : row.bytes)
        byte = s.random.Byte();
    const unsigned kind = s.random.Below(11);
    s.Say("row converter", slot, row.x, row.n, kind);
    if (kind < 6)
        WordsAlone(s, row, kind);
    else
        WordsAndPixels(s, row, kind);
    for (const std::uint32_t word : row.words)
        s.Fold(word);
    s.Fold(row.bytes.data(), row.bytes.size());
    s.Fold(slot);
}

void FillDots(Scene& s) {
    Canvas& c = *s.Pick().canvas;
    const unsigned start = s.random.Below(300);
    const unsigned steps = s.random.Below(s.random.OneIn(10) ? 10000 : 200);
    const int rise = s.random.Between(-static_cast<int>(steps), static_cast<int>(steps));
    const double offset = s.random.Between(-1024, 1024) / 1024.0;
    const bool alongX = s.random.OneIn(2);
    s.Say("ComputeLineDots", start, steps, rise, offset, alongX);
    if (c.dots == nullptr) c.AllocDotsBuffer();
    if (alongX)
        c.ComputeLineDotsDX(0, start, steps, rise, offset);
    else
        c.ComputeLineDotsDY(start, 0, rise, steps, offset);
    for (unsigned i = 0; i <= steps; ++i) {
        s.Fold(static_cast<std::uint32_t>(c.dots[i].minor));
        s.Fold(c.dots[i].fraction);
    }
}

}  // namespace pinned
