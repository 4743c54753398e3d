#include "view/row_colours.h"

#include "state/slot_lines.h"

namespace quorvale {

bool IsLineSelected(const NavigationState& navigation, Line line) {
    const std::int32_t count = navigation.SelectedRowsCount;
    if (count == 0) return false;
    const Line caret = navigation.CaretRow;
    const Line other = count > 0 ? caret + count - 1 : caret + count + 1;
    return count > 0 ? line >= caret && line <= other : line >= other && line <= caret;
}

void RowColours::PaintRowColours() {
    if (view_.Suspended()) return;
    for (int slot = 0; slot <= view_.RowSlotCount; ++slot) {
        Label& label = surface_.lblLine[slot];
        const Line line = SlotLine(surface_, slot);
        if (!document_.IsLine(line)) {
            label.SetForeColor(surface_.UserControl.ForeColor());
            label.SetBackColor(surface_.UserControl.BackColor());
        } else if (IsLineSelected(navigation_, line)) {
            label.SetForeColor(system_colour::HighlightText);
            label.SetBackColor(system_colour::Highlight);
        } else {
            label.SetForeColor(attributes_.ForeColor(line));
            label.SetBackColor(attributes_.BackColor(line));
        }
    }
}

}  // namespace quorvale
