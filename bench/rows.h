// The list of measured work as data: what is drawn, how large, in which formats. It decides what
// a row means and what it is called; how a library draws it stands in that library's file.
#ifndef GFX_BENCH_ROWS_H
#define GFX_BENCH_ROWS_H

#include <cstddef>
#include <string>
#include <vector>

namespace bench {

enum class Format { k32, k565, k8 };

enum class Operation {
    kFill,
    kBlend,
    kMask,
    kCopy,
    kConvert,
    kOver,
    kTile,
    kKey,
    kLine,
    kText,
    kTextCold,
    kPixelSet,
    kPixelBlend,
    kPixelGet,
    kDisplay,
    kShape
};

/// What a row of the kit draws.
enum class Shape { kCircle, kRoundRect, kStar, kWideLine, kRing, kLinear, kRadial };

/// What a source or mask shows, as far as speed may depend on it.
enum class Pattern {
    kRandom,     ///< every pixel independent, alpha or coverage uniform
    kGlyph,      ///< coverage in runs: 70 % none, 15 % full, 15 % edges
    kSprite,     ///< discs with soft rims: mostly all visible or all invisible
    kKeyed,      ///< the discs of kSprite with hard rims, around them the key colour
    kBackground  ///< what a target holds before a pass
};

enum class Slope { kAny, kHorizontal, kVertical };

/// Which part of the report a row belongs to. The means over all groups count kMain alone, so that
/// they stay comparable from one state of the engine to the next.
enum class Suite { kMain, kPictures, kPitch, kKit };

struct Row {
    std::string name;
    std::string group;
    Suite suite = Suite::kMain;
    Operation operation = Operation::kFill;
    Format target = Format::k32;
    Format source = Format::k32;
    Pattern pattern = Pattern::kRandom;
    int width = 0;          ///< of one rectangle
    int height = 0;         ///< of one rectangle
    int surfaceWidth = 0;   ///< of the target
    int surfaceHeight = 0;  ///< of the target
    double opacity = 1.0;   ///< global opacity of `over`
    int lineLength = 0;     ///< of each line
    Slope slope = Slope::kAny;
    bool antialias = false;  ///< lines
    bool half = false;       ///< lines at 50 % instead of opaque
    bool dash = false;       ///< lines 6 on, 4 off
    Shape shape = Shape::kCircle;
    int shapeSize = 0;  ///< radius, width or side of the shape
    int fontSize = 0;   ///< text, pixels to the em
    double items = 0;   ///< what one pass draws, in the row's unit
    std::string unit;   ///< "ps/px", "ns/rect", ...

    /// Whether one pass draws many small rectangles instead of one large one.
    bool Scattered() const { return width <= 16; }

    /// Whether one pass draws a rectangle whose rows follow each other without a gap, in the target
    /// as in the source.
    bool FullWidth() const {
        return !Scattered() && width == surfaceWidth && operation != Operation::kTile;
    }
};

/// Every row, in the order of the report: those of kMain first.
std::vector<Row> AllRows();

/// Adds what is derived from the rows of kMain: whole pictures that are missing there, the same
/// rectangles inside a wider picture, and lines at another distance from row to row.
void AddDerivedRows(std::vector<Row>& rows);

/// Adds the rows of the kit.
void AddKitRows(std::vector<Row>& rows);

int BytesPerPixel(Format format);
std::string FormatName(Format format);

inline constexpr int kSpots = 1024;      ///< rectangles a pass in scattered rows
inline constexpr int kSegments = 1000;   ///< lines a pass
inline constexpr int kPoints = 4096;     ///< single pixels a pass
inline constexpr int kTextGlyphs = 80;   ///< glyphs a pass from a warm cache
inline constexpr int kColdGlyphs = 224;  ///< glyphs a pass from a face just opened
inline constexpr int kSheet = 256;       ///< side of the source that small rectangles come from
inline constexpr int kFreeColumns = 80;  ///< of a wider picture, half of them left of the rectangle
inline constexpr int kFreeRows = 16;     ///< likewise above and below
inline constexpr int kTile = 64;         ///< side of the tiled source
inline constexpr int kDashOn = 6;        ///< pixels drawn
inline constexpr int kDashOff = 4;       ///< pixels skipped

inline constexpr int kShapeSurface = 512;     ///< side of the picture that shapes are drawn on
inline constexpr int kRoundRectHeight = 200;  ///< of the rectangle with round corners
inline constexpr int kCornerRadius = 24;      ///< likewise
inline constexpr int kRingWidth = 12;
inline constexpr int kLineStart = 40;  ///< both coordinates of the wide line's start
inline constexpr int kLineEndX = 470;
inline constexpr int kLineEndY = 300;

}  // namespace bench

#endif  // GFX_BENCH_ROWS_H
