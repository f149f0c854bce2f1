/// @file
/// What of a screen has changed: rectangles collected, merged, aligned to what a bus takes, and
/// handed to the host.
#ifndef GFX_KIT_DAMAGE_H
#define GFX_KIT_DAMAGE_H

#include <gfx/kit/export.h>

namespace gfx::kit {

/// A rectangle of whole pixels inside a screen.
struct DamageRect {
    unsigned x;  ///< left column
    unsigned y;  ///< top row
    unsigned w;  ///< width in pixels, at least 1
    unsigned h;  ///< height in pixels, at least 1

    /// The same place and size.
    friend constexpr bool operator==(const DamageRect& a, const DamageRect& b) {
        return a.x == b.x && a.y == b.y && a.w == b.w && a.h == b.h;
    }
};

/// A list of damaged rectangles that do not overlap. Rectangles that overlap, or that make one
/// rectangle side by side, become the smallest one around both. When kCapacity is reached, those
/// two are merged that add the least area. Takes no memory and throws nothing.
class GFX_KIT_API DamageList {
public:
    static constexpr int kCapacity = 16;  ///< the most rectangles that are kept apart

    /// @param width,height  size of the screen in pixels, up to 2^31 - 1
    /// @param alignX,alignY left edges and widths become multiples of alignX, upper edges and
    ///                      heights of alignY, but where the screen ends first; 0 counts as 1
    DamageList(unsigned width, unsigned height, unsigned alignX = 1, unsigned alignY = 1);

    /// Adds a rectangle, any values; what lies outside the screen is cut off.
    void Add(int x, int y, unsigned w, unsigned h);

    /// Adds the whole screen.
    void AddAll() { Add(0, 0, width_, height_); }

    bool IsEmpty() const { return count_ == 0; }  ///< whether nothing is damaged
    int Count() const { return count_; }          ///< rectangles in the list

    /// A rectangle of the list. @param i  from 0 to Count() - 1, trusted
    const DamageRect& operator[](int i) const { return rects_[i]; }

    /// Hands every rectangle to draw(const DamageRect&) and leaves the list empty. A rectangle has
    /// left the list when it is handed over: if `draw` throws, those behind it stay.
    template <class Draw>
    void Flush(Draw&& draw) {
        while (count_ > 0) {
            const DamageRect rect = rects_[--count_];
            draw(rect);
        }
    }

    void Clear() { count_ = 0; }  ///< forgets all rectangles

private:
    void Insert(const DamageRect& rect);
    void InsertAround(const DamageRect& rect, const DamageRect& other);
    void MergeCheapest();

    unsigned width_, height_, alignX_, alignY_;
    int count_ = 0;
    DamageRect rects_[kCapacity + 1] = {};
};

}  // namespace gfx::kit

#endif  // GFX_KIT_DAMAGE_H
