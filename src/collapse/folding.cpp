#include "collapse/folding.h"

#include <algorithm>
#include <exception>
#include <string>
#include <vector>

#include "base/errors.h"
#include "base/nested_depths.h"
#include "document/visible_lines.h"

namespace quorvale {

namespace {

[[noreturn]] void RaiseOutside(std::int32_t entry) {
    throw ControlError(ErrorKind::Index,
                       "A range reaches line " + std::to_string(entry) + ", past the document");
}

}  // namespace

void Folding::CollapseAll() {
    std::exception_ptr failed;
    try {
        RaiseDepths();
    } catch (const ControlError&) {
        failed = std::current_exception();
    }
    const bool climbed = ClimbToShown();
    if (!failed) return RepaintAt(navigation_.CaretRow, climbed);
    RepaintAfterFailure(climbed);
    std::rethrow_exception(failed);
}

// The depths are always made anew from the list, so that ranges unfolded one by one are folded
// again with their full nesting.
void Folding::RaiseDepths() {
    Column<std::int16_t>& depths = document_.Table.HiddenDepth;
    const std::int32_t slots = document_.LineSlots;
    depths.Reset(slots, 0);
    std::vector<EntryRange> folded;
    folded.reserve(collapse_.Ranges.size());
    std::int32_t outside = 0;
    for (const CollapseRange& range : collapse_.Ranges) {
        folded.push_back({range.FromRow + 1, std::min(range.ToRow, slots)});
        if (range.ToRow <= slots) continue;
        outside = range.ToRow;
        break;
    }
    try {
        SetNestedDepths(depths, folded);
    } catch (const ControlError&) {
        // Too deep for 16 bits somewhere: raise what can be raised, range by range.
        for (const EntryRange& range : folded) depths.AddToRange(range.First, range.Last, 1);
    }
    if (outside != 0) RaiseOutside(outside);
}

void Folding::ExpandAll() {
    document_.Table.HiddenDepth.Reset(document_.LineSlots, 0);
    RepaintAt(navigation_.CaretRow, false);
}

void Folding::CollapseRangeAt(Line from, Line to) {
    const std::int32_t last = std::min(to.Number(), document_.LineSlots);
    document_.Table.HiddenDepth.AddToRange(from.Number() + 1, last, 1);
    const bool outside = to.Number() > last;
    if (!view_.Suspended()) {
        const bool climbed = ClimbToShown();
        if (!outside) return RepaintAt(from, climbed);
        RepaintAfterFailure(climbed);
    }
    if (outside) RaiseOutside(to.Number());
}

void Folding::ExpandAt(Line line, bool all) {
    if (line < Line{1} || line > document_.Sentinel()) return;
    Column<std::int16_t>& depths = document_.Table.HiddenDepth;
    const std::int32_t first = line.Number() + 1;
    const std::int32_t shown = depths.FindNextDefault(first, document_.LineSlots);
    const std::int32_t last = shown == 0 ? document_.LineSlots : shown - 1;
    if (all) {
        depths.Fill(first, last, 0);
    } else {
        depths.AddToRange(first, last, -1);
    }
    if (!view_.Suspended()) RepaintAt(line, false);
}

void Folding::OpenAround(Line line) {
    Column<std::int16_t>& depths = document_.Table.HiddenDepth;
    const std::int16_t around = depths.Get(line.Number());
    // Lines nested deeper than the ones passed on the way keep what they have beyond them.
    const auto open = [&](std::int32_t entry, std::int16_t& level) {
        const std::int16_t depth = depths.Get(entry);
        if (depth == 0) return false;
        const bool deeper = depth > level;
        if (!deeper) level = depth;
        depths.Set(entry, deeper ? static_cast<std::int16_t>(depth - level) : std::int16_t{0});
        return true;
    };
    std::int16_t level = around;
    for (std::int32_t entry = line.Number(); entry >= 1 && open(entry, level); --entry) {
    }
    level = around;
    for (std::int32_t entry = line.Number() + 1; entry < document_.LineSlots && open(entry, level);
         ++entry) {
    }
}

bool Folding::HasHiddenBelow(Line line) const {
    return line < document_.Sentinel() && document_.IsHidden(line + 1);
}

/// The caret must not stay on a hidden line: it climbs to the nearest shown one. Says if it did.
bool Folding::ClimbToShown() {
    if (!document_.IsHidden(navigation_.CaretRow)) return false;
    peers_.StoreRow(VisibleAtOrAbove(document_, navigation_.CaretRow));
    return true;
}

/// The caret stays where it is, unless it had to climb: then its column, the selection and the host
/// must follow as after any fold.
void Folding::RepaintAfterFailure(bool climbed) {
    if (climbed) return RepaintAt(navigation_.CaretRow, true);
    peers_.FillRows();
    peers_.LayoutView();
}

void Folding::RepaintAt(Line caret, bool climbed) {
    const std::uint32_t movesBefore = navigation_.CaretMoves;
    const std::uint64_t folded = document_.Generation;
    peers_.FillRows();
    peers_.LayoutView();
    // A host that heard of the scrolling may have put another document in place.
    if (document_.Generation == folded) peers_.SetRow(caret);
    if (document_.Generation != folded) return;
    if (climbed && navigation_.CaretMoves == movesBefore) peers_.CaretMoved();
}

}  // namespace quorvale
