// What every library draws with: the same target memory, sources, masks, positions and text. Each
// picture is made once and handed out in the form that a library wants.
#ifndef GFX_BENCH_SCENE_H
#define GFX_BENCH_SCENE_H

#include "rows.h"

#include <array>
#include <cstdint>
#include <map>
#include <new>
#include <string>
#include <tuple>
#include <vector>

namespace bench {

/// A window on pixel memory; rows follow each other without gaps.
struct Image {
    std::uint8_t* data = nullptr;
    int width = 0;
    int height = 0;
    int pitch = 0;
    Format format = Format::k32;

    std::uint8_t* At(int x, int y) const {
        return data + static_cast<std::ptrdiff_t>(y) * pitch + x * BytesPerPixel(format);
    }
};

/// What the top byte of a 32-bit picture says.
enum class AlphaForm {
    kOpaque,         ///< 255 everywhere, whatever the pattern
    kTransparency,   ///< 0 opaque, 255 invisible, colours straight
    kStraight,       ///< 255 opaque, colours straight
    kPremultiplied,  ///< 255 opaque, colours multiplied
};

enum class MaskForm { kCoverage, kTransparency };

/// A rectangle of the target and the source or mask pixel that belongs to its corner.
struct Spot {
    int x, y, width, height, sourceX, sourceY;
};

struct Segment {
    int x0, y0, x1, y1;
};

struct Point {
    int x, y;
};

struct Glyph {
    unsigned int code;
    unsigned int index;  ///< glyph index in the face
    int x, y;            ///< pen position on the baseline
};

/// One line of a text for libraries that lay it out themselves.
struct TextLine {
    std::string utf8;
    int x, y;  ///< start on the baseline
};

struct Text {
    std::vector<Glyph> glyphs;
    std::vector<TextLine> lines;
};

inline constexpr int kRed = 200, kGreen = 100, kBlue = 50;
inline constexpr std::uint32_t kColor = (kRed << 16) | (kGreen << 8) | kBlue;
inline constexpr int kHalf = 127;  ///< opacity of 50 % rows; as transparency 128
inline constexpr std::uint32_t kHalfColor =
    (static_cast<std::uint32_t>(255 - kHalf) << 24) | kColor;
inline constexpr std::uint32_t kGradientEnd = 0x1428F0;
inline constexpr std::uint32_t kKeyColor = 0xFFFF00FF;  ///< unchanged by a trip through 5-6-5

/// Pixels start at a cache line, as surfaces of drivers and toolkits do: where malloc happens to
/// put them decides otherwise which libraries' loads straddle two lines.
template <class T>
struct AtCacheLine {
    using value_type = T;
    static constexpr std::align_val_t kLine{64};

    AtCacheLine() = default;
    template <class U>
    explicit AtCacheLine(const AtCacheLine<U>&) {}
    T* allocate(std::size_t n) { return static_cast<T*>(::operator new(n * sizeof(T), kLine)); }
    void deallocate(T* p, std::size_t) { ::operator delete(p, kLine); }
    bool operator==(const AtCacheLine&) const { return true; }
};

struct Corner {
    double x, y;
};

/// Ten corners of a star in the middle of the picture that shapes are drawn on.
std::vector<Corner> StarCorners(int radius);

class Scene {
public:
    Scene();

    /// The memory that all libraries draw into, laid out for this row.
    Image Target(const Row& row);

    /// Puts the row's background into the target, opaque where it has an alpha byte.
    void ResetTarget(const Row& row);

    Image Source(const Row& row, AlphaForm alpha);
    Image Mask(const Row& row, MaskForm form);

    const std::vector<Spot>& Spots(const Row& row);
    const std::vector<Segment>& Segments(const Row& row);
    const std::vector<Point>& Points() const { return points_; }
    const Text& TextOf(const Row& row);
    const char* FontPath() const { return fontPath_.c_str(); }
    const char* FontName() const { return "DejaVuSans"; }
    const char* FontDirectory() const { return "/usr/share/fonts/truetype/dejavu"; }

    std::uint64_t sink = 0;  ///< sum of the colours that reading rows saw

private:
    using Words = std::vector<std::uint32_t>;
    using Bytes = std::vector<std::uint8_t, AtCacheLine<std::uint8_t>>;
    using PictureKey = std::tuple<Pattern, int, int>;

    const Words& Picture(Pattern pattern, int width, int height);
    Text LayOut(const Row& row) const;

    std::string fontPath_;
    Bytes targetMemory_;
    std::vector<Point> points_;
    std::map<PictureKey, Words> pictures_;
    std::map<std::tuple<Pattern, int, int, Format, AlphaForm>, Bytes> sources_;
    std::map<std::tuple<Pattern, int, int, MaskForm>, Bytes> masks_;
    std::map<std::array<int, 4>, std::vector<Spot>> spots_;
    std::map<std::array<int, 2>, std::vector<Segment>> segments_;
    std::map<std::array<int, 2>, Text> texts_;
};

/// The grey of kColor.
std::uint8_t GreyLevel();

/// Stores a word 0x??RRGGBB in a format: 5-6-5 truncates, grey weighs 77, 150, 29.
void StorePixel(std::uint8_t* to, Format format, std::uint32_t word);

}  // namespace bench

#endif  // GFX_BENCH_SCENE_H
