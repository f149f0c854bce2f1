// Angles, arcs and closed polygons.
#include "shape_outline.h"

#include <algorithm>
#include <cmath>

namespace gfx::kit {
namespace {

constexpr double kTolerance = 3;  // how far a chord may lie inside its arc, in 1/256 pixel

/// sin and cos for 0 to an eighth of a turn, by their series, whose next terms are below 2^-53.
double SineOf(double a) {
    const double s = a * a;
    return a *
           (1 - s / 6 * (1 - s / 20 * (1 - s / 42 * (1 - s / 72 * (1 - s / 110 * (1 - s / 156))))));
}

double CosineOf(double a) {
    const double s = a * a;
    return 1 - s / 2 * (1 - s / 12 * (1 - s / 30 * (1 - s / 56 * (1 - s / 90 * (1 - s / 132)))));
}

std::int32_t NearestUnit(double v) {
    constexpr std::int32_t kLift = 2 * kReach;  // makes it positive, so that cutting rounds down
    constexpr double kFar = kReach;
    const double limited = std::min(kFar, std::max(-kFar, v));
    return static_cast<std::int32_t>(limited + (kLift + 0.5)) - kLift;
}

}  // namespace

Corner CornerAt(Vector position) { return {NearestUnit(position.x), NearestUnit(position.y)}; }

Vector DirectionOf(Angle angle) {
    constexpr std::int32_t kQuarter = Angle::kTurn / 4;
    const std::int32_t within = angle.Units() & (Angle::kTurn - 1);
    const std::int32_t rest = within % kQuarter;
    const double perUnit = 1.5707963267948966 / kQuarter;
    const bool low = rest <= kQuarter / 2;
    const double a = (low ? rest : kQuarter - rest) * perUnit;
    const double sine = low ? SineOf(a) : CosineOf(a);
    const double cosine = low ? CosineOf(a) : SineOf(a);
    Vector direction{sine, -cosine};
    for (std::int32_t i = 0; i < within / kQuarter; ++i)
        direction = TurnRight(direction);
    return direction;
}

Point OnCircle(Point center, Fixed radius, Angle angle) {
    const Vector at = VectorOf(center) + DirectionOf(angle) * radius.Units();
    const Corner corner = CornerAt(at);
    return {Fixed::FromUnits(corner.x), Fixed::FromUnits(corner.y)};
}

Angle Angle::Degrees(double degrees) {
    if (!(degrees > -45720)) return degrees <= -45720 ? Degrees(-45720) : Angle();
    if (degrees > 45720) return Degrees(45720);
    return FromUnits(static_cast<std::int32_t>(std::floor(degrees / 360 * kTurn + 0.5)));
}

void Outline::Add(Vector position) {
    const Corner corner = CornerAt(position);
    if (open_) {
        raster_.AddEdge(last_, corner);
    } else {
        first_ = corner;
        open_ = true;
    }
    last_ = corner;
}

void Outline::Close() {
    if (open_) raster_.AddEdge(last_, first_);
    open_ = false;
}

/// Halves the angle until the chord is close enough. The middle of a chord lies radius cos(angle /
/// 2) from the centre, and cos(angle / 2)^2 = (1 + from * to) / 2; the sum of two directions is 2
/// cos(angle / 2) long, the same for all that are an angle apart.
void Outline::AddQuarter(Vector center, double radius, Vector from, Vector to) {
    const double inner = std::max(1 - kTolerance / std::max(radius, 1.0), 0.0);
    Halving halving{};
    for (double dot = Dot(from, to); (1 + dot) / 2 < inner * inner && halving.depth < kDeepest;) {
        const double cosine = std::sqrt((1 + dot) / 2);
        halving.scales[halving.depth++] = 0.5 / cosine;
        dot = cosine;
    }
    AddHalves(center, halving, from * radius, to * radius, 0);
}

/// Adds all corners but the first.
void Outline::AddHalves(Vector center, const Halving& halving, Vector from, Vector to, int depth) {
    if (depth == halving.depth) return Add(center + to);
    const Vector middle = (from + to) * halving.scales[depth];
    AddHalves(center, halving, from, middle, depth + 1);
    AddHalves(center, halving, middle, to, depth + 1);
}

void Outline::AddArc(Vector center, double radius, Vector from, Vector to, bool clockwise) {
    Add(center + from * radius);
    Vector start = from;
    if (Dot(from, to) < 0) {
        start = clockwise ? TurnRight(from) : TurnLeft(from);
        AddQuarter(center, radius, from, start);
    }
    AddQuarter(center, radius, start, to);
}

void Outline::AddSweep(Vector center, double radius, Angle start, std::int32_t sweep) {
    constexpr std::int32_t kQuarter = Angle::kTurn / 4;
    const bool clockwise = sweep >= 0;
    std::int32_t left = clockwise ? sweep : -sweep;
    Vector from = DirectionOf(start);
    for (; left > kQuarter; left -= kQuarter) {
        const Vector to = clockwise ? TurnRight(from) : TurnLeft(from);
        AddArc(center, radius, from, to, clockwise);
        from = to;
    }
    const std::int32_t within = start.Units() & (Angle::kTurn - 1);
    const Vector to = DirectionOf(Angle::FromUnits(within + sweep));
    AddArc(center, radius, from, to, clockwise);
}

}  // namespace gfx::kit
