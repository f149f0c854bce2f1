// Installs the test hooks before any test creates an object.
#include <gtest/gtest.h>

#include "support/hook_ledger.h"

int main(int argc, char** argv) {
    test::HookLedger::Install();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
