// A plain model of a surface, the oracle of the drawing tests: one pixel at a time, 64-bit
// coordinates, the rules written out anew. It shares no code with the library and is never clever;
// rows that an operation reads before it writes them are gathered in a vector first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "support/row_order.h"
#include "surface/line_model.h"

namespace test {

using Word = std::uint32_t;

struct Rect {
    int x, y;
    unsigned w, h;
};

struct Point {
    int x, y;
};

/// The 8 bits of a word from `shift` on.
inline Word Byte(Word word, unsigned shift) { return (word >> shift) & 0xFF; }

// The rules for one value.
Word GreyOf(Word color);
Word Pack565(Word color);
Word Unpack565(Word pixel, Word alpha);
Word BlendStored(unsigned bytesPerPixel, Word stored, Word color);
Word MaskedAlpha(Word colorAlpha, Word mask);
Word ScaledAlpha(double transparency, Word alpha);
bool IsLight(Word color);

/// The dots of a line of `steps` steps from minor coordinate `start` + `offset`, rising by `rise`.
std::vector<ModelDot> ModelDots(std::int64_t start, unsigned steps, int rise, double offset);

struct Dashes {
    const unsigned short* pattern;
    int count;
};

enum class Mix { kCopy, kBlend, kBlendScaled };

struct Model {
    explicit Model(unsigned bitsPerPixel);

    void Initialise(unsigned w, unsigned h);
    void InitialiseOver(unsigned w, unsigned h, std::shared_ptr<std::vector<std::uint8_t>> memory,
                        unsigned rowBytes, bool isEmpty);
    void SetNewSize(unsigned w, unsigned h);
    void OptimiseSize();
    void SetClipRect(const Rect& r);
    void ResetClipRect();
    void Clear();

    void SetPixel(std::int64_t x, std::int64_t y, Word color);
    void SetPixelBlend(std::int64_t x, std::int64_t y, Word color);
    Word RetPixel(std::int64_t x, std::int64_t y) const;
    Word RetPixelMerge(int x, int y, double fx, double fy) const;
    void RunBGR24(int x, int y, unsigned n, const std::uint8_t* run);
    void RunMono(int x, int y, unsigned n, Word color, const std::uint8_t* bits);

    void Fill(const Rect& r, Word color, bool blend);
    void FillMasked(const Rect& r, Word color, Point at, const Model* mask);
    void Transfer(const Rect& r, Point at, double transparency, const Model* source, bool tile,
                  Mix mix);
    void Extract(const Rect& r, Point at, Model* plane, unsigned which) const;
    void Insert(const Rect& r, Point at, const Model* plane, unsigned which);
    void ExtractMono(const Rect& r, Point at, std::uint8_t* buffer, unsigned bufPitch,
                     bool fromAlpha) const;
    /// The text of the failure, or null.
    const char* Line(Point from, Point to, Word color, Dashes dashes, bool isAntiAliased);
    void Blit(unsigned x, unsigned y, unsigned w, unsigned h, std::uint8_t* dest,
              unsigned destPitch, bool to555) const;

    bool Stores() const { return hasMemory && depth >= 2; }
    bool IsInside(std::int64_t x, std::int64_t y) const {
        return clipX0 <= x && x < clipX1 && clipY0 <= y && y < clipY1;
    }
    std::size_t At(std::int64_t x, std::int64_t y) const;  ///< offset of a pixel in `bytes`
    Word Load(std::int64_t x, std::int64_t y) const;       ///< the stored unit
    void Store(std::int64_t x, std::int64_t y, Word unit);
    Word Read(std::int64_t x, std::int64_t y) const;  ///< as a colour word
    void Write(std::int64_t x, std::int64_t y, Word color);
    void BlendRow(std::int64_t x, std::int64_t y, const std::vector<Word>& row);
    std::vector<Word> ReadRow(std::int64_t x, std::int64_t y, std::int64_t n) const;

    unsigned depth;
    unsigned bytesPerPixel;
    unsigned dx = 0, dy = 0, allocDX = 0, allocDY = 0, pitch = 0, alpha = 0;
    Word key = 0;
    bool keyed = false, empty = false, hasMemory = false;
    RowOrder order = RowOrder::kTopDown;
    std::int64_t clipX0 = 0, clipY0 = 0, clipX1 = 0, clipY1 = 0;
    /// All allocDY rows, gaps included. Models of surfaces over one memory share it.
    std::shared_ptr<std::vector<std::uint8_t>> bytes;
};

}  // namespace test
