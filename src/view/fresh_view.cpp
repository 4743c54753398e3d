#include "view/fresh_view.h"

#include <algorithm>
#include <cstdint>
#include <exception>

#include "state/slot_lines.h"
#include "view/range_column.h"

namespace quorvale {

void FreshView::ShowFromStart() {
    view_.TextLeftMargin = MarginForNesting(surface_, 0);
    ForgetRows();
    ResetRows();
    surface_.lnExpand.UnloadAbove(0);
    surface_.lnExpandTo.UnloadAbove(0);
    surface_.tbMore.SetButtonEnabled(u"Edit", false);
    surface_.tbMore.SetButtonEnabled(u"Collapsed", false);
    surface_.lvFound.SetVisible(false);
    // The host hears of this and may fail, or put another document in place.
    const std::uint64_t shown = document_.Generation;
    std::exception_ptr failed;
    try {
        peers_.SetTopLine(Line{1});
    } catch (...) {
        failed = std::current_exception();
    }
    if (document_.Generation == shown) ShowRest();
    if (failed) std::rethrow_exception(failed);
}

void FreshView::ShowRest() {
    surface_.scrHorz.SetValue(0);
    peers_.LayoutView();
    peers_.FillRows();
    peers_.PlaceCaret();
}

// Every slot, also the ones below the view: one that still named a line would answer for it with
// the old document's text.
void FreshView::ForgetRows() {
    for (Label& label : surface_.lblLine) label.SetTag(u"-1");
}

// These rows are written even while painting is suspended, when no fill follows.
void FreshView::ResetRows() {
    const Box& control = surface_.UserControl;
    for (int slot = 0; slot < view_.RowsPerView; ++slot) {
        const Line line{std::min(slot + 1, document_.LineSlots)};
        SetSlot(surface_, slot, lines_.DisplayText(Line{slot + 1}), line);
        surface_.lblLine[slot].SetBold(false);
        surface_.lblLine[slot].SetBackColor(control.BackColor());
        surface_.lblLine[slot].SetForeColor(control.ForeColor());
        surface_.imgLine[slot].SetVisible(true);
        surface_.imgLine[slot].SetPicture(nullptr);
        surface_.imgExpand[slot].SetVisible(false);
        surface_.imgEdit[slot].SetVisible(false);
    }
}

}  // namespace quorvale
