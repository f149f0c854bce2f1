// GfxSurface in C: each function hands its arguments on.
#include <gfx/c/surface.h>

#include "guard.h"

using gfx::c::Engine;
using gfx::c::On;

gfx_status gfx_surface_new(unsigned int bitsPerPixel, gfx_surface** surface) noexcept {
    return gfx::c::MakeObject(surface, [&] { return GfxSurface::New(bitsPerPixel); });
}

gfx_status gfx_surface_delete(gfx_surface** surface) noexcept {
    return gfx::c::DestroyObject(surface, [](GfxSurface* s) { GfxSurface::Delete(s); });
}

gfx_status gfx_surface_initialise(gfx_surface* surface, unsigned int w, unsigned int h) noexcept {
    return On(surface, [&](GfxSurface& s) { s.Initialise(w, h); });
}

gfx_status gfx_surface_initialise_over(gfx_surface* surface, unsigned int w, unsigned int h,
                                       void* buffer, unsigned int rowBytes, bool isEmpty) noexcept {
    return On(surface, [&](GfxSurface& s) { s.Initialise(w, h, buffer, rowBytes, isEmpty); });
}

gfx_status gfx_surface_set_new_size(gfx_surface* surface, unsigned int w, unsigned int h) noexcept {
    return On(surface, [&](GfxSurface& s) { s.SetNewSize(w, h); });
}

gfx_status gfx_surface_optimise_size(gfx_surface* surface) noexcept {
    return On(surface, [&](GfxSurface& s) { s.OptimiseSize(); });
}

gfx_status gfx_surface_set_clip_rect(gfx_surface* surface, int x, int y, unsigned int w,
                                     unsigned int h) noexcept {
    return On(surface, [&](GfxSurface& s) { s.SetClipRect(x, y, w, h); });
}

gfx_status gfx_surface_get_clip_rect(const gfx_surface* surface, gfx_rect* clip) noexcept {
    if (clip == nullptr) return GFX_NULL_ARGUMENT;
    return On(surface,
              [&](const GfxSurface& s) { s.GetClipRect(clip->x, clip->y, clip->w, clip->h); });
}

gfx_status gfx_surface_reset_clip_rect(gfx_surface* surface) noexcept {
    return On(surface, [&](GfxSurface& s) { s.ResetClipRect(); });
}

gfx_status gfx_surface_clear(gfx_surface* surface) noexcept {
    return On(surface, [&](GfxSurface& s) { s.Clear(); });
}

gfx_status gfx_surface_dx(const gfx_surface* surface, unsigned int* dx) noexcept {
    if (dx == nullptr) return GFX_NULL_ARGUMENT;
    return On(surface, [&](const GfxSurface& s) { *dx = s.DX(); });
}

gfx_status gfx_surface_dy(const gfx_surface* surface, unsigned int* dy) noexcept {
    if (dy == nullptr) return GFX_NULL_ARGUMENT;
    return On(surface, [&](const GfxSurface& s) { *dy = s.DY(); });
}

gfx_status gfx_surface_depth(const gfx_surface* surface, unsigned int* depth) noexcept {
    if (depth == nullptr) return GFX_NULL_ARGUMENT;
    return On(surface, [&](const GfxSurface& s) { *depth = s.Depth(); });
}

gfx_status gfx_surface_alpha(const gfx_surface* surface, unsigned int* alpha) noexcept {
    if (alpha == nullptr) return GFX_NULL_ARGUMENT;
    return On(surface, [&](const GfxSurface& s) { *alpha = s.Alpha(); });
}

gfx_status gfx_surface_pitch(const gfx_surface* surface, unsigned int* pitch) noexcept {
    if (pitch == nullptr) return GFX_NULL_ARGUMENT;
    return On(surface, [&](const GfxSurface& s) { *pitch = s.Pitch(); });
}

gfx_status gfx_surface_line(const gfx_surface* surface, int y, void** row) noexcept {
    if (row == nullptr) return GFX_NULL_ARGUMENT;
    return On(surface, [&](const GfxSurface& s) { *row = s.Line(y); });
}

gfx_status gfx_surface_is_empty(const gfx_surface* surface, bool* isEmpty) noexcept {
    if (isEmpty == nullptr) return GFX_NULL_ARGUMENT;
    return On(surface, [&](const GfxSurface& s) { *isEmpty = s.IsEmpty(); });
}

gfx_status gfx_surface_set_empty(gfx_surface* surface, bool isEmpty) noexcept {
    return On(surface, [&](GfxSurface& s) { s.SetEmpty(isEmpty); });
}

