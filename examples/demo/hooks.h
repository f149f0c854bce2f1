// The host's side of the allocation hooks: malloc and free with a ledger of live blocks.
#pragma once

#include <cstddef>

namespace demo {

/// Installs the hooks; call before the first object of the library is made.
void InstallHooks();

/// What passed through the hooks so far.
struct Ledger {
    std::size_t taken;      ///< blocks handed out
    std::size_t returned;   ///< blocks taken back
    std::size_t peakBytes;  ///< most bytes live at one time
    bool Balances() const { return taken == returned; }
};

Ledger ReadLedger();

}  // namespace demo
