// The kit's text in C.
#include <gfx/c/kit/text.h>
#include <gfx/kit/text.h>

#include <string_view>

#include "kit_objects.h"

using gfx::c::IsNamed;
using gfx::c::On;
using namespace gfx::kit;

// Found by the templates of guard.h, as those of the engine's handles are.
static Font* Engine(gfx_font* f) { return reinterpret_cast<Font*>(f); }
static const Font* Engine(const gfx_font* f) { return reinterpret_cast<const Font*>(f); }

static std::string_view Text(const char* text, size_t length) {
    return length == GFX_WHOLE_TEXT ? std::string_view(text) : std::string_view(text, length);
}

gfx_status gfx_font_new(gfx_font_cache* face, gfx_font** font) noexcept {
    if (face == nullptr) return GFX_NULL_ARGUMENT;
    return gfx::c::MakeObject(font,
                              [&] { return gfx::c::MakeInHooks<Font>(*gfx::c::Engine(face)); });
}

gfx_status gfx_font_delete(gfx_font** font) noexcept {
    return gfx::c::DestroyObject(font, gfx::c::DestroyInHooks<Font>);
}

gfx_status gfx_font_add_face(gfx_font* font, gfx_font_cache* face) noexcept {
    if (face == nullptr) return GFX_NULL_ARGUMENT;
    bool isAdded = false;
    const gfx_status status =
        On(font, [&](Font& f) { isAdded = f.AddFace(*gfx::c::Engine(face)); });
    return status == GFX_OK && !isAdded ? GFX_TOO_MANY_FACES : status;
}

gfx_status gfx_font_set_replacement(gfx_font* font, uint32_t code) noexcept {
    return On(font, [&](Font& f) { f.SetReplacement(code); });
}

gfx_status gfx_font_set_tracking(gfx_font* font, int pixels) noexcept {
    return On(font, [&](Font& f) { f.SetTracking(pixels); });
}

gfx_status gfx_font_set_line_metrics(gfx_font* font, gfx_line_metrics metrics) noexcept {
    return On(font,
              [&](Font& f) { f.SetLineMetrics(metrics.ascent, metrics.descent, metrics.gap); });
}

gfx_status gfx_font_line_metrics(const gfx_font* font, gfx_line_metrics* metrics) noexcept {
    if (metrics == nullptr) return GFX_NULL_ARGUMENT;
    return On(font, [&](const Font& f) { *metrics = {f.Ascent(), f.Descent(), f.LineGap()}; });
}

gfx_status gfx_font_has(const gfx_font* font, uint32_t code, bool* has) noexcept {
    if (has == nullptr) return GFX_NULL_ARGUMENT;
    return On(font, [&](const Font& f) { *has = f.Has(code); });
}

gfx_status gfx_measure_string(const gfx_font* font, const char* text, size_t length,
                              int* width) noexcept {
    if (text == nullptr || width == nullptr) return GFX_NULL_ARGUMENT;
    return On(font, [&](const Font& f) { *width = MeasureString(f, Text(text, length)); });
}

gfx_status gfx_draw_string(gfx_surface* target, const gfx_font* font, int x, int y,
                           const char* text, size_t length, uint32_t color, gfx_align_x align,
                           gfx_turn turn, int* width) noexcept {
    if (target == nullptr || text == nullptr) return GFX_NULL_ARGUMENT;
    if (!IsNamed(align, AlignX::kRight) || !IsNamed(turn, Turn::kDown)) return GFX_NO_SUCH_VALUE;
    return On(font, [&](const Font& f) {
        const int w =
            DrawString(*gfx::c::Engine(target), f, x, y, Text(text, length), Color::FromWord(color),
                       static_cast<AlignX>(align), static_cast<Turn>(turn));
        if (width != nullptr) *width = w;
    });
}

gfx_status gfx_next_line(const gfx_font* font, const char* text, size_t length, int maxWidth,
                         gfx_text_line* line) noexcept {
    if (text == nullptr || line == nullptr) return GFX_NULL_ARGUMENT;
    return On(font, [&](const Font& f) {
        const TextLine l = NextLine(f, Text(text, length), maxWidth);
        *line = {l.length, l.next, l.width};
    });
}

gfx_status gfx_fit_string(const gfx_font* font, const char* text, size_t length, int maxWidth,
                          gfx_text_fit* fit) noexcept {
    if (text == nullptr || fit == nullptr) return GFX_NULL_ARGUMENT;
    return On(font, [&](const Font& f) {
        const TextFit t = FitString(f, Text(text, length), maxWidth);
        *fit = {t.length, t.width, t.hasEllipsis};
    });
}

gfx_status gfx_draw_string_in_box(gfx_surface* target, const gfx_font* font, gfx_text_box box,
                                  const char* text, size_t length, gfx_text_style style,
                                  int* lines) noexcept {
    if (target == nullptr || text == nullptr) return GFX_NULL_ARGUMENT;
    if (!IsNamed(style.align_x, AlignX::kRight) || !IsNamed(style.align_y, AlignY::kBottom) ||
        !IsNamed(style.turn, Turn::kDown)) {
        return GFX_NO_SUCH_VALUE;
    }
    return On(font, [&](const Font& f) {
        TextStyle s;
        s.color = Color::FromWord(style.color);
        s.alignX = static_cast<AlignX>(style.align_x);
        s.alignY = static_cast<AlignY>(style.align_y);
        s.wrap = style.wrap;
        s.ellipsis = style.ellipsis;
        s.turn = static_cast<Turn>(style.turn);
        const int drawn = DrawStringInBox(*gfx::c::Engine(target), f, {box.x, box.y, box.w, box.h},
                                          Text(text, length), s);
        if (lines != nullptr) *lines = drawn;
    });
}
