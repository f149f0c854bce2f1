// A small instrument panel that lives in 5-6-5 memory: a backdrop drawn once, and parts that are
// drawn anew where their readings have changed.
#pragma once

#include <gfx/font_cache.h>
#include <gfx/kit/shapes.h>
#include <gfx/surface.h>

#include <array>
#include <cstdint>
#include <vector>

namespace playground {

/// Whole pixels.
struct Box {
    int x, y, w, h;
};

/// What the panel shows at a moment.
struct Readings {
    double speed;                 ///< of the rope in m/s, 0 to 12
    double wind;                  ///< in m/s, 0 to 16, at the newest sample
    int from;                     ///< where the wind comes from, in degrees
    std::array<double, 3> cabin;  ///< how far up each cabin is, 0 to 1
    int seconds;                  ///< of the clock
    int sample;                   ///< number of the newest column of the chart
};

/// The wind at a sample of the chart.
double WindAt(int sample);

/// The readings at a time in seconds: always the same ones.
Readings ReadingsAt(double time);

/// The faces that the panel is set in.
struct Faces {
    Faces();
    GfxFontCache label, body, value, hero;
};

/// What a part draws with.
struct Pen {
    GfxSurface& surface;
    gfx::kit::Canvas& canvas;
    Faces& faces;
};

/// A part: the place it keeps to, how it is drawn, and which boxes change between two readings.
struct Part {
    Box area;
    void (*draw)(const Pen& pen, const Readings& now);
    void (*damage)(const Readings& before, const Readings& now, std::vector<Box>& boxes);
};

inline constexpr int kPanelWidth = 480;
inline constexpr int kPanelHeight = 272;
inline constexpr int kPartCount = 5;
extern const std::array<Part, kPartCount> kParts;

/// Cards, scales and captions: whatever never changes.
void DrawBackdrop(const Pen& pen);

/// The panel and its memory.
class Panel {
public:
    Panel();
    Panel(const Panel&) = delete;
    Panel& operator=(const Panel&) = delete;
    ~Panel();

    /// The surface over the display's memory, 480 x 272 pixels of 5-6-5.
    GfxSurface* Screen() const { return screen_; }

    /// Shows the readings of a time in seconds; draws what has changed since the last ones.
    void Advance(double time);

    /// The boxes that the last Advance has drawn.
    unsigned DamageCount() const { return static_cast<unsigned>(damage_.size()); }
    Box Damage(unsigned i) const { return damage_.at(i); }

private:
    void Repair(const Box& box);

    std::vector<std::uint16_t> memory_;
    GfxSurface* screen_;
    GfxSurface* backdrop_;
    gfx::kit::Canvas canvas_;
    Faces faces_;
    Readings shown_{};
    std::vector<Box> damage_;
    bool isFirst_ = true;
};

}  // namespace playground
