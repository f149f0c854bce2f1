// Every operation between unreadable pages, at all short widths and offsets, under every table of
// row kernels: nothing beyond a row is read or written, and the pixels are those of ordinary
// memory. The blocks from the hooks, scratch rows among them, end at such a page too.
#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <vector>

#include "pinned/generator.h"
#include "rows/kernel_tables.h"
#include "support/guarded_memory.h"
#include "support/hook_ledger.h"
#include "support/probe_surface.h"

namespace test {
namespace {

constexpr int kHeight = 3;
constexpr unsigned kWidest = 67;
constexpr std::size_t kWidestRow = kWidest * 4;

/// What an operation works on. Every row is exactly as long as the width asks for.
struct Ground {
    ProbeSurface& to;
    ProbeSurface& from;
    std::uint8_t* run;  // w pixels of three bytes
    std::uint8_t* bits;
    std::uint8_t* display;
    std::uint8_t* words;
    unsigned pitch;  // of bits, display and words
    unsigned w;
    std::uint32_t color;
    std::uint32_t answer = 0;

    int Right() const { return static_cast<int>(w) - 1; }
    GfxSurface::MemoryPtr Words() const { return {words}; }
    GfxSurface::MemoryPtr Bytes() const { return {run}; }
    GfxSurface::MemoryPtr Pixels() const { return {to.lines[1]}; }
};

constexpr unsigned short kDashes[] = {2, 1};
constexpr auto kRed = GfxSurface::PlaneRed;

const struct {
    const char* name;
    void (*run)(Ground&);
} kOperations[] = {
    {"RectFill", [](Ground& g) { g.to.RectFill(0, 0, g.w, kHeight, g.color); }},
    {"RectFillBlend", [](Ground& g) { g.to.RectFillBlend(0, 0, g.w, kHeight, g.color); }},
    {"masked", [](Ground& g) { g.to.RectFillBlend(0, 0, g.w, kHeight, g.color, 0, 0, &g.from); }},
    {"masked, opaque",
     [](Ground& g) { g.to.RectFillBlend(0, 0, g.w, kHeight, g.color >> 8, 0, 0, &g.from); }},
    {"copy", [](Ground& g) { g.to.RectCopy(0, 0, g.w, kHeight, 0, 0, &g.from, false); }},
    {"copy within, right",
     [](Ground& g) { g.to.RectCopy(1, 1, g.w, kHeight, 0, 0, nullptr, false); }},
    {"copy within, left",
     [](Ground& g) { g.to.RectCopy(0, 0, g.w, kHeight, 1, 1, nullptr, false); }},
    {"tile", [](Ground& g) { g.to.RectCopy(0, 0, g.w, kHeight, 5, 2, &g.from, true); }},
    {"keyed copy",
     [](Ground& g) {
         g.to.SetTransparent(g.from.RetPixelRGB(g.Right(), 1));
         g.to.RectCopy(0, 0, g.w, kHeight, 0, 0, &g.from, false);
         g.to.SetOpaque();
     }},
    {"blend", [](Ground& g) { g.to.RectBlend(0, 0, g.w, kHeight, 0, 0, &g.from, false); }},
    {"blended tile", [](Ground& g) { g.to.RectBlend(0, 0, g.w, kHeight, 3, 1, &g.from, true); }},
    {"scaled blend",
     [](Ground& g) { g.to.RectBlendAlpha(0, 0, g.w, kHeight, 0, 0, 0.375, &g.from, false); }},
    {"blend within", [](Ground& g) { g.to.RectBlend(1, 0, g.w, kHeight, 0, 0, nullptr, false); }},
    {"extract", [](Ground& g) { g.to.RectExtract(0, 0, g.w, kHeight, 0, 0, &g.from, kRed); }},
    {"insert", [](Ground& g) { g.to.RectInsert(0, 0, g.w, kHeight, 0, 0, &g.from, kRed); }},
    {"extract bits",
     [](Ground& g) { g.to.RectExtractMono(0, 0, g.w, kHeight, 0, 0, g.bits, g.pitch); }},
    {"extract alpha bits",
     [](Ground& g) { g.to.RectExtractMonoAlpha(0, 0, g.w, kHeight, 0, 0, g.bits, g.pitch); }},
    {"write BGR", [](Ground& g) { g.to.SetPixelLineBGR24(0, 1, g.w, g.run); }},
    {"write bits", [](Ground& g) { g.to.SetPixelLineMono(0, 1, g.w, g.color, g.bits); }},
    {"blit 565", [](Ground& g) { g.to.QuickBltTo565(0, 0, g.w, kHeight, g.display, g.pitch); }},
    {"blit 555", [](Ground& g) { g.to.QuickBltTo555(0, 0, g.w, kHeight, g.display, g.pitch); }},
    {"line", [](Ground& g) { g.to.DrawLine(-1, 0, g.Right() + 1, 2, g.color); }},
    {"level line", [](Ground& g) { g.to.DrawLine(-1, 1, g.Right() + 1, 1, g.color); }},
    {"dashes", [](Ground& g) { g.to.DrawLine(0, 2, g.Right(), 0, g.color, kDashes, 2); }},
    {"smooth line", [](Ground& g) { g.to.DrawAALine(0, 0, g.Right(), 2, g.color); }},
    {"steep smooth line", [](Ground& g) { g.to.DrawAALine(g.Right() - 1, 0, g.Right(), 2, 77); }},
    {"smooth dashes", [](Ground& g) { g.to.DrawAALine(0, 2, g.Right(), 0, 99, kDashes, 2); }},
    {"merged pixel", [](Ground& g) { g.answer = g.to.RetPixelMergeRGB(g.Right(), 2, 0.25, 0.75); }},
    {"row to words", [](Ground& g) { g.to.ConvertToRGB(g.Pixels(), g.Words(), 0, g.w); }},
    {"row to words, tiled",
     [](Ground& g) { g.to.ConvertTileToRGB(g.Pixels(), g.Words(), g.w / 2, g.w); }},
    {"row from words", [](Ground& g) { g.to.ConvertFromRGB(g.Words(), g.Pixels(), 0, g.w); }},
    {"row from words, keyed",
     [](Ground& g) { g.to.ConvertFromRGB(g.Words(), g.Pixels(), 0, g.w, g.color); }},
    {"row blended", [](Ground& g) { g.to.BlendWithRGB(g.Words(), g.Pixels(), 0, g.w); }},
    {"words scaled", [](Ground& g) { g.to.CombineRGBAlpha(0.625, g.Words(), g.w); }},
    {"bytes of words", [](Ground& g) { g.to.ExtractFromRGB(g.Words(), g.Bytes(), 0, g.w, 8); }},
    {"bytes into words",
     [](Ground& g) { g.to.InsertIntoRGB(g.Bytes(), g.Words(), 0, g.w, 16, 0xFF00FFFF); }},
    {"bits of words", [](Ground& g) { g.to.ExtractMonoFromRGB(g.Words(), g.bits, 0, g.w); }},
    {"alpha bits of words",
     [](Ground& g) { g.to.ExtractMonoAlphaFromRGB(g.Words(), g.bits, 0, g.w); }},
    {"bits into words", [](Ground& g) { g.to.InsertMonoIntoRGB(g.bits, g.Words(), 0, g.w); }},
};

// What runs now: named if it ends the program.
const char* volatile runningOperation = "";
const char* volatile runningTable = "";
volatile unsigned runningWidth, runningOffset, runningDepths[2];
volatile bool runningAtEnd;

void NameFault(int signal) {
    std::fprintf(stderr, "fault in '%s', table %s, width %u, depth %u from %u, %u bytes from %s\n",
                 runningOperation, runningTable, runningWidth, runningDepths[0], runningDepths[1],
                 runningOffset, runningAtEnd ? "the page's end" : "the page's start");
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

/// Hooks whose blocks end where an unreadable page begins, but for the alignment of any object.
class GuardedHooks {
public:
    GuardedHooks() {
        GfxMemory::arg = this;
        GfxMemory::fn_alloc = [](void* self, unsigned long size) {
            return static_cast<GuardedHooks*>(self)->Take(size);
        };
        GfxMemory::fn_free = [](void* self, void* block) {
            std::erase_if(static_cast<GuardedHooks*>(self)->blocks_,
                          [=](const Block& one) { return one.first == block; });
        };
    }
    ~GuardedHooks() {
        EXPECT_TRUE(blocks_.empty());
        HookLedger::Install();
    }
    GuardedHooks(const GuardedHooks&) = delete;
    GuardedHooks& operator=(const GuardedHooks&) = delete;

private:
    struct Block {
        void* first;
        std::unique_ptr<Pages> pages;
    };

    void* Take(std::size_t size) {
        constexpr std::size_t kAlign = alignof(std::max_align_t);
        const std::size_t inside = (size + PageSize() - 1) / PageSize();
        auto pages = std::make_unique<Pages>(inside + 2);
        pages->Open(1, inside);
        void* const first = pages->At(inside + 1) - (size + kAlign - 1) / kAlign * kAlign;
        blocks_.push_back({first, std::move(pages)});
        return first;
    }

    std::vector<Block> blocks_;
};

/// The five areas of a ground, either guarded or each in ordinary memory.
struct Areas {
    explicit Areas(bool guarded) : ordinary(guarded ? 0 : 5 * kHeight * kWidestRow) {
        for (int i = 0; guarded && i < 5; ++i)
            rows.push_back(std::make_unique<GuardedRows>(kHeight));
    }
    unsigned Pitch() const { return rows.empty() ? kWidestRow : GuardedRows::Pitch(); }
    std::uint8_t* Place(std::size_t area, std::size_t rowBytes, std::size_t offset, bool atEnd) {
        if (rows.empty()) return ordinary.data() + area * kHeight * kWidestRow;
        return rows[area]->Place(rowBytes, offset, atEnd);
    }

    std::vector<std::unique_ptr<GuardedRows>> rows;
    std::vector<std::uint8_t> ordinary;
};

struct Case {
    unsigned depths[2];
    unsigned w;
    unsigned offset;
    bool atEnd;
};

/// Both surfaces and all areas of one case.
class Stage {
public:
    Stage(Areas& areas, const Case& c)
        : to_(c.depths[0]),
          from_(c.depths[1]),
          rowBytes_{c.w * c.depths[0] / 8, c.w * c.depths[1] / 8, 3 * c.w, (c.w + 7) / 8, 4 * c.w},
          ground{to_, from_, {}, {}, {}, {}, areas.Pitch(), c.w, 0} {
        for (std::size_t i = 0; i < 5; ++i)
            places_[i] = areas.Place(i, rowBytes_[i], c.offset, c.atEnd);
        to_.Initialise(c.w, kHeight, places_[0], areas.Pitch(), false);
        from_.Initialise(c.w, kHeight, places_[1], areas.Pitch(), false);
        ground.run = places_[2];
        ground.bits = places_[3];
        // Colour words and display pixels, half as long, are never wanted at once.
        ground.words = places_[4];
        ground.display = places_[4] + (c.atEnd ? 2 * c.w : 0);
    }

    void Run(void (*operation)(Ground&), std::uint64_t seed) {
        pinned::Generator random(seed);
        ground.color = random.Word();
        for (std::size_t i = 0; i < 5 * kHeight; ++i)
            std::memcpy(RowAt(i), Noise() + random.Below(2000), rowBytes_[i / kHeight]);
        operation(ground);
    }

    bool Equals(Stage& other) {
        bool equal = ground.answer == other.ground.answer;
        for (std::size_t i = 0; i < 5 * kHeight; ++i)
            equal &= std::memcmp(RowAt(i), other.RowAt(i), rowBytes_[i / kHeight]) == 0;
        return equal;
    }

private:
    std::uint8_t* RowAt(std::size_t i) { return places_[i / kHeight] + i % kHeight * ground.pitch; }
    static const std::uint8_t* Noise() {
        static const std::vector<std::uint8_t> noise = [] {
            pinned::Generator random(11);
            std::vector<std::uint8_t> bytes(2000 + kWidestRow);
            for (std::uint8_t& byte : bytes)
                byte = random.OneIn(3) ? static_cast<std::uint8_t>(-random.Between(0, 1))
                                       : random.Byte();
            return bytes;
        }();
        return noise.data();
    }

    ProbeSurface to_;
    ProbeSurface from_;
    std::size_t rowBytes_[5];
    std::uint8_t* places_[5];

public:
    Ground ground;
};

void RunCase(Areas& guarded, Areas& ordinary, const Case& c) {
    Stage stage(guarded, c);
    Stage plain(ordinary, c);
    runningWidth = c.w;
    runningOffset = c.offset;
    runningAtEnd = c.atEnd;
    runningDepths[0] = c.depths[0];
    runningDepths[1] = c.depths[1];
    const auto tables = AllTables();
    for (std::size_t i = 0; i < std::size(kOperations); ++i) {
        UseTable(tables.front());
        plain.Run(kOperations[i].run, i + c.w);
        runningOperation = kOperations[i].name;
        for (const gfx::RowKernels* table : tables) {
            UseTable(table);
            runningTable = table->name;
            stage.Run(kOperations[i].run, i + c.w);
            ASSERT_TRUE(stage.Equals(plain))
                << kOperations[i].name << ", table " << table->name << ", width " << c.w
                << ", depth " << c.depths[0] << " from " << c.depths[1] << ", offset " << c.offset;
        }
    }
}

TEST(GuardPages, No_operation_leaves_its_rows_at_any_short_width_and_offset) {
    Areas guarded(true);
    Areas ordinary(false);
    const auto previous = std::signal(SIGSEGV, NameFault);
    const GuardedHooks hooks;
    for (const unsigned to : {8U, 16U, 32U}) {
        for (const unsigned from : {8U, 16U, 32U}) {
            for (unsigned w = 0; w <= kWidest; ++w) {
                for (unsigned place = 0; place < 10 && !HasFatalFailure(); ++place)
                    RunCase(guarded, ordinary, {{to, from}, w, place / 2, place % 2 == 1});
            }
        }
    }
    std::signal(SIGSEGV, previous);
}

}  // namespace
}  // namespace test
