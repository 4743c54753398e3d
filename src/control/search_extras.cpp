#include "control/search_extras.h"

#include "control/control_parts.h"
#include "control/frame.h"

namespace quorvale {

FindOutcome SearchExtras::LastOutcome() const { return parts_.Search.LastOutcome; }

FindOutcome SearchExtras::FindAgain(FindDirection direction) {
    const Frame frame(parts_.shared_from_this());
    return frame->Find.FindAgain(direction);
}

bool SearchExtras::PickNextResult() { return PickNeighbour(true); }

bool SearchExtras::PickPreviousResult() { return PickNeighbour(false); }

bool SearchExtras::PickNeighbour(bool next) {
    const Frame frame(parts_.shared_from_this());
    return frame->Picking.PickNeighbour(next);
}

std::optional<PickedPlace> SearchExtras::Picked() const { return parts_.Search.Picked; }

void SearchExtras::Tell(FindOutcome outcome) {
    if (parts_.Ended) return;
    const auto tell = OnSearched;
    if (tell) tell(outcome);
}

}  // namespace quorvale
