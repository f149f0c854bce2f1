// Pictures of the guide as PNG files. Pixels are compared, since bytes depend on what packs them.
#include "guide/around.h"

#include <png.h>

#include <string>
#include <vector>

namespace {

std::vector<unsigned char> PixelsOf(const GfxSurface& surface) {
    std::vector<unsigned char> pixels;
    for (int y = 0; y < static_cast<int>(surface.DY()); ++y) {
        for (int x = 0; x < static_cast<int>(surface.DX()); ++x) {
            const unsigned word = surface.RetPixelRGB(x, y);
            for (const int shift : {16, 8, 0})
                pixels.push_back(static_cast<unsigned char>(word >> shift));
        }
    }
    return pixels;
}

[[noreturn]] void Fail(const std::string& file, const char* what) {
    std::printf("%s %s\n", file.c_str(), what);
    std::exit(1);
}

std::vector<unsigned char> ReadPixels(const std::string& file, unsigned w, unsigned h) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, file.c_str()) == 0) Fail(file, "does not open");
    if (image.width != w || image.height != h) Fail(file, "has another size than what was drawn");
    image.format = PNG_FORMAT_RGB;
    std::vector<unsigned char> pixels(PNG_IMAGE_SIZE(image));
    if (png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr) == 0)
        Fail(file, "cannot be read");
    return pixels;
}

}  // namespace

void SavePicture(const GfxSurface& surface, const char* name) {
    const std::string file = std::string(GFX_GUIDE_PICTURES) + "/" + name + ".png";
    const std::vector<unsigned char> drawn = PixelsOf(surface);
    if (std::FILE* used = std::fopen("pictures_used", "a")) {
        std::fprintf(used, "%s.png\n", name);
        std::fclose(used);
    }
    if (std::getenv("GFX_GUIDE_UPDATE") != nullptr) {
        png_image image{};
        image.version = PNG_IMAGE_VERSION;
        image.width = surface.DX();
        image.height = surface.DY();
        image.format = PNG_FORMAT_RGB;
        if (png_image_write_to_file(&image, file.c_str(), 0, drawn.data(), 0, nullptr) == 0)
            Fail(file, "cannot be written");
    } else if (ReadPixels(file, surface.DX(), surface.DY()) != drawn) {
        Fail(file, "has other pixels than what was drawn");
    }
}
