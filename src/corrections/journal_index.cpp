#include "corrections/journal_index.h"

#include <algorithm>
#include <functional>
#include <queue>

#include "base/integers.h"

namespace quorvale {

const std::vector<Update>& JournalIndex::Updates() const {
    Refresh();
    return updates_;
}

std::size_t JournalIndex::CountOfAll() const {
    Refresh();
    return countOfAll_;
}

const Update* JournalIndex::FindCorrection(Line line) const {
    Refresh();
    const auto behind = std::upper_bound(
        stretches_.begin(), stretches_.end(), line.Number(),
        [](std::int32_t number, const Stretch& stretch) { return number < stretch.From; });
    if (behind == stretches_.begin()) return nullptr;
    const auto& first = (behind - 1)->First;
    return first ? &updates_[*first] : nullptr;
}

void JournalIndex::ExpandToCorrections(std::int32_t& start, std::int32_t& count) const {
    std::int64_t from = start;
    std::int64_t end = from + count;
    for (const Update& update : Updates()) {
        const std::int64_t s = update.Range.Start;
        const std::int64_t behind = update.Range.End();
        const bool meets = (s < end && from <= s) || (from < behind && s <= from);
        if (!meets) continue;
        from = std::min(from, s);
        end = std::max(end, behind);
    }
    start = CheckedCast<std::int32_t>(from);
    count = CheckedCast<std::int32_t>(end - from);
}

void JournalIndex::Refresh() const {
    if (readAt_ == state_.Changes) return;
    updates_.clear();
    stretches_.clear();
    countOfAll_ = 0;
    ReadUpdates();
    FindStretches();
    readAt_ = state_.Changes;
}

void JournalIndex::ReadUpdates() const {
    if (state_.JournalDocument == nullptr) return;
    const std::vector<XmlNodePtr> all = state_.JournalDocument->SelectNodes(u"update");
    countOfAll_ = all.size();
    for (std::size_t number = 0; number < all.size(); ++number) {
        if (const auto range = RangeOf(*all[number])) {
            updates_.push_back({all[number], *range, number});
        }
    }
}

// Walks over the lines at which a correction begins or ends and keeps the open ones in a heap, the
// first in document order on top; those that have ended leave it when they come to the top.
void JournalIndex::FindStretches() const {
    std::vector<std::size_t> byStart;
    std::vector<std::int32_t> edges;
    for (std::size_t i = 0; i < updates_.size(); ++i) {
        if (updates_[i].Range.Count == 0) continue;
        byStart.push_back(i);
        edges.push_back(updates_[i].Range.Start);
        edges.push_back(updates_[i].Range.End());
    }
    const auto startOf = [this](std::size_t i) { return updates_[i].Range.Start; };
    std::sort(byStart.begin(), byStart.end(),
              [&](std::size_t a, std::size_t b) { return startOf(a) < startOf(b); });
    std::sort(edges.begin(), edges.end());
    edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
    std::priority_queue<std::size_t, std::vector<std::size_t>, std::greater<>> open;
    std::size_t next = 0;
    for (const std::int32_t edge : edges) {
        while (next < byStart.size() && startOf(byStart[next]) == edge) open.push(byStart[next++]);
        while (!open.empty() && updates_[open.top()].Range.End() <= edge) open.pop();
        stretches_.push_back({edge, open.empty() ? std::nullopt : std::optional(open.top())});
    }
}

}  // namespace quorvale
