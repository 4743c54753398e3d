#include "navigation/row_mouse.h"

#include <algorithm>
#include <cmath>

#include "base/integers.h"
#include "document/visible_lines.h"
#include "state/slot_lines.h"

namespace quorvale {

namespace {

/// How far the mouse must travel from a press before it drags, in twips along both axes together.
constexpr Twips dragThreshold = 60;

}  // namespace

MouseEvent RowMouse::OnControl(int slot, const MouseEvent& event) const {
    const Label& label = surface_.lblLine[slot];
    MouseEvent moved = event;
    moved.X += label.Left();
    moved.Y += label.Top();
    return moved;
}

/// The marker rests until the caret is placed.
void RowMouse::HoldMarker() {
    surface_.imgMarker.SetVisible(false);
    surface_.tmrImage.SetEnabled(false);
}

void RowMouse::RowPressed(int slot, const MouseEvent& event) {
    Press(slot, event, {event.X, event.Y});
}

void RowMouse::Press(int slot, const MouseEvent& event, Place dragsFrom) {
    const bool onSelection =
        event.Button == mouse_button::Right && navigation_.SelectedRowsCount != 0;
    const MouseEvent onControl = OnControl(slot, event);
    // The selection stays for what the host does with it.
    if (onSelection) return peers_.RaiseMouseDown(onControl);
    const std::int32_t col = caret_.ColumnAtX(surface_.lblLine[slot].Caption(), event.X);
    navigation_.MouseDownX = dragsFrom.X;
    navigation_.MouseDownY = dragsFrom.Y;
    HoldMarker();
    const Line row = SlotLine(surface_, slot);
    surface_.Focus.Request(FocusChild::TextArea);
    const bool extends = event.Button == mouse_button::Left && event.Shift == shift_mask::Shift;
    navigation_.ExtendSelection = extends;
    const std::uint32_t movesBefore = navigation_.CaretMoves;
    caret_.PointAt(row, col);
    const bool stayed = navigation_.CaretMoves == movesBefore;
    // A click on the caret's own place moves nothing, but it drops a selection like any other.
    if (stayed && !extends && navigation_.SelectedRowsCount != 0) caret_.CaretMoved();
    surface_.tmrImage.SetEnabled(true);
    peers_.RaiseMouseDown(onControl);
}

void RowMouse::RowMoved(int slot, const MouseEvent& event) {
    // The release may have gone to another window.
    if ((event.Button & mouse_button::Left) == 0) navigation_.Dragging = false;
    if (!navigation_.Dragging) {
        const Twips travelled =
            std::abs(event.X - navigation_.MouseDownX) + std::abs(event.Y - navigation_.MouseDownY);
        navigation_.Dragging = event.Button == mouse_button::Left && navigation_.MouseDownX > 0 &&
                               travelled > dragThreshold;
    }
    if (navigation_.Dragging) Drag(slot, event);
}

void RowMouse::Drag(int pressed, const MouseEvent& event) {
    const std::int32_t y = ToInt32(event.Y);
    const std::int32_t rows = IntDivide(y, ToInt32(surface_.RowHeight()));
    const int slot = ToInt16(pressed + rows - (y < 0 ? 1 : 0));
    if (slot < 0 || slot > view_.RowsPerView) return DragBeyond(slot < 0);
    const std::int32_t col = caret_.ColumnAtX(surface_.lblLine[slot].Caption(), event.X);
    HoldMarker();
    const Line row = SlotLine(surface_, slot);
    surface_.Focus.Request(FocusChild::TextArea);
    ExtendTo(row, col);
}

// One visible line per move of the mouse, so that a fold is stepped over like one line.
void RowMouse::DragBeyond(bool above) {
    const Line top = navigation_.TopLine;
    const std::uint64_t meant = document_.Generation;
    if (above) {
        peers_.SetTopLine(top > Line{1} ? PreviousVisibleLine(document_, top) : top - 1);
        if (document_.Generation == meant) ExtendTo(navigation_.TopLine, 0);
        return;
    }
    if (top + view_.RowsPerView >= document_.Sentinel()) return;
    peers_.SetTopLine(NextVisibleLine(document_, top));
    if (document_.Generation != meant) return;
    const Line lowest = SlotLine(surface_, std::max(view_.RowsPerView - 1, 0));
    if (document_.IsLine(lowest)) return ExtendTo(lowest, 0);
    // Folds left that row blank: the line that would be there without them, but never a hidden one.
    const Line counted = navigation_.TopLine + (view_.RowsPerView - 1);
    ExtendTo(document_.IsHidden(counted) ? document_.Sentinel() : counted, 0);
}

void RowMouse::ExtendTo(Line row, std::int32_t col) {
    navigation_.ExtendSelection = true;
    caret_.PointAt(row, col);
    surface_.tmrImage.SetEnabled(true);
}

void RowMouse::RowReleased(int slot, const MouseEvent& event) {
    navigation_.Dragging = false;
    peers_.RaiseMouseUp(OnControl(slot, event));
}

// The caret's row is stored without a move: no marker, no selection, no report. A blank row past
// the end stands for the last line that is shown.
void RowMouse::RowDoubleClicked(int slot) {
    if (document_.LineSlots > 0) {
        const Line row =
            std::max(std::min(SlotLine(surface_, slot), document_.LastLine()), Line{1});
        caret_.StoreRow(VisibleAtOrAbove(document_, row));
    }
    peers_.RaiseDblClick();
    surface_.imgMarker.SetVisible(true);
}

void RowMouse::LineImageClicked(int slot) { peers_.RaiseImageClick(SlotLine(surface_, slot)); }

/// A place on the marker, seen from a row: only sideways is it turned into the row's own.
MouseEvent RowMouse::OnRow(int slot, const MouseEvent& event) const {
    MouseEvent moved = event;
    moved.X += surface_.imgMarker.Left() - surface_.picBorder.Width() - view_.TextLeftMargin;
    moved.Y -= slot * surface_.RowHeight();
    return moved;
}

int RowMouse::SlotAtMarker(Twips y) const {
    return ToInt16(IntDivide(ToInt32(surface_.imgMarker.Top() + y), ToInt32(surface_.RowHeight())));
}

void RowMouse::MarkerPressed(const MouseEvent& event) {
    const int slot = SlotAtMarker(event.Y - surface_.ToolbarHeight());
    if (!surface_.lblLine.Has(slot)) return;
    // The row has the mouse from now on: how far it drags counts from where it really is on the
    // row.
    const Label& label = surface_.lblLine[slot];
    const Image& marker = surface_.imgMarker;
    Press(slot, OnRow(slot, event),
          {event.X + marker.Left() - label.Left(), event.Y + marker.Top() - label.Top()});
}

// A press hides the marker and hands the mouse to the row, so these two only see a mouse that
// nobody holds.
void RowMouse::MarkerMoved(const MouseEvent& event) {
    const int slot = SlotAtMarker(event.Y);
    if (surface_.lblLine.Has(slot)) RowMoved(slot, OnRow(slot, event));
}

void RowMouse::MarkerReleased(const MouseEvent& event) {
    const int slot = SlotAtMarker(event.Y);
    if (surface_.lblLine.Has(slot)) RowReleased(slot, OnRow(slot, event));
}

}  // namespace quorvale
