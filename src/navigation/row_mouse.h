#pragma once

#include "navigation/caret.h"
#include "platform/keys.h"
#include "platform/surface.h"
#include "state/document_state.h"
#include "state/navigation_state.h"
#include "state/view_state.h"

namespace quorvale {

/// What the mouse on the rows asks of the others. Places are in twips on the control.
class RowMousePeers {
public:
    virtual ~RowMousePeers() = default;
    virtual void SetTopLine(Line line) = 0;
    virtual void RaiseMouseDown(const MouseEvent& event) = 0;
    virtual void RaiseMouseUp(const MouseEvent& event) = 0;
    virtual void RaiseDblClick() = 0;
    virtual void RaiseImageClick(Line line) = 0;
};

/// Turns the mouse on rows, line images and the caret's marker into caret moves, row selections
/// and events. Events over a row carry places relative to its label.
class RowMouse {
public:
    RowMouse(NavigationState& navigation, Surface& surface, const DocumentState& document,
             const ViewState& view, Caret& caret, RowMousePeers& peers)
        : navigation_(navigation),
          surface_(surface),
          document_(document),
          view_(view),
          caret_(caret),
          peers_(peers) {}

    void RowPressed(int slot, const MouseEvent& event);
    /// The mouse moves over the row, or away from it while the row holds the press.
    void RowMoved(int slot, const MouseEvent& event);
    void RowReleased(int slot, const MouseEvent& event);
    void RowDoubleClicked(int slot);
    void LineImageClicked(int slot);

    // The marker lies over the rows and must not block a click: what it gets, the row under it
    // gets.
    void MarkerPressed(const MouseEvent& event);
    void MarkerMoved(const MouseEvent& event);
    void MarkerReleased(const MouseEvent& event);

private:
    struct Place {
        Twips X;
        Twips Y;
    };

    void Press(int slot, const MouseEvent& event, Place dragsFrom);
    void Drag(int slot, const MouseEvent& event);
    void DragBeyond(bool above);
    void ExtendTo(Line row, std::int32_t col);
    void HoldMarker();
    MouseEvent OnControl(int slot, const MouseEvent& event) const;
    MouseEvent OnRow(int slot, const MouseEvent& event) const;
    int SlotAtMarker(Twips y) const;

    NavigationState& navigation_;
    Surface& surface_;
    const DocumentState& document_;
    const ViewState& view_;
    Caret& caret_;
    RowMousePeers& peers_;
};

}  // namespace quorvale
