#include "navigation/row_shift.h"

#include <algorithm>
#include <string>

#include "base/integers.h"
#include "base/numbers_in_text.h"
#include "state/horizontal_place.h"

namespace quorvale {

void RowShift::HorizontalChanged() {
    if (!peers_.UserMode()) {
        surface_.picFocus.SetLeft(surface_.picBorder.Width() + view_.TextLeftMargin);
    }
    ShiftRows();
    ShiftBoundaries();
}

void RowShift::ShiftRows() {
    const Twips place = HorizontalPlace(surface_.scrHorz, view_);
    const Twips exact = surface_.picBorder.Width() - place + view_.TextLeftMargin;
    const Twips left = options_.WideScrollBars ? exact : Single(exact);
    if (surface_.lblLine[0].Left() == left) return;
    for (Label& label : surface_.lblLine) label.SetLeft(left);
    // A layout that is not finished must not move the caret: half of the geometry is old.
    if (view_.LayoutInProgress) {
        peers_.PlaceMarker();
    } else {
        peers_.PlaceCaret();
    }
}

void RowShift::ShiftBoundaries() {
    for (LineShape& boundary : surface_.lnGrid) {
        const std::int32_t column = ToLong(std::u16string_view(boundary.Tag()));
        const std::u16string blanks(static_cast<std::size_t>(std::max(column, 0)), u' ');
        const Twips width = metrics_.Width(blanks, surface_.UserControl.Font());
        const Twips x = Single(surface_.lblLine[0].Left() + Single(width));
        boundary.SetX1(x);
        boundary.SetX2(x);
        boundary.SetY1(0);
        boundary.SetY2(surface_.UserControl.Height());
    }
}

}  // namespace quorvale
