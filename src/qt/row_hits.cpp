#include "qt/row_hits.h"

#include <algorithm>

namespace quorvale {

namespace {

bool contains(const Element& element, Twips x, Twips y) {
    return element.Visible() && x >= element.Left() && x < element.Left() + element.Width() &&
           y >= element.Top() && y < element.Top() + element.Height();
}

Hit hitInBorder(const Surface& surface, int slot, Twips x, Twips y) {
    if (!surface.imgLine.Has(slot) || !contains(surface.imgLine[slot], x, y)) return {};
    return {HitPart::LineImage, slot};
}

Hit hitInColumn(const Surface& surface, int slot, Twips x, Twips y) {
    // A glyph may be higher than its row.
    for (const int near : {slot, slot - 1}) {
        if (surface.imgExpand.Has(near) && contains(surface.imgExpand[near], x, y)) {
            return {HitPart::Glyph, near};
        }
    }
    if (surface.imgEdit.Has(slot) && contains(surface.imgEdit[slot], x, y)) {
        return {HitPart::EditMark, slot};
    }
    return {};
}

}  // namespace

int slotAt(const Surface& surface, Twips y) {
    const auto& rows = surface.lblLine;
    const auto behind =
        std::upper_bound(rows.begin(), rows.end(), y,
                         [](Twips place, const Label& row) { return place < row.Top(); });
    const int slot = static_cast<int>(behind - rows.begin()) - 1;
    if (!rows.Has(slot) || y >= rows[slot].Top() + rows[slot].Height()) return -1;
    return slot;
}

Hit hitAt(const Surface& surface, Twips x, Twips y) {
    const int slot = slotAt(surface, y);
    for (const Box* strip : {&surface.picBorder, &surface.picExpand}) {
        if (!contains(*strip, x, y)) continue;
        const Twips left = x - strip->Left();
        const Twips top = y - strip->Top();
        return strip == &surface.picBorder ? hitInBorder(surface, slot, left, top)
                                           : hitInColumn(surface, slot, left, top);
    }
    if (contains(surface.imgMarker, x, y)) return {HitPart::Marker, slot};
    if (slot < 0 || !contains(surface.lblLine[slot], x, y)) return {};
    return {HitPart::Row, slot};
}

}  // namespace quorvale
