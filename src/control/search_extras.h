#pragma once

#include <functional>
#include <optional>

#include "search/find.h"
#include "state/search_state.h"

namespace quorvale {

class ControlParts;

/// What a host may ask of the search and do with it beyond the control's members: keys of its own
/// for finding, and what to tell its user. It lives as long as its control.
class SearchExtras {
public:
    explicit SearchExtras(ControlParts& parts) : parts_(parts) {}

    /// Hears of every search for one match when it is over: also of those that typing starts.
    std::function<void(FindOutcome)> OnSearched;

    /// How the last one ended.
    FindOutcome LastOutcome() const;

    /// Goes to the next or previous match of the text in the search box. Unlike the box's own keys
    /// it leaves the keyboard where it is.
    FindOutcome FindAgain(FindDirection direction);

    /// Selects the next or the previous result of the list, shown or not, and goes there as if the
    /// user had picked it; false when there is none.
    bool PickNextResult();
    bool PickPreviousResult();

    /// Where a picked result leads; known while `BeforeFileChange` is raised for it.
    std::optional<PickedPlace> Picked() const;

private:
    friend class Switchboard;
    void Tell(FindOutcome outcome);
    bool PickNeighbour(bool next);

    ControlParts& parts_;
};

}  // namespace quorvale
