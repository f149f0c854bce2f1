#include "panel.h"

#include <cmath>

namespace playground {
namespace {

constexpr int kSamplesPerSecond = 15;
constexpr Box kAll{0, 0, kPanelWidth, kPanelHeight};

bool Meet(const Box& a, const Box& b) {
    return a.x < b.x + b.w && b.x < a.x + a.w && a.y < b.y + b.h && b.y < a.y + a.h;
}

double FractionOf(double value) { return value - std::floor(value); }

}  // namespace

double WindAt(int sample) {
    const double time = static_cast<double>(sample) / kSamplesPerSecond;
    return 8.5 + 3.4 * std::sin(0.31 * time) + 1.9 * std::sin(1.13 * time + 2) +
           0.8 * std::sin(4.1 * time);
}

Readings ReadingsAt(double time) {
    Readings now{};
    now.speed = 7.2 + 2.6 * std::sin(0.43 * time) + 0.6 * std::sin(1.7 * time + 1);
    now.sample = static_cast<int>(std::floor(time * kSamplesPerSecond));
    now.wind = WindAt(now.sample);
    now.from =
        292 + static_cast<int>(std::lround(26 * std::sin(0.23 * time) + 7 * std::sin(1.9 * time)));
    for (std::size_t i = 0; i < now.cabin.size(); ++i)
        now.cabin[i] = FractionOf(time / 24 + static_cast<double>(i) / 3);
    now.seconds = static_cast<int>(time);
    return now;
}

Panel::Panel()
    : memory_(std::size_t{kPanelWidth} * kPanelHeight),
      screen_(GfxSurface::New(16)),
      backdrop_(GfxSurface::New(16)),
      canvas_(*screen_) {
    screen_->Initialise(kPanelWidth, kPanelHeight, memory_.data(), 2 * kPanelWidth, true);
    backdrop_->Initialise(kPanelWidth, kPanelHeight);
    gfx::kit::Canvas canvas(*backdrop_);
    DrawBackdrop({*backdrop_, canvas, faces_});
}

Panel::~Panel() {
    GfxSurface::Delete(screen_);
    GfxSurface::Delete(backdrop_);
}

void Panel::Advance(double time) {
    const Readings before = shown_;
    shown_ = ReadingsAt(time);
    damage_.clear();
    if (isFirst_) damage_.push_back(kAll);
    for (const Part& part : kParts)
        if (!isFirst_) part.damage(before, shown_, damage_);
    isFirst_ = false;
    for (const Box& box : damage_)
        Repair(box);
}

void Panel::Repair(const Box& box) {
    const auto w = static_cast<unsigned>(box.w);
    const auto h = static_cast<unsigned>(box.h);
    screen_->SetClipRect(box.x, box.y, w, h);
    screen_->RectCopy(box.x, box.y, w, h, box.x, box.y, backdrop_, false);
    for (const Part& part : kParts)
        if (Meet(part.area, box)) part.draw({*screen_, canvas_, faces_}, shown_);
    screen_->ResetClipRect();
}

}  // namespace playground
