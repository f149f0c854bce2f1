// Row writers and buffers of bits, each exactly as large as what the rules let be read or written,
// compared with the plain model.
#include "against_model.h"
#include "support/hook_ledger.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    test::HookLedger::Install();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    fuzz::RunAgainstModel(bytes, size, test::MoveRunsAtRandom);
    return 0;
}
