// AGG is a set of templates, compiled here with the options of the benchmark and inlined.
// g++ 12 warns inside AGG's headers of coordinates that a command of their own leaves unset.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <agg_conv_dash.h>
#include <agg_conv_stroke.h>
#include <agg_ellipse.h>
#include <agg_path_storage.h>
#include <agg_pixfmt_gray.h>
#include <agg_pixfmt_rgb.h>
#include <agg_pixfmt_rgb_packed.h>
#include <agg_pixfmt_rgba.h>
#include <agg_rasterizer_scanline_aa.h>
#include <agg_renderer_base.h>
#include <agg_renderer_primitives.h>
#include <agg_renderer_scanline.h>
#include <agg_rendering_buffer.h>
#include <agg_rounded_rect.h>
#include <agg_scanline_p.h>

#include <memory>

#include "library.h"

namespace bench {

namespace {

std::shared_ptr<agg::rendering_buffer> Wrap(const Image& image) {
    return std::make_shared<agg::rendering_buffer>(image.data, static_cast<unsigned>(image.width),
                                                   static_cast<unsigned>(image.height),
                                                   image.pitch);
}

/// A target or source in one of AGG's pixel formats. Its address must stay: parts point at parts.
template <typename PixelFormat>
struct Canvas {
    explicit Canvas(const Image& image) : memory(Wrap(image)), pixels(*memory), base(pixels) {}
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    std::shared_ptr<agg::rendering_buffer> memory;
    PixelFormat pixels;
    agg::renderer_base<PixelFormat> base;
};

template <typename Color>
Color MakeColor(int opacity) {
    return Color(agg::rgba8(kRed, kGreen, kBlue, static_cast<unsigned>(opacity)));
}

template <>
agg::gray8 MakeColor<agg::gray8>(int opacity) {
    return agg::gray8(GreyLevel(), static_cast<unsigned>(opacity));
}

agg::rect_i SourceRect(const Spot& s) {
    return {s.sourceX, s.sourceY, s.sourceX + s.width - 1, s.sourceY + s.height - 1};
}

template <typename PixelFormat>
Work MakeFill(Scene& scene, const Row& row) {
    using Color = typename PixelFormat::color_type;
    const auto canvas = std::make_shared<Canvas<PixelFormat>>(scene.Target(row));
    const std::vector<Spot>& spots = scene.Spots(row);
    if (row.operation == Operation::kFill) {
        return [canvas, &spots, color = MakeColor<Color>(255)] {
            for (const Spot& s : spots) {
                canvas->base.copy_bar(s.x, s.y, s.x + s.width - 1, s.y + s.height - 1, color);
            }
        };
    }
    return [canvas, &spots, color = MakeColor<Color>(kHalf)] {
        for (const Spot& s : spots) {
            canvas->base.blend_bar(s.x, s.y, s.x + s.width - 1, s.y + s.height - 1, color,
                                   agg::cover_full);
        }
    };
}

template <typename PixelFormat>
Work MakeMask(Scene& scene, const Row& row) {
    using Color = typename PixelFormat::color_type;
    const auto canvas = std::make_shared<Canvas<PixelFormat>>(scene.Target(row));
    return [canvas, mask = scene.Mask(row, MaskForm::kCoverage), &spots = scene.Spots(row),
            color = MakeColor<Color>(255)] {
        for (const Spot& s : spots) {
            for (int y = 0; y < s.height; ++y) {
                canvas->base.blend_solid_hspan(s.x, s.y + y, s.width, color,
                                               mask.At(s.sourceX, s.sourceY + y));
            }
        }
    };
}

template <typename PixelFormat>
Work MakeCopy(Scene& scene, const Row& row) {
    const auto canvas = std::make_shared<Canvas<PixelFormat>>(scene.Target(row));
    const auto source = Wrap(scene.Source(row, AlphaForm::kOpaque));
    if (row.operation == Operation::kTile) {
        return [canvas, source, row] {
            for (int y = 0; y < row.surfaceHeight; y += kTile) {
                for (int x = 0; x < row.surfaceWidth; x += kTile) {
                    canvas->base.copy_from(*source, nullptr, x, y);
                }
            }
        };
    }
    return [canvas, source, &spots = scene.Spots(row)] {
        for (const Spot& s : spots) {
            const agg::rect_i from = SourceRect(s);
            canvas->base.copy_from(*source, &from, s.x - s.sourceX, s.y - s.sourceY);
        }
    };
}

template <typename PixelFormat, typename SourceFormat>
Work MakeOver(Scene& scene, const Row& row, AlphaForm form) {
    const auto canvas = std::make_shared<Canvas<PixelFormat>>(scene.Target(row));
    const auto source = std::make_shared<Canvas<SourceFormat>>(scene.Source(row, form));
    const auto cover = static_cast<agg::cover_type>(row.opacity * 255 + 0.5);
    return [canvas, source, cover, &spots = scene.Spots(row)] {
        for (const Spot& s : spots) {
            const agg::rect_i from = SourceRect(s);
            canvas->base.blend_from(source->pixels, &from, s.x - s.sourceX, s.y - s.sourceY, cover);
        }
    };
}

template <typename PixelFormat>
Work MakeAliasedLines(Scene& scene, const Row& row) {
    using Base = agg::renderer_base<PixelFormat>;
    const auto canvas = std::make_shared<Canvas<PixelFormat>>(scene.Target(row));
    const auto pen = std::make_shared<agg::renderer_primitives<Base>>(canvas->base);
    pen->line_color(MakeColor<typename PixelFormat::color_type>(row.half ? kHalf : 255));
    return [canvas, pen, &lines = scene.Segments(row)] {
        for (const Segment& line : lines) {
            pen->line(pen->coord(line.x0), pen->coord(line.y0), pen->coord(line.x1),
                      pen->coord(line.y1), true);
        }
    };
}

/// Anti-aliased lines are outlines of strokes one unit wide, through pixel centres.
template <typename PixelFormat>
struct Stroker {
    using Base = agg::renderer_base<PixelFormat>;

