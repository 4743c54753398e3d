#include "platform/paced_progress.h"

namespace quorvale {

void PacedProgress::Began() { runs_.push_back({clock_->Now() + LongAfter}); }

bool PacedProgress::GoOn(const SearchPlace& place) {
    if (runs_.empty() || clock_->Now() < runs_.back().NextTurn) return true;
    if (!runs_.back().IsLong) {
        runs_.back().IsLong = true;
        TakesLong();
    }
    const bool goesOn = Turn(place);
    // From the end of the turn on: a slow turn leaves the search its time all the same.
    runs_.back().NextTurn = clock_->Now() + Between;
    return goesOn;
}

void PacedProgress::Ended() noexcept {
    if (runs_.empty()) return;
    const bool wasLong = runs_.back().IsLong;
    if (wasLong) Over();
    runs_.pop_back();
}

}  // namespace quorvale
