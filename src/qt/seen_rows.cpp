#include "qt/seen_rows.h"

#include <algorithm>

#include "control/host_extras.h"
#include "qt/conversions.h"
#include "qt/row_hits.h"
#include "qt/rows_area.h"
#include "state/slot_lines.h"

namespace quorvale {

namespace {

/// The line that a slot shows; 0 for a row past the end of the document.
int lineInSlot(const Surface& surface, int slot, int lineCount) {
    const int line = SlotLine(surface, slot).Number();
    return line >= 1 && line <= lineCount ? line : 0;
}

bool showsFolded(const Surface& surface, const Image& glyph) {
    return glyph.Shown() == surface.ilExpand.Find(std::u16string(u"Collapsed"));
}

}  // namespace

SeenRows::SeenRows(const RowsArea& area) : area_(area), box_(area.link()->box()) {
    if (box_ == nullptr) return;
    const Surface& surface = box_->Elements();
    const Twips bottom = toTwips(area_.onControl().y() + area_.height());
    const int lineCount = box_->LineCount();
    const auto isSeen = [&](int slot) {
        const Label& row = surface.lblLine[slot];
        return row.Visible() && row.Top() < bottom && lineInSlot(surface, slot, lineCount) > 0;
    };
    while (surface.lblLine.Has(count_) && isSeen(count_)) ++count_;
}

int SeenRows::lineAt(int place) const {
    if (place < 0 || place >= count_) return 0;
    return SlotLine(box_->Elements(), place).Number();
}

int SeenRows::placeOf(int line) const {
    int low = 0;
    int high = count_;
    while (low < high) {
        const int middle = (low + high) / 2;
        if (lineAt(middle) < line) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return low < count_ && lineAt(low) == line ? low : -1;
}

bool SeenRows::has(int line) const {
    return box_ != nullptr && line >= 1 && line <= box_->LineCount();
}

SpokenRow SeenRows::rowAt(int place) const {
    SpokenRow row;
    row.Line = lineAt(place);
    if (row.Line == 0) return row;
    const Surface& surface = box_->Elements();
    row.Text = surface.lblLine[place].SharedCaption();
    row.Selected = isSelected(row.Line);
    if (surface.imgExpand.Has(place)) {
        const Image& glyph = surface.imgExpand[place];
        row.CanFold = glyph.Visible();
        row.Folded = glyph.Visible() && showsFolded(surface, glyph);
    }
    row.Corrected = surface.imgEdit.Has(place) && surface.imgEdit[place].Visible();
    return row;
}

SpokenRow SeenRows::row(int line) const {
    if (const int place = placeOf(line); place >= 0) return rowAt(place);
    SpokenRow row;
    row.Line = line;
    if (!has(line)) return row;
    row.Text = SharedText(box_->LineText(line));
    row.Selected = isSelected(line);
    return row;
}

bool SeenRows::isSelected(int line) const {
    if (box_->SelectedRowsCount() == 0) return false;
    const HostExtras::LineRange selected = box_->Extras().SelectedLines();
    return line >= selected.First && line <= selected.Last;
}

Language SeenRows::language() const {
    return box_ == nullptr ? Language::English : box_->Extras().Language();
}

int SeenRows::caretLine() const { return box_ == nullptr || !has(box_->row()) ? 0 : box_->row(); }

int SeenRows::caretUnit() const { return box_ == nullptr ? 0 : std::max(0, box_->col() - 1); }

QRect SeenRows::rectAt(int place) const {
    if (place < 0 || place >= count_) return {};
    QRectF row = pixelRect(box_->Elements().lblLine[place]);
    row.translate(-QPointF(area_.onControl()));
    row.setLeft(0);
    row.setWidth(area_.width());
    const QRect seen = row.toRect() & area_.rect();
    return {area_.mapToGlobal(seen.topLeft()), seen.size()};
}

int SeenRows::placeUnder(QPoint onScreen) const {
    const QPoint inArea = area_.mapFromGlobal(onScreen);
    if (box_ == nullptr || !area_.rect().contains(inArea)) return -1;
    const int slot = slotAt(box_->Elements(), toTwips(inArea.y() + area_.onControl().y()));
    return slot < count_ ? slot : -1;
}

}  // namespace quorvale