    explicit Stroker(const Image& image) : canvas(image), solid(canvas.base) {}

    template <typename Source>
    void Draw(Source& path, double width = 1.0) {
        agg::conv_stroke<Source> stroke(path);
        stroke.width(width);
        Fill(stroke);
    }

    template <typename Outline>
    void Fill(Outline& outline) {
        raster.reset();
        raster.add_path(outline);
        agg::render_scanlines(raster, scanline, solid);
    }

    void Draw(const Segment& line, bool dash) {
        agg::path_storage path;
        path.move_to(line.x0 + 0.5, line.y0 + 0.5);
        path.line_to(line.x1 + 0.5, line.y1 + 0.5);
        if (!dash) return Draw(path);
        agg::conv_dash<agg::path_storage> dashed(path);
        dashed.add_dash(kDashOn, kDashOff);
        Draw(dashed);
    }

    Canvas<PixelFormat> canvas;
    agg::renderer_scanline_aa_solid<Base> solid;
    agg::rasterizer_scanline_aa<> raster;
    agg::scanline_p8 scanline;
};

template <typename PixelFormat>
Work MakeLines(Scene& scene, const Row& row) {
    if (!row.antialias) return row.dash ? Work{} : MakeAliasedLines<PixelFormat>(scene, row);
    const auto stroker = std::make_shared<Stroker<PixelFormat>>(scene.Target(row));
    stroker->solid.color(MakeColor<typename PixelFormat::color_type>(row.half ? kHalf : 255));
    return [stroker, &lines = scene.Segments(row), dash = row.dash] {
        for (const Segment& line : lines)
            stroker->Draw(line, dash);
    };
}

template <typename PixelFormat>
void DrawShape(Stroker<PixelFormat>& to, const Row& row) {
    const double middle = kShapeSurface / 2.0, size = row.shapeSize;
    agg::ellipse circle(middle, middle, size, size);
    agg::rounded_rect rect(middle - size / 2, middle - kRoundRectHeight / 2.0, middle + size / 2,
                           middle + kRoundRectHeight / 2.0, kCornerRadius);
    agg::path_storage path;
    if (row.shape == Shape::kCircle) return to.Fill(circle);
    if (row.shape == Shape::kRing) return to.Draw(circle, kRingWidth);
    if (row.shape == Shape::kRoundRect) return to.Fill(rect);
    if (row.shape == Shape::kStar) {
        for (const Corner& at : StarCorners(row.shapeSize))
            path.total_vertices() == 0 ? path.move_to(at.x, at.y) : path.line_to(at.x, at.y);
        return to.Fill(path);
    }
    path.move_to(kLineStart, kLineStart);
    path.line_to(kLineEndX, kLineEndY);
    to.Draw(path, size);
}

template <typename PixelFormat>
Work MakeShape(Scene& scene, const Row& row) {
    if (row.shape == Shape::kLinear || row.shape == Shape::kRadial) return {};
    const auto stroker = std::make_shared<Stroker<PixelFormat>>(scene.Target(row));
    stroker->solid.color(MakeColor<typename PixelFormat::color_type>(255));
    return [stroker, row] { DrawShape(*stroker, row); };
}

template <typename PixelFormat>
Work MakePixels(Scene& scene, const Row& row) {
    using Color = typename PixelFormat::color_type;
    const auto canvas = std::make_shared<Canvas<PixelFormat>>(scene.Target(row));
    const std::vector<Point>& points = scene.Points();
    switch (row.operation) {
        case Operation::kPixelSet:
            return [canvas, &points, color = MakeColor<Color>(255)] {
                for (Point point : points)
                    canvas->base.copy_pixel(point.x, point.y, color);
            };
        case Operation::kPixelBlend:
            return [canvas, &points, color = MakeColor<Color>(kHalf)] {
                for (Point point : points) {
                    canvas->base.blend_pixel(point.x, point.y, color, agg::cover_full);
                }
            };
        default:
            return [canvas, &points, &scene] {
                for (Point point : points) {
                    const Color c = canvas->base.pixel(point.x, point.y);
                    scene.sink += static_cast<std::uint32_t>(c.r << 16 | c.g << 8 | c.b);
                }
            };
    }
}

/// What every pixel format can do.
template <typename PixelFormat>
Work MakeCommon(Scene& scene, const Row& row) {
    switch (row.operation) {
        case Operation::kFill:
        case Operation::kBlend:
            return MakeFill<PixelFormat>(scene, row);
        case Operation::kMask:
            return MakeMask<PixelFormat>(scene, row);
        case Operation::kCopy:
        case Operation::kTile:
            return MakeCopy<PixelFormat>(scene, row);
        default:
            return {};
    }
}

template <typename PixelFormat>
Work MakeColored(Scene& scene, const Row& row) {
    switch (row.operation) {
        case Operation::kLine:
            return MakeLines<PixelFormat>(scene, row);
        case Operation::kShape:
            return MakeShape<PixelFormat>(scene, row);
        case Operation::kPixelSet:
        case Operation::kPixelBlend:
        case Operation::kPixelGet:
            return MakePixels<PixelFormat>(scene, row);
        default:
            return MakeCommon<PixelFormat>(scene, row);
    }
}

Work Make(Scene& scene, const Row& row) {
    if (row.target == Format::k8) return MakeCommon<agg::pixfmt_gray8>(scene, row);
    const bool over = row.operation == Operation::kOver;
    if (row.target == Format::k565) {
        if (!over) return MakeColored<agg::pixfmt_rgb565>(scene, row);
        if (row.opacity != 1.0) return {};  // the 5-6-5 blender leaves the cover out of account
        return MakeOver<agg::pixfmt_rgb565, agg::pixfmt_bgra32>(scene, row, AlphaForm::kStraight);
    }
    // Blending a picture into bgrx32 skips every pixel at full coverage; bgra32_pre draws them.
    if (!over) return MakeColored<agg::pixfmt_bgrx32>(scene, row);
    return MakeOver<agg::pixfmt_bgra32_pre, agg::pixfmt_bgra32_pre>(scene, row,
                                                                    AlphaForm::kPremultiplied);
}

}  // namespace

Library MakeAgg(Scene& scene) {
    return {"agg", [&scene](const Row& row) { return Make(scene, row); }};
}

}  // namespace bench
