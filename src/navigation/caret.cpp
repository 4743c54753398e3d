#include "navigation/caret.h"

#include <algorithm>
#include <utility>

#include "base/integers.h"
#include "base/numbers_in_text.h"
#include "document/positions.h"
#include "document/visible_lines.h"
#include "state/slot_lines.h"

namespace quorvale {

namespace {

/// Where the marker is parked while its row is out of view.
constexpr Twips outOfSight = -1000;

std::int32_t LengthOf(const SharedText& text) {
    return CheckedCast<std::int32_t>(text.View().size());
}

}  // namespace

void Caret::SetRow(Line row) {
    const SharedText text = lines_.TextOf(row);
    const std::int32_t col = ColumnAtX(text.View(), navigation_.DesiredX);
    Twips unused = 0;
    RevealAndPlace(row, col, unused);
}

void Caret::SetCol(std::int32_t col) { MoveTo(navigation_.CaretRow, col); }

void Caret::MoveTo(Line row, std::int32_t col) { RevealAndPlace(row, col, navigation_.DesiredX); }

void Caret::SetOffset(std::int32_t position) {
    position = std::max(position, 1);
    if (position >= document_.Text.Length()) return MoveTo(document_.Sentinel() + 1, 1);
    const RowCol place = PlaceBehind(document_, position);
    MoveTo(place.Row, place.Col);
}

// A host that hears of the scrolling may put another document in place: the line is none of its.
// Or it folds the line away again: then the caret goes to the nearest one that is shown.
void Caret::RevealAndPlace(Line row, std::int32_t col, Twips& x) {
    const std::uint64_t meant = document_.Generation;
    peers_.RevealLine(row, col);
    if (document_.Generation != meant) return;
    PlaceCaretMarker(VisibleAtOrAbove(document_, std::min(row, document_.LastLine())), col, x);
}

void Caret::SetSelectedRowsCount(std::int32_t count) {
    // A range that cannot be computed would make every later repaint fail.
    static_cast<void>(navigation_.CaretRow + count);
    navigation_.SelectedRowsCount = count;
    peers_.PaintRowColours();
    peers_.RaiseSelChanged();
}

void Caret::PlaceCaret() {
    Twips unused = 0;
    PlaceCaretMarker(navigation_.CaretRow, navigation_.CaretCol, unused);
}

void Caret::PointAt(Line row, std::int32_t col) {
    const bool pastFold = row >= document_.Sentinel() && document_.IsHidden(document_.LastLine());
    if (pastFold) return MoveTo(row, col);
    PlaceCaretMarker(row, col, navigation_.DesiredX);
}

void Caret::StoreRow(Line row) {
    const std::int32_t end = CheckedAdd(LengthOf(lines_.TextOf(row)), 1);
    navigation_.CaretRow = row;
    navigation_.CaretCol = std::min(navigation_.CaretCol, end);
    DropEndlessSelection();
}

// A selection that reached to the greatest number from another row would leave it from this one,
// and every repaint would fail.
void Caret::DropEndlessSelection() {
    const std::int64_t end =
        std::int64_t{navigation_.CaretRow.Number()} + navigation_.SelectedRowsCount;
    if (!std::in_range<std::int32_t>(end)) navigation_.SelectedRowsCount = 0;
}

void Caret::PlaceCaretMarker(Line row, std::int32_t col, Twips& x) {
    if (document_.LineSlots == 0) return;
    row = std::max(std::min(row, document_.LastLine()), Line{1});
    const SharedText text = lines_.TextOf(row);
    col = std::clamp(col, 0, CheckedAdd(LengthOf(text), 1));
    x = PlaceOfColumn(text, col);
    const bool changed = row != navigation_.CaretRow || col != navigation_.CaretCol;
    navigation_.CaretCol = col;
    navigation_.CaretRow = row;
    DropEndlessSelection();
    surface_.txtLn.SetText(DecimalText(row.Number()));
    surface_.txtLn.Select(surface_.txtLn.Text().size(), 0);
    if (!view_.Suspended()) MoveMarker(FindRowSlot(surface_, view_, row), x);
    if (changed) CaretMoved();
}

void Caret::CaretMoved() {
    ++navigation_.CaretMoves;
    UpdateSelection();
    peers_.RaiseSelChanged();
    peers_.PaintRowColours();
}

void Caret::PlaceMarker() {
    if (document_.LineSlots == 0 || view_.Suspended()) return;
    const auto slot = FindRowSlot(surface_, view_, navigation_.CaretRow);
    if (!slot) return MoveMarker(std::nullopt, 0);
    const SharedText& text = surface_.lblLine[*slot].SharedCaption();
    MoveMarker(slot, PlaceOfColumn(text, navigation_.CaretCol));
}

void Caret::SettleCaret() {
    Twips unused = 0;
    PlaceCaretMarker(VisibleAtOrAbove(document_, navigation_.CaretRow), navigation_.CaretCol,
                     unused);
}

void Caret::MoveMarker(std::optional<int> slot, Twips x) {
    Image& marker = surface_.imgMarker;
    if (!slot) {
        marker.SetLeft(outOfSight);
        return;
    }
    marker.SetLeft(x - marker.Width() / 2 + surface_.lblLine[0].Left());
    marker.SetTop(surface_.lblLine[*slot].Top());
}

void Caret::UpdateSelection() {
    peers_.CloseEdit();
    if (!navigation_.ExtendSelection) {
        navigation_.SelectedRowsCount = 0;
        navigation_.SelectionAnchor = navigation_.CaretRow;
        return;
    }
    const Line caret = navigation_.CaretRow;
    const std::uint64_t meant = document_.Generation;
    if (caret < document_.Sentinel() && document_.IsHidden(caret + 1)) peers_.ExpandAt(caret);
    // A host that heard of it may have put another document in place: nothing is selected there.
    if (document_.Generation != meant) return;
    const std::int32_t distance = navigation_.SelectionAnchor - navigation_.CaretRow;
    navigation_.SelectedRowsCount = distance < 0 ? distance - 1 : distance + 1;
    navigation_.ExtendSelection = false;
}

Precision Caret::PlacePrecision() const {
    return options_.WideScrollBars ? Precision::Exact : Precision::Single;
}

Twips Caret::PlaceOfColumn(const SharedText& text, std::int32_t col) const {
    return Rounded(lines_.WidthBefore(text, col), PlacePrecision());
}

std::int32_t Caret::ColumnAtX(std::u16string_view text, Twips x) const {
    const std::size_t wider =
        metrics_.FirstWider(text, surface_.UserControl.Font(), x, PlacePrecision());
    return CheckedCast<std::int32_t>(wider == 0 ? text.size() : wider);
}

}  // namespace quorvale
