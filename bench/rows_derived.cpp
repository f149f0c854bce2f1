// Rows that repeat rows of the main suite in another place: rectangles inside a wider picture,
// whose rows lie apart, and lines on pictures whose rows do not share cache sets.
#include <string>

#include "rows.h"

namespace bench {

namespace {

constexpr int kPitchColumns = 1040;  // 4,160 bytes a row in 32 bits, where 1024 columns are 4,096

/// A whole picture that the main suite does not have, in the place of one that it has.
Row Resized(const Row& model, const std::string& name, int width, int height) {
    Row row = model;
    row.suite = Suite::kPictures;
    row.name = name;
    row.width = row.surfaceWidth = width;
    row.height = row.surfaceHeight = height;
    row.items = static_cast<double>(width) * height;
    return row;
}

void AddMissingPictures(std::vector<Row>& rows) {
    const std::vector<Row> main = rows;
    for (const Row& row : main) {
        if (row.name == "mask-rand 256x256 8") {
            rows.push_back(Resized(row, "mask-rand 1920x1080 8", 1920, 1080));
        }
        if (row.name == "over-rand 256x256 32>8") {
            rows.push_back(Resized(row, "over-rand 1920x1080 32>8", 1920, 1080));
        }
        if (row.name == "display 1920x1080 32>565") {
            rows.push_back(Resized(row, "display 256x256 32>565", 256, 256));
        }
    }
}

/// The operations whose whole pictures are drawn inside a wider one as well.
bool IsDrawnInside(const Row& row) {
    if (!row.FullWidth() || row.opacity != 1.0 || row.pattern != Pattern::kRandom) return false;
    switch (row.operation) {
        case Operation::kFill:
        case Operation::kBlend:
        case Operation::kMask:
        case Operation::kCopy:
        case Operation::kOver:
        case Operation::kDisplay:
            return true;
        case Operation::kConvert:
            return row.source == Format::k32 && row.target == Format::k565;
        default:
            return false;
    }
}

void AddWiderPictures(std::vector<Row>& rows) {
    const std::vector<Row> pictures = rows;
    for (const Row& picture : pictures) {
        if (!IsDrawnInside(picture)) continue;
        Row row = picture;
        row.suite = Suite::kPictures;
        row.name = "inside " + picture.name;
        row.surfaceWidth += kFreeColumns;
        row.surfaceHeight += kFreeRows;
        rows.push_back(row);
    }
}

void AddLinesAtAnotherPitch(std::vector<Row>& rows) {
    const std::vector<Row> main = rows;
    for (const Row& line : main) {
        const bool level = line.slope == Slope::kHorizontal;
        if (line.operation != Operation::kLine || line.lineLength < 500 || line.dash || level) {
            continue;
        }
        Row row = line;
        row.suite = Suite::kPitch;
        row.name = "pitch " + line.name;
        row.surfaceWidth = kPitchColumns;
        rows.push_back(row);
    }
}

}  // namespace

void AddDerivedRows(std::vector<Row>& rows) {
    AddMissingPictures(rows);
    AddWiderPictures(rows);
    AddLinesAtAnotherPitch(rows);
}

}  // namespace bench
