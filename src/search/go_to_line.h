#pragma once

#include "base/ordinals.h"
#include "platform/surface.h"

namespace quorvale {

/// What going to a line asks of the others.
class GoToLinePeers {
public:
    virtual ~GoToLinePeers() = default;
    /// Moves the caret to the line, wherever the number leads.
    virtual void SetRow(Line row) = 0;
    /// The keyboard has come to a box of the toolbar, or left it. Nobody does anything then.
    virtual void BoxFocusChanged(FocusChild box, bool entered) = 0;
};

/// Goes to the line whose number stands in the toolbar's line box.
class GoToLine {
public:
    GoToLine(Surface& surface, GoToLinePeers& peers) : surface_(surface), peers_(peers) {}

    /// Nothing happens when the text is no number of 32 bits.
    void Go();

    void BoxGotFocus();
    void BoxLostFocus();

private:
    Surface& surface_;
    GoToLinePeers& peers_;
};

}  // namespace quorvale
