#pragma once

#include <cstdint>

#include "base/ordinals.h"
#include "state/document_state.h"

namespace quorvale {

/// A line and a display column in it, counted over the raw line with tabs up to their stops.
struct RowCol {
    Line Row;
    std::int32_t Col;

    bool operator==(const RowCol&) const = default;
};

/// The 0-based offset in the text of a caret; 0 above the first line, the last unit's offset at or
/// past the sentinel. A column beyond the line's end counts on, one unit a column.
std::int32_t OffsetOfCaret(const DocumentState& document, RowCol caret);

/// Line and column behind the unit at a 1-based position, from 1 to the text's length - 1. A
/// position on a line break is a column of the line that the break ends.
RowCol PlaceBehind(const DocumentState& document, std::int32_t position);

}  // namespace quorvale
