#include "document/visible_lines.h"

#include <algorithm>

namespace quorvale {

Line PreviousVisibleLine(const DocumentState& document, Line line) {
    if (line <= Line{1}) return Line{1};
    const Line above = line - 1;
    // Outside the table nothing is hidden.
    if (above.Number() > document.LineSlots) return above;
    const std::int32_t shown = document.Table.HiddenDepth.FindPreviousDefault(above.Number());
    return Line{std::max(shown, 1)};
}

Line NextVisibleLine(const DocumentState& document, Line line) {
    const Line from = line < Line{0} ? Line{1} : line;
    if (from >= document.Sentinel()) return document.Sentinel();
    const std::int32_t shown =
        document.Table.HiddenDepth.FindNextDefault(from.Number() + 1, document.LineSlots);
    return shown == 0 ? document.Sentinel() : Line{shown};
}

}  // namespace quorvale
