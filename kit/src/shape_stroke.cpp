// Wide lines: one polygon along both sides of an open line, one on each side of a closed one. Every
// part of it winds the same way, so that what overlaps on the inner side of a turn stays filled.
#include <cmath>

#include "shape_outline.h"

namespace gfx::kit {
namespace {

/// Follows a line and leaves the corners of its left side.
class SidePen {
public:
    SidePen(Outline& outline, const Stroke& stroke)
        : outline_(outline),
          stroke_(stroke),
          half_(stroke.width.Units() / 2.0),
          limit_(static_cast<double>(stroke.miterLimit.Units()) / Fixed::kOne) {}

    void Join(Corner at, Segment from, Segment to, bool isWayBack) {
        const Vector center = PositionOf(at);
        const double turn = Cross(from.direction, to.direction);
        const double along = 1 + Dot(from.direction, to.direction);
        const bool isReversal = turn == 0 && along < 1;  // has an outer side on the way there only
        if (turn < 0 || (isReversal && isWayBack)) {
            AddInnerJoin(center, from, to, -turn, along);
        } else {
            AddOuterJoin(center, from.direction, to.direction, along);
        }
    }

    /// From the left side of the line's last corner to the right one.
    void End(Corner at, Vector direction) {
        const Vector center = PositionOf(at);
        const Vector left = TurnLeft(direction) * half_;
        if (stroke_.cap == Cap::kRound) {
            outline_.AddArc(center, half_, TurnLeft(direction), TurnRight(direction), true);
            return;
        }
        const Vector ahead = direction * (stroke_.cap == Cap::kSquare ? half_ : 0);
        outline_.Add(center + left + ahead);
        outline_.Add(center + -left + ahead);
    }

private:
    static Vector PositionOf(Corner c) {
        return {static_cast<double>(c.x), static_cast<double>(c.y)};
    }

    /// Both sides meet half * tan(angle / 2) before the corner, if the segments are long enough
    /// and do not all but reverse.
    void AddInnerJoin(Vector center, Segment from, Segment to, double turn, double along) {
        const Vector before = TurnLeft(from.direction) * half_;
        const Vector behind = TurnLeft(to.direction) * half_;
        const double shorter = from.length < to.length ? from.length : to.length;
        if (along > 1.0 / 64 && 2 * half_ * turn <= shorter * along) {
            outline_.Add(center + (before + behind) * (1 / along));
            return;
        }
        outline_.Add(center + before);
        outline_.Add(center);
        outline_.Add(center + behind);
    }

    void AddOuterJoin(Vector center, Vector from, Vector to, double along) {
        const Vector before = TurnLeft(from);
        const Vector behind = TurnLeft(to);
        if (stroke_.join == Join::kRound) {
            outline_.AddArc(center, half_, before, behind, true);
            return;
        }
        outline_.Add(center + before * half_);
        // The miter is 1 / cos(angle / 2) widths long, the square of which is 2 / along.
        if (stroke_.join == Join::kMiter && limit_ > 0 && 2 <= limit_ * limit_ * along) {
            outline_.Add(center + (before + behind) * (half_ / along));
        }
        outline_.Add(center + behind * half_);
    }

    Outline& outline_;
    const Stroke& stroke_;
    double half_;
    double limit_;
};

Segment SegmentBetween(Corner from, Corner to) {
    const double x = static_cast<double>(to.x) - from.x;
    const double y = static_cast<double>(to.y) - from.y;
    const double length = std::sqrt(x * x + y * y);
    return {{x / length, y / length}, length};
}

Segment Reversed(Segment s) { return {-s.direction, s.length}; }

void AddClosed(Outline& outline, SidePen& pen, const Corner* corners, std::size_t count,
               const Segment* segments) {
    for (std::size_t i = 0; i < count; ++i)
        pen.Join(corners[i], segments[(i + count - 1) % count], segments[i], false);
    outline.Close();
    for (std::size_t i = count; i-- > 0;)
        pen.Join(corners[i], Reversed(segments[i]), Reversed(segments[(i + count - 1) % count]),
                 true);
    outline.Close();
}

}  // namespace

void AddStroke(Outline& outline, const Corner* corners, std::size_t count, bool closed,
               const Stroke& stroke, Segment* segments) {
    SidePen pen(outline, stroke);
    if (count == 1) {
        if (stroke.cap == Cap::kButt) return;
        pen.End(corners[0], {1, 0});
        pen.End(corners[0], {-1, 0});
        outline.Close();
        return;
    }
    for (std::size_t i = 0; i < count; ++i)
        segments[i] = SegmentBetween(corners[i], corners[i + 1 < count ? i + 1 : 0]);
    if (closed && count > 2) return AddClosed(outline, pen, corners, count, segments);

    const std::size_t last = count - 1;
    for (std::size_t i = 1; i < last; ++i)
        pen.Join(corners[i], segments[i - 1], segments[i], false);
    pen.End(corners[last], segments[last - 1].direction);
    for (std::size_t i = last - 1; i > 0; --i)
        pen.Join(corners[i], Reversed(segments[i]), Reversed(segments[i - 1]), true);
    pen.End(corners[0], -segments[0].direction);
    outline.Close();
}

}  // namespace gfx::kit
