#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "base/export.h"
#include "platform/search_outcome.h"

namespace quorvale {

class ControlParts;

/// What a host may ask of the search and do with it beyond the control's members: keys of its own
/// for finding, and what to tell its user. It lives as long as its control.
class QUORVALE_CORE_EXPORT SearchExtras {
public:
    /// For the control itself, which makes its own.
    explicit SearchExtras(ControlParts& parts) : parts_(parts) {}

    /// Hears of every search for one match when it is over: also of those that typing starts.
    std::function<void(FindOutcome)> OnSearched;

    /// How the last one ended.
    FindOutcome LastOutcome() const;

    /// Goes to the next or previous match of the text in the search box. Unlike the box's own keys
    /// it leaves the keyboard where it is.
    FindOutcome FindAgain(FindDirection direction);

    /// Puts a text into the search box, for a search that comes next: unlike what is typed there or
    /// set by the member, it is not looked for at once.
    void PutText(const std::u16string& text);

    /// Lists all matches of the text in the search box, as the menu of the Find button does: in the
    /// files that were named, else in the shown document. How many there are; 0 for an empty box,
    /// with nothing done. Throws nothing.
    std::size_t FindAll();
    /// The same with the text as a pattern: `*`, `?`, `#` and `[...]` stand for others.
    std::size_t FindAllOfPattern();
    /// Shows the list again as the last search has filled it.
    void ShowLastList();

    /// Goes to the selected result of the list, shown or not, as if the user had picked it; false
    /// when none is selected. A search selects one, the first at or behind the caret's line.
    bool PickSelected();
    /// Selects the next result and goes there; false when there is none. The first one after a
    /// search is the one that the search has selected.
    bool PickNextResult();
    /// The same with the result before the selected one.
    bool PickPreviousResult();

    /// How many files the search has looked at that filled the list: all of them, unless it was
    /// ended before.
    std::size_t FilesSearched() const;

    /// Where a picked result leads; known while `BeforeFileChange` is raised for it.
    std::optional<PickedPlace> Picked() const;

    /// Where the host takes the change to another file over, the caret of what is shown stays and
    /// no fold opens for it; false at first, as the picked place belongs to what the host has put
    /// in its place.
    void StayWhenTakenOver(bool stay);

    /// Hears of every picked result in another file than the one that was shown, when the pick is
    /// over: also where no file is shown, and the control neither asks its host nor loads anything.
    std::function<void(const PickedPlace&)> OnPickedElsewhere;

private:
    friend class Switchboard;
    friend class HostExtras;
    static void WithoutSearching(ControlParts& parts, const std::function<void()>& act);
    void Tell(FindOutcome outcome);
    void TellPicked(const PickedPlace& place);
    bool PickNeighbour(bool next);
    std::size_t List(bool asPattern);

    ControlParts& parts_;
};

}  // namespace quorvale
