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

    bool IsBounded(std::uint32_t glyphIndex) {
        for (unsigned loads = 1; Enter(glyphIndex); ++loads) {
            while (depth_ > 0 && parts_[depth_ - 1] == kNoPart)
                --depth_;
            if (depth_ == 0) return true;
            if (loads == kMaxGlyphLoads || !NextPart(glyphIndex)) return false;
        }
        return false;
    }

private:
    /// Loads a glyph: a composite becomes the innermost level. False when there is no room for it.
    bool Enter(std::uint32_t glyphIndex) {
        std::uint8_t place[8] = {};
        std::uint8_t contours[2] = {};
        const std::uint32_t size = tables_.arePlacesLong ? 4 : 2;
        if (file_.Read(tables_.places + std::uint64_t{glyphIndex} * size, place, 2 * size) < size)
            return false;
        const std::uint64_t begin = At(place);
        if (begin == At(place + size)) return true;  // no outline at all
        if (file_.Read(tables_.outlines + begin, contours, 2) < 2) return false;
        if (contours[0] < 0x80) return true;  // not negative: an outline of its own
        if (depth_ == kMaxPartDepth) return false;
        parts_[depth_++] = tables_.outlines + begin + kGlyphHeader;
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
};

}  // namespace

bool IsCompositionBounded(FaceFile& file, const OutlineTables& tables, std::uint32_t glyphIndex) {
    return tables.places == 0 || Walk(file, tables).IsBounded(glyphIndex);
}

}  // namespace gfx
