#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include "platform/search_progress.h"
#include "platform/surface.h"
#include "search/case_table.h"
#include "search/text_search.h"
#include "state/document_state.h"
#include "state/navigation_state.h"
#include "state/search_state.h"

namespace quorvale {

/// What finding one match asks of the others.
class FindPeers {
public:
    virtual ~FindPeers() = default;
    /// Moves the caret as the host's `Offset` does: behind the unit at the 1-based position.
    virtual void SetOffset(std::int32_t position) = 0;
    /// The keyboard has come to a box of the toolbar, or left it. Nobody does anything then.
    virtual void BoxFocusChanged(FocusChild box, bool entered) = 0;
    virtual void SearchEnded(FindOutcome outcome) = 0;
    /// The control has been destroyed meanwhile.
    virtual bool HasEnded() const = 0;
};

/// Finds the text of the search box in the document, while it is typed and each time the user asks
/// for the next match, without regard to case and once around the end of the text.
///
/// The caret's offset counts the units in front of it and positions count from 1; each is used for
/// the other as it is. So the next search starts one unit behind the start of the last match, a
/// match that begins right at the caret is passed over, and overlapping ones are all found.
///
/// A host that watches long searches may do anything meanwhile. A search gives up quietly when its
/// control, its document or, for a later search, its turn is gone.
class Find {
public:
    Find(SearchState& search, Surface& surface, const DocumentState& document,
         const NavigationState& navigation, CaseTablePtr cases,
         std::shared_ptr<SearchProgress> progress, FindPeers& peers)
        : search_(search),
          surface_(surface),
          document_(document),
          navigation_(navigation),
          cases_(std::move(cases)),
          progress_(std::move(progress)),
          peers_(peers) {}

    /// Every change of the text searches afresh from where the caret stood when the box got the
    /// keyboard; never when that was in front of the text. The caret stays when there is no match.
    /// Nobody watches it.
    void TextChanged();

    /// Goes to the next match and gives the keyboard to the box.
    void FindNext();

    /// Goes to the next match in a direction; the keyboard stays.
    FindOutcome FindAgain(FindDirection direction);

    /// F3 and Enter find the next match, Escape gives the keyboard to the text; the box gets the
    /// other keys.
    void KeyDown(std::int16_t& keyCode);

    void BoxGotFocus();
    void BoxLostFocus();

private:
    std::int32_t Offset() const;
    FindOutcome GoToMatch(FindDirection direction, std::int32_t start,
                          const std::shared_ptr<SearchProgress>& progress);

    SearchState& search_;
    Surface& surface_;
    const DocumentState& document_;
    const NavigationState& navigation_;
    CaseTablePtr cases_;
    std::shared_ptr<SearchProgress> progress_;
    FindPeers& peers_;
};

}  // namespace quorvale
