// Sequences of every drawing operation on several surfaces, their rows in any order, some over one
// memory, compared with the plain model.
#include "against_model.h"
#include "support/hook_ledger.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    test::HookLedger::Install();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    fuzz::RunAgainstModel(bytes, size, test::DrawAtRandom);
    return 0;
}
