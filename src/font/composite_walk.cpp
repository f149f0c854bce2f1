// The walk over a composite's parts, in the order in which the engine loads them. Where a broken
// table leaves a choice, the walk sees more parts than the engine does, never fewer.
#include "font/composite_walk.h"

namespace gfx {
namespace {

constexpr std::uint32_t kGlyphHeader = 10;  // the number of contours and the box
constexpr std::uint64_t kNoPart = 0;
constexpr unsigned kArgsAreWords = 0x0001;
constexpr unsigned kHasScale = 0x0008;
constexpr unsigned kMoreParts = 0x0020;
constexpr unsigned kHasTwoScales = 0x0040;
constexpr unsigned kHasMatrix = 0x0080;

unsigned Get16(const std::uint8_t* at) { return static_cast<unsigned>(at[0] << 8 | at[1]); }
std::uint32_t Get32(const std::uint8_t* at) { return Get16(at) << 16 | Get16(at + 2); }

/// A part's record: flags, index, position and scale.
unsigned PartSize(unsigned flags) {
    unsigned size = 4 + ((flags & kArgsAreWords) != 0 ? 4u : 2u);
    if ((flags & kHasScale) != 0) return size + 2;
    if ((flags & kHasTwoScales) != 0) return size + 4;
    if ((flags & kHasMatrix) != 0) return size + 8;
    return size;
}

class Walk {
public:
    Walk(FaceFile& file, const OutlineTables& tables) : file_(file), tables_(tables) {}

    /// Whether the walk comes to its end within the limits.
    bool Finish(std::uint32_t glyphIndex) {
        for (unsigned loads = 1; Enter(glyphIndex); ++loads) {
            while (depth_ > 0 && parts_[depth_ - 1] == kNoPart)
                --depth_;
            if (depth_ == 0) return true;
            if (loads == kMaxGlyphLoads || !NextPart(glyphIndex)) return false;
        }
        return false;
    }

    /// The work of the programs, once the walk is finished.
    unsigned HintedWork() const { return hintedWork_; }

private:
    /// Loads a glyph: a composite becomes the innermost level. False when there is no room for it.
    bool Enter(std::uint32_t glyphIndex) {
        std::uint8_t place[8] = {};
        std::uint8_t contours[2] = {};
        const std::uint32_t size = tables_.arePlacesLong ? 4 : 2;
        if (file_.Read(tables_.places + std::uint64_t{glyphIndex} * size, place, 2 * size) < size)
            return false;
        hintedWork_ += kLoadWork;
        const std::uint64_t begin = At(place);
        if (begin == At(place + size)) return true;  // no outline at all
        const std::uint64_t glyph = tables_.outlines + begin;
        if (file_.Read(glyph, contours, 2) < 2) return false;
        if (contours[0] < 0x80) return AddPoints(glyph, Get16(contours));
        if (depth_ == kMaxPartDepth) return false;
        parts_[depth_++] = glyph + kGlyphHeader;
        return true;
    }

    /// An outline of its own begins with the last point of each contour.
    bool AddPoints(std::uint64_t glyph, unsigned contours) {
        std::uint8_t last[2] = {};
        if (contours == 0) return true;
        if (file_.Read(glyph + kGlyphHeader + 2 * (contours - 1), last, 2) < 2) return false;
        hintedWork_ += Get16(last) + 1;
        return true;
    }

    /// The next part of the innermost level. The level stays while its last part is walked, as the
    /// engine's call does.
    bool NextPart(std::uint32_t& glyphIndex) {
        std::uint8_t part[4] = {};
        std::uint64_t& at = parts_[depth_ - 1];
        if (file_.Read(at, part, 4) < 4) return false;
        const unsigned flags = Get16(part);
        glyphIndex = Get16(part + 2);
        at = (flags & kMoreParts) != 0 ? at + PartSize(flags) : kNoPart;
        return true;
    }

    std::uint64_t At(const std::uint8_t* place) const {
        return tables_.arePlacesLong ? Get32(place) : 2 * std::uint64_t{Get16(place)};
    }

    FaceFile& file_;
    const OutlineTables& tables_;
    std::uint64_t parts_[kMaxPartDepth];  // of each level the next one, or kNoPart
    unsigned depth_ = 0;
    unsigned hintedWork_ = 0;
};

}  // namespace

GlyphCost CostOfGlyph(FaceFile& file, const OutlineTables& tables, std::uint32_t glyphIndex) {
    if (tables.places == 0) return GlyphCost::Hinted;
    Walk walk(file, tables);
    if (!walk.Finish(glyphIndex)) return GlyphCost::Refused;
    const bool isHinted = tables.areProgramsBounded && walk.HintedWork() <= kMaxHintedWork;
    return isHinted ? GlyphCost::Hinted : GlyphCost::Unhinted;
}

}  // namespace gfx
