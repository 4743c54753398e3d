#include "document/positions.h"

#include <algorithm>

#include "base/integers.h"
#include "document/display_text.h"

namespace quorvale {

namespace {

/// The line that holds a position.
Line LineOf(const DocumentState& document, std::int32_t position) {
    const LineStarts& starts = document.Table.Starts;
    std::int32_t low = 1;
    std::int32_t high = document.LineSlots;
    while (true) {
        const std::int32_t middle = low + (high - low) / 2;
        if (middle >= document.LineSlots) return document.Sentinel();
        if (middle < 1) return Line{1};
        if (starts[middle] > position) {
            high = middle - 1;
        } else if (position < starts[middle + 1]) {
            return Line{middle};
        } else {
            low = middle + 1;
        }
    }
}

}  // namespace

std::int32_t OffsetOfCaret(const DocumentState& document, RowCol caret) {
    if (caret.Row < Line{1} || document.LineSlots == 0) return 0;
    if (caret.Row >= document.Sentinel()) return document.Text.Length() - 1;
    const std::int64_t start = document.Table.Starts[caret.Row.Number()];
    const std::int64_t last = start + caret.Col;
    std::int64_t position = start;
    std::int32_t column = 0;
    while (position <= std::min<std::int64_t>(last, document.Text.Length()) && column < caret.Col) {
        column = ColumnAfter(column, document.Text.At(static_cast<std::int32_t>(position)));
        ++position;
    }
    // Past the text every column is one unit.
    const std::int64_t beyond = std::min<std::int64_t>(caret.Col - column, last - position + 1);
    return CheckedCast<std::int32_t>(position + std::max<std::int64_t>(beyond, 0) - 1);
}

RowCol PlaceBehind(const DocumentState& document, std::int32_t position) {
    const Line row = LineOf(document, position);
    const std::int32_t start = document.Table.Starts[row.Number()];
    std::int32_t column = 0;
    document.Text.VisitSpans(start, position - start + 1, [&](auto units) {
        for (const auto unit : units) column = ColumnAfter(column, unit);
    });
    return {row, column};
}

}  // namespace quorvale
