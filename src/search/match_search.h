#pragma once

#include <cstdint>
#include <functional>

#include "base/text_store.h"
#include "search/text_search.h"
#include "state/search_state.h"

namespace quorvale {

/// Where a match begins, counted from 1; 0 for none.
struct Match {
    std::int32_t Position = 0;
    FindOutcome Outcome = FindOutcome::NotFound;
};

/// Looks for the next match in a text and once around its end, stretch by stretch. No unit is
/// looked at twice.
class MatchSearch {
public:
    /// So many positions are searched between two questions.
    static constexpr std::int32_t Stretch = 1 << 20;

    /// Told how many positions are done; false ends the search, and the text is not touched again.
    using GoOn = std::function<bool(std::int32_t done)>;

    /// Both must outlive this object.
    MatchSearch(const TextStore& text, const TextSearch& search, GoOn goOn)
        : text_(text), search_(search), goOn_(std::move(goOn)) {}

    /// The first match that begins at or behind `start`, which is 1 or more, then the first of all
    /// in front of it. An empty text is found at `start`, and at 1 beyond the end.
    Match Forward(std::int32_t start);

    /// The last match that begins at or before `start`, then the last of all behind it.
    Match Backward(std::int32_t start);

private:
    std::int32_t FirstIn(std::int32_t first, std::int32_t last);
    std::int32_t LastIn(std::int32_t first, std::int32_t last);
    bool GoesOn(std::int32_t searched);
    Match Wrapped(std::int32_t position) const;

    const TextStore& text_;
    const TextSearch& search_;
    GoOn goOn_;
    std::int32_t done_ = 0;
    bool stopped_ = false;
};

}  // namespace quorvale
