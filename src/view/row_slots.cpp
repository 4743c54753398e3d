#include "view/row_slots.h"

namespace quorvale {

namespace {

/// Room that the border strip's edge and the upper edge of a row take.
constexpr Twips edge = 15;
constexpr Twips glyphDrop = 75;

}  // namespace

void RowSlots::GrowTo(int highest) {
    const int before = surface_.lblLine.UpperBound();
    for (int i = before + 1; i <= highest; ++i) {
        surface_.imgLine.Load().SetVisible(true);
        Label& label = surface_.lblLine.Load();
        label.SetFont(surface_.lblLine[0].Font());
        label.SetBold(false);
        label.SetCaption(SharedText());
        label.SetTag(u"-1");
        label.SetVisible(true);
        surface_.imgExpand.Load();
        surface_.imgEdit.Load();
        PlaceRow(i);
        // The rows may be scrolled sideways.
        label.SetLeft(surface_.lblLine[0].Left());
    }
    if (highest > view_.RowSlotCount) view_.RowSlotCount = highest;
}

void RowSlots::InitSurface() {
    view_.TextLeftMargin = surface_.imgEdit[0].Width();
    collapse_.RangesUnchanged = false;
    surface_.cmdMore.SetPicture(surface_.ilMore.Find(std::u16string(u"right")));
    surface_.cmdMore.SetHeight(surface_.tbMore.Height());
    for (int i = 0; i <= view_.RowSlotCount; ++i) PlaceRow(i);
}

void RowSlots::TakeRowHeight(const TextMetrics& metrics) {
    const Twips height = Single(metrics.Height(surface_.UserControl.Font()));
    for (Label& label : surface_.lblLine) label.SetHeight(height);
}

Twips RowSlots::LabelTop(int slot) const {
    return Single(slot * surface_.RowHeight() + surface_.ToolbarHeight());
}

void RowSlots::PlaceRow(int i) {
    const Twips height = surface_.RowHeight();
    const Twips markWidth = surface_.imgEdit[0].Width();
    const Twips top = Single(i * height);
    surface_.imgEdit[i].Move(0, top + edge, markWidth, height - edge);
    Image& glyph = surface_.imgExpand[i];
    glyph.SetLeft(markWidth);
    glyph.SetTop(top + glyphDrop);
    glyph.SetPicture(surface_.ilExpand.Find(std::u16string(u"Expanded")));
    const Twips border = surface_.picBorder.Width();
    surface_.lblLine[i].Move(Single(border + view_.TextLeftMargin), LabelTop(i), RowWidth, height);
    surface_.imgLine[i].Move(0, top, border - edge, height - edge);
}

}  // namespace quorvale
