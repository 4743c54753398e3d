#include "corrections/edit_range.h"

#include <algorithm>

namespace quorvale {

namespace {

/// Widens `lines` to a range that an edit of them would remove.
void TakeIn(UpdateRange& lines, const UpdateRange& range, std::int32_t lastLine) {
    // What stands behind the last line can only be shown behind it.
    if (range.Start > lastLine || !IsRemovedBy(lines, range)) return;
    const bool insertionBehind = range.Start == lines.End() && range.Count == 0;
    if (insertionBehind) return;
    const std::int32_t end = std::max(lines.End(), std::min(range.End(), lastLine + 1));
    lines.Start = std::max(1, std::min(lines.Start, range.Start));
    lines.Count = end - lines.Start;
}

}  // namespace

UpdateRange SelectedLines(Line caret, std::int32_t selectedRows, Line lastLine) {
    const std::int64_t row = caret.Number();
    const std::int64_t other = selectedRows > 0   ? row + selectedRows - 1
                               : selectedRows < 0 ? row + selectedRows + 1
                                                  : row;
    const auto clamped = [&](std::int64_t line) {
        return static_cast<std::int32_t>(std::clamp<std::int64_t>(line, 1, lastLine.Number()));
    };
    const std::int32_t first = clamped(std::min(row, other));
    return {first, clamped(std::max(row, other)) - first + 1};
}

bool IsRemovedBy(const UpdateRange& edited, const UpdateRange& correction) {
    const bool holdsFirst = correction.Start <= edited.Start && edited.Start < correction.End();
    const bool begins = edited.Start <= correction.Start && correction.Start <= edited.End();
    return holdsFirst || begins;
}

// The pass upwards finds all that holds the first line as it is now, begins in the lines or follows
// them, however far they grow. The pass downwards finds what holds a first line that has moved up;
// none of it reaches past the end, or it would hold the old first line too.
UpdateRange WidenedToCorrections(UpdateRange lines, const std::vector<Update>& updates,
                                 Line lastLine) {
    std::vector<UpdateRange> byStart;
    for (const Update& update : updates) byStart.push_back(update.Range);
    std::stable_sort(byStart.begin(), byStart.end(),
                     [](const auto& a, const auto& b) { return a.Start < b.Start; });
    for (const UpdateRange& range : byStart) TakeIn(lines, range, lastLine.Number());
    std::reverse(byStart.begin(), byStart.end());
    for (const UpdateRange& range : byStart) TakeIn(lines, range, lastLine.Number());
    return lines;
}

std::vector<Update> InsertionsBehind(const UpdateRange& lines, const std::vector<Update>& updates) {
    std::vector<Update> behind;
    for (const Update& update : updates) {
        if (update.Range.Start == lines.End()) behind.push_back(update);
    }
    return behind;
}

}  // namespace quorvale
