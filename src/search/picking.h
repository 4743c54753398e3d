#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "base/ordinals.h"
#include "platform/surface.h"
#include "search/found_list.h"
#include "state/document_state.h"
#include "state/search_state.h"

namespace quorvale {

/// What picking a result asks of the others.
class PickingPeers {
public:
    virtual ~PickingPeers() = default;
    /// `changed` is true afterwards when the host has put the document in place itself.
    virtual void RaiseBeforeFileChange(const std::u16string& fileName, bool& changed) = 0;
    virtual void LoadFile(const std::u16string& fileName) = 0;
    virtual void MoveTo(Line row, std::int32_t col) = 0;
    /// A result in another file than the one that was shown has been picked, and all is done.
    virtual void PickedElsewhere(const PickedPlace& place) = 0;
    /// The control has been destroyed meanwhile.
    virtual bool HasEnded() const = 0;
};

/// Takes the user from a row of the results list to the place it names.
class Picking {
public:
    Picking(SearchState& search, Surface& surface, const DocumentState& document, FoundList& list,
            PickingPeers& peers)
        : search_(search), surface_(surface), document_(document), list_(list), peers_(peers) {}

    /// Goes to the selected result: into another file, when a file is shown now, after the host was
    /// asked whether it does that itself. A way back only leads to the text. Nothing happens when
    /// nothing is selected.
    void PickSelected();

    /// The same where a result is selected; false for a way back and for nothing.
    bool PickSelectedResult();

    /// Selects the next or previous result and goes there; false when there is none. The next one
    /// of a list that nothing was picked from yet is the one that the search has selected.
    bool PickNeighbour(bool next);

    /// Where the host takes a change of the file over, the caret stays where it is: what the host
    /// shows may be somewhere else.
    void StayWhenTakenOver(bool stay) { stays_ = stay; }

    /// Enter picks, Escape hides the list; the list gets the other keys.
    void KeyDown(std::int16_t& keyCode);

private:
    bool IsReturn(std::size_t row) const;
    /// Says whether the host has done it.
    bool ChangeFile(const std::u16string& fileName);
    bool IsFresh() const { return surface_.lvFound.Rows() != pickedFrom_.lock(); }

    SearchState& search_;
    Surface& surface_;
    const DocumentState& document_;
    FoundList& list_;
    PickingPeers& peers_;
    /// The rows that something was picked from last.
    std::weak_ptr<const ListRows> pickedFrom_;
    bool stays_ = false;
};

}  // namespace quorvale
