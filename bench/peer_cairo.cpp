#include <cairo-ft.h>
#include <cairo.h>

#include <memory>

#include "library.h"

namespace bench {

namespace {

using Picture = std::shared_ptr<cairo_surface_t>;
using Context = std::shared_ptr<cairo_t>;

cairo_format_t Code(Format format, bool alpha) {
    if (format == Format::k32) return alpha ? CAIRO_FORMAT_ARGB32 : CAIRO_FORMAT_RGB24;
    return format == Format::k565 ? CAIRO_FORMAT_RGB16_565 : CAIRO_FORMAT_A8;
}

Picture Wrap(const Image& image, bool alpha) {
    return {cairo_image_surface_create_for_data(image.data, Code(image.format, alpha), image.width,
                                                image.height, image.pitch),
            [](cairo_surface_t* owned) { cairo_surface_destroy(owned); }};
}

Context On(const Image& image) {
    const Picture target = Wrap(image, false);
    return {cairo_create(target.get()), [](cairo_t* owned) { cairo_destroy(owned); }};
}

/// Coverage alone stands in an 8-bit picture, so a fill there writes the colour's grey as alpha.
void SetColor(cairo_t* context, Format format, double opacity) {
    if (format == Format::k8) opacity = GreyLevel() / 255.0;
    cairo_set_source_rgba(context, kRed / 255.0, kGreen / 255.0, kBlue / 255.0, opacity);
}

Work MakeFill(Scene& scene, const Row& row) {
    const Context context = On(scene.Target(row));
    const bool fill = row.operation == Operation::kFill;
    cairo_set_operator(context.get(), fill ? CAIRO_OPERATOR_SOURCE : CAIRO_OPERATOR_OVER);
    SetColor(context.get(), row.target, fill ? 1.0 : kHalf / 255.0);
    return [context, &spots = scene.Spots(row)] {
        for (const Spot& s : spots) {
            cairo_rectangle(context.get(), s.x, s.y, s.width, s.height);
            cairo_fill(context.get());
        }
    };
}

/// Calls `paint` with the clip set to each rectangle in turn.
template <typename Paint>
Work Clipped(const Context& context, const std::vector<Spot>& spots, Paint paint) {
    return [context, &spots, paint] {
        for (const Spot& s : spots) {
            cairo_save(context.get());
            cairo_rectangle(context.get(), s.x, s.y, s.width, s.height);
            cairo_clip(context.get());
            paint(context.get(), s);
            cairo_restore(context.get());
        }
    };
}

Work MakeMask(Scene& scene, const Row& row) {
    const Context context = On(scene.Target(row));
    SetColor(context.get(), row.target, 1.0);
    const Picture mask = Wrap(scene.Mask(row, MaskForm::kCoverage), true);
    return Clipped(context, scene.Spots(row), [mask](cairo_t* to, const Spot& s) {
        cairo_mask_surface(to, mask.get(), s.x - s.sourceX, s.y - s.sourceY);
    });
}

Work MakeCopy(Scene& scene, const Row& row) {
    const Context context = On(scene.Target(row));
    cairo_set_operator(context.get(), CAIRO_OPERATOR_SOURCE);
    const Picture source = Wrap(scene.Source(row, AlphaForm::kOpaque), false);
    const cairo_extend_t extend =
        row.operation == Operation::kTile ? CAIRO_EXTEND_REPEAT : CAIRO_EXTEND_NONE;
    return [context, source, extend, &spots = scene.Spots(row)] {
        for (const Spot& s : spots) {
            cairo_set_source_surface(context.get(), source.get(), s.x - s.sourceX, s.y - s.sourceY);
            cairo_pattern_set_filter(cairo_get_source(context.get()), CAIRO_FILTER_NEAREST);
            cairo_pattern_set_extend(cairo_get_source(context.get()), extend);
            cairo_rectangle(context.get(), s.x, s.y, s.width, s.height);
            cairo_fill(context.get());
        }
    };
}

Work MakeOver(Scene& scene, const Row& row) {
    const Picture source = Wrap(scene.Source(row, AlphaForm::kPremultiplied), true);
    return Clipped(On(scene.Target(row)), scene.Spots(row),
                   [source, opacity = row.opacity](cairo_t* to, const Spot& s) {
                       cairo_set_source_surface(to, source.get(), s.x - s.sourceX, s.y - s.sourceY);
                       cairo_pattern_set_filter(cairo_get_source(to), CAIRO_FILTER_NEAREST);
                       if (opacity == 1.0) {
                           cairo_paint(to);
                       } else {
                           cairo_paint_with_alpha(to, opacity);
                       }
                   });
}

Work MakeLines(Scene& scene, const Row& row) {
    const Context context = On(scene.Target(row));
    SetColor(context.get(), row.target, row.half ? kHalf / 255.0 : 1.0);
    cairo_set_line_width(context.get(), 1.0);
    cairo_set_antialias(context.get(),
                        row.antialias ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
    const double dashes[] = {kDashOn, kDashOff};
    if (row.dash) cairo_set_dash(context.get(), dashes, 2, 0.0);
    return [context, &lines = scene.Segments(row)] {
        for (const Segment& line : lines) {
            cairo_move_to(context.get(), line.x0 + 0.5, line.y0 + 0.5);
            cairo_line_to(context.get(), line.x1 + 0.5, line.y1 + 0.5);
            cairo_stroke(context.get());
        }
    };
}

void AddRoundRect(cairo_t* to, double x, double y, double w, double h, double r) {
    const double turn = 1.5707963267948966;
    cairo_new_sub_path(to);
    cairo_arc(to, x + w - r, y + r, r, -turn, 0);
    cairo_arc(to, x + w - r, y + h - r, r, 0, turn);
    cairo_arc(to, x + r, y + h - r, r, turn, 2 * turn);
    cairo_arc(to, x + r, y + r, r, 2 * turn, 3 * turn);
    cairo_close_path(to);
}

void AddShape(cairo_t* to, const Row& row) {
    const double middle = kShapeSurface / 2.0, size = row.shapeSize;
    switch (row.shape) {
        case Shape::kCircle:
        case Shape::kRing:
            return cairo_arc(to, middle, middle, size, 0, 6.283185307179586);
        case Shape::kRoundRect:
            return AddRoundRect(to, middle - size / 2, middle - kRoundRectHeight / 2.0, size,
                                kRoundRectHeight, kCornerRadius);
        case Shape::kStar:
            for (const Corner& corner : StarCorners(row.shapeSize))
                cairo_line_to(to, corner.x, corner.y);
            return cairo_close_path(to);
        case Shape::kWideLine:
            cairo_move_to(to, kLineStart, kLineStart);
            return cairo_line_to(to, kLineEndX, kLineEndY);
        default:
            return cairo_rectangle(to, middle - size / 2, middle - size / 2, size, size);
    }
}

void SetGradient(cairo_t* to, const Row& row) {
    const double middle = kShapeSurface / 2.0, half = row.shapeSize / 2.0;
    cairo_pattern_t* const made =
        row.shape == Shape::kLinear
            ? cairo_pattern_create_linear(middle - half, middle - half, middle + half,
                                          middle + half)
            : cairo_pattern_create_radial(middle, middle, 0, middle, middle, half);
    cairo_pattern_add_color_stop_rgb(made, 0, kRed / 255.0, kGreen / 255.0, kBlue / 255.0);
    cairo_pattern_add_color_stop_rgb(made, 1, (kGradientEnd >> 16 & 255) / 255.0,
                                     (kGradientEnd >> 8 & 255) / 255.0,
                                     (kGradientEnd & 255) / 255.0);
    cairo_set_source(to, made);
    cairo_pattern_destroy(made);
}

Work MakeShape(Scene& scene, const Row& row) {
    const Context context = On(scene.Target(row));
    SetColor(context.get(), row.target, 1.0);
    cairo_set_line_width(context.get(), row.shape == Shape::kRing ? kRingWidth : row.shapeSize);
    const bool gradient = row.shape == Shape::kLinear || row.shape == Shape::kRadial;
    const bool stroke = row.shape == Shape::kRing || row.shape == Shape::kWideLine;
    return [context, row, gradient, stroke] {
        if (gradient) SetGradient(context.get(), row);
        AddShape(context.get(), row);
        stroke ? cairo_stroke(context.get()) : cairo_fill(context.get());
    };
}

FT_Library Engine() {
    static const FT_Library engine = [] {
        FT_Library made = nullptr;
        FT_Init_FreeType(&made);
        return made;
    }();
    return engine;
}

/// A face opened by the font engine and handed to Cairo, which closes it when its caches let go.
class Font {
public:
    Font(const char* path, int size) {
        FT_Face face = nullptr;
        FT_New_Face(Engine(), path, 0, &face);
        font_ = cairo_ft_font_face_create_for_ft_face(face, FT_LOAD_NO_BITMAP);
        static const cairo_user_data_key_t key = {};
        cairo_font_face_set_user_data(
            font_, &key, face, [](void* owned) { FT_Done_Face(static_cast<FT_Face>(owned)); });
        cairo_matrix_t scale, identity;
        cairo_matrix_init_scale(&scale, size, size);
        cairo_matrix_init_identity(&identity);
        cairo_font_options_t* const options = cairo_font_options_create();
        cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
        cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_FULL);
        scaled_ = cairo_scaled_font_create(font_, &scale, &identity, options);
        cairo_font_options_destroy(options);
    }
    ~Font() {
        cairo_scaled_font_destroy(scaled_);
        cairo_font_face_destroy(font_);
    }
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;

    void Draw(cairo_t* to, const std::vector<cairo_glyph_t>& glyphs) const {
        cairo_set_scaled_font(to, scaled_);
        cairo_show_glyphs(to, glyphs.data(), static_cast<int>(glyphs.size()));
    }

private:
    cairo_font_face_t* font_ = nullptr;
    cairo_scaled_font_t* scaled_ = nullptr;
};

Work MakeText(Scene& scene, const Row& row) {
    std::vector<cairo_glyph_t> glyphs;
    for (const Glyph& glyph : scene.TextOf(row).glyphs) {
        glyphs.push_back({glyph.index, static_cast<double>(glyph.x), static_cast<double>(glyph.y)});
    }
    const Image target = scene.Target(row);
    if (row.operation == Operation::kTextCold) {
        return [&scene, target, glyphs, size = row.fontSize] {
            const Context context = On(target);  // a context keeps its last font alive
            SetColor(context.get(), target.format, 1.0);
            Font(scene.FontPath(), size).Draw(context.get(), glyphs);
        };
    }
    const Context context = On(target);
    SetColor(context.get(), row.target, 1.0);
    const auto font = std::make_shared<Font>(scene.FontPath(), row.fontSize);
    return [context, font, glyphs] { font->Draw(context.get(), glyphs); };
}

Work Make(Scene& scene, const Row& row) {
    const bool coverageOnly = row.target == Format::k8 || row.source == Format::k8;
    switch (row.operation) {
        case Operation::kFill:
            return MakeFill(scene, row);
        case Operation::kCopy:
        case Operation::kTile:
            return MakeCopy(scene, row);
        default:
            break;
    }
    if (coverageOnly) return {};
    switch (row.operation) {
        case Operation::kBlend:
            return MakeFill(scene, row);
        case Operation::kMask:
            return MakeMask(scene, row);
        case Operation::kConvert:
        case Operation::kDisplay:
            return MakeCopy(scene, row);
        case Operation::kOver:
            return MakeOver(scene, row);
        case Operation::kLine:
            return MakeLines(scene, row);
        case Operation::kShape:
            return MakeShape(scene, row);
        case Operation::kText:
        case Operation::kTextCold:
            return MakeText(scene, row);
        default:
            return {};
    }
}

}  // namespace

Library MakeCairo(Scene& scene) {
    return {"cairo", [&scene](const Row& row) { return Make(scene, row); }};
}

}  // namespace bench
