#include "corrections/marks.h"

#include <algorithm>
#include <limits>

#include "base/errors.h"
#include "state/slot_lines.h"

namespace quorvale {

void CorrectionMarks::RefreshCorrectionMarks() {
    if (view_.Suspended()) return;
    for (int slot = 0; slot <= surface_.imgEdit.UpperBound(); ++slot) {
        surface_.imgEdit[slot].SetVisible(CorrectionIn(slot) != nullptr);
    }
}

// A row that says no number shows no line.
const Update* CorrectionMarks::CorrectionIn(int slot) const {
    if (!surface_.lblLine.Has(slot)) return nullptr;
    try {
        return index_.FindCorrection(SlotLine(surface_, slot));
    } catch (const ControlError&) {
        return nullptr;
    }
}

void CorrectionMarks::Clicked(int slot) {
    if (corrections_.JournalDocument == nullptr) return;
    const Update* found = CorrectionIn(slot);
    corrections_.Current = found == nullptr ? nullptr : found->Node;
    if (found == nullptr) return;
    const Twips below = surface_.lblLine[slot].Top() + surface_.RowHeight();
    // Copied: moving the caret records an open edit, which may remove this very correction.
    const UpdateRange range = found->Range;
    if (SelectRowsOf(range)) surface_.mnuPopup.PopUp(surface_.picExpand.Left(), below);
}

/// False when the host has put another document in place meanwhile.
bool CorrectionMarks::SelectRowsOf(const UpdateRange& range) {
    const std::uint64_t meant = document_.Generation;
    peers_.SetRow(Line{range.Start});
    if (document_.Generation != meant) return false;
    // Reported by the caret's move alone. A selection past all numbers could not be painted.
    const std::int32_t most =
        std::numeric_limits<std::int32_t>::max() - navigation_.CaretRow.Number();
    navigation_.SelectedRowsCount = std::min(range.Count, most);
    peers_.PaintRowColours();
    return document_.Generation == meant;
}

}  // namespace quorvale
