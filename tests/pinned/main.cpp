// The pinned drawing as a program: prints its checksum every so many operations, or compares with
// a file of such lines. It takes whatever build of the library the loader finds.
#include <gfx/memory.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <new>

#include "pinned/drawing.h"

namespace {

constexpr const char* kUsage =
    "gfx_pinned_drawing [OPTION VALUE]...\n"
    "  --operations N   how many operations to run (100000)\n"
    "  --every K        print the checksum after every K of them (10000)\n"
    "  --seed S         the drawing's seed (1)\n"
    "  --fill S         the hooks hand out memory full of random bytes by this seed; 0: as it is "
    "(1)\n"
    "  --describe N     print the operations from number N on, as text\n"
    "  --expect FILE    print nothing and compare with FILE, an earlier output\n";

// No streams where sums are compared: the memory sanitizer does not see what the standard library,
// which it was not built into, has written.

struct Options {
    unsigned operations = 100000;
    unsigned every = 10000;
    unsigned seed = 1;
    unsigned fill = 1;
    unsigned describe = 0;
    const char* expect = nullptr;
};

unsigned fillSeed = 0;

void* Allocate(void*, unsigned long size) {
    auto* const block = static_cast<std::uint8_t*>(std::malloc(size == 0 ? 1 : size));
    if (block == nullptr) throw std::bad_alloc();
    static pinned::Generator random(fillSeed);
    for (unsigned long i = 0; fillSeed != 0 && i < size; ++i)
        block[i] = random.Byte();
    return block;
}

void Release(void*, void* block) { std::free(block); }

bool Parse(int argc, char** argv, Options& options) {
    const struct {
        const char* name;
        unsigned* value;
    } kNumbers[] = {{"--operations", &options.operations},
                    {"--every", &options.every},
                    {"--seed", &options.seed},
                    {"--fill", &options.fill},
                    {"--describe", &options.describe}};
    for (int i = 1; i < argc; i += 2) {
        if (i + 1 == argc) return false;
        bool known = std::strcmp(argv[i], "--expect") == 0;
        if (known) options.expect = argv[i + 1];
        for (const auto& number : kNumbers) {
            if (std::strcmp(argv[i], number.name) != 0) continue;
            *number.value = static_cast<unsigned>(std::strtoul(argv[i + 1], nullptr, 0));
            known = true;
        }
        if (!known) return false;
    }
    return options.every > 0;
}

/// The operations one by one, where they are wanted as text; else all at once.
void RunFrom(pinned::Drawing& drawing, unsigned done, unsigned n, unsigned describe) {
    if (describe == 0) return drawing.Run(n);
    for (unsigned i = 1; i <= n; ++i) {
        const bool isWanted = done + i >= describe;
        if (isWanted) std::cout << "operation " << done + i << ": ";
        drawing.Run(1, isWanted ? &std::cout : nullptr);
    }
}

/// The next line of the file. False: it has none, or another one.
bool Meets(std::FILE* file, unsigned operations, std::uint64_t checksum) {
    unsigned wantedOperations = 0;
    unsigned long long wanted = 0;
    if (std::fscanf(file, "%u %llx", &wantedOperations, &wanted) != 2) wantedOperations = 0;
    if (wantedOperations == operations && wanted == checksum) return true;
    std::fprintf(stderr, "expected %u %016llx, got %u %016llx\n", wantedOperations, wanted,
                 operations, static_cast<unsigned long long>(checksum));
    return false;
}

int Draw(const Options& options) {
    std::FILE* const expected = options.expect ? std::fopen(options.expect, "r") : nullptr;
    if (options.expect != nullptr && expected == nullptr) {
        std::fprintf(stderr, "cannot read %s\n", options.expect);
        return 2;
    }
    pinned::Drawing drawing(options.seed);
    bool meets = true;
    for (unsigned done = 0; meets && done < options.operations;) {
        const unsigned n = std::min(options.every, options.operations - done);
        RunFrom(drawing, done, n, options.describe);
        done += n;
        const std::uint64_t checksum = drawing.Checksum();
        if (expected != nullptr)
            meets = Meets(expected, done, checksum);
        else
            std::printf("%u %016llx\n", done, static_cast<unsigned long long>(checksum));
    }
    if (expected != nullptr) std::fclose(expected);
    return meets ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    if (!Parse(argc, argv, options)) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    fillSeed = options.fill;
    GfxMemory::fn_alloc = Allocate;
    GfxMemory::fn_free = Release;
    return Draw(options);
}
