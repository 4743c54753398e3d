#include "view/range_column.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <queue>

namespace quorvale {

namespace {

constexpr Twips gapPerLevel = 30;
/// How far below its glyph a bracket starts, and how far its foot reaches to the right.
constexpr Twips bracketDrop = 60;
constexpr Twips footLength = 75;

Twips Half(Twips size) { return size / 2; }

}  // namespace

Twips NestingStep(const Surface& surface) {
    return Single(Half(surface.imgExpand[0].Width()) + gapPerLevel);
}

Twips MarginForNesting(const Surface& surface, std::int32_t deepest) {
    return Single((deepest + 2) * NestingStep(surface) + surface.imgEdit[0].Width());
}

void SortCollapseRanges(CollapseState& collapse, const Surface& surface, ViewState& view) {
    if (collapse.RangesUnchanged) return;
    std::stable_sort(collapse.Ranges.begin(), collapse.Ranges.end(),
                     [](const CollapseRange& a, const CollapseRange& b) {
                         return a.FromRow != b.FromRow ? a.FromRow < b.FromRow : a.ToRow > b.ToRow;
                     });
    // The last lines of all ranges that reach the one being looked at, the nearest on top.
    std::priority_queue<std::int32_t, std::vector<std::int32_t>, std::greater<>> around;
    std::int32_t deepest = 0;
    for (CollapseRange& range : collapse.Ranges) {
        while (!around.empty() && around.top() < range.FromRow) around.pop();
        range.Depth = static_cast<std::int32_t>(around.size());
        deepest = std::max(deepest, range.Depth);
        around.push(range.ToRow);
    }
    collapse.DeepestNesting = std::min(deepest, static_cast<std::int32_t>(OpenRanges::Most));
    collapse.RangesUnchanged = true;
    view.TextLeftMargin = MarginForNesting(surface, collapse.DeepestNesting);
}

void OpenRanges::Push(std::size_t range, int headSlot) {
    if (open_.size() == Most) {
        tooMany_ = true;
        return;
    }
    open_.push_back({range, headSlot});
}

void OpenRanges::CloseEndingIn(Line first, Line last, int endSlot) {
    const auto ends = [&](const Entry& entry) {
        const Line end{RangeOf(entry).ToRow};
        return end >= first && end <= last;
    };
    std::vector<Entry> ending;
    std::copy_if(open_.rbegin(), open_.rend(), std::back_inserter(ending), ends);
    if (ending.empty()) return;
    std::erase_if(open_, ends);
    std::stable_sort(ending.begin(), ending.end(), [&](const Entry& a, const Entry& b) {
        return RangeOf(a).ToRow < RangeOf(b).ToRow;
    });
    for (const Entry& entry : ending) DrawRangeBracket(endSlot, entry);
}

void OpenRanges::CloseAll(int endSlot) {
    for (auto entry = open_.rbegin(); entry != open_.rend(); ++entry) {
        DrawRangeBracket(endSlot, *entry);
    }
    open_.clear();
}

void OpenRanges::DrawRangeBracket(int endSlot, const Entry& entry) {
    // The range ended above the first row.
    if (endSlot < 0) return;
    const Twips height = surface_.RowHeight();
    const Image& glyph = surface_.imgExpand[0];
    const Twips x = Single(NestingStep(surface_) * RangeOf(entry).Depth +
                           surface_.imgEdit[0].Width() + Half(glyph.Width()));
    const Twips underGlyph = entry.HeadSlot < 0 ? 0 : Half(glyph.Height()) + bracketDrop;
    const Twips top = Single((entry.HeadSlot + 0.5) * height + underGlyph);
    const Twips bottom = Single((endSlot + 0.5) * height);
    LineShape& stroke = surface_.lnExpand.Load();
    stroke.SetX1(x);
    stroke.SetX2(x);
    stroke.SetY1(top);
    stroke.SetY2(std::max(top, bottom));
    stroke.SetVisible(true);
    LineShape& foot = surface_.lnExpandTo.Load();
    foot.SetX1(x);
    foot.SetX2(x + footLength);
    foot.SetY1(stroke.Y2());
    foot.SetY2(stroke.Y2());
    foot.SetVisible(true);
}

}  // namespace quorvale
