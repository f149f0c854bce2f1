// The glyph records alone: construction, and the chain that a record owns.
#include <gtest/gtest.h>

#include <new>
#include <vector>

#include "font/probe_cache.h"
#include "support/hook_ledger.h"

namespace test {
namespace {

using GlyphInfo = GfxFontCache::GlyphInfo;

/// A record in a block from the hooks, as the cache chains it.
GlyphInfo* MakeRecord() {
    void* const block = GfxMemory::fn_alloc(GfxMemory::arg, sizeof(GlyphInfo));
    return ::new (block) GlyphInfo;
}

TEST(GlyphInfo, A_new_record_is_free_whatever_its_memory_held) {
    LedgerCheck check;
    GlyphInfo owner;
    owner.next = MakeRecord();  // the ledger's blocks come filled with garbage
    const GlyphInfo& made = *owner.next;
    EXPECT_EQ(0xFFFF, made.code);
    EXPECT_EQ(nullptr, made.next);
    EXPECT_EQ(0, made.bandX | made.bandY | made.width | made.height | made.band);
    EXPECT_EQ((std::array<int, 8>{}), Fields(made.geom));
}

TEST(GlyphInfo, Destruction_returns_the_chain_last_first) {
    LedgerCheck check;
    static void (*ledgerFree)(void*, void*) = GfxMemory::fn_free;
    static std::vector<void*> returned;
    returned.clear();
    std::vector<void*> expected;
    {
        GlyphInfo head;
        GlyphInfo* last = &head;
        for (int i = 0; i < 3; ++i) {
            last = last->next = MakeRecord();
            expected.insert(expected.begin(), last);
        }
        GfxMemory::fn_free = [](void* context, void* block) {
            returned.push_back(block);
            ledgerFree(context, block);
        };
    }
    GfxMemory::fn_free = ledgerFree;
    EXPECT_EQ(expected, returned);
}

}  // namespace
}  // namespace test
