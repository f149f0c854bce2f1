// The pinned drawing as a program: prints its checksum every so many operations, or compares with
// a file of such lines. It takes whatever build of the library the loader finds.
#include <gfx/memory.h>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <new>
#include <sstream>
#include <string>

#include "pinned/drawing.h"

namespace {

constexpr const char* kUsage =
    "gfx_pinned_drawing [OPTION VALUE]...\n"
    "  --operations N   how many operations to run (100000)\n"
    "  --every K        print the checksum after every K of them (10000)\n"
    "  --seed S         the drawing's seed (1)\n"
    "  --fill BYTE      what the hooks' memory holds when it is handed out (165)\n"
    "  --describe N     print the operations from number N on, as text\n"
    "  --expect FILE    print nothing and compare with FILE, an earlier output\n";

struct Options {
    unsigned operations = 100000;
    unsigned every = 10000;
    unsigned seed = 1;
    unsigned fill = 0xA5;
    unsigned describe = 0;
    std::string expect;
};

int fillByte = 0;

void* Allocate(void*, unsigned long size) {
    void* const block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) throw std::bad_alloc();
    return std::memset(block, fillByte, size);
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
        const std::string name = argv[i];
        if (i + 1 == argc) return false;
        bool known = name == "--expect";
        if (known) options.expect = argv[i + 1];
        for (const auto& number : kNumbers) {
            if (name != number.name) continue;
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

int Draw(const Options& options) {
    std::ifstream expected(options.expect);
    if (!options.expect.empty() && !expected) {
        std::cerr << "cannot read " << options.expect << '\n';
        return 2;
    }
    pinned::Drawing drawing(options.seed);
    for (unsigned done = 0; done < options.operations;) {
        const unsigned n = std::min(options.every, options.operations - done);
        RunFrom(drawing, done, n, options.describe);
        done += n;
        std::ostringstream got;
        got << done << ' ' << std::hex << std::setw(16) << std::setfill('0') << drawing.Checksum();
        std::string line;
        if (options.expect.empty()) {
            std::cout << got.str() << std::endl;
        } else if (!std::getline(expected, line) || line != got.str()) {
            std::cerr << "expected '" << line << "', got '" << got.str() << "'\n";
            return 1;
        }
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    if (!Parse(argc, argv, options)) {
        std::cerr << kUsage;
        return 2;
    }
    fillByte = static_cast<int>(options.fill & 0xFF);
    GfxMemory::fn_alloc = Allocate;
    GfxMemory::fn_free = Release;
    return Draw(options);
}
