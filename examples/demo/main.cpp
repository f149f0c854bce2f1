// gfx_demo [--face FILE] OUTDIR: draws the demo's pictures into a folder of PNG files.
#include <cstdio>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

#include "hooks.h"
#include "photograph.h"
#include "pictures.h"
#include "text.h"

namespace demo {

void Studio::Report(const std::string& path, const char* content) {
    std::printf("%s  %s\n", path.c_str(), content);
}

namespace {

constexpr const char* kRegularFace = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
constexpr const char* kBoldFace = "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf";

struct Options {
    std::string regularFace = kRegularFace;
    std::string boldFace = std::filesystem::exists(kBoldFace) ? kBoldFace : kRegularFace;
    std::string folder;
};

Options ReadOptions(int count, char** words) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string_view word = words[i];
        if (word == "--face" && i + 1 < count) {
            options.regularFace = options.boldFace = words[++i];
        } else if (options.folder.empty() && !word.starts_with("-")) {
            options.folder = word;
        } else {
            throw std::invalid_argument("usage: gfx_demo [--face FILE] OUTDIR");
        }
    }
    if (options.folder.empty()) throw std::invalid_argument("usage: gfx_demo [--face FILE] OUTDIR");
    return options;
}

void DrawAll(const Options& options) {
    std::filesystem::create_directories(options.folder);
    Typeface type(options.regularFace, options.boldFace);
    const Photograph mountain(432, 292);
    const Studio studio{options.folder, options.regularFace, type, mountain};
    DrawLetter(studio);
    DrawPanel(studio);
    DrawLineGallery(studio);
    DrawPlanes(studio);
}

void CloseLedger() {
    const Ledger ledger = ReadLedger();
    std::printf("%zu blocks taken through the hooks, %zu returned, %zu bytes at most at one time\n",
                ledger.taken, ledger.returned, ledger.peakBytes);
    if (!ledger.Balances()) throw std::runtime_error("the ledger does not balance");
    std::printf("the ledger balances\n");
}

}  // namespace
}  // namespace demo

int main(int count, char** words) {
    try {
        const demo::Options options = demo::ReadOptions(count, words);
        demo::InstallHooks();
        demo::DrawAll(options);
        demo::CloseLedger();
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "gfx_demo: %s\n", failure.what());
    } catch (const char* limit) {  // the library names the limit that an argument broke
        std::fprintf(stderr, "gfx_demo: the limit %s was broken\n", limit);
    }
    return 1;
}
