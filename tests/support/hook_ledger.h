// The allocation hooks that the tests install: a ledger of live blocks, and failures on demand.
// Blocks come filled with garbage between two fences, so that nothing can rely on their content.
#pragma once

#include <cstddef>
#include <vector>

namespace test {

/// What a hook throws when it was told to fail.
struct HookFailure {};

/// One call of a hook. A returned block's size is the one it was requested with.
struct HookCall {
    bool isAlloc;
    unsigned long size;
    void* block;
};

class HookLedger {
public:
    /// Stores the ledger's functions in GfxMemory. Called once before the first test.
    static void Install();

    static std::size_t LiveBlocks();  ///< blocks taken and not yet returned
    static std::size_t Calls();       ///< calls of either hook since the program began

    /// The k-th call of either hook from now on throws HookFailure, once; 0 cancels. A fn_free that
    /// throws has taken its block back.
    static void ThrowAt(std::size_t k);

    /// As ThrowAt, counting only calls of fn_alloc.
    static void ThrowAtAllocation(std::size_t k);

    /// Whether a ThrowAt or ThrowAtAllocation is still waiting for its call.
    static bool IsThrowPending();

    /// Forgets the recorded calls and records those that follow; TakeTrace ends that.
    static void StartTrace();
    static std::vector<HookCall> TakeTrace();

    /// The next fn_alloc delivers null.
    static void DeliverNullOnce();

    /// Faults seen so far: unknown blocks, blocks returned twice, damaged fences, null returned,
    /// a hook called with another context than `arg`.
    static std::size_t Faults();
};

/// Fails the current test if blocks live at its end that did not live at its beginning, or if the
/// ledger saw a fault in between.
class LedgerCheck {
public:
    LedgerCheck();
    ~LedgerCheck();
    LedgerCheck(const LedgerCheck&) = delete;
    LedgerCheck& operator=(const LedgerCheck&) = delete;

private:
    std::size_t blocks_;
    std::size_t faults_;
};

}  // namespace test
