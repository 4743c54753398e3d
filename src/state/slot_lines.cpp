#include "state/slot_lines.h"

#include <utility>

#include "base/numbers_in_text.h"

namespace quorvale {

Line SlotLine(const Surface& surface, int slot) {
    return Line{ToLong(std::u16string_view(surface.lblLine[slot].Tag()))};
}

std::optional<int> FindRowSlot(const Surface& surface, const ViewState& view, Line line) {
    const std::u16string tag = DecimalText(line.Number());
    for (int slot = 0; slot <= view.RowsPerView && surface.lblLine.Has(slot); ++slot) {
        if (surface.lblLine[slot].Tag() == tag) return slot;
    }
    return std::nullopt;
}

void SetSlot(Surface& surface, int slot, SharedText caption, Line line) {
    Label& label = surface.lblLine[slot];
    label.SetCaption(std::move(caption));
    label.SetTag(DecimalText(line.Number()));
}

}  // namespace quorvale
