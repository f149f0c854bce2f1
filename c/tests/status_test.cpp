// What is refused, and by which status.
#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <set>
#include <string>

#include "world.h"

namespace {

using test::World;

TEST(Status, RefusalsOfTheEngineKeepTheirTexts) {
    gfx_use_runtime_memory();
    World w;
    gfx_surface* made = nullptr;
    const unsigned tooLarge = 1U + INT_MAX;
    const struct {
        gfx_status got;
        gfx_status expected;
        const char* text;
    } cases[] = {
        {gfx_surface_new(33, &made), GFX_DEPTH_REFUSED, "bpp < 33"},
        {gfx_surface_initialise(w.cSurface, tooLarge, 1), GFX_WIDTH_REFUSED, "dx <= INT_MAX"},
        {gfx_surface_initialise(w.cSurface, 1, tooLarge), GFX_HEIGHT_REFUSED, "dy <= INT_MAX"},
        {gfx_surface_initialise_over(w.cSurface, 2, 1, &w, 7, false), GFX_PITCH_REFUSED,
         "row <= pitch"},
        {gfx_surface_draw_line(w.cSurface, 0, 0, 10000, 1, 0), GFX_LINE_TOO_WIDE,
         "dx < MAX_LINE_LENGTH"},
        {gfx_surface_draw_aa_line(w.cSurface, 0, 0, 1, 10000, 0), GFX_LINE_TOO_TALL,
         "dy < MAX_LINE_LENGTH"},
        {gfx_font_cache_open_face(w.cFont, "no such file", 9, true), GFX_NO_FACE,
         "no face could be opened"},
        {gfx_font_cache_open_face(w.cFont, nullptr, 9, true), GFX_NO_FACE,
         "no face could be opened"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.got, c.expected) << c.text;
        EXPECT_STREQ(gfx_status_text(c.got), c.text);
    }
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(w.surface->DX(), World::kWidth) << "refused sizes leave the surface as it was";
}

TEST(Status, EveryStatusHasATextOfItsOwn) {
    std::set<std::string> texts;
    for (int status = GFX_OK; status <= GFX_UNKNOWN_EXCEPTION + 1; ++status)
        texts.insert(gfx_status_text(static_cast<gfx_status>(status)));
    EXPECT_EQ(texts.size(), GFX_UNKNOWN_EXCEPTION + 2U);
}

TEST(Status, ObjectsWithoutHooksAreRefused) {
    GfxMemory::fn_alloc = nullptr;
    gfx_surface* surface = nullptr;
    gfx_font_cache* font = nullptr;
    EXPECT_EQ(gfx_surface_new(8, &surface), GFX_NO_HOOKS);
    EXPECT_EQ(gfx_font_cache_new(&font), GFX_NO_HOOKS);
    const gfx_memory_hooks half = {nullptr, test::Blocks::Allocate, nullptr};
    EXPECT_EQ(gfx_set_memory_hooks(&half), GFX_NULL_ARGUMENT);
    EXPECT_EQ(gfx_set_memory_hooks(nullptr), GFX_NULL_ARGUMENT);
    EXPECT_EQ(GfxMemory::fn_alloc, nullptr) << "refused hooks are not set";
    gfx_use_runtime_memory();
    EXPECT_EQ(gfx_surface_new(8, &surface), GFX_OK);
    EXPECT_EQ(gfx_surface_delete(&surface), GFX_OK);
    EXPECT_EQ(surface, nullptr);
}

TEST(Status, MissingPlacesForResultsAreRefused) {
    gfx_use_runtime_memory();
    World w;
    gfx_glyph_image image;
    gfx_glyph_geom geom;
    const gfx_status all[] = {gfx_surface_get_clip_rect(w.cSurface, nullptr),
                              gfx_surface_dx(w.cSurface, nullptr),
                              gfx_surface_dy(w.cSurface, nullptr),
                              gfx_surface_depth(w.cSurface, nullptr),
                              gfx_surface_alpha(w.cSurface, nullptr),
                              gfx_surface_pitch(w.cSurface, nullptr),
                              gfx_surface_is_empty(w.cSurface, nullptr),
                              gfx_surface_line(w.cSurface, 0, nullptr),
                              gfx_surface_ret_pixel_rgb(w.cSurface, 0, 0, nullptr),
                              gfx_surface_ret_pixel_merge_rgb(w.cSurface, 0, 0, 0, 0, nullptr),
                              gfx_surface_quick_blt_to565(w.cSurface, 0, 0, 9, 9, nullptr, 18),
                              gfx_surface_quick_blt_to555(w.cSurface, 0, 0, 9, 9, nullptr, 18),
                              gfx_surface_quick_blt_to24(w.cSurface, 0, 0, 9, 9, nullptr, 18),
                              gfx_surface_quick_blt_to32(w.cSurface, 0, 0, 9, 9, nullptr, 18),
                              gfx_surface_delete(nullptr),
                              gfx_font_cache_delete(nullptr),
                              gfx_font_cache_has_glyph(w.cFont, 'g', nullptr),
                              gfx_font_cache_typo_ascender(w.cFont, nullptr),
                              gfx_font_cache_typo_descender(w.cFont, nullptr),
                              gfx_font_cache_typo_line_gap(w.cFont, nullptr),
                              gfx_font_cache_access_glyph(w.cFont, 'g', nullptr, &geom),
                              gfx_font_cache_access_glyph(w.cFont, 'g', &image, nullptr),
                              gfx_font_cache_get_glyph_geometry(w.cFont, 'g', nullptr)};
    for (const gfx_status status : all)
        EXPECT_EQ(status, GFX_NULL_ARGUMENT) << &status - all;
}

TEST(Status, NumbersWithoutANameInTheKitAreRefusedAndDrawNothing) {
    gfx_use_runtime_memory();
    World w, untouched;
    const gfx_paint ink = {nullptr, 0};
    const gfx_point p[] = {{0, 0}, {2560, 99}, {99, 2560}};
    const gfx_picture_rect all = {0, 0, 9, 9};
    const uint32_t colors[256] = {};
    const gfx_status refused[] = {
        gfx_canvas_draw_arc(w.cCanvas, p[1], 999, 256, 0, 1 << 22, 3, ink),
        gfx_canvas_fill_polygon(w.cCanvas, p, 3, 2, ink),
        gfx_canvas_draw_line(w.cCanvas, p[0], p[1], {256, 3, 0, 0}, ink),
        gfx_canvas_draw_line(w.cCanvas, p[0], p[1], {256, 0, 3, 0}, ink),
        gfx_canvas_draw_polyline(w.cCanvas, p, 3, true, {256, 3, 0, 0}, ink),
        gfx_draw_string(w.cSurface, w.cTextFont, 9, 9, "a", 1, 0, 3, 0, nullptr),
        gfx_draw_string(w.cSurface, w.cTextFont, 9, 9, "a", 1, 0, 0, 3, nullptr),
        gfx_draw_string_in_box(w.cSurface, w.cTextFont, {0, 0, 9, 9}, "a", 1,
                               {0, 0, 4, 0, false, false}, nullptr),
        gfx_draw_scaled(w.cSurface, all, w.cSource, all, 3, 0),
        gfx_draw_scaled(w.cSurface, all, w.cSource, all, 0, 2),
        gfx_draw_oriented(w.cSurface, 0, 0, w.cSource, all, 8, 0),
        gfx_draw_oriented(w.cSurface, 0, 0, w.cSource, all, 0, 2),
        gfx_draw_indexed(w.cSurface, 0, 0, w.cMask, all, colors, -1, 2)};
    for (const gfx_status status : refused)
        EXPECT_EQ(status, GFX_NO_SUCH_VALUE) << &status - refused;
    EXPECT_EQ(w.State(), untouched.State());
}

// As where the host is C++ with hooks of its own, which may throw anything.
TEST(Status, ExceptionsOfForeignHooksEndAtTheBorder) {
    GfxMemory::fn_free = [](void*, void* block) { std::free(block); };
    gfx_surface* made = nullptr;
    GfxMemory::fn_alloc = [](void*, unsigned long) -> void* { throw 7; };
    EXPECT_EQ(gfx_surface_new(8, &made), GFX_UNKNOWN_EXCEPTION);
    GfxMemory::fn_alloc = [](void*, unsigned long) -> void* { throw std::bad_alloc(); };
    EXPECT_EQ(gfx_surface_new(8, &made), GFX_NO_MEMORY);
    GfxMemory::fn_alloc = [](void*, unsigned long) -> void* { return nullptr; };
    EXPECT_EQ(gfx_surface_new(8, &made), GFX_NO_MEMORY);
    GfxMemory::fn_alloc = [](void*, unsigned long) -> void* { throw "of the host's own"; };
    EXPECT_EQ(gfx_surface_new(8, &made), GFX_UNKNOWN_EXCEPTION);
    EXPECT_EQ(made, nullptr);
    gfx_use_runtime_memory();
}

TEST(Status, VersionIsTheEngines) {
    EXPECT_EQ(gfx_c_version(), static_cast<unsigned>(GFX_C_VERSION));
    EXPECT_EQ(gfx_c_version(), GfxVersion());
}

}  // namespace
