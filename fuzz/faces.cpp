// Faces that an enemy may have written: every file opens or is refused, and every glyph is drawn or
// has no image, within the fuzzer's limits of time and memory. Files are changed table by table, so
// that most of them still open.
#include <gfx/gfx.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <random>
#include <string>

#include "demand.h"
#include "support/hook_ledger.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* bytes, std::size_t size, std::size_t most);

namespace {

constexpr std::size_t kHeader = 12;  // of a font file; then 16 bytes a table
constexpr std::size_t kEntry = 16;

std::uint32_t Get32(const std::uint8_t* at) {
    return std::uint32_t{at[0]} << 24 | std::uint32_t{at[1]} << 16 | std::uint32_t{at[2]} << 8 |
           at[3];
}

/// A file in memory that has a path.
class FaceFile {
public:
    FaceFile() : file_(memfd_create("face", 0)), path_("/proc/self/fd/" + std::to_string(file_)) {}

    const char* Write(const std::uint8_t* bytes, std::size_t size) {
        const bool isWritten =
            ftruncate(file_, 0) == 0 && pwrite(file_, bytes, size, 0) == static_cast<ssize_t>(size);
        fuzz::Demand(isWritten, "the face cannot be written");
        return path_.c_str();
    }

private:
    int file_;
    std::string path_;
};

/// A number made of a file: it chooses how the face is used, so that a file alone repeats a case.
std::uint32_t HashOf(const std::uint8_t* bytes, std::size_t size) {
    std::uint32_t hash = 2166136261;
    for (std::size_t i = 0; i < size; ++i)
        hash = (hash ^ bytes[i]) * 16777619;
    return hash;
}

void DrawSomeGlyphs(GfxFontCache& cache, GfxSurface& target) {
    static constexpr unsigned short kCodes[] = {0x20, 0x41, 0x42, 0x43, 0x44, 0x61, 0xE9, 0x3A9, 0};
    for (const unsigned short code : kCodes) {
        GfxFontCache::GlyphGeom geom;
        cache.GetGlyphGeometry(code, geom);
        cache.DrawGlyph(code, 20, 60, 0x40FF0000, &target, code % 2 == 0 ? 0 : 90);
    }
}

/// Changes one table in place, so that the others stay where the directory says.
void MutateTable(std::uint8_t* bytes, std::size_t size, std::minstd_rand& random) {
    const std::size_t tables = std::size_t{bytes[4]} * 256 + bytes[5];
    if (tables == 0 || kHeader + tables * kEntry > size) return;
    const std::uint8_t* const entry = bytes + kHeader + random() % tables * kEntry;
    const std::size_t at = Get32(entry + 8);
    const std::size_t length = Get32(entry + 12);
    if (at >= size || length > size - at || length < 2) return;
    static constexpr std::uint16_t kExtremes[] = {0, 1, 0x7FFF, 0x8000, 0xFFFF, 0xFF, 0x100, 16};
    if (random() % 2 == 0) {
        const std::size_t place = at + random() % (length / 2) * 2;
        const std::uint16_t value = kExtremes[random() % std::size(kExtremes)];
        bytes[place] = static_cast<std::uint8_t>(value >> 8);
        bytes[place + 1] = static_cast<std::uint8_t>(value);
    } else {
        LLVMFuzzerMutate(bytes + at, length, length);
    }
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* bytes, std::size_t size,
                                               std::size_t most, unsigned seed) {
    std::minstd_rand random(seed);
    if (size < kHeader || random() % 8 == 0) return LLVMFuzzerMutate(bytes, size, most);
    const unsigned changes = 1 + static_cast<unsigned>(random() % 4);
    for (unsigned i = 0; i < changes; ++i)
        MutateTable(bytes, size, random);
    return size;
}

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    test::HookLedger::Install();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static FaceFile file;
    static constexpr int kSizes[] = {1, 7, 12, 16, 40, 120, 500, 1000};
    const std::uint32_t hash = HashOf(bytes, size);
    {
        GfxFontCache cache;
        const int emSize = kSizes[hash % std::size(kSizes)];
        GfxSurface* target = GfxSurface::New(32);
        target->Initialise(80, 80);
        if (cache.OpenFace(file.Write(bytes, size), emSize, (hash >> 8 & 1) != 0)) {
            DrawSomeGlyphs(cache, *target);
        }
        GfxSurface::Delete(target);
    }
    fuzz::DemandAllReturned();
    return 0;
}
