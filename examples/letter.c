/* The demo's first picture from C: a 16-bit surface, one glyph, display memory, a PNG file.
 * Usage: gfx_letter FACE PICTURE */
#include <gfx/c.h>
#include <png.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { WIDTH = 200, HEIGHT = 80 };

static gfx_status draw(gfx_surface* surface, gfx_font_cache* font, const char* face) {
    gfx_status status = gfx_surface_initialise(surface, WIDTH, HEIGHT);
    if (status != GFX_OK) return status;
    gfx_surface_rect_fill(surface, 0, 0, WIDTH, HEIGHT, 0xF0F4F0);

    status = gfx_font_cache_open_face(font, face, 44, true);
    if (status != GFX_OK) return status;
    return gfx_font_cache_draw_glyph(font, 0x41, 100, 50, 0x00FF0000, surface, 0);
}

/* The picture as a 16-bit display would get it: the lower bits of each channel repeat its top. */
static gfx_status show(const gfx_surface* surface, unsigned char* rgb) {
    static unsigned char display[2 * WIDTH * HEIGHT];
    const gfx_status status =
        gfx_surface_quick_blt_to565(surface, 0, 0, WIDTH, HEIGHT, display, 2 * WIDTH);
    if (status != GFX_OK) return status;
    for (int i = 0; i < WIDTH * HEIGHT; ++i) {
        const int pixel = display[2 * i] | display[2 * i + 1] << 8; /* RRRRRGGG GGGBBBBB */
        const int red = pixel >> 11, green = pixel >> 5 & 0x3F, blue = pixel & 0x1F;
        rgb[3 * i] = (unsigned char)(red << 3 | red >> 2);
        rgb[3 * i + 1] = (unsigned char)(green << 2 | green >> 4);
        rgb[3 * i + 2] = (unsigned char)(blue << 3 | blue >> 2);
    }
    return GFX_OK;
}

static int write_png(const char* path, const unsigned char* rgb) {
    png_image image;
    memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    image.width = WIDTH;
    image.height = HEIGHT;
    image.format = PNG_FORMAT_RGB;
    return png_image_write_to_file(&image, path, 0, rgb, 0, NULL);
}

int main(int count, char** words) {
    if (count != 3) {
        fprintf(stderr, "usage: %s FACE PICTURE\n", words[0]);
        return EXIT_FAILURE;
    }
    gfx_use_runtime_memory(); /* or hooks of your own, before the first object */

    static unsigned char rgb[3 * WIDTH * HEIGHT];
    gfx_surface* surface = NULL;
    gfx_font_cache* font = NULL;
    gfx_status status = gfx_surface_new(16, &surface);
    if (status == GFX_OK) status = gfx_font_cache_new(&font);
    if (status == GFX_OK) status = draw(surface, font, words[1]);
    if (status == GFX_OK) status = show(surface, rgb);
    gfx_font_cache_delete(&font);
    gfx_surface_delete(&surface);

    if (status != GFX_OK) {
        fprintf(stderr, "%s\n", gfx_status_text(status));
        return EXIT_FAILURE;
    }
    return write_png(words[2], rgb) ? EXIT_SUCCESS : EXIT_FAILURE;
}
