// SDL's software path: blits between surfaces, and the software renderer for blended fills, lines
// and points, whose queue is flushed once a pass.
#include <SDL.h>
#include <SDL_ttf.h>

#include <cstring>
#include <memory>

#include "library.h"

namespace bench {

namespace {

using Picture = std::shared_ptr<SDL_Surface>;
using Renderer = std::shared_ptr<SDL_Renderer>;

constexpr SDL_Color kInk = {kRed, kGreen, kBlue, 255};

Picture Own(SDL_Surface* surface) {
    return {surface, [](SDL_Surface* owned) { SDL_FreeSurface(owned); }};
}

void MakeGrey(SDL_Surface& surface) {
    SDL_Color colors[256];
    for (unsigned i = 0; i < 256; ++i) {
        const auto level = static_cast<Uint8>(i);
        colors[i] = {level, level, level, 255};
    }
    SDL_SetPaletteColors(surface.format->palette, colors, 0, 256);
}

Picture Wrap(const Image& image, bool alpha) {
    const Uint32 code = image.format == Format::k8     ? SDL_PIXELFORMAT_INDEX8
                        : image.format == Format::k565 ? SDL_PIXELFORMAT_RGB565
                        : alpha                        ? SDL_PIXELFORMAT_ARGB8888
                                                       : SDL_PIXELFORMAT_RGB888;
    const Picture surface = Own(SDL_CreateRGBSurfaceWithFormatFrom(
        image.data, image.width, image.height, BytesPerPixel(image.format) * 8, image.pitch, code));
    if (image.format == Format::k8) MakeGrey(*surface);
    SDL_SetSurfaceBlendMode(surface.get(), alpha ? SDL_BLENDMODE_BLEND : SDL_BLENDMODE_NONE);
    return surface;
}

SDL_Rect Target(const Spot& s) { return {s.x, s.y, s.width, s.height}; }
SDL_Rect Source(const Spot& s) { return {s.sourceX, s.sourceY, s.width, s.height}; }

/// A software renderer whose colour has full or half opacity.
Renderer RendererOn(const Picture& target, bool half) {
    const Renderer renderer(SDL_CreateSoftwareRenderer(target.get()),
                            [target](SDL_Renderer* owned) { SDL_DestroyRenderer(owned); });
    SDL_SetRenderDrawBlendMode(renderer.get(), half ? SDL_BLENDMODE_BLEND : SDL_BLENDMODE_NONE);
    SDL_SetRenderDrawColor(renderer.get(), kRed, kGreen, kBlue, half ? kHalf : 255);
    return renderer;
}

Work MakeFill(Scene& scene, const Row& row, const Picture& target) {
    const Uint32 color =
        row.target == Format::k8 ? GreyLevel() : SDL_MapRGB(target->format, kRed, kGreen, kBlue);
    return [target, &spots = scene.Spots(row), color] {
        for (const Spot& spot : spots) {
            const SDL_Rect to = Target(spot);
            SDL_FillRect(target.get(), &to, color);
        }
    };
}

Work MakeBlend(Scene& scene, const Row& row, const Picture& target) {
    return [renderer = RendererOn(target, true), &spots = scene.Spots(row)] {
        for (const Spot& spot : spots) {
            const SDL_Rect to = Target(spot);
            SDL_RenderFillRect(renderer.get(), &to);
        }
        SDL_RenderFlush(renderer.get());
    };
}

Work Blit(Scene& scene, const Row& row, const Picture& source, const Picture& target) {
    return [source, target, &spots = scene.Spots(row)] {
        for (const Spot& spot : spots) {
            const SDL_Rect from = Source(spot);
            SDL_Rect to = Target(spot);
            SDL_UpperBlit(source.get(), &from, target.get(), &to);
        }
    };
}

Work MakeOver(Scene& scene, const Row& row, const Picture& target) {
    const Picture source = Wrap(scene.Source(row, AlphaForm::kStraight), true);
    if (row.opacity != 1.0) SDL_SetSurfaceAlphaMod(source.get(), 128);
    return Blit(scene, row, source, target);
}

Work MakeTile(const Picture& source, const Picture& target) {
    return [source, target] {
        for (int y = 0; y < target->h; y += source->h) {
            for (int x = 0; x < target->w; x += source->w) {
                SDL_Rect to = {x, y, source->w, source->h};
                SDL_UpperBlit(source.get(), nullptr, target.get(), &to);
            }
        }
    };
}

Work MakeKey(Scene& scene, const Row& row, const Picture& target) {
    const Picture source = Wrap(scene.Source(row, AlphaForm::kOpaque), false);
    std::uint8_t stored[4] = {};
    StorePixel(stored, row.source, kKeyColor);
    Uint32 key = 0;  // a whole pixel: the unused top byte of 32 bits takes part
    std::memcpy(&key, stored, sizeof key);
    SDL_SetColorKey(source.get(), SDL_TRUE, key);
    return Blit(scene, row, source, target);
}

Work MakeLines(Scene& scene, const Row& row, const Picture& target) {
    if (row.antialias || row.dash) return {};
    return [renderer = RendererOn(target, row.half), &lines = scene.Segments(row)] {
        for (const Segment& line : lines) {
            SDL_RenderDrawLine(renderer.get(), line.x0, line.y0, line.x1, line.y1);
        }
        SDL_RenderFlush(renderer.get());
    };
}

Work MakePoints(Scene& scene, const Row& row, const Picture& target) {
    const bool half = row.operation == Operation::kPixelBlend;
    return [renderer = RendererOn(target, half), &points = scene.Points()] {
        for (const Point& point : points)
            SDL_RenderDrawPoint(renderer.get(), point.x, point.y);
        SDL_RenderFlush(renderer.get());
    };
}

void DrawText(TTF_Font& font, SDL_Surface& target, const Text& text) {
    for (const TextLine& line : text.lines) {
        const Picture image = Own(TTF_RenderUTF8_Blended(&font, line.utf8.c_str(), kInk));
        SDL_Rect to = {line.x, line.y - TTF_FontAscent(&font), 0, 0};
        SDL_UpperBlit(image.get(), nullptr, &target, &to);
    }
}

std::shared_ptr<TTF_Font> OpenFont(Scene& scene, const Row& row) {
    return {TTF_OpenFont(scene.FontPath(), row.fontSize),
            [](TTF_Font* owned) { TTF_CloseFont(owned); }};
}

Work MakeText(Scene& scene, const Row& row, const Picture& target) {
    const Text& text = scene.TextOf(row);
    if (row.operation == Operation::kTextCold) {
        return [&scene, row, target, &text] { DrawText(*OpenFont(scene, row), *target, text); };
    }
    return [font = OpenFont(scene, row), target, &text] { DrawText(*font, *target, text); };
}

Work Make(Scene& scene, const Row& row) {
    const Picture target = Wrap(scene.Target(row), false);
    const bool grey = row.target == Format::k8;
    switch (row.operation) {
        case Operation::kFill:
            return MakeFill(scene, row, target);
        case Operation::kBlend:
            return grey ? Work{} : MakeBlend(scene, row, target);
        case Operation::kConvert:
            if (grey) return {};
            [[fallthrough]];
        case Operation::kCopy:
        case Operation::kDisplay:
            return Blit(scene, row, Wrap(scene.Source(row, AlphaForm::kOpaque), false), target);
        case Operation::kOver:
            return grey ? Work{} : MakeOver(scene, row, target);
        case Operation::kTile:
            return MakeTile(Wrap(scene.Source(row, AlphaForm::kOpaque), false), target);
        case Operation::kKey:
            return MakeKey(scene, row, target);
        case Operation::kLine:
            return MakeLines(scene, row, target);
        case Operation::kText:
        case Operation::kTextCold:
            return MakeText(scene, row, target);
        case Operation::kPixelSet:
        case Operation::kPixelBlend:
            return MakePoints(scene, row, target);
        default:
            return {};
    }
}

}  // namespace

Library MakeSdl(Scene& scene) {
    SDL_SetMainReady();
    TTF_Init();
    return {"sdl2", [&scene](const Row& row) { return Make(scene, row); }};
}

}  // namespace bench
