// Surfaces and arguments; see scene.h.
#include "pinned/scene.h"

#include <climits>
#include <cstring>
#include <limits>
#include <string_view>

namespace pinned {
namespace {

constexpr std::size_t kBytes = 1 << 14;

unsigned RowBytes(const Canvas& canvas, unsigned w) {
    return canvas.Depth() == 1 ? (w + 7) / 8 : w * canvas.bytesPerPixel;
}

/// The widest surface whose rows have rowBytes bytes.
unsigned WidthWithin(const Canvas& canvas, unsigned rowBytes) {
    if (canvas.Depth() == 1) return rowBytes * 8;
    return canvas.bytesPerPixel == 0 ? 0 : rowBytes / canvas.bytesPerPixel;
}

struct Memory {
    std::uint8_t* bytes;
    std::size_t size;
};

/// The memory that a slot's surface draws on: its own, or the whole block it lies over.
Memory MemoryOf(const Slot& slot) {
    const Canvas& canvas = *slot.canvas;
    if (canvas.surface == nullptr || (!canvas.ownsSurface && !slot.block)) return {nullptr, 0};
    if (!canvas.ownsSurface) return {slot.block->data(), slot.block->size()};
    return {canvas.surface, std::size_t{canvas.Pitch()} * canvas.allocDY};
}

void FoldInto(Checksum& sum, const Slot& slot) {
    const Canvas& c = *slot.canvas;
    const auto word = [](int value) { return static_cast<std::uint32_t>(value); };
    const std::uint32_t fields[] = {c.DX(),         c.DY(),         c.Depth(),      c.Alpha(),
                                    c.Pitch(),      c.IsEmpty(),    c.allocDX,      c.allocDY,
                                    word(c.clipX0), word(c.clipY0), word(c.clipX1), word(c.clipY1)};
    for (const std::uint32_t field : fields)
        sum.Fold(field);
    const Memory memory = MemoryOf(slot);
    sum.Fold(memory.bytes, memory.size);
}

}  // namespace

Scene::Scene(std::uint64_t seed) : random(seed), bytes_(kBytes) {
    for (std::uint8_t& byte : bytes_)
        byte = random.Byte();
    for (Slot& slot : slots_)
        Replace(slot);
}

Slot& Scene::PickDepth8() {
    for (Slot& slot : slots_) {
        if (slot.canvas->Depth() == 8 && !random.OneIn(3)) return slot;
    }
    return Pick();
}

int Scene::Coordinate(unsigned size) {
    static constexpr int kFar[] = {INT_MIN, INT_MIN + 1,  -1000000000, -70000,
                                   70000,   INT_MAX - 70, INT_MAX - 1, INT_MAX};
    return random.OneIn(40) ? random.OneOf(kFar) : random.Between(-25, static_cast<int>(size) + 15);
}

unsigned Scene::Extent(unsigned size) {
    static constexpr unsigned kFar[] = {0x7FFFFFB0, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
    if (random.OneIn(40)) return random.OneOf(kFar);
    return random.Below(random.OneIn(3) ? 20 : size + 20);
}

Rect Scene::AnyRect(const Canvas& on) {
    if (random.OneIn(8)) return {0, 0, on.DX(), on.DY()};
    Rect r{};
    r.x = Coordinate(on.DX());
    r.y = Coordinate(on.DY());
    r.w = Extent(on.DX());
    r.h = Extent(on.DY());
    // Far away on the left or above, and large enough to reach the surface.
    if (random.OneIn(30)) r.x = INT_MIN + random.Between(0, 50), r.w |= 0x80000000U;
    if (random.OneIn(30)) r.y = INT_MIN + random.Between(0, 50), r.h |= 0x80000000U;
    return r;
}

int Scene::PartnerOf(int at, unsigned size) {
    if (at < -1000 && !random.OneIn(4)) return INT_MIN + random.Between(0, 120);
    return random.OneIn(4) ? 0 : Coordinate(size);
}

std::uint32_t Scene::Color() {
    static constexpr std::uint32_t kPalette[] = {0x00FF00FF, 0x00FFFFFF, 0x00000000, 0x40808080};
    static constexpr std::uint32_t kAlphas[] = {0, 0, 255, 127, 128, 1, 254};
    if (random.OneIn(4)) return random.OneOf(kPalette);
    const std::uint32_t word = random.Word();
    return random.OneIn(3) ? word : (word & 0x00FFFFFF) | random.OneOf(kAlphas) << 24;
}

double Scene::Number() {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    static constexpr double kOdd[] = {0.0,        1.0,
                                      0.5,        -0.5,
                                      -1e300,     1e300,
                                      -3.7,       2.0,
                                      -255.0,     -1000.0,
                                      0.25,       kInfinity,
                                      -kInfinity, std::numeric_limits<double>::quiet_NaN()};
    if (random.OneIn(3)) return random.OneOf(kOdd);
    return random.Between(-300, 1300) / 1024.0;
}

const std::uint8_t* Scene::Bytes(std::size_t n) {
    return bytes_.data() + random.Below(static_cast<std::uint32_t>(kBytes - n));
}

/// Mostly a sprite's size; now and then so long that rows are moved in other ways.
unsigned Scene::Side() { return random.Below(random.OneIn(16) ? 600 : 71); }

void Scene::Replace(Slot& slot) {
    static constexpr unsigned kUsual[] = {8, 8, 16, 32, 32};
    static constexpr Rows kOddRows[] = {Rows::BottomUp, Rows::Twice, Rows::Close};
    const unsigned bits = random.OneIn(3) ? random.Below(33) : random.OneOf(kUsual);
    const Rows rows = random.OneIn(3) ? random.OneOf(kOddRows) : Rows::Plain;
    const unsigned distance = random.Below(random.OneIn(2) ? 8 : 200);
    const Slot& other = Pick();
    const unsigned kind = random.Below(4);
    const auto block = other.block;
    slot.canvas = std::make_unique<Canvas>(bits, rows, distance);
    slot.block.reset();
    Say("New", bits, static_cast<unsigned>(rows), distance);
    if (kind == 0 && block != nullptr && &other != &slot)
        LayOverBlockOf(slot, other);
    else if (kind <= 1)
        LayOverOwnBlock(slot);
    else
        TakeOwn(slot);
    FillWithNoise(slot);
}

void Scene::TakeOwn(Slot& slot) {
    const unsigned w = Side();
    const unsigned h = Side() / (w > 70 ? 8 : 1);
    slot.canvas->Initialise(w, h);
    slot.block.reset();
    Say("Initialise", slot);
}

void Scene::LayOverOwnBlock(Slot& slot) {
    const unsigned w = Side();
    const unsigned h = Side() / (w > 70 ? 8 : 1);
    const unsigned pitch = RowBytes(*slot.canvas, w) + random.Below(10);
    const unsigned offset = random.Below(65);
    const bool isEmpty = random.OneIn(2);
    slot.block = std::make_shared<std::vector<std::uint8_t>>(offset + std::size_t{pitch} * h + 8);
    void* buffer = random.OneIn(12) ? nullptr : slot.block->data() + offset;
    slot.canvas->Initialise(w, h, buffer, pitch, isEmpty);
    Say("Initialise over host memory", slot, pitch, buffer == nullptr, isEmpty);
}

void Scene::LayOverBlockOf(Slot& slot, const Slot& other) {
    const auto size = static_cast<unsigned>(other.block->size());
    const unsigned offset = random.Below(random.OneIn(2) ? std::min(size, 80U) : size);
    const unsigned longest = std::min(size - offset, 300U);
    const unsigned wanted = random.OneIn(3) ? random.Below(longest) : other.canvas->Pitch();
    const unsigned pitch = std::min(wanted, size - offset);
    const unsigned rows = pitch == 0 ? 70 : std::min((size - offset) / pitch, 200U);
    const unsigned rowBytes = random.Below(pitch + 1);
    const unsigned h = random.Below(rows + 1);
    slot.block = other.block;
    slot.canvas->Initialise(WidthWithin(*slot.canvas, rowBytes), h, slot.block->data() + offset,
                            pitch, false);
    Say("Initialise over another surface's memory", slot, offset, pitch);
}

void Scene::FillWithNoise(Slot& slot) {
    const Memory memory = MemoryOf(slot);
    std::uint32_t word = 0;
    std::uint32_t kind = 0;
    std::uint32_t run = 0;
    for (std::size_t i = 0; i < memory.size; i += 4) {
        if (run == 0) {
            run = 1 + random.Below(24);
            kind = random.Below(4);
            word = Color();
        }
        --run;
        if (kind < 3) word = random.Word();
        if (kind == 0) word &= 0x00FFFFFF;
        if (kind == 1) word |= 0xFF000000;
        for (std::size_t k = i; k < i + 4 && k < memory.size; ++k, word = word << 24 | word >> 8)
            memory.bytes[k] = static_cast<std::uint8_t>(word);
    }
    Say("Noise", slot);
}

void Scene::TakeKey(Canvas& target, const Canvas& source) {
    if (source.DX() == 0 || source.DY() == 0) return;
    const auto x = static_cast<int>(random.Below(source.DX()));
    const auto y = static_cast<int>(random.Below(source.DY()));
    const std::uint32_t key = source.RetPixelRGB(x, y) ^ (random.OneIn(3) ? 0x01000000U : 0U);
    target.SetTransparent(key);
    Say("SetTransparent", key);
}

void Scene::Fold(const char* text) {
    const std::string_view view(text);
    Fold(reinterpret_cast<const std::uint8_t*>(view.data()), view.size());
}

void Scene::Fold(const Slot& slot) { FoldInto(sum_, slot); }

std::uint64_t Scene::ValueOfAll() const {
    Checksum sum = sum_;
    for (const Slot& slot : slots_)
        FoldInto(sum, slot);
    return sum.Value();
}

void Scene::Print(const Slot& slot) {
    const Canvas& c = *slot.canvas;
    *log << "[surface " << &slot - slots_ << ": depth " << c.Depth() << ", " << c.DX() << " x "
         << c.DY() << ", clip " << c.clipX0 << ' ' << c.clipY0 << ' ' << c.clipX1 << ' ' << c.clipY1
         << ']';
}

}  // namespace pinned
