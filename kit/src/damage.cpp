#include <gfx/kit/damage.h>

#include <algorithm>
#include <climits>
#include <cstdint>

namespace gfx::kit {
namespace {

struct Side {
    unsigned start, size;
};

/// What of a side lies on a screen of `limit` pixels, widened to multiples of `align`.
Side OnScreen(int start, unsigned size, unsigned limit, unsigned align) {
    const std::int64_t end = std::int64_t{start} + size;
    const std::int64_t first = std::max(start, 0);
    const std::int64_t last = std::min<std::int64_t>(end, limit);
    if (last <= first) return {0, 0};
    const std::int64_t low = first / align * align;
    const std::int64_t high = (last + align - 1) / align * align;
    return {static_cast<unsigned>(low),
            static_cast<unsigned>(std::min<std::int64_t>(high, limit) - low)};
}

std::uint64_t AreaOf(const DamageRect& r) { return std::uint64_t{r.w} * r.h; }

DamageRect Around(const DamageRect& a, const DamageRect& b) {
    const unsigned x = std::min(a.x, b.x);
    const unsigned y = std::min(a.y, b.y);
    return {x, y, std::max(a.x + a.w, b.x + b.w) - x, std::max(a.y + a.h, b.y + b.h) - y};
}

bool Overlap(const DamageRect& a, const DamageRect& b) {
    return a.x < b.x + b.w && b.x < a.x + a.w && a.y < b.y + b.h && b.y < a.y + a.h;
}

/// Whether the smallest rectangle around both holds little else.
bool BelongTogether(const DamageRect& a, const DamageRect& b) {
    const std::uint64_t both = AreaOf(a) + AreaOf(b);
    const std::uint64_t around = AreaOf(Around(a, b));
    return Overlap(a, b) ? around <= both + both / 2 : around == both;
}

}  // namespace

DamageList::DamageList(unsigned width, unsigned height, unsigned alignX, unsigned alignY)
    : width_(std::min<unsigned>(width, INT_MAX)),
      height_(std::min<unsigned>(height, INT_MAX)),
      alignX_(std::max(alignX, 1U)),
      alignY_(std::max(alignY, 1U)) {}

void DamageList::Add(int x, int y, unsigned w, unsigned h) {
    const Side across = OnScreen(x, w, width_, alignX_);
    const Side down = OnScreen(y, h, height_, alignY_);
    if (across.size == 0 || down.size == 0) return;
    Insert({across.start, down.start, across.size, down.size});
}

void DamageList::Insert(const DamageRect& rect) {
    for (int i = 0; i < count_; ++i) {
        const DamageRect other = rects_[i];
        if (BelongTogether(rect, other)) {
            rects_[i] = rects_[--count_];
            return Insert(Around(rect, other));
        }
        if (Overlap(rect, other)) return InsertAround(rect, other);
    }
    rects_[count_++] = rect;
    if (count_ > kCapacity) MergeCheapest();
}

void DamageList::InsertAround(const DamageRect& rect, const DamageRect& other) {
    const unsigned right = rect.x + rect.w;
    const unsigned bottom = rect.y + rect.h;
    const unsigned top = std::max(rect.y, other.y);
    const unsigned end = std::min(bottom, other.y + other.h);
    const DamageRect pieces[] = {{rect.x, rect.y, rect.w, top - rect.y},
                                 {rect.x, end, rect.w, bottom - end},
                                 {rect.x, top, std::max(rect.x, other.x) - rect.x, end - top},
                                 {std::min(right, other.x + other.w), top,
                                  right - std::min(right, other.x + other.w), end - top}};
    for (const DamageRect& piece : pieces) {
        if (piece.w != 0 && piece.h != 0) Insert(piece);
    }
}

void DamageList::MergeCheapest() {
    int first = 0;
    int second = 1;
    std::uint64_t least = UINT64_MAX;
    for (int i = 0; i < count_; ++i) {
        for (int j = i + 1; j < count_; ++j) {
            const std::uint64_t extra =
                AreaOf(Around(rects_[i], rects_[j])) - AreaOf(rects_[i]) - AreaOf(rects_[j]);
            if (extra >= least) continue;
            least = extra;
            first = i;
            second = j;
        }
    }
    DamageRect merged = Around(rects_[first], rects_[second]);
    rects_[second] = rects_[--count_];
    rects_[first] = rects_[--count_];
    // What it reaches now goes into it too, however much that adds: the list has to become shorter.
    for (int i = 0; i < count_;) {
        if (!Overlap(merged, rects_[i])) {
            ++i;
            continue;
        }
        merged = Around(merged, rects_[i]);
        rects_[i] = rects_[--count_];
        i = 0;
    }
    rects_[count_++] = merged;
}

}  // namespace gfx::kit
