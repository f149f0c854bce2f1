// Rows that repeat rows of the main suite in another place: rectangles inside a wider picture,
// whose rows lie apart, and lines on pictures whose rows do not share cache sets.
#include <algorithm>
#include <stdexcept>
#include <string>

#include "rows.h"

namespace bench {

namespace {

constexpr int kPitchColumns = 1040;  // 4,160 bytes a row in 32 bits, where 1024 columns are 4,096

/// Adds a whole picture that the main suite lacks, drawn as the row called `model`.
void AddPicture(std::vector<Row>& rows, const std::string& model, const std::string& name,
                int width, int height) {
    const auto named = [&](const Row& row) { return row.name == model; };
    const auto found = std::find_if(rows.begin(), rows.end(), named);
    if (found == rows.end()) throw std::logic_error("no row is called " + model);
    Row row = *found;
    row.suite = Suite::kPictures;
    row.name = name;
    row.width = row.surfaceWidth = width;
    row.height = row.surfaceHeight = height;
    row.items = static_cast<double>(width) * height;
    rows.push_back(row);
}

void AddMissingPictures(std::vector<Row>& rows) {
    AddPicture(rows, "mask-rand 256x256 8", "mask-rand 1920x1080 8", 1920, 1080);
    AddPicture(rows, "over-rand 256x256 32>8", "over-rand 1920x1080 32>8", 1920, 1080);
    AddPicture(rows, "display 1920x1080 32>565", "display 256x256 32>565", 256, 256);
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
