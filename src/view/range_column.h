#pragma once

#include <cstdint>
#include <vector>

#include "base/ordinals.h"
#include "platform/surface.h"
#include "state/collapse_state.h"
#include "state/view_state.h"

namespace quorvale {

/// Width by which glyphs and brackets move right with every level of nesting.
Twips NestingStep(const Surface& surface);

/// Width of the glyph column for ranges nested this deep: it has room for two levels and the
/// correction mark even when nothing is nested.
Twips MarginForNesting(const Surface& surface, std::int32_t deepest);

/// Orders the ranges by their first line (of those that start together the longest first), finds
/// how deep each is nested and sets the text's margin by the deepest. Does nothing while the list
/// is unchanged.
void SortCollapseRanges(CollapseState& collapse, const Surface& surface, ViewState& view);

/// The ranges that are open around the rows of a fill, and the brackets drawn when they end. At
/// most 64 at a time.
class OpenRanges {
public:
    static constexpr std::size_t Most = 64;

    OpenRanges(const CollapseState& collapse, Surface& surface)
        : collapse_(collapse), surface_(surface) {}

    /// A range is open from here on; `headSlot` is -1 when its head is above the view. A range too
    /// many is left out and remembered.
    void Push(std::size_t range, int headSlot);

    /// Draws and forgets the ranges whose last line is in `first` .. `last`. Ranges may cross, so
    /// they are looked for everywhere, not only among the latest.
    void CloseEndingIn(Line first, Line last, int endSlot);

    /// Draws the rest, the latest first: they run off the view.
    void CloseAll(int endSlot);

    bool TooMany() const { return tooMany_; }

private:
    struct Entry {
        std::size_t Range;
        int HeadSlot;
    };

    const CollapseRange& RangeOf(const Entry& entry) const { return collapse_.Ranges[entry.Range]; }
    void DrawRangeBracket(int endSlot, const Entry& entry);

    const CollapseState& collapse_;
    Surface& surface_;
    std::vector<Entry> open_;
    bool tooMany_ = false;
};

}  // namespace quorvale