gfx_status gfx_surface_set_alpha(gfx_surface* surface, unsigned int newAlpha) noexcept {
    return On(surface, [&](GfxSurface& s) { s.SetAlpha(newAlpha); });
}

gfx_status gfx_surface_set_transparent(gfx_surface* surface, uint32_t color) noexcept {
    return On(surface, [&](GfxSurface& s) { s.SetTransparent(color); });
}

gfx_status gfx_surface_set_opaque(gfx_surface* surface) noexcept {
    return On(surface, [&](GfxSurface& s) { s.SetOpaque(); });
}

gfx_status gfx_surface_set_pixel_rgb(gfx_surface* surface, int x, int y, uint32_t color) noexcept {
    return On(surface, [&](GfxSurface& s) { s.SetPixelRGB(x, y, color); });
}

gfx_status gfx_surface_set_pixel_rgb_blend(gfx_surface* surface, int x, int y,
                                           uint32_t color) noexcept {
    return On(surface, [&](GfxSurface& s) { s.SetPixelRGBBlend(x, y, color); });
}

gfx_status gfx_surface_ret_pixel_rgb(const gfx_surface* surface, int x, int y,
                                     uint32_t* color) noexcept {
    if (color == nullptr) return GFX_NULL_ARGUMENT;
    return On(surface, [&](const GfxSurface& s) { *color = s.RetPixelRGB(x, y); });
}

gfx_status gfx_surface_ret_pixel_merge_rgb(const gfx_surface* surface, int x, int y, double fx,
                                           double fy, uint32_t* color) noexcept {
    if (color == nullptr) return GFX_NULL_ARGUMENT;
    return On(surface, [&](const GfxSurface& s) { *color = s.RetPixelMergeRGB(x, y, fx, fy); });
}

gfx_status gfx_surface_set_pixel_line_bgr24(gfx_surface* surface, int x, int y, unsigned int n,
                                            const unsigned char* bgr) noexcept {
    return On(surface, [&](GfxSurface& s) { s.SetPixelLineBGR24(x, y, n, bgr); });
}

gfx_status gfx_surface_set_pixel_line_mono(gfx_surface* surface, int x, int y, unsigned int n,
                                           uint32_t color, const unsigned char* bits) noexcept {
    return On(surface, [&](GfxSurface& s) { s.SetPixelLineMono(x, y, n, color, bits); });
}

gfx_status gfx_surface_rect_fill(gfx_surface* surface, int x, int y, unsigned int w, unsigned int h,
                                 uint32_t color) noexcept {
    return On(surface, [&](GfxSurface& s) { s.RectFill(x, y, w, h, color); });
}

gfx_status gfx_surface_rect_fill_blend(gfx_surface* surface, int x, int y, unsigned int w,
                                       unsigned int h, uint32_t color) noexcept {
    return On(surface, [&](GfxSurface& s) { s.RectFillBlend(x, y, w, h, color); });
}

gfx_status gfx_surface_rect_fill_blend_mask(gfx_surface* surface, int x, int y, unsigned int w,
                                            unsigned int h, uint32_t color, int srcX, int srcY,
                                            const gfx_surface* mask) noexcept {
    return On(surface,
              [&](GfxSurface& s) { s.RectFillBlend(x, y, w, h, color, srcX, srcY, Engine(mask)); });
}

gfx_status gfx_surface_rect_copy(gfx_surface* surface, int x, int y, unsigned int w, unsigned int h,
                                 int srcX, int srcY, const gfx_surface* src, bool tile) noexcept {
    return On(surface,
              [&](GfxSurface& s) { s.RectCopy(x, y, w, h, srcX, srcY, Engine(src), tile); });
}

gfx_status gfx_surface_rect_blend(gfx_surface* surface, int x, int y, unsigned int w,
                                  unsigned int h, int srcX, int srcY, const gfx_surface* src,
                                  bool tile) noexcept {
    return On(surface,
              [&](GfxSurface& s) { s.RectBlend(x, y, w, h, srcX, srcY, Engine(src), tile); });
}

gfx_status gfx_surface_rect_blend_alpha(gfx_surface* surface, int x, int y, unsigned int w,
                                        unsigned int h, int srcX, int srcY, double transparency,
                                        const gfx_surface* src, bool tile) noexcept {
    return On(surface, [&](GfxSurface& s) {
        s.RectBlendAlpha(x, y, w, h, srcX, srcY, transparency, Engine(src), tile);
    });
}

