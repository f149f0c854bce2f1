// What a fuzz target demands beyond the sanitizers: a case that breaks it ends the program, which
// the fuzzer reports with the bytes that led there.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

#include "support/hook_ledger.h"

namespace fuzz {

inline void Demand(bool holds, const std::string& what) {
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", what.c_str());
    std::abort();
}

inline void DemandAllReturned() {
    Demand(test::HookLedger::LiveBlocks() == 0, "blocks were not returned");
    Demand(test::HookLedger::Faults() == 0, "a foreign or damaged block was returned");
}

}  // namespace fuzz
