// Every block is remembered with its size, so that a block the library never took, or returns
// twice, is noticed at once instead of breaking the heap.
#include "hooks.h"

#include <gfx/memory.h>

#include <algorithm>
#include <cstdlib>
#include <new>
#include <stdexcept>
#include <unordered_map>

namespace demo {
namespace {

struct Book {
    std::unordered_map<void*, std::size_t> live;
    std::size_t liveBytes = 0;
    Ledger totals{};
};

Book book;

void* Take(void* context, unsigned long size) {
    Book& b = *static_cast<Book*>(context);
    void* block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) throw std::bad_alloc();
    b.live.emplace(block, size);
    b.liveBytes += size;
    b.totals.peakBytes = std::max(b.totals.peakBytes, b.liveBytes);
    ++b.totals.taken;
    return block;
}

void GiveBack(void* context, void* block) {
    Book& b = *static_cast<Book*>(context);
    const auto entry = b.live.find(block);
    if (entry == b.live.end()) throw std::logic_error("a block came back that was never taken");
    b.liveBytes -= entry->second;
    b.live.erase(entry);
    ++b.totals.returned;
    std::free(block);
}

}  // namespace

void InstallHooks() {
    GfxMemory::arg = &book;
    GfxMemory::fn_alloc = Take;
    GfxMemory::fn_free = GiveBack;
}

Ledger ReadLedger() { return book.totals; }

}  // namespace demo
