#pragma once

#include <chrono>
#include <memory>
#include <vector>

#include "platform/clock.h"
#include "platform/search_progress.h"

namespace quorvale {

/// Makes few turns out of the many questions of a search. A search that is over within
/// `LongAfter` has none; after that time they come at least `Between` apart, so that what is done
/// in them does not slow the search down. Searches inside one another are told apart.
class PacedProgress : public SearchProgress {
public:
    /// A search that lasts this long is a long one.
    static constexpr std::chrono::milliseconds LongAfter{300};
    /// How far its turns are apart at least.
    static constexpr std::chrono::milliseconds Between{30};

    /// By whose time it goes.
    explicit PacedProgress(std::shared_ptr<const Clock> clock) : clock_(std::move(clock)) {}

    /// See SearchProgress; derived classes have the three functions below instead.
    void Began() final;
    bool GoOn(const SearchPlace& place) final;
    void Ended() noexcept final;

protected:
    /// Once for a search that takes long, before its first turn.
    virtual void TakesLong() {}
    /// False ends the search.
    virtual bool Turn(const SearchPlace& place) = 0;
    /// A search that took long is over.
    virtual void Over() noexcept {}

private:
    struct Run {
        std::chrono::nanoseconds NextTurn;
        bool IsLong = false;
    };

    std::shared_ptr<const Clock> clock_;
    /// The innermost search is the last one.
    std::vector<Run> runs_;
};

}  // namespace quorvale
