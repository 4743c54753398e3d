#include "view/row_fill.h"

#include "base/errors.h"
#include "base/numbers_in_text.h"
#include "document/line_pictures.h"
#include "document/visible_lines.h"
#include "state/slot_lines.h"

namespace quorvale {

void RowFill::FillRows() {
    if (view_.Suspended()) return;
    view_.EverFilled = true;
    surface_.lnExpandTo.UnloadAbove(0);
    surface_.lnExpand.UnloadAbove(0);
    SortCollapseRanges(collapse_, surface_, view_);
    Walk walk{OpenRanges(collapse_, surface_), 0, navigation_.TopLine};
    lines_.BeginFill();
    EnterAtTop(walk);
    FillSlots(walk);
    lines_.EndFill();
    walk.Open.CloseAll(view_.RowSlotCount);
    Follow();
    if (walk.Open.TooMany()) {
        throw ControlError(ErrorKind::Overflow, "More than 64 ranges are open at once");
    }
}

void RowFill::EnterAtTop(Walk& walk) {
    const std::int32_t top = navigation_.TopLine.Number();
    const auto& ranges = collapse_.Ranges;
    for (; walk.Cursor < ranges.size() && ranges[walk.Cursor].FromRow < top; ++walk.Cursor) {
        if (ranges[walk.Cursor].ToRow >= top) walk.Open.Push(walk.Cursor, -1);
    }
}

void RowFill::FillSlots(Walk& walk) {
    for (int slot = 0; slot < view_.RowSlotCount; ++slot) {
        if (FindLineFor(walk, slot)) {
            ShowLine(walk, slot);
        } else {
            ShowBlank(slot);
        }
    }
    if (document_.LineSlots == 0) peers_.NameFirstRow();
}

bool RowFill::FindLineFor(Walk& walk, int slot) {
    if (walk.Next < document_.Sentinel() && document_.IsHidden(walk.Next)) {
        const Line shown = NextVisibleLine(document_, walk.Next);
        walk.Open.CloseEndingIn(walk.Next, shown - 1, slot - 1);
        const auto& ranges = collapse_.Ranges;
        while (walk.Cursor < ranges.size() && Line{ranges[walk.Cursor].FromRow} < shown) {
            ++walk.Cursor;
        }
        walk.Next = shown;
    }
    if (walk.Next >= document_.Sentinel()) return false;
    walk.Open.CloseEndingIn(walk.Next, walk.Next, slot);
    return true;
}

void RowFill::ShowLine(Walk& walk, int slot) {
    const Line line = walk.Next;
    SetSlot(surface_, slot, lines_.DisplayText(line), line);
    const Variant& image = document_.Table.Images.Get(line.Number());
    surface_.imgLine[slot].SetPicture(FindLinePicture(appearance_, image));
    ShowGlyph(walk, slot, line);
    ++walk.Next;
}

void RowFill::ShowGlyph(Walk& walk, int slot, Line line) {
    const auto& ranges = collapse_.Ranges;
    const std::size_t first = walk.Cursor;
    const auto startsHere = [&] {
        return walk.Cursor < ranges.size() && Line{ranges[walk.Cursor].FromRow} == line;
    };
    Image& glyph = surface_.imgExpand[slot];
    const bool folded = startsHere() && document_.IsHidden(line + 1);
    surface_.lblLine[slot].SetBold(folded);
    if (!startsHere()) {
        glyph.SetVisible(false);
        return;
    }
    // Several ranges may start at one line: they share the glyph of the first, and each gets its
    // own bracket.
    for (; startsHere(); ++walk.Cursor) {
        if (!folded) walk.Open.Push(walk.Cursor, slot);
    }
    const std::u16string state = folded ? u"Collapsed" : u"Expanded";
    glyph.SetPicture(surface_.ilExpand.Find(state));
    glyph.SetTag(DecimalText(static_cast<std::int64_t>(first) + 1));
    glyph.SetLeft(
        Single(NestingStep(surface_) * ranges[first].Depth + surface_.imgEdit[0].Width()));
    glyph.SetVisible(true);
}

// Nothing of what the row showed before may stay: a glyph left over would fold another range.
void RowFill::ShowBlank(int slot) {
    SetSlot(surface_, slot, SharedText(), document_.Sentinel());
    surface_.lblLine[slot].SetBold(false);
    surface_.imgLine[slot].SetPicture(nullptr);
    surface_.imgExpand[slot].SetVisible(false);
    surface_.imgEdit[slot].SetVisible(false);
}

void RowFill::Follow() {
    peers_.PaintRowColours();
    peers_.RefreshCorrectionMarks();
    peers_.PlaceEditor();
    surface_.UserControl.Refresh();
    if (!view_.LayoutInProgress && GrewSinceLayout()) peers_.LayoutView();
    peers_.PlaceMarker();
}

// The fill has read longer lines or met deeper folds than the last layout knew of.
bool RowFill::GrewSinceLayout() const {
    return view_.LaidOutWidth != document_.WidestLineWidth ||
           view_.LaidOutMargin != view_.TextLeftMargin;
}

}  // namespace quorvale
