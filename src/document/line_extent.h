#pragma once

#include <cstdint>

#include "base/ordinals.h"
#include "state/document_state.h"

namespace quorvale {

/// Where a line stands in the document's text: 1-based position and number of units, without the
/// line break, and how many units that has: 1 for LF, 2 for CR LF.
struct LineExtent {
    std::int32_t Start = 1;
    std::int32_t Length = 0;
    std::int32_t Break = 0;
};

/// The extent of a line; an empty one for a bad number.
inline LineExtent ExtentOf(const DocumentState& document, Line line) {
    if (!document.IsLine(line)) return {};
    const LineStarts& starts = document.Table.Starts;
    const std::int32_t start = starts[line.Number()];
    // The next line starts behind the line feed that ends this one.
    const std::int32_t length = starts[line.Number() + 1] - 1 - start;
    const bool both = length > 0 && document.Text.At(start + length - 1) == u'\r';
    return both ? LineExtent{start, length - 1, 2} : LineExtent{start, length, 1};
}

}  // namespace quorvale
