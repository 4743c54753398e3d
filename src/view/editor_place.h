#pragma once

#include "platform/surface.h"
#include "state/editing_state.h"
#include "state/view_state.h"

namespace quorvale {

class EditorPlacePeers {
public:
    virtual ~EditorPlacePeers() = default;
    /// Closes the editor and records what stands in it.
    virtual void CloseEdit() = 0;
};

/// Keeps the open editor over the rows it stands for.
class EditorPlace {
public:
    EditorPlace(const ViewState& view, Surface& surface, const EditingState& editing,
                EditorPlacePeers& peers)
        : view_(view), surface_(surface), editing_(editing), peers_(peers) {}

    /// Moves the editor over its rows, or closes it when they are off screen. Does nothing unless
    /// it is open.
    void PlaceEditor();

private:
    /// The slots the editor reaches from and to: the last one at or above its first line, and the
    /// first one below its last.
    struct Span {
        int First;
        int End;
    };

    Span FindSpan() const;

    const ViewState& view_;
    Surface& surface_;
    const EditingState& editing_;
    EditorPlacePeers& peers_;
};

}  // namespace quorvale
