// The tables of a small TrueType file; see built_face.h.
#include "font/built_face.h"

#include <fstream>
#include <iterator>

namespace test {
namespace {

constexpr unsigned kOnCurve = 1;
constexpr unsigned kMoreParts = 0x20;
constexpr unsigned kPartPlacedByOffset = 2;  // two bytes of offset follow the part's index

Bytes Words(std::initializer_list<unsigned> words) {
    Bytes bytes;
    for (const unsigned word : words)
        Put16(bytes, word);
    return bytes;
}

void Append(Bytes& to, const Bytes& from) { to.insert(to.end(), from.begin(), from.end()); }

Bytes Head(unsigned unitsPerEm) {
    Bytes table = Words({1, 0, 1, 0, 0, 0, 0x5F0F, 0x3CF5, 0, unitsPerEm});
    table.resize(table.size() + 16);  // dates
    Append(table, Words({0, 0, unitsPerEm, unitsPerEm, 0, 8, 2, 1, 0}));
    return table;
}

Bytes CharMap(unsigned glyphs) {
    Bytes table = Words({0, 1, 3, 1, 0, 12, 6, 10 + 2 * glyphs, 0, 0, glyphs});
    for (unsigned i = 0; i < glyphs; ++i)
        Put16(table, i);
    return table;
}

}  // namespace

void Put16(Bytes& bytes, unsigned value) {
    bytes.push_back(static_cast<unsigned char>(value >> 8));
    bytes.push_back(static_cast<unsigned char>(value));
}

void Put32(Bytes& bytes, unsigned value) {
    Put16(bytes, value >> 16);
    Put16(bytes, value);
}

Bytes MakeSfnt(unsigned signature, const std::map<std::string, Bytes>& tables, Bytes before) {
    Bytes& file = before;
    std::size_t at = file.size() + 12 + 16 * tables.size();
    Put32(file, signature);
    Append(file, Words({static_cast<unsigned>(tables.size()), 0, 0, 0}));
    for (const auto& [tag, table] : tables) {
        file.insert(file.end(), tag.begin(), tag.end());
        Put32(file, 0);
        Put32(file, static_cast<unsigned>(at));
        Put32(file, static_cast<unsigned>(table.size()));
        at += (table.size() + 3) & ~std::size_t{3};
    }
    for (const auto& [tag, table] : tables) {
        Append(file, table);
        file.resize((file.size() + 3) & ~std::size_t{3});
    }
    return file;
}

void SaveBytes(const std::string& path, const Bytes& bytes) {
    std::ofstream file(path, std::ios::binary);
    std::copy(bytes.begin(), bytes.end(), std::ostreambuf_iterator<char>(file));
}

Bytes SimpleGlyph(const std::vector<GlyphPoint>& points, const Bytes& program) {
    Bytes glyph = Words({1, 0, 0, 0, 0, static_cast<unsigned>(points.size() - 1)});
    Put16(glyph, static_cast<unsigned>(program.size()));
    Append(glyph, program);
    for (const GlyphPoint& point : points)
        glyph.push_back(point.isOnCurve ? kOnCurve : 0);
    GlyphPoint last = {0, 0};
    for (const GlyphPoint& point : points) {
        Put16(glyph, static_cast<unsigned>(point.x - last.x));
        last.x = point.x;
    }
    for (const GlyphPoint& point : points) {
        Put16(glyph, static_cast<unsigned>(point.y - last.y));
        last.y = point.y;
    }
    return glyph;
}

Bytes SquareGlyph(int side) { return SimpleGlyph({{0, 0}, {0, side}, {side, side}, {side, 0}}); }

Bytes CompositeGlyph(const std::vector<unsigned>& parts) {
    Bytes glyph = Words({0xFFFF, 0, 0, 0, 0});
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const bool isLast = i + 1 == parts.size();
        Append(glyph, Words({kPartPlacedByOffset | (isLast ? 0 : kMoreParts), parts[i], 0}));
    }
    return glyph;
}

unsigned BuiltFace::Add(const Bytes& glyph) {
    glyphs_.emplace_back();
    const auto index = static_cast<unsigned>(glyphs_.size() - 1);
    Replace(index, glyph);
    return index;
}

void BuiltFace::Replace(unsigned index, const Bytes& glyph) {
    glyphs_[index] = glyph;
    glyphs_[index].resize((glyph.size() + 3) & ~std::size_t{3});
}

void BuiltFace::SetProgramNeeds(unsigned stack, unsigned twilightPoints, unsigned functions) {
    stack_ = stack;
    twilightPoints_ = twilightPoints;
    functions_ = functions;
}

std::map<std::string, Bytes> BuiltFace::Tables() const {
    const auto count = static_cast<unsigned>(glyphs_.size());
    std::map<std::string, Bytes> tables;
    tables["head"] = Head(unitsPerEm_);
    tables["hhea"] = Words({1, 0, unitsPerEm_, 0, 0, unitsPerEm_, 0, 0, 0, 1, 0, 0,  //
                            0, 0, 0, 0, 0, 1});
    Bytes& horizontal = tables["hmtx"] = Words({unitsPerEm_});
    horizontal.resize(2 + 2 * count);  // one advance; every left bearing is 0
    tables["maxp"] = Words({1, 0, count, 0xFFFF, 1, 0xFFFF, 1, 2, twilightPoints_, 16, functions_,
                            0, stack_, 0, 0xFFFF, 0xFFFF});
    tables["cmap"] = CharMap(count);
    Bytes& glyphs = tables["glyf"];
    Bytes& places = tables["loca"];
    for (const Bytes& glyph : glyphs_) {
        Put32(places, static_cast<unsigned>(glyphs.size()));
        Append(glyphs, glyph);
    }
    Put32(places, static_cast<unsigned>(glyphs.size()));
    for (const auto& [tag, table] : extra_)
        tables[tag] = table;
    return tables;
}

}  // namespace test
