// The kit through its public headers, as a host uses it.
#include <gfx/gfx.h>
#include <gfx/kit/shapes.h>

#include <memory>

#include "library.h"

namespace bench {

namespace {

namespace kit = gfx::kit;

/// A surface and the canvas on it; they must stay together at one address.
struct KitCanvas {
    explicit KitCanvas(const Image& image) {
        surface.reset(GfxSurface::New(image.format == Format::k32 ? 32u : 16u));
        surface->Initialise(static_cast<unsigned>(image.width), static_cast<unsigned>(image.height),
                            image.data, static_cast<unsigned>(image.pitch), false);
        canvas = std::make_unique<kit::Canvas>(*surface);
    }

    struct Deleter {
        void operator()(GfxSurface* owned) const { GfxSurface::Delete(owned); }
    };
    std::unique_ptr<GfxSurface, Deleter> surface;
    std::unique_ptr<kit::Canvas> canvas;
};

constexpr int kMiddle = kShapeSurface / 2;
constexpr kit::Color kInk = kit::Color::FromRgb(kColor);

kit::FixedRect Around(int width, int height) {
    return {kMiddle - width / 2, kMiddle - height / 2, width, height};
}

Work MakeStar(const std::shared_ptr<KitCanvas>& on, int size) {
    std::vector<kit::Point> points;
    for (const Corner& corner : StarCorners(size))
        points.push_back({corner.x, corner.y});
    return [on, points] {
        on->canvas->FillPolygon(points.data(), static_cast<int>(points.size()),
                                kit::FillRule::kNonZero, kInk);
    };
}

/// The gradient is made once a pass, as the peers make theirs.
Work MakeGradient(const std::shared_ptr<KitCanvas>& on, Shape shape, int size) {
    const kit::Color end = kit::Color::FromRgb(kGradientEnd);
    const kit::FixedRect rect = Around(size, size);
    const kit::Point from = {rect.x, rect.y}, to = {rect.x + rect.w, rect.y + rect.h};
    if (shape == Shape::kLinear) {
        return [=] { on->canvas->FillRect(rect, kit::Gradient::Linear(from, to, kInk, end)); };
    }
    return [=] {
        on->canvas->FillRect(rect, kit::Gradient::Radial({kMiddle, kMiddle}, size / 2, kInk, end));
    };
}

Work Make(Scene& scene, const Row& row) {
    if (row.operation != Operation::kShape) return {};
    const auto on = std::make_shared<KitCanvas>(scene.Target(row));
    const int size = row.shapeSize;
    const kit::Point middle = {kMiddle, kMiddle};
    switch (row.shape) {
        case Shape::kCircle:
            return [=] { on->canvas->FillCircle(middle, size, kInk); };
        case Shape::kRoundRect:
            return [=] {
                on->canvas->FillRoundRect(Around(size, kRoundRectHeight), kCornerRadius, kInk);
            };
        case Shape::kStar:
            return MakeStar(on, size);
        case Shape::kWideLine:
            return [=] {
                kit::Stroke stroke;
                stroke.width = size;
                on->canvas->DrawLine({kLineStart, kLineStart}, {kLineEndX, kLineEndY}, stroke,
                                     kInk);
            };
        case Shape::kRing:
            return [=] { on->canvas->DrawCircle(middle, size, kRingWidth, kInk); };
        default:
            return MakeGradient(on, row.shape, size);
    }
}

}  // namespace

Library MakeKit(Scene& scene) {
    return {"gfx", [&scene](const Row& row) { return Make(scene, row); }};
}

}  // namespace bench
