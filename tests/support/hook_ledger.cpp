// The ledger and its two hooks; see hook_ledger.h.
#include "support/hook_ledger.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <map>
#include <mutex>
#include <utility>

#include <gfx/memory.h>

namespace test {
namespace {

constexpr std::size_t kFence = 64;
constexpr unsigned char kFenceByte = 0xC7;
constexpr unsigned char kGarbage = 0xA5;

struct State {
    std::mutex mutex;  // held by each hook: a host's threads share them
    std::map<void*, unsigned long> live;
    std::size_t calls = 0;
    std::size_t faults = 0;
    std::size_t throwAt = 0;
    std::size_t throwAtAllocation = 0;
    bool deliverNull = false;
    bool tracing = false;
    std::vector<HookCall> trace;
};

State& Ledger() {
    static State state;
    return state;
}

void Record(bool isAlloc, unsigned long size, void* block) {
    if (Ledger().tracing) Ledger().trace.push_back({isAlloc, size, block});
}

bool CountDown(std::size_t& counter) { return counter != 0 && --counter == 0; }

void* Alloc(void* context, unsigned long size) {
    State& state = Ledger();
    const std::lock_guard lock(state.mutex);
    if (context != &state) ++state.faults;
    ++state.calls;
    const bool throwsAny = CountDown(state.throwAt);
    const bool throwsHere = CountDown(state.throwAtAllocation);
    if (throwsAny || throwsHere) throw HookFailure{};
    if (state.deliverNull) {
        state.deliverNull = false;
        Record(true, size, nullptr);
        return nullptr;
    }
    auto* raw = static_cast<unsigned char*>(std::malloc(size + 2 * kFence));
    if (raw == nullptr) throw HookFailure{};
    std::memset(raw, kFenceByte, kFence);
    std::memset(raw + kFence, kGarbage, size);
    std::memset(raw + kFence + size, kFenceByte, kFence);
    state.live[raw + kFence] = size;
    Record(true, size, raw + kFence);
    return raw + kFence;
}

bool IsFenceWhole(const unsigned char* fence) {
    for (std::size_t i = 0; i < kFence; ++i) {
        if (fence[i] != kFenceByte) return false;
    }
    return true;
}

void Free(void* context, void* block) {
    State& state = Ledger();
    const std::lock_guard lock(state.mutex);
    if (context != &state) ++state.faults;
    ++state.calls;
    const auto entry = state.live.find(block);
    if (entry == state.live.end()) {
        ++state.faults;
    } else {
        auto* bytes = static_cast<unsigned char*>(block);
        if (!IsFenceWhole(bytes - kFence) || !IsFenceWhole(bytes + entry->second)) ++state.faults;
        Record(false, entry->second, block);
        state.live.erase(entry);
        std::free(bytes - kFence);
    }
    if (CountDown(state.throwAt)) throw HookFailure{};
}

}  // namespace

void HookLedger::Install() {
    GfxMemory::arg = &Ledger();
    GfxMemory::fn_alloc = Alloc;
    GfxMemory::fn_free = Free;
}

std::size_t HookLedger::LiveBlocks() { return Ledger().live.size(); }
std::size_t HookLedger::Calls() { return Ledger().calls; }
void HookLedger::ThrowAt(std::size_t k) { Ledger().throwAt = k; }
void HookLedger::ThrowAtAllocation(std::size_t k) { Ledger().throwAtAllocation = k; }
void HookLedger::DeliverNullOnce() { Ledger().deliverNull = true; }
std::size_t HookLedger::Faults() { return Ledger().faults; }

void HookLedger::StartTrace() {
    Ledger().trace.clear();
    Ledger().tracing = true;
}

std::vector<HookCall> HookLedger::TakeTrace() {
    Ledger().tracing = false;
    return std::move(Ledger().trace);
}

bool HookLedger::IsThrowPending() {
    return Ledger().throwAt != 0 || Ledger().throwAtAllocation != 0;
}

LedgerCheck::LedgerCheck() : blocks_(HookLedger::LiveBlocks()), faults_(HookLedger::Faults()) {}

LedgerCheck::~LedgerCheck() {
    EXPECT_EQ(blocks_, HookLedger::LiveBlocks()) << "blocks leaked or returned too often";
    EXPECT_EQ(faults_, HookLedger::Faults()) << "a foreign or damaged block was returned";
}

}  // namespace test
