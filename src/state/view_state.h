#pragma once

#include <cstdint>

#include "base/ordinals.h"
#include "base/units.h"

namespace quorvale {

/// The measures of the view.
struct ViewState {
    /// The highest slot index; a fill gives content to the slots below it. 0 before the slots
    /// exist.
    std::int32_t RowSlotCount = 0;
    /// Whole rows that fit; the slot of this index is still drawn, cut by the bottom edge.
    std::int32_t RowsPerView = 0;
    /// Width of the glyph column: row text starts behind the border strip and this margin.
    Twips TextLeftMargin = 0;
    /// How many `AutoRedraw` = false are not yet taken back; painting is suspended above 0.
    std::int16_t RedrawSuspendCount = 0;
    /// Raised while a layout sets the scroll bars, which then must not scroll.
    bool LayoutInProgress = false;
    /// Twips per step of the horizontal scroll bar: 1 unless a wide bar would not reach the end.
    std::int64_t HorizontalStep = 1;
    /// Twips by which the rows can be shifted at most, where a step stands for more than one.
    std::int64_t HorizontalEnd = 0;
    /// Whether rows were ever filled: the first layout does it if nobody else has.
    bool EverFilled = false;

    /// What the last layout was made for. A fill that finds longer lines or deeper folds makes
    /// another one necessary.
    std::int64_t LaidOutWidth = -1;
    Twips LaidOutMargin = -1;

    bool Suspended() const { return RedrawSuspendCount > 0; }
};

}  // namespace quorvale
