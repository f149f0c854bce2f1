// Rows of the kit: one shape a pass in the middle of a picture. A suite of its own, so that the
// means of the main rows stay comparable.
#include "rows.h"

namespace bench {

namespace {

struct ShapeName {
    Shape shape;
    int size;
    const char* name;
};

constexpr ShapeName kShapes[] = {
    {Shape::kCircle, 8, "circle r8"},        {Shape::kCircle, 50, "circle r50"},
    {Shape::kCircle, 200, "circle r200"},    {Shape::kRoundRect, 300, "roundrect 300x200"},
    {Shape::kStar, 200, "star r200"},        {Shape::kWideLine, 8, "line w8"},
    {Shape::kRing, 150, "ring r150 w12"},    {Shape::kLinear, 400, "linear 400x400"},
    {Shape::kRadial, 400, "radial 400x400"},
};

}  // namespace

void AddKitRows(std::vector<Row>& rows) {
    for (Format format : {Format::k32, Format::k565}) {
        for (const ShapeName& named : kShapes) {
            Row row;
            row.suite = Suite::kKit;
            row.group = "shape";
            row.operation = Operation::kShape;
            row.shape = named.shape;
            row.shapeSize = named.size;
            row.target = format;
            row.surfaceWidth = row.surfaceHeight = kShapeSurface;
            row.items = 1;
            row.unit = "ns/shape";
            row.name = std::string("kit ") + named.name + " " + FormatName(format);
            rows.push_back(row);
        }
    }
}

}  // namespace bench
