#pragma once

#include <cstdint>
#include <span>

#include "base/column.h"

namespace quorvale {

/// Entries from `First` to `Last`; none when `Last` is smaller.
struct EntryRange {
    std::int32_t First;
    std::int32_t Last;
};

/// Gives every entry the number of `ranges` it lies in; the ranges may come in any order, and nest
/// or cross. One pass over ranges and entries, however long the ranges are.
/// Index for a range outside the column, Overflow for a depth beyond 16 bits: nothing is changed.
void SetNestedDepths(Column<std::int16_t>& depths, std::span<const EntryRange> ranges);

}  // namespace quorvale
