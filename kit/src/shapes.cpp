// Canvas: each shape becomes edges, and the edges' coverage is painted band by band.
#include <gfx/kit/shapes.h>

#include <algorithm>

#include "block.h"
#include "shape_outline.h"
#include "shape_paint.h"
#include "shape_raster.h"

namespace gfx::kit {
namespace {

/// A surface of the canvas's own; `surface` is null until it is needed.
class BandSurface {
public:
    explicit BandSurface(unsigned depth) : depth_(depth) {}
    BandSurface(const BandSurface&) = delete;
    BandSurface& operator=(const BandSurface&) = delete;
    ~BandSurface() noexcept(false) { GfxSurface::Delete(surface_); }

    /// At least `width` pixels wide and a band high. @throws const char* without memory.
    GfxSurface& OfWidth(int width) {
        if (surface_ == nullptr) surface_ = GfxSurface::New(depth_);
        if (surface_ == nullptr) throw "no memory for a surface";
        const unsigned needed = (static_cast<unsigned>(width) + 63) & ~63U;
        if (surface_->DX() < needed || surface_->Line(0) == nullptr) {
            surface_->Initialise(needed, kBandRows);
        }
        return *surface_;
    }

private:
    unsigned depth_;
    GfxSurface* surface_ = nullptr;
};

PixelBounds ClipOf(const GfxSurface& target) {
    int x, y;
    unsigned w, h;
    target.GetClipRect(x, y, w, h);
    return {x, y, x + static_cast<int>(w), y + static_cast<int>(h)};
}

struct Edges {
    double left, top, right, bottom;
};

Edges EdgesOf(FixedRect rect) {
    const Vector corner = VectorOf({rect.x, rect.y});
    return {corner.x, corner.y, corner.x + rect.w.Units(), corner.y + rect.h.Units()};
}

bool IsEmpty(FixedRect rect) { return rect.w.Units() <= 0 || rect.h.Units() <= 0; }

/// Clockwise, or the other way to cut it out of what lies around it.
void AddRoundRect(Outline& outline, Edges e, double radius, bool clockwise) {
    const double r =
        std::max(0.0, std::min({radius, (e.right - e.left) / 2, (e.bottom - e.top) / 2}));
    const Vector up{0, -1}, right{1, 0}, down{0, 1}, left{-1, 0};
    const Vector centers[] = {{e.left + r, e.top + r},
                              {e.right - r, e.top + r},
                              {e.right - r, e.bottom - r},
                              {e.left + r, e.bottom - r}};
    const Vector ways[] = {left, up, right, down, left};
    for (int i = 0; i < 4; ++i) {
        const int k = clockwise ? i : 3 - i;
        if (r == 0) {
            outline.Add(centers[k]);
        } else {
            outline.AddArc(centers[k], r, ways[clockwise ? k : k + 1], ways[clockwise ? k + 1 : k],
                           clockwise);
        }
    }
    outline.Close();
}

void AddCircle(Outline& outline, Vector center, double radius, bool clockwise) {
    AddRoundRect(outline,
                 {center.x - radius, center.y - radius, center.x + radius, center.y + radius},
                 radius, clockwise);
}

/// A ring's inner and outer radius.
struct Ring {
    double inner, outer;
};

Ring RingOf(Fixed radius, Fixed width) {
    const double half = width.Units() / 2.0;
    return {std::max(0.0, radius.Units() - half), radius.Units() + half};
}

/// The end of a piece of a ring, clockwise around `ahead`, the way the ring would go on.
void AddArcCap(Outline& outline, Vector center, Ring ring, Vector ahead, double radialSign,
               Cap cap) {
    const double half = (ring.outer - ring.inner) / 2;
    const Vector side = TurnLeft(ahead);
    const Vector middle = center + side * (radialSign * (ring.inner + half));
    if (cap == Cap::kRound) {
        outline.AddArc(middle, half, side, -side, true);
    } else if (cap == Cap::kSquare) {
        outline.Add(middle + side * half + ahead * half);
        outline.Add(middle + -side * half + ahead * half);
    }
}

/// The piece of a ring that `sweep`, not negative, goes on from `start`.
void AddArcPiece(Outline& outline, Vector center, Ring ring, Angle start, std::int32_t sweep,
                 Cap cap) {
    const Angle end = Angle::FromUnits((start.Units() & (Angle::kTurn - 1)) + sweep);
    outline.AddSweep(center, ring.outer, start, sweep);
    AddArcCap(outline, center, ring, TurnRight(DirectionOf(end)), 1, cap);
    outline.AddSweep(center, ring.inner, end, -sweep);
    AddArcCap(outline, center, ring, TurnLeft(DirectionOf(start)), -1, cap);
    outline.Close();
}

}  // namespace

struct Canvas::Scratch : GfxMemory {
    Raster raster;
    BandSurface mask{8};
    BandSurface words{32};
    Block<Corner> corners;
    Block<Segment> segments;
};

Canvas::~Canvas() noexcept(false) { delete scratch_; }

Canvas::Scratch& Canvas::Begin() {
    if (scratch_ == nullptr) scratch_ = new Scratch;
    scratch_->raster.Begin(ClipOf(*target_));
    return *scratch_;
}

void Canvas::Finish(FillRule rule, const Paint& paint) {
    Raster& raster = scratch_->raster;
    if (!raster.Prepare()) return;
    const Gradient* const gradient = paint.GetGradient();
    GfxSurface& mask = scratch_->mask.OfWidth(raster.Width());
    GfxSurface* const words =
        gradient == nullptr ? nullptr : &scratch_->words.OfWidth(raster.Width());
    auto* const bytes = static_cast<std::uint8_t*>(mask.Line(0));
    Band band;
    while (raster.NextBand(rule, bytes, static_cast<int>(mask.Pitch()), band)) {
        if (gradient == nullptr) {
            PaintColor(*target_, band, mask, paint.Word());
        } else {
            PaintGradient(*target_, band, *words, *gradient);
        }
    }
}

void Canvas::FillRect(FixedRect rect, const Paint& paint) { FillRoundRect(rect, 0, paint); }

void Canvas::FillRoundRect(FixedRect rect, Fixed radius, const Paint& paint) {
    if (IsEmpty(rect)) return;
    Outline outline(Begin().raster);
    AddRoundRect(outline, EdgesOf(rect), radius.Units(), true);
    Finish(FillRule::kNonZero, paint);
}

void Canvas::OutlineRoundRect(FixedRect rect, Fixed radius, Fixed width, const Paint& paint) {
    if (IsEmpty(rect) || width.Units() <= 0) return;
    Outline outline(Begin().raster);
    const Edges e = EdgesOf(rect);
    const double w = width.Units();
    AddRoundRect(outline, e, radius.Units(), true);
    const Edges inner{e.left + w, e.top + w, e.right - w, e.bottom - w};
    if (inner.left < inner.right && inner.top < inner.bottom) {
        const double r = std::min(
            {static_cast<double>(radius.Units()), (e.right - e.left) / 2, (e.bottom - e.top) / 2});
        AddRoundRect(outline, inner, r - w, false);
    }
    Finish(FillRule::kNonZero, paint);
}

void Canvas::FillCircle(Point center, Fixed radius, const Paint& paint) {
    if (radius.Units() <= 0) return;
    Outline outline(Begin().raster);
    AddCircle(outline, VectorOf(center), radius.Units(), true);
    Finish(FillRule::kNonZero, paint);
}

void Canvas::DrawCircle(Point center, Fixed radius, Fixed width, const Paint& paint) {
    if (radius.Units() < 0 || width.Units() <= 0) return;
    Outline outline(Begin().raster);
    const Ring ring = RingOf(radius, width);
    AddCircle(outline, VectorOf(center), ring.outer, true);
    if (ring.inner > 0) AddCircle(outline, VectorOf(center), ring.inner, false);
    Finish(FillRule::kNonZero, paint);
}

void Canvas::DrawArc(Point center, Fixed radius, Fixed width, Angle start, Angle sweep, Cap cap,
                     const Paint& paint) {
    if (radius.Units() < 0 || width.Units() <= 0) return;
    const std::int64_t way = sweep.Units();
    if (way >= Angle::kTurn || way <= -Angle::kTurn)
        return DrawCircle(center, radius, width, paint);
    // Drawn clockwise always: an arc that goes the other way starts at its end.
    const auto length = static_cast<std::int32_t>(way < 0 ? -way : way);
    const std::int32_t within = start.Units() & (Angle::kTurn - 1);
    const Angle from = Angle::FromUnits(way < 0 ? within - length : within);
    Outline outline(Begin().raster);
    AddArcPiece(outline, VectorOf(center), RingOf(radius, width), from, length, cap);
    Finish(FillRule::kNonZero, paint);
}

void Canvas::FillPolygon(const Point* points, int count, FillRule rule, const Paint& paint) {
    if (points == nullptr || count < 3) return;
    Outline outline(Begin().raster);
    for (int i = 0; i < count; ++i)
        outline.Add(VectorOf(points[i]));
    outline.Close();
    Finish(rule, paint);
}

void Canvas::DrawLine(Point from, Point to, const Stroke& stroke, const Paint& paint) {
    const Point points[] = {from, to};
    DrawPolyline(points, 2, false, stroke, paint);
}

void Canvas::DrawPolyline(const Point* points, int count, bool closed, const Stroke& stroke,
                          const Paint& paint) {
    if (points == nullptr || count < 1 || stroke.width.Units() <= 0) return;
    Scratch& scratch = Begin();
    Block<Corner>& corners = scratch.corners;
    corners.Clear();
    for (int i = 0; i < count; ++i) {
        const Corner corner{points[i].x.Units(), points[i].y.Units()};
        const std::size_t n = corners.Count();
        if (n == 0 || corner.x != corners[n - 1].x || corner.y != corners[n - 1].y)
            corners.Append(corner);
    }
    std::size_t n = corners.Count();
    if (closed && n > 1 && corners[0].x == corners[n - 1].x && corners[0].y == corners[n - 1].y)
        --n;
    scratch.segments.Reserve(n);
    Outline outline(scratch.raster);
    AddStroke(outline, corners.Data(), n, closed, stroke, scratch.segments.Data());
    Finish(FillRule::kNonZero, paint);
}

}  // namespace gfx::kit