gfx_status gfx_surface_rect_extract(gfx_surface* surface, int x, int y, unsigned int w,
                                    unsigned int h, int planeX, int planeY, gfx_surface* plane,
                                    unsigned int which) noexcept {
    return On(surface, [&](GfxSurface& s) {
        s.RectExtract(x, y, w, h, planeX, planeY, Engine(plane),
                      static_cast<GfxSurface::ColorPlane>(which));
    });
}

gfx_status gfx_surface_rect_insert(gfx_surface* surface, int x, int y, unsigned int w,
                                   unsigned int h, int planeX, int planeY, const gfx_surface* plane,
                                   unsigned int which) noexcept {
    return On(surface, [&](GfxSurface& s) {
        s.RectInsert(x, y, w, h, planeX, planeY, Engine(plane),
                     static_cast<GfxSurface::ColorPlane>(which));
    });
}

gfx_status gfx_surface_rect_extract_mono(gfx_surface* surface, int x, int y, unsigned int w,
                                         unsigned int h, int bufX, int bufY, unsigned char* buffer,
                                         unsigned int bufPitch) noexcept {
    return On(surface,
              [&](GfxSurface& s) { s.RectExtractMono(x, y, w, h, bufX, bufY, buffer, bufPitch); });
}

gfx_status gfx_surface_rect_extract_mono_alpha(gfx_surface* surface, int x, int y, unsigned int w,
                                               unsigned int h, int bufX, int bufY,
                                               unsigned char* buffer,
                                               unsigned int bufPitch) noexcept {
    return On(surface, [&](GfxSurface& s) {
        s.RectExtractMonoAlpha(x, y, w, h, bufX, bufY, buffer, bufPitch);
    });
}

gfx_status gfx_surface_draw_line(gfx_surface* surface, int x0, int y0, int x1, int y1,
                                 uint32_t color) noexcept {
    return On(surface, [&](GfxSurface& s) { s.DrawLine(x0, y0, x1, y1, color); });
}

gfx_status gfx_surface_draw_line_dashed(gfx_surface* surface, int x0, int y0, int x1, int y1,
                                        uint32_t color, const unsigned short* pattern,
                                        int count) noexcept {
    return On(surface, [&](GfxSurface& s) { s.DrawLine(x0, y0, x1, y1, color, pattern, count); });
}

gfx_status gfx_surface_draw_aa_line(gfx_surface* surface, int x0, int y0, int x1, int y1,
                                    uint32_t color) noexcept {
    return On(surface, [&](GfxSurface& s) { s.DrawAALine(x0, y0, x1, y1, color); });
}

gfx_status gfx_surface_draw_aa_line_dashed(gfx_surface* surface, int x0, int y0, int x1, int y1,
                                           uint32_t color, const unsigned short* pattern,
                                           int count) noexcept {
    return On(surface, [&](GfxSurface& s) { s.DrawAALine(x0, y0, x1, y1, color, pattern, count); });
}

gfx_status gfx_surface_quick_blt_to565(const gfx_surface* surface, unsigned int x, unsigned int y,
                                       unsigned int w, unsigned int h, void* dest,
                                       unsigned int destPitch) noexcept {
    if (dest == nullptr) return GFX_NULL_ARGUMENT;
    return On(surface, [&](const GfxSurface& s) { s.QuickBltTo565(x, y, w, h, dest, destPitch); });
}

gfx_status gfx_surface_quick_blt_to555(const gfx_surface* surface, unsigned int x, unsigned int y,
                                       unsigned int w, unsigned int h, void* dest,
                                       unsigned int destPitch) noexcept {
    if (dest == nullptr) return GFX_NULL_ARGUMENT;
    return On(surface, [&](const GfxSurface& s) { s.QuickBltTo555(x, y, w, h, dest, destPitch); });
}

gfx_status gfx_surface_quick_blt_to24(const gfx_surface* surface, unsigned int x, unsigned int y,
                                      unsigned int w, unsigned int h, void* dest,
                                      unsigned int destPitch) noexcept {
    if (dest == nullptr) return GFX_NULL_ARGUMENT;
    return On(surface, [&](const GfxSurface& s) { s.QuickBltTo24(x, y, w, h, dest, destPitch); });
}

gfx_status gfx_surface_quick_blt_to32(const gfx_surface* surface, unsigned int x, unsigned int y,
                                      unsigned int w, unsigned int h, void* dest,
                                      unsigned int destPitch) noexcept {
    if (dest == nullptr) return GFX_NULL_ARGUMENT;
    return On(surface, [&](const GfxSurface& s) { s.QuickBltTo32(x, y, w, h, dest, destPitch); });
}
