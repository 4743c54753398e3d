#pragma once

#include "base/ordinals.h"
#include "document/line_access.h"
#include "platform/surface.h"
#include "state/document_state.h"
#include "state/navigation_state.h"
#include "state/view_state.h"

namespace quorvale {

/// What bringing a line into view asks of the others.
class RevealPeers {
public:
    virtual ~RevealPeers() = default;
    /// Opens every folded range that hides the line; repaints nothing.
    virtual void OpenAround(Line line) = 0;
    virtual void FillRows() = 0;
    virtual void LayoutView() = 0;
    virtual void SetTopLine(Line line) = 0;
};

/// Brings a line and a column of it into view.
class Reveal {
public:
    Reveal(Surface& surface, const DocumentState& document, const ViewState& view,
           const NavigationState& navigation, LineAccess& lines, RevealPeers& peers)
        : surface_(surface),
          document_(document),
          view_(view),
          navigation_(navigation),
          lines_(lines),
          peers_(peers) {}

    /// Opens the folds around the line, scrolls it into the upper half of the view and shifts the
    /// rows until the column can be seen. The line is clamped to 1 .. `LineSlots` for the caller
    /// too. Nothing happens before a document is set.
    void RevealLine(Line& line, std::int32_t col);

private:
    void OpenFolds(Line line);
    void ScrollTo(Line line);
    Line LineInSlot(int slot) const;
    Line Centred(Line line) const;
    void ShiftTo(Line line, std::int32_t col);
    void LayoutIfGrown();

    Surface& surface_;
    const DocumentState& document_;
    const ViewState& view_;
    const NavigationState& navigation_;
    LineAccess& lines_;
    RevealPeers& peers_;
};

}  // namespace quorvale
