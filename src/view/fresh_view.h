#pragma once

#include "document/line_access.h"
#include "platform/surface.h"
#include "state/document_state.h"
#include "state/view_state.h"

namespace quorvale {

/// What showing a new document asks of the others.
class FreshViewPeers {
public:
    virtual ~FreshViewPeers() = default;
    virtual void SetTopLine(Line line) = 0;
    virtual void LayoutView() = 0;
    virtual void FillRows() = 0;
    virtual void PlaceCaret() = 0;
};

/// Puts the view to the start of a document that has just replaced another one: nothing of the old
/// one stays on screen.
class FreshView {
public:
    FreshView(ViewState& view, Surface& surface, const DocumentState& document, LineAccess& lines,
              FreshViewPeers& peers)
        : view_(view), surface_(surface), document_(document), lines_(lines), peers_(peers) {}

    void ShowFromStart();

private:
    void ForgetRows();
    void ResetRows();
    void ShowRest();

    ViewState& view_;
    Surface& surface_;
    const DocumentState& document_;
    LineAccess& lines_;
    FreshViewPeers& peers_;
};

}  // namespace quorvale
