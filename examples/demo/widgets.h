// What the parts of the panel have in common: cards, captions with values, pills, scales, needles.
#pragma once

#include <string_view>

#include "panel_parts.h"

namespace demo {

inline constexpr int kCardRadius = 10;
inline constexpr int kCardPadding = 20;

/// A raised card with a title in its top-left corner.
void DrawCard(const Panel& panel, Box box, std::string_view title);

/// A caption with a value below it and the value's unit behind; (x, y) is the caption's pen.
void DrawReading(const Panel& panel, int x, int y, std::string_view caption, std::string_view value,
                 std::string_view unit);

/// A bar with round ends, filled from the left to a part of 0 to 1.
void DrawBar(const Panel& panel, Box box, double part, Color color);

/// A round scale: where its arc lies and which values its ends stand for.
struct Scale {
    Point center;
    double radius;
    double halfWidth;
    double start;  ///< angle of `lowest`; 0 is upwards, degrees grow clockwise
    double sweep;
    double lowest;
    double highest;

    double AngleOf(double value) const {
        return start + sweep * (value - lowest) / (highest - lowest);
    }
};

/// The arc of a scale up to a value, with a glow, its colour changing along the way.
void DrawScale(const Panel& panel, const Scale& scale, double value, Color from, Color to);

/// Smooth marks across the circle between two radii, at every step of the scale.
void DrawTicks(const Panel& panel, const Scale& scale, double step, double inner, double outer,
               Color color);

/// A slim triangle of smooth lines from a base at radius `from` to a tip at radius `to`.
void DrawNeedle(const Panel& panel, Point center, double degrees, double from, double to,
                int halfBase, Color color);

}  // namespace demo
