#pragma once

#include "platform/surface.h"
#include "state/collapse_state.h"
#include "state/view_state.h"

namespace quorvale {

/// The pool of rows: creates the row elements and gives each its place. Rows are never destroyed
/// and never moved vertically by a fill; a fill only changes what they show.
class RowSlots {
public:
    /// The highest slot index unless the view may be taller.
    static constexpr int StandardCount = 128;
    /// The highest slot index that a tall view grows to.
    static constexpr int TallCount = 1023;

    /// Rows are far wider than any view: a long line is cut by the surface, never wrapped.
    static constexpr Twips RowWidth = 40000;

    RowSlots(ViewState& view, Surface& surface, CollapseState& collapse)
        : view_(view), surface_(surface), collapse_(collapse) {}

    /// Creates the slots up to `StandardCount`; does nothing where they exist.
    void CreateRowSlots() { GrowTo(StandardCount); }

    /// Creates what is missing up to the slot `highest`, placed like the others.
    void GrowTo(int highest);

    /// Places every row with the present row height, and forgets the folds' margin until the next
    /// fill. The caller sets the view to its top.
    void InitSurface();

    /// Sets every row label's height to the text height of "My".
    void TakeRowHeight(const TextMetrics& metrics);

    /// Top of the label of a slot, with or without the toolbar.
    Twips LabelTop(int slot) const;

private:
    void PlaceRow(int slot);

    ViewState& view_;
    Surface& surface_;
    CollapseState& collapse_;
};

}  // namespace quorvale
