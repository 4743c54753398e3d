#include "search/line_query.h"

#include <utility>

#include "base/integers.h"

namespace quorvale {

LineQuery::LineQuery(std::u16string_view typed, Kind kind, CaseTablePtr cases, SearchKernel kernel)
    : cases_(std::move(cases)),
      wanted_(KeysOf(typed, cases_->Capitals)),
      search_(wanted_, cases_, kernel) {
    if (kind == Kind::Wildcard) pattern_.emplace(u"*" + wanted_ + u"*");
}

template <class Unit>
std::int32_t LineQuery::PositionAmong(std::span<const Unit> line) const {
    if (pattern_) return pattern_->Matches(line, cases_->Capitals) ? 1 : 0;
    const std::size_t index = search_.FindIn(line);
    return index == TextSearch::Nowhere ? 0 : CheckedCast<std::int32_t>(index + 1);
}

std::int32_t LineQuery::PositionIn(std::span<const std::uint8_t> line) const {
    return PositionAmong(line);
}

std::int32_t LineQuery::PositionIn(std::span<const char16_t> line) const {
    return PositionAmong(line);
}

std::vector<std::u16string> LineQuery::Literals() const {
    if (pattern_) return pattern_->Literals();
    if (wanted_.empty()) return {};
    return {KeysOf(wanted_, cases_->Folds)};
}

}  // namespace quorvale
