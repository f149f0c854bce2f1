// Lines: broken, cut with an ellipsis, set into boxes.
#include <gfx/kit/text.h>

#include <algorithm>

#include "glyph_finder.h"

namespace gfx::kit {
namespace {

/// Adds up characters; the tracking lies between two of them.
class Ruler {
public:
    explicit Ruler(const Font& font) : font_(font) {}

    void Add(char32_t code) {
        width_ += (isFirst_ ? 0 : std::int64_t{font_.Tracking()}) +
                  GlyphFinder::AdvanceOf(font_, code == U'\t' || code == U'\r' ? U' ' : code);
        isFirst_ = false;
    }
    int Width() const { return Saturated(width_); }

private:
    const Font& font_;
    std::int64_t width_ = 0;
    bool isFirst_ = true;
};

/// The line break that a text begins with, in bytes; 0 for none.
std::size_t LineBreakAt(std::string_view text) {
    if (text.substr(0, 1) == "\n") return 1;
    return text.substr(0, 2) == "\r\n" ? 2 : 0;
}

TextFit Fit(const Font& font, std::string_view text, int maxWidth, bool mustCut) {
    if (!mustCut) {
        const int whole = MeasureString(font, text);
        if (whole <= maxWidth) return {text.size(), whole, false};
    }
    const int dots = MeasureString(font, EllipsisOf(font));
    if (dots > maxWidth) return {0, 0, false};
    TextFit best{0, dots, true};
    Ruler ruler(font);
    for (std::size_t at = 0; at < text.size();) {
        const Character next = FirstCharacter(text.substr(at));
        ruler.Add(next.code);
        at += next.length;
        const std::int64_t width = std::int64_t{ruler.Width()} + font.Tracking() + dots;
        const bool goesOn = IsCombining(FirstCharacter(text.substr(at)).code);
        if (width <= maxWidth && !IsSpace(next.code) && !goesOn)
            best = {at, Saturated(width), true};
    }
    return best;
}

/// A text's lines, one after the other; a text that ends with a line break has no line behind it.
struct Lines {
    const Font& font;
    std::string_view rest;
    int maxWidth;

    bool Next(std::string_view& line) {
        if (rest.empty()) return false;
        const TextLine found = NextLine(font, rest, maxWidth);
        line = rest.substr(0, found.length);
        rest.remove_prefix(found.next);
        return true;
    }
};

/// The box in the direction of the text: u along the lines, v from line to line.
struct Frame {
    const TextBox& box;
    Turn turn;

    int Length() const { return turn == Turn::kNone ? box.w : box.h; }
    int Height() const { return turn == Turn::kNone ? box.h : box.w; }

    void Draw(GfxSurface& target, const Font& font, std::int64_t u, std::int64_t v,
              std::string_view text, Color color) const {
        const std::int64_t x = turn == Turn::kNone ? box.x + u
                               : turn == Turn::kUp ? box.x + v
                                                   : std::int64_t{box.x} + box.w - 1 - v;
        const std::int64_t y = turn == Turn::kNone ? box.y + v
                               : turn == Turn::kUp ? std::int64_t{box.y} + box.h - 1 - u
                                                   : box.y + u;
        if (x != Saturated(x) || y != Saturated(y)) return;
        DrawString(target, font, Saturated(x), Saturated(y), text, color, AlignX::kLeft, turn);
    }
};

/// How many lines a height holds, at least one; all of them where nothing is cut.
std::int64_t LineLimit(const Font& font, const TextStyle& style, int height) {
    if (!style.ellipsis || style.alignY == AlignY::kBaseline || font.LineHeight() <= 0)
        return kFarthest;
    return std::max<std::int64_t>(1, (std::int64_t{height} + font.LineGap()) / font.LineHeight());
}

/// The first baseline's distance from the frame's top.
std::int64_t FirstBaseline(const Font& font, AlignY align, std::int64_t lines, int height) {
    const std::int64_t block = lines * font.LineHeight() - font.LineGap();
    if (align == AlignY::kBaseline) return 0;
    if (align == AlignY::kMiddle) return ((height - block) >> 1) + font.Ascent();
    return (align == AlignY::kBottom ? height - block : 0) + font.Ascent();
}

std::int64_t LineStart(AlignX align, std::int64_t spare) {
    if (align == AlignX::kLeft) return 0;
    return align == AlignX::kCenter ? spare >> 1 : spare;
}

}  // namespace

TextLine NextLine(const Font& font, std::string_view text, int maxWidth) {
    TextLine line{0, 0, 0};    // up to the last character that is no space
    TextLine broken{0, 0, 0};  // up to the last place to break at
    TextLine before{0, 0, 0};  // up to the last letter, which marks may follow
    Ruler ruler(font);
    std::size_t at = 0;
    while (at < text.size()) {
        const std::string_view rest = text.substr(at);
        if (const std::size_t end = LineBreakAt(rest)) {
            line.next = at + end;
            return line;
        }
        const Character next = FirstCharacter(rest);
        const bool isSpace = IsSpace(next.code);
        ruler.Add(next.code);
        if (!IsCombining(next.code)) before = {line.length, at, line.width};
        if (!isSpace && ruler.Width() > maxWidth) {
            if (broken.next != 0) return broken;
            if (before.length != 0) return before;
        }
        at += next.length;
        if (!isSpace) line = {at, at, ruler.Width()};
        const bool mayBreak = isSpace || (next.code == U'-' && line.width <= maxWidth);
        if (mayBreak && line.length != 0 && !IsCombining(FirstCharacter(text.substr(at)).code))
            broken = {line.length, at, line.width};
    }
    line.next = at;
    return line;
}

TextFit FitString(const Font& font, std::string_view text, int maxWidth) {
    return Fit(font, text, maxWidth, false);
}

int DrawStringInBox(GfxSurface& target, const Font& font, TextBox box, std::string_view text,
                    const TextStyle& style) {
    const Frame frame{box, style.turn};
    const int maxWidth = style.wrap ? frame.Length() : static_cast<int>(kFarthest);
    const std::int64_t limit = LineLimit(font, style, frame.Height());
    std::string_view line;
    std::int64_t count = 0;
    for (Lines lines{font, text, maxWidth}; count < limit && lines.Next(line);)
        ++count;
    std::int64_t v = FirstBaseline(font, style.alignY, count, frame.Height());
    Lines lines{font, text, maxWidth};
    for (std::int64_t i = 0; i < count && lines.Next(line); ++i, v += font.LineHeight()) {
        const bool isCutOff = i + 1 == limit && !lines.rest.empty();
        const TextFit fit = style.ellipsis ? Fit(font, line, frame.Length(), isCutOff)
                                           : TextFit{line.size(), MeasureString(font, line), false};
        const std::int64_t u = LineStart(style.alignX, std::int64_t{frame.Length()} - fit.width);
        const std::string_view kept = line.substr(0, fit.length);
        frame.Draw(target, font, u, v, kept, style.color);
        if (!fit.hasEllipsis) continue;
        const std::string_view dots = EllipsisOf(font);
        frame.Draw(target, font, u + fit.width - MeasureString(font, dots), v, dots, style.color);
    }
    return static_cast<int>(count);
}

}  // namespace gfx::kit
