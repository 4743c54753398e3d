#pragma once

#include "base/ordinals.h"
#include "state/collapse_state.h"
#include "state/document_state.h"
#include "state/navigation_state.h"
#include "state/view_state.h"

namespace quorvale {

/// What a fold asks of the others.
class FoldingPeers {
public:
    virtual ~FoldingPeers() = default;
    virtual void FillRows() = 0;
    virtual void LayoutView() = 0;
    /// The caret's line becomes another one and nobody hears of it.
    virtual void StoreRow(Line row) = 0;
    /// The caret goes to the line through the `row` property: revealed, marked, reported.
    virtual void SetRow(Line row) = 0;
    /// The caret's line was changed behind its back: selection and host must hear of it.
    virtual void CaretMoved() = 0;
};

/// Folds and unfolds ranges. A fold is nothing but a depth per line: a line inside n folded ranges,
/// not counting those it is the first line of, has the depth n and is hidden from 1 on.
class Folding {
public:
    Folding(DocumentState& document, const NavigationState& navigation,
            const CollapseState& collapse, const ViewState& view, FoldingPeers& peers)
        : document_(document),
          navigation_(navigation),
          collapse_(collapse),
          view_(view),
          peers_(peers) {}

    /// Folds every registered range. Index error for a range that runs past the document: the
    /// depths raised so far stay, and screen and caret agree with them.
    void CollapseAll();

    /// Unfolds everything; the ranges stay registered.
    void ExpandAll();

    /// Folds one range; the caret goes to its first line. Fails as `CollapseAll`, and with Overflow
    /// when a line lies in too many folds.
    void CollapseRangeAt(Line from, Line to);

    /// Unfolds the hidden lines right below a line, by one level or by all; the caret goes to the
    /// line. Nothing happens for a number that is no entry of the line table.
    void ExpandAt(Line line, bool all);

    /// Opens every range that hides the line; deeper folds stay folded in them.
    void OpenAround(Line line);

    /// Whether the range that starts at the line is folded.
    bool HasHiddenBelow(Line line) const;

private:
    bool ClimbToShown();
    void RepaintAt(Line caret, bool climbed);
    void RepaintAfterFailure(bool climbed);
    void RaiseDepths();

    DocumentState& document_;
    const NavigationState& navigation_;
    const CollapseState& collapse_;
    const ViewState& view_;
    FoldingPeers& peers_;
};

}  // namespace quorvale
