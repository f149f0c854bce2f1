// Writes pictures as PNG files: from a surface, or from display memory as a screen would show it.
#pragma once

#include <string>

class GfxSurface;

namespace demo {

/// How the display lays out its 16-bit pixels.
enum class Display { k565, k555 };

/// Writes the colours of a surface of any depth.
void WritePicture(const std::string& path, const GfxSurface& surface);

/// Hands the surface to display memory of that layout and writes what the display would show.
void WriteDisplayPicture(const std::string& path, const GfxSurface& surface, Display display);

/// Adds an ordered pattern below the steps of the display to every colour of a depth-32 surface.
/// The hand-over cuts colours down to 5 or 6 bits; the pattern turns the bands that smooth shading
/// would fall into into an even grain. Channels that are multiples of 8 stay exactly as they are.
void Dither(GfxSurface& surface, Display display);

}  // namespace demo
