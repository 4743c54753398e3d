#include "state/vertical_value.h"

#include <algorithm>

#include "base/integers.h"

namespace quorvale {

std::int32_t VerticalValue(const Surface& surface, const DocumentState& document,
                           const ViewState& view, Line topLine) {
    const ScrollBar& bar = surface.scrVert;
    const double steps = topLine.Number() / static_cast<double>(document.ScrollScale);
    const std::int32_t nearest = bar.Wide() ? ToInt32(steps) : ToInt16(steps);
    if (document.ScrollScale == 1 || bar.Max() - bar.Min() < 2) {
        return std::min(std::max(nearest, bar.Min()), bar.Max());
    }
    if (topLine <= Line{1}) return bar.Min();
    if (topLine.Number() >= document.LineSlots - view.RowsPerView) return bar.Max();
    return std::clamp(nearest, bar.Min() + 1, bar.Max() - 1);
}

}  // namespace quorvale
