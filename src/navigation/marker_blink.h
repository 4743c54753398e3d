#pragma once

#include "platform/surface.h"
#include "state/document_state.h"

namespace quorvale {

class MarkerBlinkPeers {
public:
    virtual ~MarkerBlinkPeers() = default;
    /// Records what stands in an open editor.
    virtual void CloseEdit() = 0;
};

/// Lets the caret's marker blink while the text has the keyboard, and stand still otherwise. In an
/// empty document there is no marker.
class MarkerBlink {
public:
    MarkerBlink(Surface& surface, const DocumentState& document, MarkerBlinkPeers& peers)
        : surface_(surface), document_(document), peers_(peers) {}

    void Ticked();
    /// The keyboard comes to the control, or leaves it.
    void Entered();
    void Exited();
    /// It moves from one element of the control to another.
    void ChildGotFocus(FocusChild child);
    void ChildLostFocus(FocusChild child);

private:
    bool HasText() const;

    Surface& surface_;
    const DocumentState& document_;
    MarkerBlinkPeers& peers_;
};

}  // namespace quorvale
