// Parts of the limit that more than one of its files uses.
#ifndef GFX_BENCH_LIMIT_H
#define GFX_BENCH_LIMIT_H

#include "library.h"

namespace bench {

Work MakeTextLimit(Scene& scene, const Row& row);

template <typename T>
T* Pixels(const Image& image, int x, int y) {
    return reinterpret_cast<T*>(image.At(x, y));
}

/// Calls `make` with a value of the format's pixel type.
template <typename Make>
Work ForFormat(Format format, Make make) {
    if (format == Format::k32) return make(std::uint32_t{});
    if (format == Format::k565) return make(std::uint16_t{});
    return make(std::uint8_t{});
}

template <typename To>
void XorColor(To* to, int width) {
    for (int x = 0; x < width; ++x)
        to[x] = static_cast<To>(to[x] ^ 0x55);
}

struct ConvertRow {
    template <typename To, typename From>
    void operator()(To* __restrict to, const From* __restrict from, int width) const {
        for (int x = 0; x < width; ++x)
            to[x] = static_cast<To>(from[x]);
    }
};

struct XorRow {
    template <typename To, typename From>
    void operator()(To* __restrict to, const From* __restrict from, int width) const {
        for (int x = 0; x < width; ++x)
            to[x] = static_cast<To>(to[x] ^ from[x]);
    }
};

}  // namespace bench

#endif  // GFX_BENCH_LIMIT_H
