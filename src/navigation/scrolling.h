#pragma once

#include "platform/surface.h"
#include "state/document_state.h"
#include "state/navigation_state.h"
#include "state/view_state.h"

namespace quorvale {

/// What a new top line asks of the others.
class ScrollPeers {
public:
    virtual ~ScrollPeers() = default;
    virtual void LayoutView() = 0;
    virtual void FillRows() = 0;
    /// Places the caret where it is, so that the marker follows the rows.
    virtual void PlaceCaret() = 0;
    virtual void RaiseScrolled() = 0;
};

/// Moves the view up and down over the document. The vertical scroll bar counts in steps of
/// `ScrollScale` lines; the exact top line is kept beside it.
class Scrolling {
public:
    Scrolling(NavigationState& navigation, Surface& surface, const DocumentState& document,
              const ViewState& view, ScrollPeers& peers)
        : navigation_(navigation),
          surface_(surface),
          document_(document),
          view_(view),
          peers_(peers) {}

    /// Makes a line the topmost, as far down as the document fills the view. A request for the
    /// present top line does nothing; any other one repaints and is reported, also when it is
    /// clamped back to where the view stands.
    void SetTopLine(Line line);

    /// The vertical bar's value moved.
    void VerticalChanged();

    /// After a layout: the top line follows a smaller range. It is not taken back from the bar,
    /// which is too coarse to name every line.
    void SettleTopLine();

private:
    bool StandsAtTopLine() const;
    Line AimedLine() const;
    std::int32_t LastTopLine() const;

    NavigationState& navigation_;
    Surface& surface_;
    const DocumentState& document_;
    const ViewState& view_;
    ScrollPeers& peers_;
};

}  // namespace quorvale
