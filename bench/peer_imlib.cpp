// Imlib2 knows 32-bit pictures with straight alpha only.
#include <Imlib2.h>

#include <memory>

#include "library.h"

namespace bench {

namespace {

using Picture = std::shared_ptr<void>;

Picture Wrap(const Image& image, bool alpha) {
    const Imlib_Image made = imlib_create_image_using_data(image.width, image.height,
                                                           reinterpret_cast<DATA32*>(image.data));
    imlib_context_set_image(made);
    imlib_image_set_has_alpha(alpha);
    return {made, [](void* owned) {
                imlib_context_set_image(owned);
                imlib_free_image();
            }};
}

/// What a pass sets before it draws: the context is global.
void Select(const Picture& target, bool blend, int opacity) {
    imlib_context_set_image(target.get());
    imlib_context_set_blend(blend);
    imlib_context_set_color(kRed, kGreen, kBlue, opacity);
    imlib_context_set_color_modifier(nullptr);
}

Work MakeFill(Scene& scene, const Row& row, const Picture& target) {
    const bool half = row.operation == Operation::kBlend;
    return [target, half, &spots = scene.Spots(row)] {
        Select(target, half, half ? kHalf : 255);
        for (const Spot& s : spots)
            imlib_image_fill_rectangle(s.x, s.y, s.width, s.height);
    };
}

/// A colour modifier that halves the opacity.
Picture HalfModifier() {
    const Picture modifier(imlib_create_color_modifier(), [](void* owned) {
        imlib_context_set_color_modifier(owned);
        imlib_free_color_modifier();
    });
    DATA8 same[256], half[256];
    for (int i = 0; i < 256; ++i) {
        same[i] = static_cast<DATA8>(i);
        half[i] = static_cast<DATA8>((i + 1) / 2);
    }
    imlib_context_set_color_modifier(modifier.get());
    imlib_set_color_modifier_tables(same, same, same, half);
    imlib_context_set_color_modifier(nullptr);
    return modifier;
}

Work MakeBlit(Scene& scene, const Row& row, const Picture& target) {
    const bool over = row.operation == Operation::kOver;
    const AlphaForm form = over ? AlphaForm::kStraight : AlphaForm::kOpaque;
    const Picture source = Wrap(scene.Source(row, form), over);
    const Picture modifier = row.opacity == 1.0 ? Picture() : HalfModifier();
    return [source, target, modifier, over, &spots = scene.Spots(row)] {
        Select(target, over, 255);
        imlib_context_set_color_modifier(modifier.get());
        for (const Spot& s : spots) {
            imlib_blend_image_onto_image(source.get(), 0, s.sourceX, s.sourceY, s.width, s.height,
                                         s.x, s.y, s.width, s.height);
        }
    };
}

Work MakeTile(Scene& scene, const Row& row, const Picture& target) {
    const Picture source = Wrap(scene.Source(row, AlphaForm::kOpaque), false);
    return [source, target, row] {
        Select(target, false, 255);
        for (int y = 0; y < row.surfaceHeight; y += kTile) {
            for (int x = 0; x < row.surfaceWidth; x += kTile) {
                imlib_blend_image_onto_image(source.get(), 0, 0, 0, kTile, kTile, x, y, kTile,
                                             kTile);
            }
        }
    };
}

Work MakeLines(Scene& scene, const Row& row, const Picture& target) {
    if (row.dash) return {};
    return [target, half = row.half, antialias = row.antialias, &lines = scene.Segments(row)] {
        Select(target, half || antialias, half ? kHalf : 255);
        imlib_context_set_anti_alias(antialias);
        for (const Segment& line : lines) {
            imlib_image_draw_line(line.x0, line.y0, line.x1, line.y1, 0);
        }
    };
}

/// Imlib2 counts points at 96 dpi and starts a text at its top.
class Font {
public:
    Font(Scene& scene, int pixels) {
        const std::string name =
            std::string(scene.FontName()) + "/" + std::to_string(pixels * 72 / 96);
        font_ = imlib_load_font(name.c_str());
        imlib_context_set_font(font_);
        ascent_ = imlib_get_font_ascent();
    }
    ~Font() {
        imlib_context_set_font(font_);
        imlib_free_font();
    }
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;

    void Draw(const Text& text) const {
        imlib_context_set_font(font_);
        for (const TextLine& line : text.lines) {
            imlib_text_draw(line.x, line.y - ascent_, line.utf8.c_str());
        }
    }

private:
    Imlib_Font font_ = nullptr;
    int ascent_ = 0;
};

struct WarmFont {
    int size = 0;
    std::shared_ptr<Font> font;
};

/// The font of the warm row that ran last. Imlib2 shares equal fonts, so a cold row lets go of it.
WarmFont& HeldFont() {
    static WarmFont held;
    return held;
}

Work MakeText(Scene& scene, const Row& row, const Picture& target) {
    const Text& text = scene.TextOf(row);
    if (row.operation == Operation::kTextCold) {
        return [target, &scene, &text, size = row.fontSize] {
            Select(target, true, 255);
            HeldFont() = {};
            imlib_set_font_cache_size(0);  // drops fonts that are no longer used
            imlib_flush_font_cache();
            Font(scene, size).Draw(text);
        };
    }
    return [target, &scene, &text, size = row.fontSize] {
        Select(target, true, 255);
        WarmFont& warm = HeldFont();
        if (warm.size != size) warm = {size, std::make_shared<Font>(scene, size)};
        warm.font->Draw(text);
    };
}

Work MakePixels(Scene& scene, const Row& row, const Picture& target) {
    const std::vector<Point>& points = scene.Points();
    if (row.operation == Operation::kPixelGet) {
        return [target, &points, &scene] {
            Select(target, false, 255);
            Imlib_Color color;
            for (Point point : points) {
                imlib_image_query_pixel(point.x, point.y, &color);
                scene.sink +=
                    static_cast<std::uint32_t>(color.red << 16 | color.green << 8 | color.blue);
            }
        };
    }
    return [target, half = row.operation == Operation::kPixelBlend, &points] {
        Select(target, half, half ? kHalf : 255);
        for (Point point : points)
            imlib_image_draw_pixel(point.x, point.y, 0);
    };
}

Work Make(Scene& scene, const Row& row) {
    if (row.target != Format::k32 || row.source != Format::k32) return {};
    const Picture target = Wrap(scene.Target(row), false);
    switch (row.operation) {
        case Operation::kFill:
        case Operation::kBlend:
            return MakeFill(scene, row, target);
        case Operation::kCopy:
        case Operation::kOver:
            return MakeBlit(scene, row, target);
        case Operation::kTile:
            return MakeTile(scene, row, target);
        case Operation::kLine:
            return MakeLines(scene, row, target);
        case Operation::kText:
        case Operation::kTextCold:
            return MakeText(scene, row, target);
        case Operation::kPixelSet:
        case Operation::kPixelBlend:
        case Operation::kPixelGet:
            return MakePixels(scene, row, target);
        default:
            return {};
    }
}

}  // namespace

Library MakeImlib(Scene& scene) {
    imlib_add_path_to_font_path(scene.FontDirectory());
    return {"imlib2", [&scene](const Row& row) { return Make(scene, row); }};
}

}  // namespace bench
