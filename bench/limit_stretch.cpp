// The cheapest loop over a picture whose rows follow each other without a gap: all of it in one
// stretch, where limit.cpp goes row by row. A fill is plain stores of 64 bytes, which a memset only
// matches on some processors; a copy is one memcpy. Built for the processor at hand.
#include <cstring>

#include "limit.h"

namespace bench {

namespace {

using Block = std::uint64_t __attribute__((vector_size(64)));

std::size_t BytesOf(const Image& image) {
    return static_cast<std::size_t>(image.pitch) * static_cast<unsigned>(image.height);
}

Work MakeFill(const Image& to) {
    alignas(Block) std::uint8_t color[sizeof(Block)];
    for (std::size_t i = 0; i < sizeof color; i += BytesPerPixel(to.format)) {
        StorePixel(color + i, to.format, kColor);
    }
    Block block;
    std::memcpy(&block, color, sizeof block);
    return [to, block, end = BytesOf(to) / sizeof(Block)] {
        auto* const blocks = reinterpret_cast<Block*>(to.data);  // pictures start at a cache line
        const Block value = block;
        for (std::size_t i = 0; i < end; ++i)
            blocks[i] = value;
    };
}

/// `draw(target, source, count)` once over all pixels.
template <typename To, typename From, typename Draw>
Work Once(const Image& to, const Image& from, Draw draw) {
    return [to, from, draw] {
        draw(reinterpret_cast<To*>(to.data), reinterpret_cast<const From*>(from.data),
             to.width * to.height);
    };
}

Work MakeBlend(const Image& to) {
    return ForFormat(to.format, [&](auto pixel) {
        using To = decltype(pixel);
        return Once<To, To>(to, to, [](To* at, const To*, int count) { XorColor(at, count); });
    });
}

template <typename Draw>
Work MakeTransfer(const Image& to, const Image& from, Draw draw) {
    return ForFormat(to.format, [&](auto toPixel) {
        return ForFormat(from.format, [&](auto fromPixel) {
            return Once<decltype(toPixel), decltype(fromPixel)>(to, from, draw);
        });
    });
}

Work Make(Scene& scene, const Row& row) {
    if (!row.FullWidth()) return {};
    const Image to = scene.Target(row);
    switch (row.operation) {
        case Operation::kFill:
            return MakeFill(to);
        case Operation::kBlend:
            return MakeBlend(to);
        case Operation::kMask:
            return MakeTransfer(to, scene.Mask(row, MaskForm::kCoverage), XorRow());
        case Operation::kOver:
            return MakeTransfer(to, scene.Source(row, AlphaForm::kStraight), XorRow());
        case Operation::kConvert:
        case Operation::kDisplay:
            return MakeTransfer(to, scene.Source(row, AlphaForm::kStraight), ConvertRow());
        default:
            return [to, from = scene.Source(row, AlphaForm::kOpaque)] {
                std::memcpy(to.data, from.data, BytesOf(to));
            };
    }
}

}  // namespace

Library MakeStretch(Scene& scene) {
    return {"stretch", [&scene](const Row& row) { return Make(scene, row); }};
}

}  // namespace bench
