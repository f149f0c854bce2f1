// TrueType files made from nothing, with whatever glyphs and programs a test wants in them.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace test {

using Bytes = std::vector<unsigned char>;

/// Appends numbers as a font file stores them: the high byte first.
void Put16(Bytes& bytes, unsigned value);
void Put32(Bytes& bytes, unsigned value);

/// Tables behind a table directory, as every file of this family is laid out, after what `before`
/// holds.
Bytes MakeSfnt(unsigned signature, const std::map<std::string, Bytes>& tables, Bytes before = {});

void SaveBytes(const std::string& path, const Bytes& bytes);

struct GlyphPoint {
    int x, y;  // font units
    bool isOnCurve = true;
};

/// One contour through the points; the program is run when the glyph is loaded.
Bytes SimpleGlyph(const std::vector<GlyphPoint>& points, const Bytes& program = {});

/// A square from the origin.
Bytes SquareGlyph(int side);

/// The glyphs of these indices in their own places, one over the other.
Bytes CompositeGlyph(const std::vector<unsigned>& parts);

/// Code k is glyph k; codes beyond the last glyph are glyph 0. Every glyph is as wide as the em.
class BuiltFace {
public:
    explicit BuiltFace(unsigned unitsPerEm) : unitsPerEm_(unitsPerEm) {}

    /// The index of the glyph, from 0 upwards.
    unsigned Add(const Bytes& glyph);
    void Replace(unsigned index, const Bytes& glyph);

    /// Adds a table, or replaces one of the usual ones.
    void SetTable(const std::string& tag, const Bytes& table) { extra_[tag] = table; }

    /// What the face says its programs need: stack elements, points of the twilight zone,
    /// functions.
    void SetProgramNeeds(unsigned stack, unsigned twilightPoints, unsigned functions);

    std::map<std::string, Bytes> Tables() const;
    void Save(const std::string& path) const { SaveBytes(path, MakeSfnt(0x00010000, Tables())); }

private:
    unsigned unitsPerEm_;
    unsigned stack_ = 64;
    unsigned twilightPoints_ = 0;
    unsigned functions_ = 64;
    std::vector<Bytes> glyphs_;
    std::map<std::string, Bytes> extra_;
};

}  // namespace test
