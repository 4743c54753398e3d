#include "view/redraw.h"

#include "base/integers.h"

namespace quorvale {

namespace {

/// Where the holder of the keyboard focus is kept: it must have the focus without being seen.
constexpr Twips offSurface = -2000;

}  // namespace

void Redraw::SetAutoRedraw(bool redraw) {
    if (!redraw) {
        view_.RedrawSuspendCount = CheckedAdd<std::int16_t>(view_.RedrawSuspendCount, 1);
        return;
    }
    if (view_.RedrawSuspendCount < 1) return;
    --view_.RedrawSuspendCount;
    if (view_.RedrawSuspendCount > 0) return;
    peers_.FillRows();
    peers_.LayoutView();
    peers_.SettleCaret();
}

void Redraw::Resized() {
    PlaceFocusHolder();
    PlaceFoundList();
    peers_.LayoutView();
    // Nothing has been painted yet when the host shows the control before it sets a document.
    if (!view_.EverFilled && view_.RowSlotCount > 0) peers_.FillRows();
}

void Redraw::PlaceFocusHolder() {
    const Twips textLeft = surface_.picBorder.Width() + view_.TextLeftMargin;
    surface_.picFocus.SetLeft(peers_.UserMode() ? offSurface : textLeft);
}

void Redraw::PlaceFoundList() {
    const Twips top = surface_.ToolbarHeight();
    const Box& control = surface_.UserControl;
    surface_.lvFound.Move(0, top, control.Width(), control.Height() - top);
}

}  // namespace quorvale
