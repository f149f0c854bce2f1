// The pinned drawing under every table of row kernels, and under the table that the library starts
// with, whose kernels choose one and pass their call on: all leave the same bytes.
#include "pinned/drawing.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

#include "rows/kernel_tables.h"
#include "support/hook_ledger.h"

namespace test {
namespace {

constexpr unsigned kOperations = 40000;

/// The operation of that number, as text.
std::string Describe(unsigned number) {
    std::ostringstream text;
    pinned::Drawing drawing(1);
    drawing.Run(number);
    drawing.Run(1, &text);
    return text.str();
}

TEST(PinnedDrawing, Every_table_leaves_the_same_bytes_after_every_operation) {
    const LedgerCheck ledger;
    std::vector<std::uint64_t> expected;
    std::vector<const gfx::RowKernels*> tables = AllTables();
    tables.push_back(kTableAtStart);
    for (const gfx::RowKernels* table : tables) {
        pinned::Drawing drawing(1);
        for (unsigned i = 0; i < kOperations; ++i) {
            UseTable(table);
            drawing.Run(1);
            if (table == tables.front()) expected.push_back(drawing.RunningChecksum());
            ASSERT_EQ(expected[i], drawing.RunningChecksum())
                << table->name << " differs from " << tables.front()->name << " at operation " << i
                << ": " << Describe(i);
        }
    }
}

}  // namespace
}  // namespace test
