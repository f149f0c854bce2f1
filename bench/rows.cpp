#include "rows.h"

namespace bench {

namespace {

constexpr Format kFormats[] = {Format::k32, Format::k565, Format::k8};

struct Extent {
    int width;
    int height;
};

constexpr Extent kPixel = {1, 1};
constexpr Extent kSmall = {16, 16};
constexpr Extent kCached = {256, 256};
constexpr Extent kScreen = {1920, 1080};

std::string Name(Extent size) {
    return std::to_string(size.width) + "x" + std::to_string(size.height);
}

/// A row of rectangles: small ones lie scattered over 1024 x 1024, large ones fill their surface.
Row RectRow(const std::string& group, Operation operation, Extent size) {
    Row row;
    row.group = group;
    row.operation = operation;
    row.width = size.width;
    row.height = size.height;
    row.surfaceWidth = row.Scattered() ? 1024 : size.width;
    row.surfaceHeight = row.Scattered() ? 1024 : size.height;
    row.items = row.Scattered() ? kSpots : static_cast<double>(size.width) * size.height;
    row.unit = row.Scattered() ? "ns/rect" : "ps/px";
    return row;
}

void AddFillsAndBlends(std::vector<Row>& rows) {
    for (Operation operation : {Operation::kFill, Operation::kBlend}) {
        for (Format format : kFormats) {
            for (Extent size : {kPixel, kSmall, kCached, kScreen}) {
                const std::string group = operation == Operation::kFill ? "fill" : "blend50";
                Row row = RectRow(group, operation, size);
                row.target = format;
                row.name = group + " " + Name(size) + " " + FormatName(format);
                rows.push_back(row);
            }
        }
    }
}

void AddMasks(std::vector<Row>& rows) {
    for (Pattern pattern : {Pattern::kRandom, Pattern::kGlyph}) {
        const std::string group = pattern == Pattern::kRandom ? "mask-rand" : "mask-glyph";
        for (Format format : kFormats) {
            for (Extent size : {kSmall, kCached, kScreen}) {
                if (format == Format::k8 && size.width != kCached.width) continue;
                Row row = RectRow(group, Operation::kMask, size);
                row.target = format;
                row.pattern = pattern;
                row.name = group + " " + Name(size) + " " + FormatName(format);
                rows.push_back(row);
            }
        }
    }
}

void AddCopies(std::vector<Row>& rows) {
    for (Format format : kFormats) {
        for (Extent size : {kPixel, kSmall, kCached, kScreen}) {
            if (format != Format::k32 && size.width == kPixel.width) continue;
            Row row = RectRow("copy", Operation::kCopy, size);
            row.target = row.source = format;
            row.name = "copy " + Name(size) + " " + FormatName(format);
            rows.push_back(row);
        }
    }
}

void AddConversions(std::vector<Row>& rows) {
    struct Pair {
        Format source;
        Format target;
    };
    const Pair pairs[] = {{Format::k32, Format::k565},
                          {Format::k565, Format::k32},
                          {Format::k8, Format::k32},
                          {Format::k32, Format::k8}};
    for (Pair pair : pairs) {
        for (Extent size : {kSmall, kCached, kScreen}) {
            Row row = RectRow("conv", Operation::kConvert, size);
            row.source = pair.source;
            row.target = pair.target;
            row.name = "conv " + Name(size) + " " + FormatName(pair.source) + ">" +
                       FormatName(pair.target);
            rows.push_back(row);
        }
    }
}

void AddOver(std::vector<Row>& rows, const std::string& group, Pattern pattern, double opacity) {
    for (Format format : kFormats) {
        for (Extent size : {kSmall, kCached, kScreen}) {
            const bool cachedOnly = format == Format::k8 || pattern == Pattern::kSprite;
            if (cachedOnly && size.width != kCached.width) continue;
            if (pattern == Pattern::kSprite && format == Format::k8) continue;
            Row row = RectRow(group, Operation::kOver, size);
            row.target = format;
            row.pattern = pattern;
            row.opacity = opacity;
            row.name = group + " " + Name(size) + " 32>" + FormatName(format);
            rows.push_back(row);
        }
    }
}

void AddTilesAndKeys(std::vector<Row>& rows) {
    for (Format format : kFormats) {
        Row row = RectRow("tile64", Operation::kTile, {1024, 1024});
        row.target = row.source = format;
        row.name = "tile64 1024x1024 " + FormatName(format);
        rows.push_back(row);
    }
    for (Format format : {Format::k32, Format::k565}) {
        for (Extent size : {kSmall, kCached, kScreen}) {
            Row row = RectRow("key", Operation::kKey, size);
            row.target = row.source = format;
            row.pattern = Pattern::kKeyed;
            row.name = "key " + Name(size) + " " + FormatName(format);
            rows.push_back(row);
        }
    }
}

/// A row of single things on a surface of 1024 x 1024.
Row SurfaceRow(const std::string& group, Operation operation, Format format, double items,
               const std::string& unit) {
    Row row;
    row.group = group;
    row.operation = operation;
    row.target = format;
    row.surfaceWidth = row.surfaceHeight = 1024;
    row.items = items;
    row.unit = unit;
    return row;
}

void AddLine(std::vector<Row>& rows, Format format, bool antialias, bool half, Slope slope,
             int length, bool dash) {
    Row row = SurfaceRow(antialias ? "line aa" : "line alias", Operation::kLine, format, kSegments,
                         "ns/line");
    row.lineLength = length;
    row.slope = slope;
    row.antialias = antialias;
    row.half = half;
    row.dash = dash;
    const char* direction = slope == Slope::kHorizontal ? "horiz"
                            : slope == Slope::kVertical ? "vert"
                                                        : "";
    row.name = std::string("line ") + direction + std::to_string(length) +
               (antialias ? " aa" : " alias") + (dash ? " dash" : "") +
               (half ? " 50% " : " opaque ") + FormatName(format);
    rows.push_back(row);
}

void AddLines(std::vector<Row>& rows) {
    for (Format format : {Format::k32, Format::k565}) {
        for (bool antialias : {false, true}) {
            for (bool half : {false, true}) {
                const auto add = [&](Slope slope, int length, bool dash) {
                    AddLine(rows, format, antialias, half, slope, length, dash);
                };
                add(Slope::kAny, 50, false);
                add(Slope::kAny, 500, false);
                if (half && format == Format::k565) continue;
                add(Slope::kHorizontal, 500, false);
                add(Slope::kVertical, 500, false);
                if (!half) add(Slope::kAny, 500, true);
            }
        }
    }
}

/// Text stands on a screen, wide enough for one line of 80 glyphs.
void PlaceText(Row& row, int fontSize) {
    row.fontSize = fontSize;
    row.surfaceWidth = kScreen.width;
    row.surfaceHeight = kScreen.height;
}

void AddText(std::vector<Row>& rows) {
    constexpr int kSizes[] = {12, 16, 32};
    for (int size : kSizes) {
        for (Format format : {Format::k32, Format::k565}) {
            Row row = SurfaceRow("text", Operation::kText, format, kTextGlyphs, "ns/glyph");
            PlaceText(row, size);
            row.name = "text " + std::to_string(size) + "px " + FormatName(format);
            rows.push_back(row);
        }
    }
    for (int size : kSizes) {
        Row row =
            SurfaceRow("text-cold", Operation::kTextCold, Format::k32, kColdGlyphs, "ns/glyph");
        PlaceText(row, size);
        row.name = "text-cold " + std::to_string(size) + "px 224 glyphs 32";
        rows.push_back(row);
    }
}

void AddPixelsAndDisplay(std::vector<Row>& rows) {
    for (Format format : {Format::k32, Format::k565}) {
        const auto add = [&](const char* name, Operation operation) {
            Row row = SurfaceRow("pixel", operation, format, kPoints, "ns/px");
            row.name = std::string("pixel ") + name + " " + FormatName(format);
            rows.push_back(row);
        };
        add("set", Operation::kPixelSet);
        add("blend50", Operation::kPixelBlend);
        add("get", Operation::kPixelGet);
    }
    Row row = RectRow("display", Operation::kDisplay, kScreen);
    row.target = Format::k565;
    row.name = "display 1920x1080 32>565";
    rows.push_back(row);
}

}  // namespace

int BytesPerPixel(Format format) {
    return format == Format::k32 ? 4 : format == Format::k565 ? 2 : 1;
}

std::string FormatName(Format format) {
    return format == Format::k32 ? "32" : format == Format::k565 ? "565" : "8";
}

std::vector<Row> AllRows() {
    std::vector<Row> rows;
    AddFillsAndBlends(rows);
    AddMasks(rows);
    AddCopies(rows);
    AddConversions(rows);
    AddOver(rows, "over-rand", Pattern::kRandom, 1.0);
    AddOver(rows, "over-sprite", Pattern::kSprite, 1.0);
    AddOver(rows, "over*0.5-rand", Pattern::kRandom, 0.5);
    AddTilesAndKeys(rows);
    AddLines(rows);
    AddText(rows);
    AddPixelsAndDisplay(rows);
    AddDerivedRows(rows);
    AddKitRows(rows);
    return rows;
}

}  // namespace bench
