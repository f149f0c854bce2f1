// How a surface lays its rows into its memory: as the library does, or as a derived one may.
#pragma once

namespace test {

enum class RowOrder {
    kTopDown,
    kBottomUp,     ///< row 0 is the last one in memory
    kEvenThenOdd,  ///< neighbours lie apart
    kInPairs       ///< rows 2 y and 2 y + 1 are the same memory
};

/// Which of h rows in memory row y is.
inline unsigned RowInMemory(RowOrder order, unsigned y, unsigned h) {
    switch (order) {
        case RowOrder::kTopDown:
            return y;
        case RowOrder::kBottomUp:
            return h - 1 - y;
        case RowOrder::kEvenThenOdd:
            return y % 2 == 0 ? y / 2 : (h + 1) / 2 + y / 2;
        case RowOrder::kInPairs:
            return y / 2;
    }
    return y;
}

}  // namespace test
