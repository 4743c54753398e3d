#include "search/match_search.h"

#include <algorithm>

namespace quorvale {

Match MatchSearch::Forward(std::int32_t start) {
    const std::int32_t length = text_.Length();
    if (length == 0) return {};
    if (search_.IsEmpty()) {
        return start <= length ? Match{start, FindOutcome::Found} : Match{1, FindOutcome::Wrapped};
    }
    const std::int32_t behind = FirstIn(start, length);
    if (behind != 0) return {behind, FindOutcome::Found};
    return Wrapped(stopped_ ? 0 : FirstIn(1, std::min(start - 1, length)));
}

Match MatchSearch::Backward(std::int32_t start) {
    const std::int32_t length = text_.Length();
    if (length == 0) return {};
    if (search_.IsEmpty()) {
        return start >= 1 ? Match{start, FindOutcome::Found} : Match{length, FindOutcome::Wrapped};
    }
    const std::int32_t before = LastIn(1, std::min(start, length));
    if (before != 0) return {before, FindOutcome::Found};
    return Wrapped(stopped_ ? 0 : LastIn(std::max(start, 0) + 1, length));
}

Match MatchSearch::Wrapped(std::int32_t position) const {
    if (position != 0) return {position, FindOutcome::Wrapped};
    return {0, stopped_ ? FindOutcome::Stopped : FindOutcome::NotFound};
}

std::int32_t MatchSearch::FirstIn(std::int32_t first, std::int32_t last) {
    while (first <= last && !stopped_) {
        const std::int32_t end = last - first < Stretch ? last : first + Stretch - 1;
        const std::int32_t found = search_.FirstIn(text_, first, end);
        if (found != 0) return found;
        if (!GoesOn(end - first + 1) || end == last) break;
        first = end + 1;
    }
    return 0;
}

std::int32_t MatchSearch::LastIn(std::int32_t first, std::int32_t last) {
    while (first <= last && !stopped_) {
        const std::int32_t begin = last - first < Stretch ? first : last - Stretch + 1;
        const std::int32_t found = search_.LastIn(text_, begin, last);
        if (found != 0) return found;
        if (!GoesOn(last - begin + 1)) break;
        last = begin - 1;
    }
    return 0;
}

bool MatchSearch::GoesOn(std::int32_t searched) {
    done_ += searched;
    stopped_ = !goOn_(done_);
    return !stopped_;
}

}  // namespace quorvale
