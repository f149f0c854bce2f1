// Text: strings of UTF-8 set in one face and size.
#pragma once

#include <gfx/font_cache.h>

#include <string>
#include <string_view>

#include "palette.h"

namespace demo {

enum class Align { kLeft, kCenter, kRight };
enum class Turn { kNone = 0, kUp = 90, kDown = 270 };  ///< which way the baseline runs

class Text {
public:
    /// @throws std::runtime_error when the face does not open.
    Text(const std::string& face, int emSize, bool smooth, int tracking = 0);

    /// Draws from the pen position (x, y) on the baseline; turned text is placed along its own
    /// direction. Tracking pixels go between the characters. Gives the width of the text.
    int Draw(GfxSurface& target, int x, int y, Color color, std::string_view text,
             Align align = Align::kLeft, Turn turn = Turn::kNone);

    int Width(std::string_view text);

private:
    int Advance(unsigned short code);

    GfxFontCache cache_;
    int tracking_;
};

/// The faces of the pictures and the sizes they are used in.
struct Typeface {
    /// @param regular  face file. @param bold  face file for headings, may be the same.
    Typeface(const std::string& regular, const std::string& bold);

    Text hero;      ///< the one large value of a picture
    Text headline;  ///< the name of a whole sheet
    Text title;     ///< headings
    Text value;     ///< readings
    Text reading;   ///< smaller readings
    Text body;      ///< sentences and names
    Text label;     ///< small captions, in capitals
    Text scale;     ///< numerals at scales
    Text stencil;   ///< 1-bit, for turned captions: only pixels of full ink are drawn turned
};

}  // namespace demo
