#pragma once

#include "platform/surface.h"
#include "state/view_state.h"

namespace quorvale {

/// What painting again asks of the others.
class RedrawPeers {
public:
    virtual ~RedrawPeers() = default;
    virtual void FillRows() = 0;
    virtual void LayoutView() = 0;
    /// The caret stands on a line that is shown, and its marker with it.
    virtual void SettleCaret() = 0;
    virtual bool UserMode() const = 0;
};

/// Suspends painting and takes it up again, and answers a new size of the surface.
class Redraw {
public:
    Redraw(ViewState& view, Surface& surface, RedrawPeers& peers)
        : view_(view), surface_(surface), peers_(peers) {}

    /// False adds one suspension, true takes one back; the last one taken back repaints once. A
    /// true too many does nothing.
    void SetAutoRedraw(bool redraw);

    /// The surface has another inner size.
    void Resized();

private:
    void PlaceFocusHolder();
    void PlaceFoundList();

    ViewState& view_;
    Surface& surface_;
    RedrawPeers& peers_;
};

}  // namespace quorvale
